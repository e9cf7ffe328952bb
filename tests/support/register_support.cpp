#include "tests/support/register_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>

Texts DescribeRows(const std::vector<RecordedRow>& rows)
{
    Texts lines;
    for (const RecordedRow& row : rows) {
        std::string sLine;
        for (const auto& [sColumn, sText] : row.texts) {
            sLine += sColumn + "='" + sText + "' ";
        }
        lines.push_back(sLine + std::to_string(row.uDecoration));
    }
    return lines;
}

// Notes the call. Returns false when this call is to fail.
bool RecordingRowList::Begin(const std::string& sCall)
{
    const bool bFails = m_nBeforeFailure-- == 0;
    m_log.push_back(bFails ? sCall + "!" : sCall);
    return !bFails;
}

bool RecordingRowList::HasRow(int32_t lRow) const
{
    EXPECT_GE(lRow, 0);
    EXPECT_LT(lRow, GetRowCount());
    return lRow >= 0 && lRow < GetRowCount();
}

bool RecordingRowList::RebuildColumns(const QMColumnTable& columns)
{
    EXPECT_TRUE(m_rows.empty());
    if (!Begin("columns")) {
        return false;
    }
    m_columns.assign(static_cast<size_t>(columns.GetVisibleCount()), "");
    for (int32_t i = 0; i < QM_ENTRY_COUNT; ++i) {
        const auto column = static_cast<QMColumn>(i);
        if (columns.IsVisible(column)) {
            m_columns.at(static_cast<size_t>(columns.GetListIndex(column))) =
                QMGetColumnInfo(column).szName;
        }
    }
    return true;
}

bool RecordingRowList::DeleteAllRows()
{
    if (!Begin("delete")) {
        return false;
    }
    m_rows.clear();
    m_lSelectedRow = -1;
    m_selected.clear();
    return true;
}

bool RecordingRowList::SetCapacity(int32_t lRows)
{
    return Begin("capacity " + std::to_string(lRows));
}

bool RecordingRowList::AppendRow()
{
    if (!Begin("append")) {
        return false;
    }
    m_rows.emplace_back();
    return true;
}

bool RecordingRowList::InsertRow(int32_t lRow)
{
    if (!Begin("insert " + std::to_string(lRow))) {
        return false;
    }
    const int32_t lAt = std::clamp(lRow, 0, GetRowCount());
    m_rows.insert(m_rows.begin() + lAt, RecordedRow());
    std::set<int32_t> shifted;
    for (const int32_t lSelected : m_selected) {
        shifted.insert(lSelected < lAt ? lSelected : lSelected + 1);
    }
    m_selected = shifted;
    return true;
}

void RecordingRowList::DeleteRows(const int32_t* pRows, int32_t lCount)
{
    for (int32_t i = 0; i < lCount; ++i) {
        const int32_t lRow = pRows[i];
        m_log.push_back("delete " + std::to_string(lRow));
        if (lRow < 0 || lRow >= GetRowCount()) {
            continue;
        }
        m_rows.erase(m_rows.begin() + lRow);
        std::set<int32_t> shifted;
        for (const int32_t lSelected : m_selected) {
            if (lSelected != lRow) {
                shifted.insert(lSelected < lRow ? lSelected : lSelected - 1);
            }
        }
        m_selected = shifted;
    }
}

int32_t RecordingRowList::GetNextSelected(int32_t lAfter) const
{
    const auto it = m_selected.upper_bound(lAfter);
    return it == m_selected.end() ? -1 : *it;
}

void RecordingRowList::SetLineFlag(uint32_t uBit, bool bOn)
{
    m_uLineFlags = bOn ? m_uLineFlags | uBit : m_uLineFlags & ~uBit;
}

void RecordingRowList::SetSelectedCount(int32_t lCount)
{
    m_selected.clear();
    for (int32_t lRow = 0; lRow < lCount; ++lRow) {
        m_selected.insert(lRow);
    }
}

bool RecordingRowList::SetCellText(int32_t lRow, int32_t lColumn, std::string_view text)
{
    if (lColumn < 0 || static_cast<size_t>(lColumn) >= m_columns.size()) {
        ADD_FAILURE() << "there is no column " << lColumn;
        return false;
    }
    const std::string& sColumn = m_columns[static_cast<size_t>(lColumn)];
    if (!HasRow(lRow) || !Begin("text " + std::to_string(lRow) + " " + sColumn)) {
        return false;
    }
    m_rows[static_cast<size_t>(lRow)].texts[sColumn] = text;
    return true;
}

bool RecordingRowList::SetDecoration(int32_t lRow, uint32_t uDecoration)
{
    if (!HasRow(lRow) || !Begin("decoration " + std::to_string(lRow))) {
        return false;
    }
    m_rows[static_cast<size_t>(lRow)].uDecoration = uDecoration;
    return true;
}

bool RecordingRowList::SelectRow(int32_t lRow)
{
    if (!HasRow(lRow) || !Begin("select " + std::to_string(lRow))) {
        return false;
    }
    m_lSelectedRow = lRow;
    m_selected = {lRow};
    return true;
}

Texts RecordingRowList::TakeLog()
{
    return std::exchange(m_log, {});
}

Texts RecordingRowList::GetColumn(const char* szName) const
{
    Texts texts;
    for (const RecordedRow& row : m_rows) {
        const auto found = row.texts.find(szName);
        texts.push_back(found == row.texts.end() ? "(none)" : found->second);
    }
    return texts;
}

Words RecordingRowList::GetDecorations() const
{
    Words words;
    for (const RecordedRow& row : m_rows) {
        words.push_back(row.uDecoration);
    }
    return words;
}

void RecordingStatusPanes::SetPaneText(int nPane, const char* szText)
{
    ASSERT_GE(nPane, 1);
    ASSERT_LE(nPane, nCount);
    m_texts[static_cast<size_t>(nPane - 1)] = szText;
}

Texts RecordingDocument::TakeTitles()
{
    return std::exchange(m_titles, {});
}

TestRegister::TestRegister()
{
    document.SetAccount(std::make_unique<QMAccount>("house.qmk"));
    document.TakeTitles();
}

void TestRegister::Add(int32_t lType, const std::string& sDate, float fAmount, uint32_t uFlags,
                       const std::string& sDescription)
{
    AddTo(Store(), MakeTransaction(lType, sDate, fAmount, uFlags, sDescription));
}

QMTransaction& TestRegister::At(int32_t lPosition)
{
    EXPECT_TRUE(Store().MoveTo(lPosition));
    return *Store().GetCurrentNode();
}

void TestRegister::SetHeaderPeriod(uint32_t uSelection, const std::string& sFrom,
                                   const std::string& sTo)
{
    Header().lDisplayPeriod = uSelection;
    Header().dtPeriodFrom = MakeDate(sFrom);
    Header().dtPeriodTo = MakeDate(sTo);
}

void TestRegister::Show()
{
    EXPECT_TRUE(model.ShowAll());
    rows.TakeLog();
}
