#include "toolkit/vwindow.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vbutton.h"
#include "toolkit/vwindowkind.h"
#include "toolkit/vwindowlist.h"

namespace {

// The index of a virtual operation in the virtual table. In the first word of a pointer to member,
// the compiler stores its offset in bytes plus one. The destructor takes the first two entries.
template <class TMember>
size_t SlotOf(TMember pMember)
{
    uintptr_t uWord = 0;
    memcpy(&uWord, &pMember, sizeof uWord);
    return (uWord - 1) / sizeof(void*);
}

HWND MakeChild(HWND hParent, const char* szClass, DWORD uStyle)
{
    return CreateWindowExA(0, szClass, "", uStyle | WS_CHILD, 0, 0, 20, 20, hParent, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

class VWindowTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(CreateTestWindow(m_parent)); }

    HWND Child(const char* szClass, DWORD uStyle = 0)
    {
        return MakeChild(m_parent.GetHandle(), szClass, uStyle);
    }

    VWindow m_parent;
};

} // namespace

TEST(VWindow, KeepsTheOrderOfItsVirtualOperations)
{
    const size_t auSlots[] = {
        SlotOf(&VWindow::OnClose),        SlotOf(&VWindow::ClientArea),
        SlotOf(&VWindow::IsDialogKind),   SlotOf(&VWindow::Maximize),
        SlotOf(&VWindow::Minimize),       SlotOf(&VWindow::PreTranslate),
        SlotOf(&VWindow::Restore),        SlotOf(&VWindow::DefaultProc),
        SlotOf(&VWindow::OnCommand),      SlotOf(&VWindow::OnDestroy),
        SlotOf(&VWindow::OnPaint),        SlotOf(&VWindow::OnSize),
        SlotOf(&VWindow::OnNotify),       SlotOf(&VWindow::OnReflectNotify),
        SlotOf(&VWindow::OnFinalDestroy), SlotOf(&VWindow::OnPreCreate),
        SlotOf(&VWindow::OnInitialize),
    };
    size_t uExpected = 2;
    for (const size_t uSlot : auSlots) {
        EXPECT_EQ(uSlot, uExpected++);
    }
}

TEST(VWindow, NotHandledHasItsValue)
{
    EXPECT_EQ(static_cast<uint32_t>(V_NOT_HANDLED), 0xFFFF0001U);
    EXPECT_EQ(V_NOT_HANDLED, -65535);
}

TEST(VWindow, IsDialogKindKnowsTheDialogs)
{
    const std::set<int32_t> dialogs = {4, 9, 14, 24, 28, 29, 32, 33, 34, 35, 36, 37, 38};
    for (int32_t lKind = 0; lKind <= 60; ++lKind) {
        EXPECT_EQ(VIsDialogKind(lKind), dialogs.count(lKind) != 0) << "kind " << lKind;
        EXPECT_EQ(VWindow(lKind).IsDialogKind(), dialogs.count(lKind) != 0) << "kind " << lKind;
    }
}

TEST(VWindow, KindsOfFramesGoToTheFrontOfTheList)
{
    const std::set<int32_t> fronts = {9, 10, 14, 15, 42, 45};
    VWindowList& list = VWindowList::Get();
    const VWindow first(42);
    const VWindow last;
    const int32_t lCount = list.GetCount();
    for (int32_t lKind = 0; lKind <= 60; ++lKind) {
        const VWindow window(lKind);
        EXPECT_EQ(list.GetCount(), lCount + 1);
        EXPECT_EQ(list.GetFirst() == &window, fronts.count(lKind) != 0) << "kind " << lKind;
        EXPECT_EQ(last.m_pNextLive == &window, fronts.count(lKind) == 0) << "kind " << lKind;
    }
    EXPECT_EQ(list.GetCount(), lCount);
    EXPECT_EQ(list.GetFirst(), &first);
}

TEST(VWindow, IsLiveUntilItsEnd)
{
    auto pWindow = std::make_unique<VWindow>();
    const VWindow* pAddress = pWindow.get();
    EXPECT_TRUE(VWindow::IsLive(pAddress));
    pWindow.reset();
    EXPECT_FALSE(VWindow::IsLive(pAddress));
    EXPECT_FALSE(VWindow::IsLive(nullptr));
}

TEST(VWindow, TheMainWindowIsForgottenWithItsObject)
{
    {
        VWindow window;
        VWindow other;
        VWindow::SetMainWindow(&window);
        other.Detach();
        EXPECT_EQ(VWindow::GetMainWindow(), &window);
    }
    EXPECT_EQ(VWindow::GetMainWindow(), nullptr);
    VWindow window;
    VWindow::SetMainWindow(&window);
    window.Detach();
    EXPECT_EQ(VWindow::GetMainWindow(), nullptr);
}

