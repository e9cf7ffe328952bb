// QMRegisterModel: what the register of one account shows: the rows with their running balance, the
// display period, the row with the focus, and the texts of the status bar.
#pragma once

#include <cstdint>

#include "account/qmdocument.h"
#include "register/qmcolumntable.h"
#include "register/qmrowlist.h"

// The four panes of the status bar that show the active register. They are numbered from 1.
class QMStatusPanes
{
public:
    static constexpr int nCount = 4;

    virtual ~QMStatusPanes() = default;
    virtual void SetPaneText(int nPane, const char* szText) = 0;
};

// The store is in date order and a period is one range of dates, so the transactions that are shown
// are one unbroken part of the store. Row r of the list is store position GetFirstShown() + r.
// Nothing else links a row to a transaction.
class QMRegisterModel
{
public:
    // The document and the rows must live longer than the model.
    QMRegisterModel(QMDocument& document, QMRowList& rows) : m_document(document), m_rows(rows) {}

    // Makes the list's rows anew, without texts. With bWithColumns the columns are made anew from
    // the header too. Returns false when there is no account or the list fails.
    bool RebuildRows(bool bWithColumns);

    // Computes the sums of the whole store and writes the rows from a store position on, in those
    // visible columns that are in the mask. Returns false when there is no account, when the store
    // is not empty and has no such position, and when the list fails.
    //
    // Kept: the decoration word of a row is replaced as a whole. Columns that are not in the mask
    // lose their colour and marks until they are refreshed again.
    bool RefreshRows(int32_t lFromPosition, uint32_t uColumnMask, bool bRepaint);

    // Selects one row and sets the store's cursor on its transaction. Returns false when there is
    // no such row.
    bool SelectRow(int32_t lRow);

    // Notes which row has the focus (-1 for none) and sets the store's cursor on its transaction.
    // Returns whether it is another row than before.
    bool SetFocusRow(int32_t lRow);

    // Sets the display period, and marks the document as modified if that changes it. For
    // QM_ACCNT_DISPLAY_ALL both dates are set to those of the first and of the last transaction; in
    // an empty store both are 1 January 2000. They go into the header too. With bReload the list is
    // filled again and its last row is selected.
    void SetPeriod(uint32_t uSelection, QMDate& dtFrom, QMDate& dtTo, bool bReload);

    // Sets whether the display period applies at all. The header keeps its period.
    void SetPeriodFilter(bool bEnabled, bool bReload);

    // Fills the list and its columns and selects the last row, as for a new window. Returns false
    // when the list fails.
    bool ShowAll();

    // Gives the panes the texts for the present selection and sums, and for the day dtToday. bClear
    // empties the panes instead.
    void UpdateStatusBar(bool bClear, const QMDate& dtToday, QMStatusPanes& panes) const;

    // The sum of the last refresh. dAvailable counts every transaction that is not voided; dBalance
    // counts only those of them that are cleared.
    double GetBalance(bool bAvailable) const { return bAvailable ? m_dAvailable : m_dBalance; }

    // Whether a transaction of that date is shown: it is in the period, or the period does not
    // apply.
    bool IsDateShown(const QMDate& date) const;

    // Looks up what GetFirstShown answers. Needed after the store has gained or lost transactions,
    // unless RefreshRows has run since: a transaction before the first row moves it.
    void FindFirstShown();
    // The store position of the first transaction that has a row; 0 when none has.
    int32_t GetFirstShown() const { return m_lFirstShown; }
    int32_t GetRowCount() const { return m_rows.GetRowCount(); }
    bool HasSelection() const { return m_rows.GetSelectedCount() > 0; }
    // The row with the focus; -1 when nothing is selected.
    int32_t GetFocusRow() const { return HasSelection() ? m_lFocusRow : -1; }
    // The row that had the focus last, whether it is selected or not; -1 for none.
    int32_t GetStoredFocusRow() const { return m_lFocusRow; }
    const QMColumnTable& GetColumns() const { return m_columns; }
    QMColumnTable& GetColumns() { return m_columns; }

    // An option of the program: the balance column also counts transactions that are not cleared.
    void SetIncludeUncleared(bool bInclude) { m_bIncludeUncleared = bInclude; }

private:
    class Refresh;

    bool FillRows(int32_t lFromPosition, uint32_t uColumnMask, QMTransactionStore& store);
    bool Reload(bool bWithColumns);

    QMDocument& m_document;
    QMRowList& m_rows;
    QMColumnTable m_columns;
    int32_t m_lFirstShown = 0;
    int32_t m_lFocusRow = -1;
    bool m_bPeriodFilter = false;
    bool m_bIncludeUncleared = true;
    double m_dBalance = 0;
    double m_dAvailable = 0;
};
