// How a register is cut into pages.

#include "register/qmprintplan.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>

// For the messages of failing tests.
void PrintTo(const QMPrintPage& page, std::ostream* pOut)
{
    *pOut << "columns " << page.firstColumn << " to " << page.lastColumn << ", rows "
          << page.firstRow << " to " << page.lastRow;
}

namespace {

// A paper of 100 by 100 pixels below headings of 20, rows of 10.
QMPrintMeasures Measures(std::vector<int32_t> widths, int32_t lRows)
{
    QMPrintMeasures measures;
    measures.rcPrintable = {0, 0, 100, 100};
    measures.aColumnWidths = std::move(widths);
    measures.lRows = lRows;
    measures.lRowHeight = 10;
    measures.lHeadingHeight = 20;
    measures.lNamesHeight = 13;
    measures.lNumberHeight = 11;
    return measures;
}

std::vector<QMPrintPage> PagesOf(const QMPrintMeasures& measures)
{
    QMPrintPlan plan;
    EXPECT_TRUE(plan.Make(measures));
    EXPECT_EQ(plan.GetPageCount(), plan.GetStripCount() * plan.GetPartCount());
    std::vector<QMPrintPage> pages;
    for (int32_t l = 0; l < plan.GetPageCount(); ++l) {
        pages.push_back(plan.GetPage(l));
    }
    return pages;
}

using Pages = std::vector<QMPrintPage>;

} // namespace

TEST(QMPrintPlan, ARegisterWithoutRowsIsOnePageOfHeadings)
{
    EXPECT_EQ(PagesOf(Measures({30, 30}, 0)), (Pages{{0, 1, 0, -1}}));
}

TEST(QMPrintPlan, AllColumnsHiddenIsOneStrip)
{
    EXPECT_EQ(PagesOf(Measures({-1, -1, -1}, 3)), (Pages{{0, -1, 0, 2}}));
}

TEST(QMPrintPlan, RowsGoOnUntilTheLimit)
{
    // The table begins at 21. Seven rows end at 91, and an eighth would end at 101.
    EXPECT_EQ(PagesOf(Measures({30}, 7)), (Pages{{0, 0, 0, 6}}));
    EXPECT_EQ(PagesOf(Measures({30}, 8)), (Pages{{0, 0, 0, 6}, {0, 0, 7, 7}}));
    QMPrintMeasures measures = Measures({30}, 8);
    measures.rcPrintable.bottom = 101; // a row that ends on the limit still fits
    EXPECT_EQ(PagesOf(measures), (Pages{{0, 0, 0, 7}}));
}

TEST(QMPrintPlan, NamesAndNumbersTakeTheirLine)
{
    QMPrintMeasures measures = Measures({30}, 1);
    QMPrintPlan plan;
    ASSERT_TRUE(plan.Make(measures));
    EXPECT_EQ(plan.GetTableTop(), 21);
    EXPECT_EQ(plan.GetLimit(), 100);
    measures.bNames = true;
    ASSERT_TRUE(plan.Make(measures));
    EXPECT_EQ(plan.GetTableTop(), 21 + 13 + 4);
    EXPECT_EQ(plan.GetLimit(), 100);
    measures.bPageNumbers = true;
    measures.rcPrintable.top = 7;
    ASSERT_TRUE(plan.Make(measures));
    EXPECT_EQ(plan.GetTableTop(), 7 + 21 + 13 + 4);
    EXPECT_EQ(plan.GetLimit(), 100 - 4 - 11);
}

TEST(QMPrintPlan, NeighboursShareALineOfTheWidth)
{
    // The third column begins at 1 + 33 + 33.
    EXPECT_EQ(PagesOf(Measures({34, 34, 33}, 0)), (Pages{{0, 2, 0, -1}}));
    EXPECT_EQ(PagesOf(Measures({34, 34, 34}, 0)), (Pages{{0, 1, 0, -1}, {2, 2, 0, -1}}));
}

TEST(QMPrintPlan, PagesGoDownTheFirstStripThenDownTheNext)
{
    EXPECT_EQ(PagesOf(Measures({60, 60}, 9)),
              (Pages{{0, 0, 0, 6}, {0, 0, 7, 8}, {1, 1, 0, 6}, {1, 1, 7, 8}}));
}

TEST(QMPrintPlan, AFirstColumnTooWideLeavesTheFirstStripEmpty)
{
    EXPECT_EQ(PagesOf(Measures({200, 30}, 1)), (Pages{{0, -1, 0, 0}, {0, 0, 0, 0}, {1, 1, 0, 0}}));
    // Hidden columns before it belong to the empty strip.
    EXPECT_EQ(PagesOf(Measures({-1, -1, 200}, 0)), (Pages{{0, 1, 0, -1}, {2, 2, 0, -1}}));
}

