// Inserting and deleting rows, compared with a simple list of rows.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "register/qmrowtable.h"

namespace {

struct PlainRow
{
    std::vector<std::string> cells;
    uint32_t uDecoration = 0;

    bool operator==(const PlainRow&) const = default;
};

using PlainRows = std::vector<PlainRow>;
using Numbers = std::vector<int32_t>;

// The table and the simple rows. Every change is made to both.
class BothTables
{
public:
    explicit BothTables(int32_t lRows)
    {
        QMColumnTable columns;
        columns.LoadFrom(QMDefaultHeader());
        EXPECT_TRUE(m_table.RebuildColumns(columns));
        for (int32_t lRow = 0; lRow < lRows; ++lRow) {
            Insert(lRow);
        }
    }

    // The new row gets texts that no other has.
    void Insert(int32_t lRow)
    {
        EXPECT_TRUE(m_table.InsertRow(lRow));
        const auto lCount = static_cast<int32_t>(m_rows.size());
        const int32_t lAt = lRow < 0 ? 0 : std::min(lRow, lCount);
        const auto uColumns = static_cast<size_t>(m_table.GetColumnCount());
        m_rows.insert(m_rows.begin() + lAt, PlainRow{std::vector<std::string>(uColumns), 0});
        ++m_nInserted;
        Write(lAt, 0, "row " + std::to_string(m_nInserted));
        Write(lAt, m_nInserted % m_table.GetColumnCount(), std::to_string(m_nInserted));
        EXPECT_TRUE(m_table.SetDecoration(lAt, static_cast<uint32_t>(m_nInserted % 64)));
        m_rows[static_cast<size_t>(lAt)].uDecoration = static_cast<uint32_t>(m_nInserted % 64);
    }

    void Write(int32_t lRow, int32_t lColumn, const std::string& sText)
    {
        EXPECT_TRUE(m_table.SetCellText(lRow, lColumn, sText));
        m_rows[static_cast<size_t>(lRow)].cells[static_cast<size_t>(lColumn)] = sText;
    }

    // Deletes one row after another. Each number is that of the row after the deletions before it.
    void Delete(const Numbers& rows)
    {
        m_table.DeleteRows(rows.data(), static_cast<int32_t>(rows.size()));
        for (const int32_t lRow : rows) {
            if (lRow >= 0 && lRow < static_cast<int32_t>(m_rows.size())) {
                m_rows.erase(m_rows.begin() + lRow);
            }
        }
    }

    void ExpectAlike(const std::string& sWhere) const
    {
        PlainRows rows;
        for (int32_t lRow = 0; lRow < m_table.GetRowCount(); ++lRow) {
            PlainRow& row = rows.emplace_back();
            for (int32_t lColumn = 0; lColumn < m_table.GetColumnCount(); ++lColumn) {
                row.cells.emplace_back(m_table.GetCellText(lRow, lColumn));
            }
            row.uDecoration = m_table.GetDecoration(lRow);
        }
        ASSERT_EQ(rows.size(), m_rows.size()) << sWhere;
        ASSERT_TRUE(rows == m_rows) << sWhere;
    }

    int32_t GetCount() const { return m_table.GetRowCount(); }
    QMRowTable& GetTable() { return m_table; }

private:
    QMRowTable m_table;
    PlainRows m_rows;
    int m_nInserted = 0;
};

std::string TextOf(const Numbers& rows)
{
    std::string sText;
    for (const int32_t lRow : rows) {
        sText += std::to_string(lRow) + " ";
    }
    return sText;
}

// Numbers in any order, also equal ones and numbers of no row.
Numbers AnyNumbers(std::mt19937& random, int32_t lRows)
{
    Numbers rows(random() % 8);
    for (int32_t& lRow : rows) {
        lRow = static_cast<int32_t>(random() % static_cast<uint32_t>(lRows + 6)) - 3;
    }
    return rows;
}

} // namespace

TEST(QMRowTableRows, RowIsInsertedInFrontOfAnyOther)
{
    for (int32_t lRows = 0; lRows < 6; ++lRows) {
        for (const int32_t lRow : {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, INT_MAX}) {
            BothTables tables(lRows);
            tables.Insert(lRow);
            tables.ExpectAlike(std::to_string(lRow) + " of " + std::to_string(lRows));
        }
    }
}

TEST(QMRowTableRows, InsertedRowIsEmpty)
{
    BothTables tables(5);
    ASSERT_TRUE(tables.GetTable().InsertRow(2));
    for (int32_t lColumn = 0; lColumn < tables.GetTable().GetColumnCount(); ++lColumn) {
        EXPECT_EQ(tables.GetTable().GetCellText(2, lColumn), "");
    }
    EXPECT_EQ(tables.GetTable().GetDecoration(2), 0U);
}

