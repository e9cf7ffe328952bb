#include "exchange/qmimportdialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include "resources/resource.h"
#include "tests/win/importreview.h"
#include "tests/win/modaldriver.h"
#include "toolkit/vrect_win.h"

namespace {

constexpr int anControls[] = {IDC_IMPORT_ALL, IDC_IMPORT_CLEARALL, IDC_IMPORT_IMPORT, IDCANCEL};

std::vector<std::string> TextsOf(const QMGridList& list, int nRow)
{
    std::vector<std::string> texts;
    for (int nColumn = 0; nColumn < list.GetColumnCount(); ++nColumn) {
        texts.push_back(Text(list.GetItemText(nRow, nColumn)));
    }
    return texts;
}

// The place of a child in the client area of the dialog.
VRect PlaceOf(const VDialog& dialog, HWND hChild)
{
    RECT rect = {};
    GetWindowRect(hChild, &rect);
    MapWindowPoints(nullptr, dialog.GetHandle(), reinterpret_cast<POINT*>(&rect), 2);
    return VFromRect(rect);
}

// While it lives, no list control can be created.
class NoLists
{
public:
    NoLists() : m_hHook(SetWindowsHookExA(WH_CBT, &OnHook, nullptr, GetCurrentThreadId())) {}
    NoLists(const NoLists&) = delete;
    NoLists& operator=(const NoLists&) = delete;
    ~NoLists() { UnhookWindowsHookEx(m_hHook); }

private:
    static LRESULT CALLBACK OnHook(int nCode, WPARAM wParam, LPARAM lParam)
    {
        char szClass[32] = "";
        if (nCode == HCBT_CREATEWND) {
            GetClassNameA(reinterpret_cast<HWND>(wParam), szClass, sizeof szClass);
        }
        return strcmp(szClass, WC_LISTVIEWA) == 0 ? 1
                                                  : CallNextHookEx(nullptr, nCode, wParam, lParam);
    }

    HHOOK m_hHook;
};

} // namespace

// ---- The window.

TEST_F(QMImportDialogTest, HasItsTitleSizeAndFrame)
{
    Review([](VDialog& dialog, QMGridList&) {
        EXPECT_EQ(Text(dialog.GetText()), "Import File");
        EXPECT_NE(dialog.GetLong(GWL_STYLE) & WS_THICKFRAME, 0);
        RECT units = {0, 0, 500, 300};
        MapDialogRect(dialog.GetHandle(), &units);
        EXPECT_EQ(dialog.GetClientRect().GetWidth(), units.right);
        EXPECT_EQ(dialog.GetClientRect().GetHeight(), units.bottom);
    });
}

TEST_F(QMImportDialogTest, StandsInTheMiddle)
{
    Review([](VDialog& dialog, QMGridList&) {
        RECT area = {};
        SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
        const VRect window = dialog.GetWindowRect();
        EXPECT_NEAR(window.left + window.right, area.left + area.right, 2);
        EXPECT_NEAR(window.top + window.bottom, area.top + area.bottom, 2);
    });
}

TEST_F(QMImportDialogTest, HasTwoBoxesThatAreOnAndTwoButtons)
{
    Review([](VDialog& dialog, QMGridList&) {
        HWND hDialog = dialog.GetHandle();
        EXPECT_EQ(ItemText(hDialog, 2202), "Import All");
        EXPECT_EQ(ItemText(hDialog, 2203), "Clear All");
        EXPECT_EQ(ItemText(hDialog, 1918), "&Import");
        EXPECT_EQ(ItemText(hDialog, 2), "&Cancel");
        for (const int nId : {2202, 2203}) {
            EXPECT_EQ(CheckOf(dialog, nId), BST_CHECKED) << "control " << nId;
            EXPECT_TRUE(IsWindowEnabled(dialog.GetItem(nId))) << "control " << nId;
        }
        EXPECT_EQ(dialog.Send(DM_GETDEFID), MAKELRESULT(1918, DC_HASDEFID));
    });
}

TEST_F(QMImportDialogTest, TabsFromTheListToTheBoxesAndButtons)
{
    Review([](VDialog& dialog, QMGridList&) {
        std::vector<int> order;
        HWND hControl = nullptr;
        for (int n = 0; n < 6; ++n) {
            hControl = GetNextDlgTabItem(dialog.GetHandle(), hControl, FALSE);
            order.push_back(GetDlgCtrlID(hControl));
        }
        EXPECT_EQ(order, (std::vector<int>{IDC_IMPORT_LIST, IDC_IMPORT_ALL, IDC_IMPORT_CLEARALL,
                                           IDC_IMPORT_IMPORT, IDCANCEL, IDC_IMPORT_LIST}));
    });
}

