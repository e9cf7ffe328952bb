#include "register/qmcolumntable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using H = QMAccountHeader;

struct ExpectedColumn
{
    const char* szHeading;
    QMAlignment alignment;
    uint32_t uMask;
    int32_t H::*pWidth;
    uint8_t H::*pShown;
    int32_t lDefaultWidth;
    bool bShownByDefault;
};

// In the order on the screen. The first and the eighth column have pictures as headings.
const ExpectedColumn aExpected[] = {
    {"", QMAlignment::Centre, 512, &H::lWidthCleared, &H::bShowCleared, 30, true},
    {"Date", QMAlignment::Right, 1, &H::lWidthDate, &H::bShowDate, 55, true},
    {"Number", QMAlignment::Right, 2, &H::lWidthNumber, &H::bShowNumber, 50, true},
    {"Description", QMAlignment::Left, 4, &H::lWidthDescription, &H::bShowDescription, 250, true},
    {"Debit", QMAlignment::Right, 8, &H::lWidthDebit, &H::bShowDebit, 60, true},
    {"Credit", QMAlignment::Right, 16, &H::lWidthCredit, &H::bShowCredit, 60, true},
    {"Balance", QMAlignment::Right, 32, &H::lWidthBalance, &H::bShowBalance, 75, true},
    {"", QMAlignment::Centre, 256, &H::lWidthTag, &H::bShowTag, 30, true},
    {"Memo", QMAlignment::Left, 64, &H::lWidthMemo, &H::bShowMemo, 240, true},
    {"Category", QMAlignment::Left, 128, &H::lWidthCategory, &H::bShowCategory, 240, false},
    {"", QMAlignment::Centre, 0, nullptr, nullptr, 0, true},
};

QMColumn ColumnAt(size_t uEntry)
{
    return static_cast<QMColumn>(uEntry);
}

} // namespace

TEST(QMColumnTable, HasElevenColumnsInTheirFixedOrder)
{
    ASSERT_EQ(std::size(aExpected), size_t{QM_ENTRY_COUNT});
    for (size_t u = 0; u < std::size(aExpected); ++u) {
        const QMColumnInfo& info = QMGetColumnInfo(ColumnAt(u));
        EXPECT_STREQ(info.szHeading, aExpected[u].szHeading) << "column " << u;
        EXPECT_EQ(info.alignment, aExpected[u].alignment) << "column " << u;
        EXPECT_EQ(info.uMask, aExpected[u].uMask) << "column " << u;
        EXPECT_EQ(info.pWidth, aExpected[u].pWidth) << "column " << u;
        EXPECT_EQ(info.pShown, aExpected[u].pShown) << "column " << u;
    }
}

TEST(QMColumnTable, MasksOfAllColumnsMakeUp1023)
{
    uint32_t uSum = 0;
    for (size_t u = 0; u < size_t{QM_ENTRY_COUNT}; ++u) {
        uSum += QMGetColumnInfo(ColumnAt(u)).uMask;
    }
    EXPECT_EQ(uSum, 1023U);
    EXPECT_EQ(QM_COLUMN_ALL, 1023U);
    EXPECT_EQ(QM_COLUMN_BALANCE | QM_COLUMN_TAG | QM_COLUMN_CLEARED, 800U);
}

TEST(QMColumnTable, EverythingIsHiddenAtFirst)
{
    const QMColumnTable table;
    EXPECT_EQ(table.GetVisibleCount(), 0);
    for (size_t u = 0; u < size_t{QM_ENTRY_COUNT}; ++u) {
        EXPECT_FALSE(table.IsVisible(ColumnAt(u)));
        EXPECT_EQ(table.GetListIndex(ColumnAt(u)), -1);
        EXPECT_EQ(table.GetWidth(ColumnAt(u)), 0);
    }
}