// Up to three numbers in every order, inside the table and outside.
TEST(QMRowTableRows, EveryShortListOfNumbersDeletesOneAfterAnother)
{
    constexpr int32_t lRows = 4;
    for (int32_t a = -1; a <= lRows; ++a) {
        for (int32_t b = -1; b <= lRows; ++b) {
            for (int32_t c = -1; c <= lRows; ++c) {
                for (const Numbers& rows : {Numbers{a}, Numbers{a, b}, Numbers{a, b, c}}) {
                    BothTables tables(lRows);
                    tables.Delete(rows);
                    tables.ExpectAlike(TextOf(rows));
                }
            }
        }
    }
}

TEST(QMRowTableRows, NumbersOfNoRowArePassedOver)
{
    BothTables tables(3);
    for (const Numbers& rows : {Numbers{}, Numbers{INT_MIN}, Numbers{INT_MAX, -1},
                                Numbers{-1, INT_MAX}, Numbers{3, 3, 3}, Numbers{INT_MAX, 5, 4}}) {
        tables.Delete(rows);
        EXPECT_EQ(tables.GetCount(), 3) << TextOf(rows);
    }
    tables.Delete({INT_MAX, 2, 1, INT_MIN});
    EXPECT_EQ(tables.GetCount(), 1);
    tables.ExpectAlike("some of them");
}

TEST(QMRowTableRows, EqualNumbersDeleteAsManyRows)
{
    BothTables tables(6);
    tables.Delete({2, 2, 2});
    EXPECT_EQ(tables.GetCount(), 3);
    tables.ExpectAlike("three times the third");
    tables.Delete({0, 0, 0, 0});
    EXPECT_EQ(tables.GetCount(), 0);
}

TEST(QMRowTableRows, SelectionIsGoneAfterADeletion)
{
    BothTables tables(3);
    EXPECT_TRUE(tables.GetTable().SelectRow(0));
    tables.Delete({2});
    EXPECT_EQ(tables.GetTable().GetSelectedRow(), -1);
}

TEST(QMRowTableRows, LongRandomUseLeavesWhatPlainRowsHold)
{
    std::mt19937 random(2110);
    BothTables tables(20);
    for (int n = 0; n < 4000; ++n) {
        const int32_t lRows = tables.GetCount();
        const bool bInsert = lRows < 5 || (lRows < 60 && random() % 2 == 0);
        if (bInsert) {
            for (int i = 0; i < 3; ++i) {
                tables.Insert(static_cast<int32_t>(random() % 70) - 5);
            }
        } else {
            tables.Delete(AnyNumbers(random, lRows));
        }
        if (tables.GetCount() > 0) {
            const auto uRow = random() % static_cast<uint32_t>(tables.GetCount());
            tables.Write(static_cast<int32_t>(uRow), 1, "written " + std::to_string(n));
        }
        ASSERT_NO_FATAL_FAILURE(tables.ExpectAlike("step " + std::to_string(n)));
    }
}

TEST(QMRowTableRows, FallingNumbersOfHalfAMillionRowsGoInOnePass)
{
    constexpr int32_t lRows = 500000;
    QMRowTable table;
    QMColumnTable columns;
    columns.LoadFrom(QMDefaultHeader());
    ASSERT_TRUE(table.RebuildColumns(columns));
    for (int32_t lRow = 0; lRow < lRows; ++lRow) {
        ASSERT_TRUE(table.AppendRow());
        ASSERT_TRUE(table.SetCellText(lRow, 0, std::to_string(lRow)));
    }
    // Every other row. Deleting them one by one would move a million million bytes.
    Numbers odd;
    for (int32_t lRow = lRows - 1; lRow > 0; lRow -= 2) {
        odd.push_back(lRow);
    }
    table.DeleteRows(odd.data(), static_cast<int32_t>(odd.size()));
    ASSERT_EQ(table.GetRowCount(), lRows / 2);
    for (int32_t lRow = 0; lRow < lRows / 2; ++lRow) {
        ASSERT_EQ(table.GetCellText(lRow, 0), std::to_string(2 * lRow));
    }
    Numbers all(static_cast<size_t>(lRows / 2));
    std::iota(all.rbegin(), all.rend(), 0);
    table.DeleteRows(all.data(), lRows / 2);
    EXPECT_EQ(table.GetRowCount(), 0);
}
