#include "register/qmrowtable.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>
#include <vector>

#include "tests/core/allocationfault.h"

namespace {

// The table takes its texts from blocks of this size.
constexpr size_t uBlockSize = 1 << 20;

// What the table must hold, in simple containers.
using PlainRows = std::vector<std::vector<std::string>>;

// All columns shown.
QMColumnTable AllColumns()
{
    QMAccountHeader header = QMDefaultHeader();
    header.bShowCategory = 1;
    QMColumnTable columns;
    columns.LoadFrom(header);
    return columns;
}

// Gives the table eleven columns and that many empty rows.
void Prepare(QMRowTable& table, int32_t lRows)
{
    EXPECT_TRUE(table.RebuildColumns(AllColumns()));
    EXPECT_TRUE(table.SetCapacity(lRows));
    for (int32_t lRow = 0; lRow < lRows; ++lRow) {
        EXPECT_TRUE(table.AppendRow());
    }
}

PlainRows ContentsOf(const QMRowTable& table)
{
    PlainRows rows;
    for (int32_t lRow = 0; lRow < table.GetRowCount(); ++lRow) {
        std::vector<std::string>& row = rows.emplace_back();
        for (int32_t lColumn = 0; lColumn < table.GetColumnCount(); ++lColumn) {
            row.emplace_back(table.GetCellText(lRow, lColumn));
        }
    }
    return rows;
}

// Whether both hold the same. Does not print megabytes when they differ.
void ExpectSame(const QMRowTable& table, const PlainRows& expected)
{
    ASSERT_EQ(static_cast<size_t>(table.GetRowCount()), expected.size());
    const PlainRows rows = ContentsOf(table);
    for (size_t uRow = 0; uRow < rows.size(); ++uRow) {
        ASSERT_EQ(rows[uRow], expected[uRow]) << "row " << uRow;
    }
}

// A text that is different for each row, column and round.
std::string TextFor(int32_t lRow, int32_t lColumn, int nRound, size_t uLength)
{
    std::string sText =
        std::to_string(lRow) + "." + std::to_string(lColumn) + "." + std::to_string(nRound) + ";";
    sText.resize(uLength, static_cast<char>('a' + (lRow + lColumn + nRound) % 26));
    return sText;
}

// Writes every cell, in the table and in the simple rows. lengthOf() gives the lengths of the
// texts.
template <class F>
void WriteAll(QMRowTable& table, PlainRows& rows, int nRound, F lengthOf)
{
    for (int32_t lRow = 0; lRow < table.GetRowCount(); ++lRow) {
        for (int32_t lColumn = 0; lColumn < table.GetColumnCount(); ++lColumn) {
            const std::string sText = TextFor(lRow, lColumn, nRound, lengthOf());
            ASSERT_TRUE(table.SetCellText(lRow, lColumn, sText));
            rows[static_cast<size_t>(lRow)][static_cast<size_t>(lColumn)] = sText;
        }
    }
}

PlainRows EmptyRows(size_t uRows)
{
    return PlainRows(uRows, std::vector<std::string>(QM_ENTRY_COUNT));
}

} // namespace

TEST(QMRowTable, HasNothingAtFirst)
{
    QMRowTable table;
    EXPECT_EQ(table.GetRowCount(), 0);
    EXPECT_EQ(table.GetColumnCount(), 0);
    EXPECT_EQ(table.GetSelectedCount(), 0);
    EXPECT_EQ(table.GetSelectedRow(), -1);
    EXPECT_FALSE(table.SetCellText(0, 0, "a"));
    EXPECT_FALSE(table.SetDecoration(0, 1));
    EXPECT_FALSE(table.SelectRow(0));
    EXPECT_EQ(table.GetCellText(0, 0), "");
    EXPECT_EQ(table.GetDecoration(0), 0U);
    EXPECT_TRUE(table.DeleteAllRows());
}

TEST(QMRowTable, ColumnsAreTheVisibleOnes)
{
    QMColumnTable columns;
    columns.LoadFrom(QMDefaultHeader());
    QMRowTable table;
    EXPECT_TRUE(table.RebuildColumns(columns));
    EXPECT_EQ(table.GetColumnCount(), 10);
    EXPECT_TRUE(table.RebuildColumns(AllColumns()));
    EXPECT_EQ(table.GetColumnCount(), 11);
    EXPECT_EQ(table.GetRowCount(), 0);
}