TEST(QMColumnTable, NewAccountShowsEverythingButTheCategory)
{
    QMColumnTable table;
    table.LoadFrom(QMDefaultHeader());
    for (size_t u = 0; u < std::size(aExpected); ++u) {
        EXPECT_EQ(table.IsVisible(ColumnAt(u)), aExpected[u].bShownByDefault) << "column " << u;
        EXPECT_EQ(table.GetWidth(ColumnAt(u)), aExpected[u].lDefaultWidth) << "column " << u;
    }
    EXPECT_EQ(table.GetVisibleCount(), 10);
    EXPECT_EQ(table.GetListIndex(QM_ENTRY_MEMO), 8);
    EXPECT_EQ(table.GetListIndex(QM_ENTRY_CATEGORY), -1);
    EXPECT_EQ(table.GetListIndex(QM_ENTRY_FILLER), 9);
}

// One table takes all settings in turn, so that anything left over from an earlier one would show.
TEST(QMColumnTable, EverySetOfVisibleColumnsIsCountedFromZero)
{
    QMColumnTable table;
    for (uint32_t uSet = 0; uSet < 1024; ++uSet) {
        QMAccountHeader header = {};
        for (size_t u = 0; u < 10; ++u) {
            header.*aExpected[u].pShown = uSet >> u & 1;
        }
        table.LoadFrom(header);
        int32_t lNext = 0;
        for (size_t u = 0; u < 10; ++u) {
            const bool bShown = (uSet >> u & 1) != 0;
            EXPECT_EQ(table.IsVisible(ColumnAt(u)), bShown) << "set of columns " << uSet;
            EXPECT_EQ(table.GetListIndex(ColumnAt(u)), bShown ? lNext++ : -1)
                << "set of columns " << uSet;
        }
        EXPECT_EQ(table.GetListIndex(QM_ENTRY_FILLER), lNext) << "set of columns " << uSet;
        EXPECT_EQ(table.GetVisibleCount(), lNext + 1) << "set of columns " << uSet;
    }
}

TEST(QMColumnTable, WidthsComeFromTheHeaderOfHiddenColumnsToo)
{
    QMAccountHeader header = {};
    for (size_t u = 0; u < 10; ++u) {
        header.*aExpected[u].pWidth = static_cast<int32_t>(100 + u);
    }
    QMColumnTable table;
    table.LoadFrom(header);
    for (size_t u = 0; u < 10; ++u) {
        EXPECT_EQ(table.GetWidth(ColumnAt(u)), static_cast<int32_t>(100 + u));
    }
    EXPECT_EQ(table.GetWidth(QM_ENTRY_FILLER), 0);
}

TEST(QMColumnTable, WidthThatWasSetStaysUntilTheNextLoad)
{
    QMColumnTable table;
    table.LoadFrom(QMDefaultHeader());
    table.SetWidth(QM_ENTRY_DATE, 77);
    table.SetWidth(QM_ENTRY_FILLER, 300);
    EXPECT_EQ(table.GetWidth(QM_ENTRY_DATE), 77);
    EXPECT_EQ(table.GetWidth(QM_ENTRY_FILLER), 300);
    EXPECT_EQ(table.GetWidth(QM_ENTRY_NUMBER), 50);
    table.LoadFrom(QMDefaultHeader());
    EXPECT_EQ(table.GetWidth(QM_ENTRY_DATE), 55);
    EXPECT_EQ(table.GetWidth(QM_ENTRY_FILLER), 0);
}

// ---- The column under the pointer.

namespace {

// The ten columns, visible by the bits of a set, with these widths.
QMAccountHeader HeaderOf(uint32_t uSet, const int32_t (&anWidths)[10])
{
    QMAccountHeader header = {};
    for (size_t u = 0; u < 10; ++u) {
        header.*aExpected[u].pShown = uSet >> u & 1;
        header.*aExpected[u].pWidth = anWidths[u];
    }
    return header;
}

// The column at each pixel, computed pixel by pixel. Pixels after the last column are the filler's.
std::vector<QMColumn> OwnersOf(uint32_t uSet, const int32_t (&anWidths)[10])
{
    std::vector<QMColumn> owners;
    for (size_t u = 0; u < 10; ++u) {
        if ((uSet >> u & 1) != 0) {
            owners.insert(owners.end(), static_cast<size_t>(anWidths[u]), ColumnAt(u));
        }
    }
    return owners;
}

} // namespace