TEST_F(QMImportDialogTest, StartsOnTheFirstRow)
{
    Fill({0, 0, 0});
    Review([](VDialog&, QMGridList& list) {
        EXPECT_TRUE(PumpUntil([&] { return GetFocus() == list.GetHandle(); }));
        EXPECT_EQ(list.GetSelectedCount(), 1);
        EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED | LVIS_FOCUSED),
                  UINT{LVIS_SELECTED | LVIS_FOCUSED});
    });
}

TEST_F(QMImportDialogTest, HasAListWithGridAndCheckBoxes)
{
    Review([](VDialog&, QMGridList& list) {
        const LONG_PTR lStyle = list.GetLong(GWL_STYLE);
        EXPECT_EQ(lStyle & LVS_TYPEMASK, LVS_REPORT);
        for (const LONG_PTR lBit :
             {LONG_PTR{LVS_SHOWSELALWAYS}, LONG_PTR{LVS_NOSORTHEADER}, LONG_PTR{WS_BORDER},
              LONG_PTR{WS_VISIBLE}, LONG_PTR{WS_TABSTOP}}) {
            EXPECT_EQ(lStyle & lBit, lBit);
        }
        EXPECT_EQ(lStyle & LVS_OWNERDATA, 0);
        const LRESULT lExtended = list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE);
        constexpr LRESULT lWanted = LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES | LVS_EX_SUBITEMIMAGES;
        EXPECT_EQ(lExtended & lWanted, lWanted);
        EXPECT_EQ(list.GetLineFlags(), 5U);
    });
}

TEST_F(QMImportDialogTest, HasTenColumns)
{
    const struct
    {
        const char* szHeading;
        int nFormat;
        int nWidth;
    } aExpected[] = {
        {"", LVCFMT_CENTER, 50},           {"Cleared", LVCFMT_CENTER, 30},
        {"Date", LVCFMT_RIGHT, 55},        {"Number", LVCFMT_RIGHT, 50},
        {"Description", LVCFMT_LEFT, 250}, {"Debit", LVCFMT_RIGHT, 60},
        {"Credit", LVCFMT_RIGHT, 60},      {"Memo", LVCFMT_LEFT, 240},
        {"Category", LVCFMT_LEFT, 240},
    };
    Review([&](VDialog&, QMGridList& list) {
        ASSERT_EQ(list.GetColumnCount(), 10);
        for (int n = 0; n < 10; ++n) {
            char szHeading[64] = "";
            LVCOLUMNA column = {};
            column.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH;
            column.pszText = szHeading;
            column.cchTextMax = sizeof szHeading;
            ASSERT_TRUE(list.Send(LVM_GETCOLUMNA, static_cast<WPARAM>(n),
                                  reinterpret_cast<LPARAM>(&column)));
            if (n == 9) {
                EXPECT_STREQ(szHeading, "");
                EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_CENTER);
                continue;
            }
            EXPECT_STREQ(szHeading, aExpected[n].szHeading) << "column " << n;
            EXPECT_EQ(column.cx, aExpected[n].nWidth) << "column " << n;
            // Windows aligns the first column to the left, whatever it was told.
            if (n > 0) {
                EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, aExpected[n].nFormat) << "column " << n;
            }
        }
    });
}

// ---- Rows.

TEST_F(QMImportDialogTest, ShowsEachTransaction)
{
    QMTransaction check = MakeTransaction(QM_TRANS_CHECK, 1, uNotCleared, "Rent");
    strcpy(check.szMemo, "March");
    strcpy(check.szCategory, "Home");
    AddTo(m_store, check);
    AddTo(m_store, MakeTransaction(QM_TRANS_DEPOSIT, 2, 0, "Pay"));
    AddTo(m_store, MakeTransaction(QM_TRANS_FEE, 14, QM_TRANS_FLAG_VOIDED | uNotCleared, "Bank"));
    Review([](VDialog&, QMGridList& list) {
        using Row = std::vector<std::string>;
        ASSERT_EQ(list.GetItemCount(), 3);
        EXPECT_EQ(TextsOf(list, 0), (Row{"", "", " 3/ 1/04", " 1001", "Rent", "     10.25", "",
                                         "March", "Home", ""}));
        EXPECT_EQ(TextsOf(list, 1), (Row{"", "", " 3/ 2/04", "     ", "Deposit - Pay", "",
                                         "     20.50", "", "", ""}));
        EXPECT_EQ(TextsOf(list, 2), (Row{"", "", " 3/14/04", "     ", "Fee - Bank   (voided)",
                                         "    143.50", "", "", "", ""}));
        EXPECT_EQ(TicksOf(list), (Ticks{true, true, true}));
        EXPECT_EQ(DataOf(list), (Flags{0, 32, 0}));
    });
}