TEST(QMRowTable, NewRowIsEmpty)
{
    QMRowTable table;
    Prepare(table, 3);
    EXPECT_EQ(table.GetRowCount(), 3);
    ExpectSame(table, EmptyRows(3));
    EXPECT_EQ(table.GetDecoration(2), 0U);
}

TEST(QMRowTable, RowsWithoutColumnsAreCounted)
{
    QMRowTable table;
    EXPECT_TRUE(table.AppendRow());
    EXPECT_TRUE(table.AppendRow());
    EXPECT_EQ(table.GetRowCount(), 2);
    EXPECT_FALSE(table.SetCellText(0, 0, "a"));
    EXPECT_TRUE(table.SetDecoration(1, 33));
    EXPECT_EQ(table.GetDecoration(1), 33U);
}

TEST(QMRowTable, CapacityLeavesTheRowsAlone)
{
    QMRowTable table;
    Prepare(table, 2);
    EXPECT_TRUE(table.SetCellText(1, 10, "last"));
    for (const int32_t lRows : {0, 1, 2, 5000}) {
        EXPECT_TRUE(table.SetCapacity(lRows));
        EXPECT_EQ(table.GetRowCount(), 2);
        EXPECT_EQ(table.GetCellText(1, 10), "last");
    }
}

TEST(QMRowTable, EachCellKeepsItsText)
{
    QMRowTable table;
    Prepare(table, 50);
    PlainRows rows = EmptyRows(50);
    WriteAll(table, rows, 0, [] { return size_t{20}; });
    ExpectSame(table, rows);
}

TEST(QMRowTable, CellWrittenAgainShowsTheNewText)
{
    QMRowTable table;
    Prepare(table, 1);
    for (const char* szText : {"Rent", "Rent and heating", "Rest", "R", "", "Rent once more", ""}) {
        EXPECT_TRUE(table.SetCellText(0, 3, szText));
        EXPECT_EQ(table.GetCellText(0, 3), szText);
    }
}

TEST(QMRowTable, CellIsEmptiedByATextOfNothing)
{
    QMRowTable table;
    Prepare(table, 1);
    EXPECT_TRUE(table.SetCellText(0, 4, {}));
    EXPECT_EQ(table.GetCellText(0, 4), "");
    EXPECT_TRUE(table.SetCellText(0, 4, "     10.00"));
    EXPECT_TRUE(table.SetCellText(0, 4, {}));
    EXPECT_EQ(table.GetCellText(0, 4), "");
}

TEST(QMRowTable, TextMayHoldAnyBytes)
{
    QMRowTable table;
    Prepare(table, 1);
    std::string sText(256, '\0');
    for (size_t u = 0; u < sText.size(); ++u) {
        sText[u] = static_cast<char>(u);
    }
    EXPECT_TRUE(table.SetCellText(0, 0, sText));
    EXPECT_EQ(table.GetCellText(0, 0), sText);
}

// Each length of text meets each number of bytes that may be in use in the last unit of its room.
TEST(QMRowTable, NeighboursStayWhenATextGrowsByOneOrShrinksByOne)
{
    QMRowTable table;
    Prepare(table, 100);
    PlainRows rows = EmptyRows(100);
    for (const int nBy : {1, -1}) {
        size_t uNext = 20;
        const auto lengthOf = [&] { return ++uNext; };
        WriteAll(table, rows, nBy, lengthOf);
        for (int32_t lRow = 0; lRow < 100; lRow += 2) {
            std::string& sText = rows[static_cast<size_t>(lRow)][5];
            sText.resize(sText.size() + static_cast<size_t>(nBy), '!');
            ASSERT_TRUE(table.SetCellText(lRow, 5, sText));
        }
        ExpectSame(table, rows);
    }
}

TEST(QMRowTable, MegabytesOfTextsStayApart)
{
    QMRowTable table;
    Prepare(table, 20000);
    PlainRows rows = EmptyRows(20000);
    std::mt19937 random(1);
    WriteAll(table, rows, 0, [&] { return random() % 60; });
    ExpectSame(table, rows);
    WriteAll(table, rows, 1, [&] { return random() % 60; });
    ExpectSame(table, rows);
}

TEST(QMRowTable, LongTextsStayApartAcrossTheBordersOfBlocks)
{
    QMRowTable table;
    Prepare(table, 40);
    PlainRows rows = EmptyRows(40);
    std::mt19937 random(2);
    for (int nRound = 0; nRound < 3; ++nRound) {
        WriteAll(table, rows, nRound, [&] { return random() % 60000; });
        ExpectSame(table, rows);
    }
}

