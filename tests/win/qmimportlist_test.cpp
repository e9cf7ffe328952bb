// The list of the import review: clicks and keys in it, the boxes for all rows, its picture.

#include <gtest/gtest.h>

#include "resources/resource.h"
#include "tests/win/importreview.h"
#include "toolkit/vdrawingsurface.h"

namespace {

void PressSpace(QMGridList& list)
{
    list.Post(WM_KEYDOWN, VK_SPACE, 0x00390001);
    list.Post(WM_KEYUP, VK_SPACE, static_cast<LPARAM>(0xC0390001));
    PumpAll();
}

// The dark pixels in a cell, as the list paints it.
int CountDark(QMGridList& list, int nRow, int nColumn)
{
    list.Update();
    RECT rect = {};
    rect.left = LVIR_BOUNDS;
    rect.top = nColumn;
    list.Send(LVM_GETSUBITEMRECT, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&rect));
    const VClientSurface surface(list.GetHandle());
    int nDark = 0;
    for (LONG y = rect.top; y < rect.bottom; ++y) {
        for (LONG x = rect.left + 1; x < rect.right; ++x) {
            const COLORREF cr = GetPixel(surface.GetHandle(), x, y);
            nDark += GetRValue(cr) < 100 && GetGValue(cr) < 100 && GetBValue(cr) < 100 ? 1 : 0;
        }
    }
    return nDark;
}

COLORREF ColorAt(QMGridList& list, int x, int y)
{
    list.Update();
    const VClientSurface surface(list.GetHandle());
    return GetPixel(surface.GetHandle(), x, y);
}

} // namespace

// ---- The boxes for all rows.

TEST_F(QMImportListTest, ImportAllTicksAndUnticksEveryRow)
{
    Fill({0, 0, 0});
    Review([](VDialog& dialog, QMGridList& list) {
        PressNow(dialog, IDC_IMPORT_ALL);
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_UNCHECKED);
        EXPECT_EQ(TicksOf(list), (Ticks{false, false, false}));
        PressNow(dialog, IDC_IMPORT_ALL);
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_CHECKED);
        EXPECT_EQ(TicksOf(list), (Ticks{true, true, true}));
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_CLEARALL), BST_CHECKED);
    });
}

TEST_F(QMImportListTest, ImportAllTicksEveryRowFromItsThirdState)
{
    Fill({0, 0, 0});
    Review([](VDialog& dialog, QMGridList& list) {
        ClickCheckBox(list, 1);
        EXPECT_EQ(TicksOf(list), (Ticks{true, false, true}));
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_INDETERMINATE);
        PressNow(dialog, IDC_IMPORT_ALL);
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_CHECKED);
        EXPECT_EQ(TicksOf(list), (Ticks{true, true, true}));
    });
}

TEST_F(QMImportListTest, ClearAllGoesFromOnToOffFirst)
{
    Fill({uNotCleared, 0, QM_TRANS_FLAG_TAX | uNotCleared});
    Review([this](VDialog& dialog, QMGridList& list) {
        PressNow(dialog, IDC_IMPORT_CLEARALL);
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_CLEARALL), BST_UNCHECKED);
        EXPECT_EQ(FlagsOf(m_store),
                  (Flags{uNotCleared, uNotCleared, QM_TRANS_FLAG_TAX | uNotCleared}));
        EXPECT_EQ(DataOf(list), (Flags{0, 0, 0}));
        PressNow(dialog, IDC_IMPORT_CLEARALL);
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_CLEARALL), BST_CHECKED);
        EXPECT_EQ(FlagsOf(m_store), (Flags{0, 0, QM_TRANS_FLAG_TAX}));
        EXPECT_EQ(DataOf(list), (Flags{32, 32, 32}));
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_CHECKED);
        EXPECT_EQ(TicksOf(list), (Ticks{true, true, true}));
    });
}

TEST_F(QMImportListTest, ClearAllOverwritesARowsClick)
{
    Fill({uNotCleared, uNotCleared, 0});
    Review([this](VDialog& dialog, QMGridList& list) {
        Click(list, 60, MiddleOf(list, 2));
        EXPECT_EQ(FlagsOf(m_store), (Flags{uNotCleared, uNotCleared, uNotCleared}));
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_CLEARALL), BST_INDETERMINATE);
        PressNow(dialog, IDC_IMPORT_CLEARALL);
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_CLEARALL), BST_CHECKED);
        EXPECT_EQ(FlagsOf(m_store), (Flags{0, 0, 0}));
        EXPECT_EQ(DataOf(list), (Flags{32, 32, 32}));
    });
}