TEST(QMPrintPlan, AColumnWiderThanThePaperHasAStripOfItsOwn)
{
    EXPECT_EQ(PagesOf(Measures({30, 500, 30}, 0)),
              (Pages{{0, 0, 0, -1}, {1, 1, 0, -1}, {2, 2, 0, -1}}));
}

// The column before the one that starts a strip may be hidden; the strip ends there all the same.
TEST(QMPrintPlan, KeptAStripMayEndAtAHiddenColumn)
{
    EXPECT_EQ(PagesOf(Measures({60, -1, -1, 60, -1}, 0)), (Pages{{0, 2, 0, -1}, {3, 3, 0, -1}}));
}

TEST(QMPrintPlan, PaperTooLowForARowGivesEachAPageBehindAnEmptyOne)
{
    QMPrintMeasures measures = Measures({30}, 2);
    measures.rcPrintable.bottom = 30;
    EXPECT_EQ(PagesOf(measures), (Pages{{0, 0, 0, -1}, {0, 0, 0, 0}, {0, 0, 1, 1}}));
}

TEST(QMPrintPlan, EveryRowAndColumnIsOnceInEachStripAndPart)
{
    std::mt19937 random(20041231);
    for (int nTry = 0; nTry < 2000; ++nTry) {
        const auto Number = [&](int nLow, int nHigh) {
            return std::uniform_int_distribution<int>(nLow, nHigh)(random);
        };
        QMPrintMeasures measures = Measures({}, Number(0, 60));
        measures.rcPrintable = {Number(-50, 50), Number(-50, 50), Number(-60, 400),
                                Number(-60, 400)};
        measures.lRowHeight = Number(0, 40);
        measures.bNames = Number(0, 1) == 1;
        measures.bPageNumbers = Number(0, 1) == 1;
        for (int nColumn = Number(0, 10); nColumn > 0; --nColumn) {
            measures.aColumnWidths.push_back(Number(0, 4) == 0 ? -1 : Number(0, 150));
        }
        QMPrintPlan plan;
        ASSERT_TRUE(plan.Make(measures));
        int32_t lColumn = 0;
        for (int32_t lStrip = 0; lStrip < plan.GetStripCount(); ++lStrip) {
            const QMPrintPage page = plan.GetPage(lStrip * plan.GetPartCount());
            for (; lColumn < page.firstColumn; ++lColumn) {
                ASSERT_LT(measures.aColumnWidths[static_cast<size_t>(lColumn)], 0);
            }
            lColumn = std::max(lColumn, page.lastColumn + 1);
            int32_t lRow = 0;
            for (int32_t lPart = 0; lPart < plan.GetPartCount(); ++lPart) {
                const QMPrintPage part = plan.GetPage(lStrip * plan.GetPartCount() + lPart);
                ASSERT_EQ(part.firstRow, lRow);
                ASSERT_EQ(part.firstColumn, page.firstColumn);
                lRow = part.lastRow + 1;
            }
            ASSERT_EQ(lRow, measures.lRows);
        }
        for (; lColumn < static_cast<int32_t>(measures.aColumnWidths.size()); ++lColumn) {
            ASSERT_LT(measures.aColumnWidths[static_cast<size_t>(lColumn)], 0);
        }
    }
}

TEST(QMPrintPlan, AbsurdMeasuresEnd)
{
    for (const int32_t l : {INT_MIN, -1, 0, 1, INT_MAX}) {
        for (const int32_t m : {INT_MIN, 0, INT_MAX}) {
            QMPrintMeasures measures = Measures({l, m, INT_MAX}, 100);
            measures.rcPrintable = {l, m, m, l};
            measures.lRowHeight = l;
            measures.lHeadingHeight = m;
            measures.lNamesHeight = measures.lNumberHeight = l;
            measures.bNames = measures.bPageNumbers = true;
            QMPrintPlan plan;
            EXPECT_TRUE(plan.Make(measures));
            EXPECT_GE(plan.GetPageCount(), 1);
            EXPECT_LE(plan.GetPageCount(), 4 * 101);
        }
    }
}

TEST(QMPrintPlan, MorePagesThanANumberHoldsFail)
{
    QMPrintMeasures measures = Measures(std::vector<int32_t>(700, 101), 4000000);
    measures.rcPrintable.bottom = 0;
    QMPrintPlan plan;
    EXPECT_FALSE(plan.Make(measures));
}

TEST(QMCentreInCell, IsTheDifferenceOfTheHalves)
{
    EXPECT_EQ(QMCentreInCell(30, 10), 10);
    EXPECT_EQ(QMCentreInCell(17, 10), 3);
    EXPECT_EQ(QMCentreInCell(20, 9), 6);
    EXPECT_EQ(QMCentreInCell(8, 10), 0);
}