// Texts of one length in a row. Over all lengths they end before, at and after the end of a block
// by every number of bytes.
TEST(QMRowTable, TextsMayEndExactlyWhereABlockEnds)
{
    for (size_t uLength = 32740; uLength < 32780; ++uLength) {
        QMRowTable table;
        Prepare(table, 6);
        PlainRows rows = EmptyRows(6);
        WriteAll(table, rows, 0, [&] { return uLength; });
        ExpectSame(table, rows);
    }
}

TEST(QMRowTable, RandomWritesLeaveWhatPlainRowsHold)
{
    QMRowTable table;
    Prepare(table, 30);
    PlainRows rows = EmptyRows(30);
    std::mt19937 random(3);
    for (int n = 0; n < 20000; ++n) {
        const auto lRow = static_cast<int32_t>(random() % 30);
        const auto lColumn = static_cast<int32_t>(random() % QM_ENTRY_COUNT);
        const std::string sText = TextFor(lRow, lColumn, n, random() % (1U << random() % 12));
        ASSERT_TRUE(table.SetCellText(lRow, lColumn, sText));
        rows[static_cast<size_t>(lRow)][static_cast<size_t>(lColumn)] = sText;
    }
    ExpectSame(table, rows);
}

TEST(QMRowTable, TextHasAtMost65535Bytes)
{
    QMRowTable table;
    Prepare(table, 2);
    for (const size_t uLength : {65520, 65527, 65528, 65531, 65532, 65534, 65535}) {
        const std::string sText(uLength, 'x');
        EXPECT_TRUE(table.SetCellText(0, 0, sText)) << "length " << uLength;
        EXPECT_TRUE(table.GetCellText(0, 0) == sText) << "length " << uLength;
    }
    EXPECT_TRUE(table.SetCellText(1, 1, "stays"));
    for (const size_t uLength : {65536, 65537, 131072, 200000}) {
        EXPECT_FALSE(table.SetCellText(1, 1, std::string(uLength, 'y'))) << "length " << uLength;
        EXPECT_EQ(table.GetCellText(1, 1), "stays") << "length " << uLength;
    }
}

TEST(QMRowTable, CellsOutsideTheTableAreRefused)
{
    QMRowTable table;
    Prepare(table, 3);
    for (const int32_t lRow : {INT_MIN, -1, 3, 4, INT_MAX}) {
        EXPECT_FALSE(table.SetCellText(lRow, 0, "a")) << "row " << lRow;
        EXPECT_FALSE(table.SetDecoration(lRow, 1)) << "row " << lRow;
        EXPECT_EQ(table.GetCellText(lRow, 0), "") << "row " << lRow;
        EXPECT_EQ(table.GetDecoration(lRow), 0U) << "row " << lRow;
    }
    for (const int32_t lColumn : {INT_MIN, -1, 11, 12, INT_MAX}) {
        EXPECT_FALSE(table.SetCellText(0, lColumn, "a")) << "column " << lColumn;
        EXPECT_EQ(table.GetCellText(0, lColumn), "") << "column " << lColumn;
    }
    ExpectSame(table, EmptyRows(3));
}

TEST(QMRowTable, DecorationsBelongToTheirRows)
{
    QMRowTable table;
    Prepare(table, 64);
    for (int32_t lRow = 0; lRow < 64; ++lRow) {
        EXPECT_TRUE(table.SetDecoration(lRow, static_cast<uint32_t>(lRow)));
    }
    for (int32_t lRow = 0; lRow < 64; ++lRow) {
        EXPECT_EQ(table.GetDecoration(lRow), static_cast<uint32_t>(lRow));
    }
    EXPECT_TRUE(table.SetDecoration(7, 0));
    EXPECT_EQ(table.GetDecoration(7), 0U);
}

TEST(QMRowTable, OneRowIsSelectedAtATime)
{
    QMRowTable table;
    Prepare(table, 3);
    EXPECT_EQ(table.GetSelectedCount(), 0);
    for (const int32_t lRow : {2, 0, 0, 1}) {
        EXPECT_TRUE(table.SelectRow(lRow));
        EXPECT_EQ(table.GetSelectedRow(), lRow);
        EXPECT_EQ(table.GetSelectedCount(), 1);
    }
    for (const int32_t lRow : {INT_MIN, -1, 3, INT_MAX}) {
        EXPECT_FALSE(table.SelectRow(lRow)) << "row " << lRow;
    }
}

