// What the tests of the register share: a document, a list of rows and status panes that remember
// what was asked of them.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "account/qmdocument.h"
#include "register/qmregistermodel.h"
#include "tests/support/support.h"

using Words = std::vector<uint32_t>;

// One row: the texts that were written since it was appended, by the name of the column.
struct RecordedRow
{
    std::map<std::string, std::string> texts;
    uint32_t uDecoration = 0;
};

// One line for each row: its texts by name in alphabetical order, then its decoration word.
Texts DescribeRows(const std::vector<RecordedRow>& rows);

// Notes every call. A call for a row or a column that the list does not have fails the running
// test.
class RecordingRowList : public QMRowList
{
public:
    bool RebuildColumns(const QMColumnTable& columns) override;
    void AdjustFillerColumn() override { m_log.push_back("filler"); }
    bool DeleteAllRows() override;
    bool SetCapacity(int32_t lRows) override;
    bool AppendRow() override;
    bool InsertRow(int32_t lRow) override;
    void DeleteRows(const int32_t* pRows, int32_t lCount) override;
    int32_t GetRowCount() const override { return static_cast<int32_t>(m_rows.size()); }
    bool SetCellText(int32_t lRow, int32_t lColumn, std::string_view text) override;
    bool SetDecoration(int32_t lRow, uint32_t uDecoration) override;
    bool SelectRow(int32_t lRow) override;
    int32_t GetSelectedCount() const override { return static_cast<int32_t>(m_selected.size()); }
    int32_t GetNextSelected(int32_t lAfter) const override;
    void SetLineFlag(uint32_t uBit, bool bOn) override;
    void Repaint() override { m_log.push_back("repaint"); }

    // The calls since the last Take: "columns", "filler", "delete", "capacity 3", "append", "text 2
    // Debit", "decoration 2", "select 2" and "repaint". A call that was made to fail ends in "!"
    // and changed nothing.
    Texts TakeLog();

    // Lets the next nBefore operations succeed and the one after them fail.
    void FailAfter(int nBefore) { m_nBeforeFailure = nBefore; }

    const std::vector<RecordedRow>& GetRows() const { return m_rows; }
    // The column's text in each row; "(none)" where nothing was written.
    Texts GetColumn(const char* szName) const;
    Words GetDecorations() const;
    // The names of the columns in the order of their list indices.
    const Texts& GetColumnNames() const { return m_columns; }

    // The row that SelectRow selected last; -1 for none.
    int32_t GetSelectedRow() const { return m_lSelectedRow; }
    // Selects rows as a user does.
    void SetSelection(const std::set<int32_t>& rows) { m_selected = rows; }
    const std::set<int32_t>& GetSelection() const { return m_selected; }
    void SetSelectedCount(int32_t lCount);
    uint32_t GetLineFlags() const { return m_uLineFlags; }

private:
    bool Begin(const std::string& sCall);
    bool HasRow(int32_t lRow) const;

    Texts m_log;
    Texts m_columns;
    std::vector<RecordedRow> m_rows;
    int m_nBeforeFailure = -1;
    int32_t m_lSelectedRow = -1;
    std::set<int32_t> m_selected;
    uint32_t m_uLineFlags = QM_GRID_SHADED | QM_GRID_VERTICAL;
};

// The texts of the four panes, at first "(none)". A pane outside 1 to 4 fails the running test.
class RecordingStatusPanes : public QMStatusPanes
{
public:
    void SetPaneText(int nPane, const char* szText) override;

    const Texts& GetTexts() const { return m_texts; }

private:
    Texts m_texts = Texts(nCount, "(none)");
};

class RecordingDocument : public QMDocument
{
public:
    // The titles since the last Take.
    Texts TakeTitles();

protected:
    void OnTitleChanged() override { m_titles.push_back(GetTitle().GetText()); }

private:
    Texts m_titles;
};

// The register of an account that was never saved, house.qmk.
struct TestRegister
{
    TestRegister();

    QMTransactionStore& Store() { return document.GetAccount()->store; }
    QMAccountHeader& Header() { return document.GetAccount()->header; }

    // Parameters as those of MakeTransaction.
    void Add(int32_t lType, const std::string& sDate, float fAmount,
             uint32_t uFlags = QM_TRANS_FLAG_NOT_CLEARED, const std::string& sDescription = "");

    // The transaction at a position. Moves the cursor to it.
    QMTransaction& At(int32_t lPosition);

    void SetHeaderPeriod(uint32_t uSelection, const std::string& sFrom, const std::string& sTo);

    // Fills the list as for a new window and forgets the calls. The running test fails when the
    // list cannot be filled.
    void Show();

    RecordingDocument document;
    RecordingRowList rows;
    QMRegisterModel model{document, rows};
};