TEST_F(QMImportDialogTest, PutsEachTypeOnItsSide)
{
    for (int32_t lType = 0; lType < 12; ++lType) {
        AddTo(m_store, MakeTransaction(lType, static_cast<uint16_t>(lType + 1), 0, ""));
    }
    Review([](VDialog&, QMGridList& list) {
        ASSERT_EQ(list.GetItemCount(), 12);
        std::string sSides;
        for (int nRow = 0; nRow < 12; ++nRow) {
            const bool bDebit = !list.GetItemText(nRow, 5).IsEmpty();
            EXPECT_NE(bDebit, !list.GetItemText(nRow, 6).IsEmpty()) << "row " << nRow;
            sSides += bDebit ? 'D' : 'C';
        }
        EXPECT_EQ(sSides, "DCDDCDCDDCDC");
    });
}

// ---- Sizes.

TEST_F(QMImportDialogTest, LaysItsControlsOutAtEachSize)
{
    const struct
    {
        int nWidth;
        int nHeight;
        int nImport;
        int nCancel;
        int nFiller;
    } aCases[] = {
        {1100, 500, 1024, 948, 65}, {1035, 400, 959, 883, 0}, {750, 488, 674, 598, 0},
        {371, 200, 295, 219, 0},    {370, 200, 294, 218, 0},  {250, 120, 294, 218, 0},
    };
    Review([&](VDialog& dialog, QMGridList& list) {
        for (const auto& test : aCases) {
            SCOPED_TRACE(std::to_string(test.nWidth));
            ResizeClient(dialog, test.nWidth, test.nHeight);
            ASSERT_EQ(dialog.GetClientRect(), VRect(0, 0, test.nWidth, test.nHeight));
            EXPECT_EQ(PlaceOf(dialog, list.GetHandle()),
                      VRect(0, 0, test.nWidth, test.nHeight - 40));
            const int y = test.nHeight - 32;
            const int anLeft[] = {8, 114, test.nImport, test.nCancel};
            const int anWidth[] = {98, 98, 68, 68};
            for (size_t u = 0; u < std::size(anLeft); ++u) {
                EXPECT_EQ(PlaceOf(dialog, dialog.GetItem(anControls[u])),
                          VRect(anLeft[u], y, anLeft[u] + anWidth[u], y + 24))
                    << anControls[u];
            }
            EXPECT_EQ(list.GetColumnWidth(9), test.nFiller);
        }
    });
}

TEST_F(QMImportDialogTest, IsLaidOutFromTheStart)
{
    Review([](VDialog& dialog, QMGridList& list) {
        const VRect client = dialog.GetClientRect();
        EXPECT_EQ(PlaceOf(dialog, list.GetHandle()), VRect(0, 0, client.right, client.bottom - 40));
        EXPECT_EQ(
            PlaceOf(dialog, dialog.GetItem(IDC_IMPORT_IMPORT)),
            VRect(client.right - 76, client.bottom - 32, client.right - 8, client.bottom - 8));
        EXPECT_EQ(list.GetColumnWidth(9), std::max(client.right - 1035, 0));
    });
}

TEST_F(QMImportDialogTest, KeepsItsListWhereThereIsNoRoomForOne)
{
    Review([](VDialog& dialog, QMGridList& list) {
        ResizeClient(dialog, 400, 300);
        // A user cannot make the window as small as this.
        dialog.Send(WM_SIZE, SIZE_RESTORED, MAKELPARAM(2, 300));
        dialog.Send(WM_SIZE, SIZE_RESTORED, MAKELPARAM(400, 40));
        EXPECT_EQ(PlaceOf(dialog, list.GetHandle()), VRect(0, 0, 400, 260));
        EXPECT_EQ(PlaceOf(dialog, dialog.GetItem(IDC_IMPORT_ALL)), VRect(8, 8, 106, 32));
        dialog.Send(WM_SIZE, SIZE_RESTORED, MAKELPARAM(3, 41));
        EXPECT_EQ(PlaceOf(dialog, list.GetHandle()), VRect(0, 0, 3, 1));
    });
}