TEST(QMRowTable, DeletingAllRowsLeavesNothingButTheColumns)
{
    QMRowTable table;
    Prepare(table, 3);
    EXPECT_TRUE(table.SetCellText(0, 0, "old"));
    EXPECT_TRUE(table.SetDecoration(0, 33));
    EXPECT_TRUE(table.SelectRow(0));
    EXPECT_TRUE(table.DeleteAllRows());
    EXPECT_EQ(table.GetRowCount(), 0);
    EXPECT_EQ(table.GetSelectedRow(), -1);
    EXPECT_EQ(table.GetSelectedCount(), 0);
    EXPECT_EQ(table.GetColumnCount(), 11);
    EXPECT_FALSE(table.SetCellText(0, 0, "new"));
    EXPECT_TRUE(table.AppendRow());
    ExpectSame(table, EmptyRows(1));
    EXPECT_EQ(table.GetDecoration(0), 0U);
    EXPECT_TRUE(table.SetCellText(0, 0, "new"));
    EXPECT_EQ(table.GetCellText(0, 0), "new");
}

TEST(QMRowTable, TextsComeBackAfterDeletingAndFillingAgain)
{
    QMRowTable table;
    std::mt19937 random(4);
    for (int nRound = 0; nRound < 5; ++nRound) {
        Prepare(table, 200);
        PlainRows rows = EmptyRows(200);
        WriteAll(table, rows, nRound, [&] { return random() % 1500; });
        ExpectSame(table, rows);
    }
}

// While the texts, which take several blocks, are written over, no block of memory can be had.
TEST(QMRowTable, WritingTheSameRowsAgainAndAgainTakesNoMoreMemory)
{
    const std::string sLong(100, 'l');
    QMRowTable table;
    Prepare(table, 100);
    PlainRows rows = EmptyRows(100);
    WriteAll(table, rows, 0, [&] { return sLong.size(); });
    size_t uWritten = 0;
    bool bDone = true;
    {
        const AllocationFault fault;
        for (size_t uRound = 0; bDone && uWritten < 5 * uBlockSize; ++uRound) {
            const std::string_view text(sLong.data(), uRound % 101);
            for (int32_t lCell = 0; lCell < 100 * QM_ENTRY_COUNT; ++lCell) {
                bDone = bDone &&
                        table.SetCellText(lCell / QM_ENTRY_COUNT, lCell % QM_ENTRY_COUNT, text);
                uWritten += text.size();
            }
        }
    }
    EXPECT_TRUE(bDone);
    EXPECT_GE(uWritten, 5 * uBlockSize);
}

// The opposite of the test above: texts that do not fit in their old place notice that memory is
// refused.
TEST(QMRowTable, WithoutMemoryTextsStayAsTheyWere)
{
    const std::string sLong(60000, 'l');
    QMRowTable table;
    Prepare(table, 10);
    ASSERT_TRUE(table.SetCellText(9, 10, "stays"));
    int32_t lRefused = 0;
    bool bAgain = true;
    {
        const AllocationFault fault;
        while (lRefused < 100 && table.SetCellText(lRefused / 11, lRefused % 11, sLong)) {
            ++lRefused;
        }
        bAgain = table.SetCellText(9, 10, sLong);
    }
    EXPECT_GT(lRefused, 10);
    ASSERT_LT(lRefused, 100);
    EXPECT_FALSE(bAgain);
    EXPECT_EQ(table.GetCellText(9, 10), "stays");
    EXPECT_EQ(table.GetCellText(lRefused / 11, lRefused % 11), "");
    EXPECT_TRUE(table.GetCellText(0, 0) == sLong);
    EXPECT_TRUE(table.SetCellText(9, 10, sLong));
    EXPECT_TRUE(table.GetCellText(9, 10) == sLong);
}

TEST(QMRowTable, FirstTextWithoutMemoryIsRefused)
{
    QMRowTable table;
    Prepare(table, 1);
    bool bDone = true;
    {
        const AllocationFault fault;
        bDone = table.SetCellText(0, 0, "a");
    }
    EXPECT_FALSE(bDone);
    EXPECT_EQ(table.GetCellText(0, 0), "");
    EXPECT_TRUE(table.SetCellText(0, 0, "a"));
    EXPECT_EQ(table.GetCellText(0, 0), "a");
}