TEST_F(QMImportListTest, BoxesArePressedByTheMouse)
{
    Fill({0, 0});
    Review([](VDialog& dialog, QMGridList& list) {
        for (const int nId : {IDC_IMPORT_ALL, IDC_IMPORT_CLEARALL}) {
            PostMessageA(dialog.GetItem(nId), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 12));
            PostMessageA(dialog.GetItem(nId), WM_LBUTTONUP, 0, MAKELPARAM(5, 12));
            PumpAll();
            EXPECT_EQ(CheckOf(dialog, nId), BST_UNCHECKED) << "control " << nId;
        }
        EXPECT_EQ(TicksOf(list), (Ticks{false, false}));
        EXPECT_EQ(DataOf(list), (Flags{0, 0}));
    });
}

// ---- Clicks and keys in the list.

TEST_F(QMImportListTest, AClickInTheFirstColumnMakesImportAllMixed)
{
    Fill({0, 0, 0});
    Review([this](VDialog& dialog, QMGridList& list) {
        // A click beside the check box: the row keeps its tick, and the box shows that rows may
        // differ.
        Click(list, 45, MiddleOf(list, 1));
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_INDETERMINATE);
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_CLEARALL), BST_CHECKED);
        EXPECT_EQ(TicksOf(list), (Ticks{true, true, true}));
        EXPECT_EQ(FlagsOf(m_store), (Flags{0, 0, 0}));
    });
}

TEST_F(QMImportListTest, AClickInTheSecondColumnTogglesCleared)
{
    Fill({0, uNotCleared, 0});
    Review([this](VDialog& dialog, QMGridList& list) {
        Click(list, 50, MiddleOf(list, 1));
        EXPECT_EQ(FlagsOf(m_store), (Flags{0, 0, 0}));
        EXPECT_EQ(DataOf(list), (Flags{32, 32, 32}));
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_CLEARALL), BST_INDETERMINATE);
        Click(list, 79, MiddleOf(list, 2));
        EXPECT_EQ(FlagsOf(m_store), (Flags{0, 0, uNotCleared}));
        EXPECT_EQ(DataOf(list), (Flags{32, 32, 0}));
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_CHECKED);
        EXPECT_EQ(TicksOf(list), (Ticks{true, true, true}));
    });
}

TEST_F(QMImportListTest, OnlyTheFocusedRowOfASelectionIsToggled)
{
    Fill({0, 0, 0});
    Review([this](VDialog&, QMGridList& list) {
        list.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
        Click(list, 60, MiddleOf(list, 1));
        EXPECT_EQ(FlagsOf(m_store), (Flags{0, uNotCleared, 0}));
    });
}

TEST_F(QMImportListTest, AClickElsewhereDoesNothing)
{
    Fill({0, uNotCleared, 0});
    Review([this](VDialog& dialog, QMGridList& list) {
        for (const int x : {80, 140, 300, 450, 520, 600}) {
            Click(list, x, MiddleOf(list, 1));
        }
        // A click below the rows leaves nothing selected.
        Click(list, 60, MiddleOf(list, 2) + 100);
        EXPECT_EQ(list.GetSelectedCount(), 0);
        EXPECT_EQ(FlagsOf(m_store), (Flags{0, uNotCleared, 0}));
        EXPECT_EQ(DataOf(list), (Flags{32, 0, 32}));
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_CHECKED);
        EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_CLEARALL), BST_CHECKED);
    });
}

// Kept: the columns are looked up as if the list were never scrolled sideways.
TEST_F(QMImportListTest, AClickCountsFromTheLeftEdgeOfAScrolledListToo)
{
    Fill({0, 0});
    Review([this](VDialog& dialog, QMGridList& list) {
        ResizeClient(dialog, 400, 300);
        list.Send(LVM_SCROLL, 90, 0);
        ASSERT_GT(GetScrollPos(list.GetHandle(), SB_HORZ), 80);
        Click(list, 60, MiddleOf(list, 1));
        EXPECT_EQ(FlagsOf(m_store), (Flags{0, uNotCleared}));
    });
}

TEST_F(QMImportListTest, TheSpaceBarTicksTheRowToo)
{
    Fill({0, 0});
    const INT_PTR nResult = Review(
        [](VDialog& dialog, QMGridList& list) {
            PressSpace(list);
            EXPECT_EQ(TicksOf(list), (Ticks{false, true}));
            EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_INDETERMINATE);
        },
        IDC_IMPORT_IMPORT);
    EXPECT_EQ(nResult, IDC_IMPORT_IMPORT);
    EXPECT_EQ(MarksOf(m_store), (Ticks{false, true}));
}