TEST_F(QMImportDialogTest, GivesTheFillerWhatDraggedColumnsLeave)
{
    Review([](VDialog& dialog, QMGridList& list) {
        list.SetColumnWidth(QM_IMPORT_MEMO, 100);
        ResizeClient(dialog, 1100, 400);
        EXPECT_EQ(list.GetColumnWidth(9), 205);
    });
}

// ---- Closing.

TEST_F(QMImportDialogTest, ImportMarksTheTickedRows)
{
    Fill({uNotCleared, QM_TRANS_FLAG_IMPORT, 0, 0});
    const INT_PTR nResult = Review(
        [](VDialog&, QMGridList& list) {
            ClickCheckBox(list, 1);
            ClickCheckBox(list, 3);
            EXPECT_EQ(TicksOf(list), (Ticks{true, false, true, false}));
        },
        IDC_IMPORT_IMPORT);
    EXPECT_EQ(nResult, 1918);
    EXPECT_EQ(MarksOf(m_store), (Ticks{true, false, true, false}));
    EXPECT_EQ(TagsOf(m_store), (Flags{uNotCleared, 0, 0, 0}));
}

TEST_F(QMImportDialogTest, ImportsNothingWhenAllIsUnticked)
{
    Fill({0, 0});
    const INT_PTR nResult = Review(
        [](VDialog& dialog, QMGridList&) { PressNow(dialog, IDC_IMPORT_ALL); }, IDC_IMPORT_IMPORT);
    EXPECT_EQ(nResult, 1918);
    EXPECT_EQ(MarksOf(m_store), (Ticks{false, false}));
}

TEST_F(QMImportDialogTest, CancelSetsNoMark)
{
    Fill({0, uNotCleared});
    EXPECT_EQ(Review([](VDialog&, QMGridList& list) { ClickCheckBox(list, 1); }), 2);
    EXPECT_EQ(FlagsOf(m_store), (Flags{0, uNotCleared}));
}

TEST_F(QMImportDialogTest, TheCloseBoxCancels)
{
    Fill({0});
    EXPECT_EQ(Review([](VDialog& dialog, QMGridList&) { dialog.Post(WM_CLOSE); }, 0), 2);
    EXPECT_EQ(MarksOf(m_store), Ticks{false});
}

TEST_F(QMImportDialogTest, EnterImports)
{
    Fill({0});
    EXPECT_EQ(ReviewWithKey(VK_RETURN), 1918);
    EXPECT_EQ(MarksOf(m_store), Ticks{true});
}

TEST_F(QMImportDialogTest, EscapeCancels)
{
    Fill({0});
    EXPECT_EQ(ReviewWithKey(VK_ESCAPE), 2);
    EXPECT_EQ(MarksOf(m_store), Ticks{false});
}

TEST_F(QMImportDialogTest, HasNoOkToEndWith)
{
    Fill({0});
    EXPECT_EQ(Review([](VDialog& dialog, QMGridList&) {
                  PressNow(dialog, IDOK);
                  EXPECT_TRUE(dialog.IsValid());
              }),
              2);
}

TEST_F(QMImportDialogTest, ShowsAnEmptyStore)
{
    const INT_PTR nResult = Review(
        [](VDialog& dialog, QMGridList& list) {
            EXPECT_EQ(list.GetItemCount(), 0);
            Click(list, 10, 60);
            Click(list, 60, 60);
            PressNow(dialog, IDC_IMPORT_ALL);
            PressNow(dialog, IDC_IMPORT_CLEARALL);
            EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_ALL), BST_UNCHECKED);
            EXPECT_EQ(CheckOf(dialog, IDC_IMPORT_CLEARALL), BST_UNCHECKED);
        },
        IDC_IMPORT_IMPORT);
    EXPECT_EQ(nResult, 1918);
    EXPECT_TRUE(m_store.IsEmpty());
}

TEST_F(QMImportDialogTest, DoesNotShowWithoutItsList)
{
    Fill({0});
    const NoLists refusal;
    QMImportDialog dialog;
    EXPECT_EQ(dialog.DoModal(nullptr, m_store), 2);
    EXPECT_EQ(FlagsOf(m_store), Flags{0});
}

TEST_F(QMImportDialogTest, ShowsAgainAfterItWasEnded)
{
    Fill({0, 0});
    QMImportDialog dialog;
    for (int n = 0; n < 2; ++n) {
        ModalDriver driver;
        driver.Next([](HWND hDialog) { Press(hDialog, IDC_IMPORT_IMPORT); });
        EXPECT_EQ(dialog.DoModal(nullptr, m_store), 1918);
    }
    EXPECT_EQ(MarksOf(m_store), (Ticks{true, true}));
}