TEST(VWindow, FlagsSaveAndRestore)
{
    VWindow window;
    window.GetFlags().Set(V_FLAG_PAINTS | V_FLAG_OFF_SCREEN);
    window.GetFlags().Save();
    window.GetFlags().Clear(V_FLAG_PAINTS);
    EXPECT_FALSE(window.GetFlags().Test(V_FLAG_PAINTS));
    window.GetFlags().Restore();
    EXPECT_TRUE(window.GetFlags().Test(V_FLAG_PAINTS));
}

TEST_F(VWindowTest, KindOfWindowGoesByTheClass)
{
    // With the manifest, Windows knows all classes of the common controls.
    const struct
    {
        const char* szClass;
        int32_t lKind;
    } aCases[] = {
        {"Button", 1},
        {"Static", 17},
        {"Edit", 5},
        {"ComboBox", 3},
        {"ListBox", 7},
        {"ScrollBar", 12},
        {"#32770", 4},
        {"msctls_progress32", 30},
        {"SysListView32", 8},
        {"SysTreeView32", 22},
        {"SysTabControl32", 19},
        {"SysDateTimePick32", 46},
        {"SysMonthCal32", 47},
        {"msctls_updown32", 48},
        {"SysHeader32", 52},
        {"ReBarWindow32", 39},
        {"msctls_statusbar32", 18},
        {"ToolbarWindow32", 21},
    };
    for (const auto& test : aCases) {
        HWND hChild = Child(test.szClass);
        ASSERT_NE(hChild, nullptr) << test.szClass;
        EXPECT_EQ(VWindow::KindOfWindow(hChild), test.lKind) << test.szClass;
        DestroyWindow(hChild);
    }
    EXPECT_EQ(VWindow::KindOfWindow(m_parent.GetHandle()), 23);
    EXPECT_EQ(VWindow::KindOfWindow(nullptr), 23);
}

TEST_F(VWindowTest, KindOfWindowLooksAtTheStyleOfButtons)
{
    const int32_t alKinds[16] = {1, 1, 2, 2, 11, 2, 2, 6, 1, 11, 1, 1, 1, 1, 1, 1};
    for (DWORD uStyle = 0; uStyle < 16; ++uStyle) {
        EXPECT_EQ(VKindOfClass("BUTTON", static_cast<LONG_PTR>(0x50010010U | uStyle)),
                  alKinds[uStyle])
            << "style " << uStyle;
    }
    HWND hRadio = Child("Button", BS_AUTORADIOBUTTON);
    EXPECT_EQ(VWindow::KindOfWindow(hRadio), 11);
    HWND hStatic = Child("Static", SS_BLACKRECT);
    EXPECT_EQ(VWindow::KindOfWindow(hStatic), 17);
}

TEST_F(VWindowTest, FindChildOfClassTakesCheckAndRadioStylesForButtons)
{
    EXPECT_EQ(m_parent.FindChildOfClass("BUTTON"), nullptr);
    Child("Button", BS_PUSHBUTTON);
    Child("Button", BS_OWNERDRAW & ~7U); // style 8: none of the low three bits
    EXPECT_EQ(m_parent.FindChildOfClass("BUTTON"), nullptr);
    HWND hRadio = Child("Button", BS_AUTORADIOBUTTON);
    EXPECT_EQ(m_parent.FindChildOfClass("BUTTON"), hRadio);
    EXPECT_EQ(m_parent.FindChildOfClass("button"), hRadio);
}

TEST_F(VWindowTest, FindChildOfClassWalksAllDescendants)
{
    EXPECT_EQ(m_parent.FindChildOfClass("edit"), nullptr);
    HWND hStatic = Child("Static");
    HWND hEdit = MakeChild(hStatic, "Edit", 0);
    EXPECT_EQ(m_parent.FindChildOfClass("EDIT"), hEdit);
    EXPECT_EQ(m_parent.FindChildOfClass("STATIC"), hStatic);
    EXPECT_EQ(m_parent.FindChildOfClass("ListBox"), nullptr);
}