// ---- Long lists and pictures.

TEST_F(QMImportListTest, TakesThousandsOfRows)
{
    constexpr int nRows = 10000;
    QMStoreFiller filler(m_store);
    for (int n = 0; n < nRows; ++n) {
        auto pTransaction = std::make_unique<QMTransaction>();
        pTransaction->lNumber = static_cast<uint32_t>(n);
        filler.Add(std::move(pTransaction));
    }
    ASSERT_TRUE(filler.Finish());
    Review(
        [&](VDialog& dialog, QMGridList& list) {
            ASSERT_EQ(list.GetItemCount(), nRows);
            EXPECT_EQ(Text(list.GetItemText(nRows - 1, QM_IMPORT_NUMBER)), " 9999");
            PressNow(dialog, IDC_IMPORT_CLEARALL);
            PressNow(dialog, IDC_IMPORT_CLEARALL);
            EXPECT_EQ(DataOf(list), Flags(nRows, 32));
            PressNow(dialog, IDC_IMPORT_ALL);
            list.SetItemState(nRows - 1, INDEXTOSTATEIMAGEMASK(2), LVIS_STATEIMAGEMASK);
        },
        IDC_IMPORT_IMPORT);
    Ticks expected(nRows, false);
    expected.back() = true;
    EXPECT_EQ(MarksOf(m_store), expected);
}

TEST_F(QMImportListTest, DrawsTheMarkOfTheClearedOnly)
{
    Fill({0, 0, uNotCleared, QM_TRANS_FLAG_VOIDED | uNotCleared});
    Review([](VDialog& dialog, QMGridList& list) {
        EXPECT_TRUE(PumpUntil([&] { return CountDark(list, 1, 1) > 10; }));
        EXPECT_EQ(CountDark(list, 2, 1), 0);
        EXPECT_EQ(CountDark(list, 3, 1), 0);
        PressNow(dialog, IDC_IMPORT_CLEARALL);
        EXPECT_EQ(CountDark(list, 1, 1), 0);
        PressNow(dialog, IDC_IMPORT_CLEARALL);
        EXPECT_GT(CountDark(list, 2, 1), 10);
        EXPECT_GT(CountDark(list, 3, 1), 10);
    });
}

TEST_F(QMImportListTest, ShadesEverySecondRowAndRulesTheColumns)
{
    Fill({0, 0, 0, 0});
    Review([](VDialog&, QMGridList& list) {
        // Right of the text of the date, and left of the next column's line.
        EXPECT_TRUE(PumpUntil([&] { return ColorAt(list, 82, MiddleOf(list, 1)) == 0xEBEBEB; }));
        EXPECT_EQ(ColorAt(list, 82, MiddleOf(list, 2)), GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(ColorAt(list, 82, MiddleOf(list, 3)), 0xEBEBEBU);
        for (const int x : {50, 80, 135, 185, 435, 495, 555}) {
            EXPECT_EQ(ColorAt(list, x, MiddleOf(list, 1)), 0xC0C0C0U) << "x = " << x;
            EXPECT_EQ(ColorAt(list, x, MiddleOf(list, 2)), 0xC0C0C0U) << "x = " << x;
        }
    });
}

TEST_F(QMImportListTest, LeavesNothingOfASelectionThatWentAway)
{
    Fill({0, 0, 0, 0});
    Review([](VDialog&, QMGridList& list) {
        const auto IsSelected = [&](int nRow) {
            return ColorAt(list, 82, MiddleOf(list, nRow)) == GetSysColor(COLOR_HIGHLIGHT);
        };
        for (const int nRow : {0, 1}) {
            list.SetItemState(nRow, LVIS_SELECTED, LVIS_SELECTED);
            EXPECT_TRUE(PumpUntil([&] { return IsSelected(nRow); })) << "row " << nRow;
            list.SetItemState(nRow, 0, LVIS_SELECTED);
            EXPECT_FALSE(IsSelected(nRow)) << "row " << nRow;
        }
        // Right of the line at the left edge, and left of the check boxes.
        EXPECT_EQ(ColorAt(list, 1, MiddleOf(list, 0)), GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(ColorAt(list, 1, MiddleOf(list, 1)), 0xEBEBEBU);
        EXPECT_EQ(ColorAt(list, 1, MiddleOf(list, 2)), GetSysColor(COLOR_WINDOW));
    });
}