TEST(QMColumnTable, PixelBelongsToTheVisibleColumnThatIsDrawnThere)
{
    // A column without width, and columns of one pixel beside it.
    constexpr int32_t anWidths[10] = {3, 5, 0, 7, 1, 1, 2, 4, 6, 3};
    QMColumnTable table;
    for (uint32_t uSet = 0; uSet < 1024; ++uSet) {
        table.LoadFrom(HeaderOf(uSet, anWidths));
        const std::vector<QMColumn> owners = OwnersOf(uSet, anWidths);
        for (size_t u = 0; u < owners.size(); ++u) {
            ASSERT_EQ(table.FindColumnAt(static_cast<int32_t>(u)), owners[u])
                << "set of columns " << uSet << ", pixel " << u;
        }
        for (const size_t uBehind : {size_t{0}, size_t{1}, size_t{100000}}) {
            ASSERT_EQ(table.FindColumnAt(static_cast<int32_t>(owners.size() + uBehind)),
                      QM_ENTRY_FILLER)
                << "set of columns " << uSet;
        }
    }
}

TEST(QMColumnTable, PixelLeftOfAllColumnsBelongsToTheFirstVisibleOne)
{
    constexpr int32_t anWidths[10] = {10, 10, 10, 10, 10, 10, 10, 10, 10, 10};
    QMColumnTable table;
    table.LoadFrom(HeaderOf(1023, anWidths));
    EXPECT_EQ(table.FindColumnAt(-1), QM_ENTRY_CLEARED);
    table.LoadFrom(HeaderOf(1022, anWidths));
    EXPECT_EQ(table.FindColumnAt(-1), QM_ENTRY_DATE);
    table.LoadFrom(HeaderOf(0, anWidths));
    EXPECT_EQ(table.FindColumnAt(-1), QM_ENTRY_FILLER);
}

TEST(QMColumnTable, WidthsOfTheMomentDecideAboutPixels)
{
    QMColumnTable table;
    table.LoadFrom(QMDefaultHeader());
    EXPECT_EQ(table.FindColumnAt(29), QM_ENTRY_CLEARED);
    EXPECT_EQ(table.FindColumnAt(30), QM_ENTRY_DATE);
    table.SetWidth(QM_ENTRY_CLEARED, 10);
    EXPECT_EQ(table.FindColumnAt(29), QM_ENTRY_DATE);
    // The width of the filler has no influence.
    table.SetWidth(QM_ENTRY_FILLER, 50);
    EXPECT_EQ(table.FindColumnAt(5000), QM_ENTRY_FILLER);
}

// ---- Columns by their bits.

TEST(QMColumnTable, EveryBitTellsOfItsOwnColumnAlone)
{
    for (uint32_t uSet = 0; uSet < 1024; ++uSet) {
        QMAccountHeader header = {};
        for (size_t u = 0; u < 10; ++u) {
            header.*aExpected[u].pShown = uSet >> u & 1;
        }
        for (size_t u = 0; u < 10; ++u) {
            ASSERT_EQ(QMIsColumnShown(header, aExpected[u].uMask), (uSet >> u & 1) != 0)
                << "set of columns " << uSet << ", pixel " << u;
        }
    }
}

TEST(QMColumnTable, NoColumnIsNotShown)
{
    QMAccountHeader header = QMDefaultHeader();
    header.bShowCategory = 1;
    // Also the mask of the filler, and masks of several columns.
    for (const uint32_t uColumn : {0U, 3U, 1023U, 1024U, 0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(QMIsColumnShown(header, uColumn)) << "column " << uColumn;
    }
}

TEST(QMColumnTable, AnyByteButZeroShowsAColumn)
{
    QMAccountHeader header = {};
    header.bShowMemo = 2;
    EXPECT_TRUE(QMIsColumnShown(header, QM_COLUMN_MEMO));
    header.bShowMemo = 255;
    EXPECT_TRUE(QMIsColumnShown(header, QM_COLUMN_MEMO));
}