TEST_F(VWindowTest, EnableAndShowChildrenReachAllDescendants)
{
    HWND hStatic = Child("Static", WS_VISIBLE);
    HWND hEdit = MakeChild(hStatic, "Edit", WS_VISIBLE);
    m_parent.EnableChildren(false);
    EXPECT_FALSE(IsWindowEnabled(hStatic));
    EXPECT_FALSE(IsWindowEnabled(hEdit));
    EXPECT_TRUE(IsWindowEnabled(m_parent.GetHandle()));
    m_parent.EnableChildren(true);
    EXPECT_TRUE(IsWindowEnabled(hStatic));
    EXPECT_TRUE(IsWindowEnabled(hEdit));
    m_parent.ShowChildren(false);
    EXPECT_EQ(GetWindowLongPtrA(hStatic, GWL_STYLE) & WS_VISIBLE, 0);
    EXPECT_EQ(GetWindowLongPtrA(hEdit, GWL_STYLE) & WS_VISIBLE, 0);
    m_parent.ShowChildren(true);
    EXPECT_NE(GetWindowLongPtrA(hStatic, GWL_STYLE) & WS_VISIBLE, 0);
    EXPECT_NE(GetWindowLongPtrA(hEdit, GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(VWindowTest, ForwardsReachTheWindow)
{
    const std::string sLong(3000, 'x');
    m_parent.SetText(sLong.c_str());
    EXPECT_EQ(Text(m_parent.GetText()), sLong);
    m_parent.Move({20, 30, 320, 230});
    EXPECT_EQ(m_parent.GetWindowRect(), (VRect{20, 30, 320, 230}));
    m_parent.Enable(false);
    EXPECT_FALSE(IsWindowEnabled(m_parent.GetHandle()));
    EXPECT_FALSE(m_parent.IsVisible());
    EXPECT_EQ(m_parent.GetParent(), nullptr);
    m_parent.SetLong(GWLP_USERDATA, 77);
    EXPECT_EQ(m_parent.GetLong(GWLP_USERDATA), 77);
    HWND hChild = Child("Static");
    SetWindowLongPtrA(hChild, GWLP_ID, 5);
    EXPECT_EQ(m_parent.GetItem(5), hChild);
}

TEST_F(VWindowTest, SizesOfAWindowFollowItsCommands)
{
    m_parent.Show(SW_SHOWNOACTIVATE);
    m_parent.Maximize();
    EXPECT_TRUE(IsZoomed(m_parent.GetHandle()));
    m_parent.Minimize();
    EXPECT_TRUE(IsIconic(m_parent.GetHandle()));
    m_parent.Restore();
    EXPECT_FALSE(IsIconic(m_parent.GetHandle()));
    m_parent.Restore();
    EXPECT_FALSE(IsZoomed(m_parent.GetHandle()));
}

TEST_F(VWindowTest, ClientAreaLiesInsideFrameAndCaption)
{
    VRect area;
    m_parent.ClientArea(area);
    const int nX = GetSystemMetrics(SM_CXSIZEFRAME);
    const int nY = GetSystemMetrics(SM_CYSIZEFRAME);
    const int nCaption = GetSystemMetrics(SM_CYCAPTION);
    EXPECT_EQ(area, (VRect{nX, nY + nCaption, 200 - nX, 100 - nY}));

    VWindow fixed;
    ASSERT_TRUE(CreateTestWindow(fixed, WS_POPUP | WS_CAPTION));
    fixed.ClientArea(area);
    EXPECT_EQ(area.left, GetSystemMetrics(SM_CXFIXEDFRAME));

    VWindow bare;
    ASSERT_TRUE(CreateTestWindow(bare, WS_POPUP));
    bare.ClientArea(area);
    EXPECT_EQ(area, VRect());
}

TEST_F(VWindowTest, DefaultInitializeSetsTheClipBits)
{
    const LONG_PTR lBoth = WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    EXPECT_EQ(m_parent.GetLong(GWL_STYLE) & lBoth, lBoth);

    VWindow child;
    ASSERT_TRUE(
        child.Create(m_parent.GetHandle(), g_testRect, WS_CHILD | WS_CLIPCHILDREN, nullptr, "", 1));
    EXPECT_EQ(child.GetLong(GWL_STYLE) & lBoth, WS_CLIPSIBLINGS);

    VWindow owned;
    ASSERT_TRUE(owned.Create(m_parent.GetHandle(), g_testRect, WS_POPUP, nullptr, "", 0));
    ASSERT_EQ(owned.GetParent(), m_parent.GetHandle());
    // Windows itself gives WS_CLIPSIBLINGS to every top-level window that is created.
    owned.SetLong(GWL_STYLE, owned.GetLong(GWL_STYLE) & ~lBoth);
    EXPECT_TRUE(owned.OnInitialize());
    EXPECT_EQ(owned.GetLong(GWL_STYLE) & WS_CLIPCHILDREN, WS_CLIPCHILDREN);
}

TEST_F(VWindowTest, DefaultInitializeOfDialogsLooksForChecks)
{
    const auto ClipsChildren = [](UINT uDialog) {
        VWindow dialog(V_KIND_DIALOG);
        HWND hDialog = CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(uDialog),
                                          nullptr, nullptr, 0);
        EXPECT_TRUE(dialog.Attach(hDialog));
        return (dialog.GetLong(GWL_STYLE) & WS_CLIPCHILDREN) != 0;
    };
    EXPECT_FALSE(ClipsChildren(IDD_TEST));
    EXPECT_TRUE(ClipsChildren(IDD_PLAIN));
}

TEST_F(VWindowTest, AFoundObjectIsNotKeptForAHandleItLeft)
{
    Record record;
    VRecordingWindow first(record);
    HWND hOne = Child("Static");
    HWND hTwo = Child("Static");
    ASSERT_TRUE(first.Attach(hOne));
    SendMessageA(hOne, WM_COMMAND, 1, 0); // now it is the object found last
    ASSERT_TRUE(first.Attach(hTwo));
    Record otherRecord;
    VRecordingWindow second(otherRecord);
    ASSERT_TRUE(second.Attach(hOne));
    record.Take();
    otherRecord.Take();
    SendMessageA(hOne, WM_COMMAND, 2, 0);
    EXPECT_EQ(otherRecord.Take(), "OnCommand(0,2)");
    EXPECT_EQ(record.Take(), "");
    EXPECT_EQ(VWindow::FromHandle(hOne), &second);
    EXPECT_EQ(VWindow::FromHandle(hTwo), &first);
}

TEST_F(VWindowTest, TheObjectFoundLastIsForgottenWithItsWindowAndWithItself)
{
    Record record;
    auto pFirst = std::make_unique<VRecordingWindow>(record);
    ASSERT_TRUE(CreateTestWindow(*pFirst));
    HWND hWnd = pFirst->GetHandle();
    VWindowList& list = VWindowList::Get();
    EXPECT_EQ(list.FindCached(hWnd), pFirst.get());
    DestroyWindow(hWnd);
    EXPECT_EQ(list.FindCached(hWnd), nullptr);
    ASSERT_TRUE(CreateTestWindow(*pFirst));
    hWnd = pFirst->GetHandle();
    EXPECT_EQ(list.FindCached(hWnd), pFirst.get());
    pFirst.reset();
    EXPECT_EQ(list.FindCached(hWnd), nullptr);
    EXPECT_EQ(VWindow::FromHandle(nullptr), nullptr);
}

TEST_F(VWindowTest, TheFillChildCoversTheClientArea)
{
    VWindow child;
    ASSERT_TRUE(child.Create(m_parent.GetHandle(), {0, 0, 5, 5}, WS_CHILD, "Static", "", 1));
    m_parent.SetFillChild(&child);
    m_parent.Move({0, 0, 400, 300});
    EXPECT_EQ(child.GetClientRect(), m_parent.GetClientRect());
    child.Move({0, 0, 5, 5});
    EXPECT_TRUE(m_parent.OnInitialize());
    EXPECT_EQ(child.GetClientRect(), m_parent.GetClientRect());
    m_parent.SetFillChild(nullptr);
}

TEST_F(VWindowTest, TheFillChildGetsTheFocusWhenItIsVisible)
{
    VWindow child;
    ASSERT_TRUE(child.Create(m_parent.GetHandle(), {0, 0, 5, 5}, WS_CHILD, "Edit", "", 1));
    m_parent.SetFillChild(&child);
    m_parent.Show();
    m_parent.SetFocus();
    EXPECT_EQ(GetFocus(), m_parent.GetHandle());
    child.Show();
    m_parent.Send(WM_SETFOCUS);
    EXPECT_EQ(GetFocus(), child.GetHandle());
    m_parent.SetFocus();
    EXPECT_EQ(GetFocus(), child.GetHandle());
    m_parent.SetFillChild(nullptr);
}

TEST_F(VWindowTest, TheFillChildSparesTheErasing)
{
    VWindow child;
    ASSERT_TRUE(child.Create(m_parent.GetHandle(), {0, 0, 5, 5}, WS_CHILD, "Static", "", 1));
    m_parent.SetFillChild(&child);
    HDC hScreen = GetDC(m_parent.GetHandle());
    HDC hDC = CreateCompatibleDC(hScreen);
    HBITMAP hBitmap = CreateCompatibleBitmap(hScreen, 10, 10);
    HGDIOBJ hBefore = SelectObject(hDC, hBitmap);
    const auto ErasedColor = [&] {
        SetPixel(hDC, 2, 2, RGB(1, 2, 3));
        EXPECT_EQ(m_parent.Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(hDC)), 1);
        return GetPixel(hDC, 2, 2);
    };
    EXPECT_EQ(ErasedColor(), GetSysColor(COLOR_WINDOW));
    m_parent.Show(SW_SHOWNOACTIVATE);
    child.Show();
    EXPECT_EQ(ErasedColor(), RGB(1, 2, 3));
    SelectObject(hDC, hBefore);
    DeleteObject(hBitmap);
    DeleteDC(hDC);
    ReleaseDC(m_parent.GetHandle(), hScreen);
    m_parent.SetFillChild(nullptr);
}
