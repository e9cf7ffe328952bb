// QMRegisterModel: what the register of one account shows: its rows with their running balance, the
// display period, the selection's place in the store, and the texts of the status bar.
#pragma once

#include <cstdint>

#include "account/qmdocument.h"
#include "register/qmcolumntable.h"
#include "register/qmrowlist.h"

// The four panes of the status bar that belong to the register on top, numbered from 1.
class QMStatusPanes
{
public:
    static constexpr int nCount = 4;

    virtual ~QMStatusPanes() = default;
    virtual void SetPaneText(int nPane, const char* szText) = 0;
};

// The store is in date order and a period is one range of dates, so the transactions shown are one
// stretch of the store: row r of the list is store position GetFirstShown() + r, and nothing else
// links a row to a transaction.
class QMRegisterModel
{
public:
    // Both must outlive the model.
    QMRegisterModel(QMDocument& document, QMRowList& rows) : m_document(document), m_rows(rows) {}

    // Makes the list's rows anew, empty, and with bWithColumns its columns from the header. False
    // without an account or when the list fails.
    bool RebuildRows(bool bWithColumns);

    // Computes the sums and fills the rows from a store position on, in the visible columns of the
    // mask; a row's decoration word is replaced whole, by those of its columns in the mask alone.
    // The sums always start from the first transaction. False without an account, when the store
    // has transactions but not that position, or when the list fails.
    bool RefreshRows(int32_t lFromPosition, uint32_t uColumnMask, bool bRepaint);

    // Selects one row and sets the store's cursor on its transaction; false when there is no such
    // row.
    bool SelectRow(int32_t lRow);

    // Takes over the row that has the list's focus (-1 for none) and, for a row, sets the store's
    // cursor on it. True when it is another one than before.
    bool SetFocusRow(int32_t lRow);

    // Sets the display period and marks the document modified if that changed it. For
    // QM_ACCNT_DISPLAY_ALL the dates come back as those of the first and the last transaction, or
    // 1 January 2000 twice for an empty store; the header takes the same. bReload fills the list
    // anew and selects its last row.
    void SetPeriod(uint32_t uSelection, QMDate& dtFrom, QMDate& dtTo, bool bReload);

    // Whether the display period applies at all; the header's stays as it is.
    void SetPeriodFilter(bool bEnabled, bool bReload);

    // Fills list and columns anew and selects the last row, as a window coming up does. False when
    // the list fails.
    bool ShowAll();

    // Gives the panes the texts for the present selection and sums, and for dtToday; bClear
    // empties them.
    void UpdateStatusBar(bool bClear, const QMDate& dtToday, QMStatusPanes& panes) const;

    // dAvailable or dBalance of the last refresh: with all transactions that are not voided, or
    // with the cleared ones alone.
    double GetBalance(bool bAvailable) const { return bAvailable ? m_dAvailable : m_dBalance; }

    // Whether the period, where it applies, has room for a date.
    bool IsDateShown(const QMDate& date) const;

    // Store position of the first transaction that has a row; 0 when none has.
    int32_t GetFirstShown() const { return m_lFirstShown; }
    int32_t GetRowCount() const { return m_rows.GetRowCount(); }
    bool HasSelection() const { return m_rows.GetSelectedCount() > 0; }
    // -1 when nothing is selected.
    int32_t GetFocusRow() const { return HasSelection() ? m_lFocusRow : -1; }
    // The row that had the focus last, selected or not; -1 for none.
    int32_t GetStoredFocusRow() const { return m_lFocusRow; }
    const QMColumnTable& GetColumns() const { return m_columns; }
    QMColumnTable& GetColumns() { return m_columns; }

    // Option: the balance column counts what is not cleared, too.
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
