#include "toolkit/vframewindow.h"

#include <gtest/gtest.h>

#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vrect_win.h"

namespace {

constexpr UINT uRebarId = 3502;
constexpr UINT uStatusBarId = 3501;
constexpr UINT uFirstBarId = 2000;
constexpr UINT uSecondBarId = 2001;

// Notes what its base class calls, and gives the answers that a test wants.
class VNotedFrame : public VFrameWindow
{
public:
    ~VNotedFrame() override { DestroyMenu(m_hOwnMenu); }

    void UpdateCommands() override
    {
        m_record.calls.push_back("UpdateCommands");
        VFrameWindow::UpdateCommands();
    }

    std::unique_ptr<VReBar> CreateRebar() override
    {
        m_record.calls.push_back("CreateRebar");
        return m_bHasRebar ? VFrameWindow::CreateRebar() : nullptr;
    }

    std::unique_ptr<VStatusBar> CreateStatusBar() override
    {
        m_record.calls.push_back("CreateStatusBar");
        return m_bHasStatusBar ? VFrameWindow::CreateStatusBar() : nullptr;
    }

    void OnUpdateCommand(HMENU hMenu, UINT uId, bool& bEnabled, bool& bChecked) override
    {
        m_record.calls.push_back(std::to_string(uId) + (hMenu == m_hNested ? "n" : "") +
                                 (bEnabled ? "" : "!") + (bChecked ? "!" : ""));
        bEnabled = m_disabled.count(uId) == 0;
        bChecked = m_checked.count(uId) != 0;
    }

    bool OnInitialize() override
    {
        m_record.calls.push_back("OnInitialize");
        return !m_record.bRefusesInitialize && VFrameWindow::OnInitialize();
    }

    bool Make(HMENU hMenu = nullptr)
    {
        return CreateFrame(hMenu, "Frame", {20, 20, 620, 420}, WS_OVERLAPPEDWINDOW, uRebarId,
                           uStatusBarId);
    }

    bool Has(UINT uItem, UINT uState) const
    {
        return (GetMenuState(GetMenu(GetHandle()), uItem, MF_BYCOMMAND) & uState) != 0;
    }

    VRect Usable() const
    {
        VRect area;
        UsableArea(area);
        return area;
    }

    std::string Prompt(UINT uItem, UINT uFlags, HMENU hMenu)
    {
        Send(WM_MENUSELECT, MAKEWPARAM(uItem, uFlags), reinterpret_cast<LPARAM>(hMenu));
        return Text(GetStatusBar()->GetPaneText(0));
    }

    using VFrameWindow::SetMirroredToolbar;

    Record m_record;
    bool m_bHasRebar = true;
    bool m_bHasStatusBar = true;
    HMENU m_hNested = nullptr;
    HMENU m_hOwnMenu = nullptr; // deleted at the end
    std::set<UINT> m_disabled;
    std::set<UINT> m_checked;

protected:
    void ResizeClient() override { m_record.calls.push_back("ResizeClient"); }

    bool OnPreCreate(CREATESTRUCTA& create) override
    {
        m_record.calls.push_back("OnPreCreate");
        return VFrameWindow::OnPreCreate(create);
    }
};

// A visible frame with two bands in its rebar.
class VFrameBarsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_frame.Make());
        AddBar(m_first, uFirstBarId, nullptr);
        AddBar(m_second, uSecondBarId, "Second");
        m_frame.Show(SW_SHOWNOACTIVATE);
        PumpAll();
        m_frame.m_record.Take();
    }

    void AddBar(VWindow& bar, UINT uId, const char* szLabel)
    {
        VReBar& rebar = *m_frame.GetRebar();
        ASSERT_TRUE(bar.Create(rebar.GetHandle(), {0, 0, 120, 24}, WS_CHILD, "Static", "", uId));
        ASSERT_TRUE(rebar.AddBand(bar, szLabel, 120, 24));
    }

    int RebarHeight() const { return m_frame.GetRebar()->GetWindowRect().GetHeight(); }
    int StatusHeight() const { return m_frame.GetStatusBar()->GetWindowRect().GetHeight(); }

    VNotedFrame m_frame;
    VWindow m_first;
    VWindow m_second;
};

// The place of a child in the client area of its parent.
VRect PlaceIn(const VWindow& parent, const VWindow& child)
{
    RECT rect = {};
    GetWindowRect(child.GetHandle(), &rect);
    MapWindowPoints(nullptr, parent.GetHandle(), reinterpret_cast<POINT*>(&rect), 2);
    return VFromRect(rect);
}

} // namespace

// ---- Creation.

TEST(VFrameWindow, MakesItsBarsAndThenInitializes)
{
    VNotedFrame frame;
    ASSERT_TRUE(frame.Make());
    std::string sCalls;
    for (const std::string& sCall : frame.m_record.calls) {
        sCalls += sCall == "ResizeClient" ? "" : sCall + " ";
    }
    EXPECT_EQ(sCalls, "OnPreCreate CreateRebar CreateStatusBar OnInitialize ");
    ASSERT_NE(frame.GetRebar(), nullptr);
    ASSERT_NE(frame.GetStatusBar(), nullptr);
    EXPECT_EQ(frame.GetItem(uRebarId), frame.GetRebar()->GetHandle());
    EXPECT_EQ(frame.GetItem(uStatusBarId), frame.GetStatusBar()->GetHandle());
    EXPECT_EQ(Text(frame.GetText()), "Frame");
    EXPECT_EQ(frame.GetWindowRect(), (VRect{20, 20, 620, 420}));
    EXPECT_FALSE(frame.IsVisible());
}

TEST(VFrameWindow, TheMenuGoesToTheWindow)
{
    VNotedFrame frame;
    HMENU hMenu = LoadMenuA(nullptr, MAKEINTRESOURCEA(IDM_TEST));
    ASSERT_TRUE(frame.Make(hMenu));
    EXPECT_EQ(GetMenu(frame.GetHandle()), hMenu);
    frame.OnClose(true);
    EXPECT_FALSE(IsMenu(hMenu));
}

TEST(VFrameWindow, ARefusalToInitializeClosesTheWindow)
{
    VNotedFrame frame;
    frame.m_record.bRefusesInitialize = true;
    EXPECT_FALSE(frame.Make());
    EXPECT_EQ(frame.GetHandle(), nullptr);
    EXPECT_FALSE(frame.IsAttached());
    EXPECT_EQ(frame.m_record.calls.back(), "OnInitialize");
}

TEST(VFrameWindow, ABarThatCannotBeMadeIsLeftOut)
{
    VNotedFrame frame;
    frame.m_bHasRebar = false;
    frame.m_bHasStatusBar = false;
    ASSERT_TRUE(frame.Make());
    frame.Show(SW_SHOWNOACTIVATE);
    EXPECT_EQ(frame.GetRebar(), nullptr);
    EXPECT_EQ(frame.GetStatusBar(), nullptr);
    EXPECT_FALSE(frame.IsBarVisible(uRebarId));
    EXPECT_FALSE(frame.ToggleBar(uStatusBarId));
    EXPECT_FALSE(frame.ToggleBand(uFirstBarId));
    EXPECT_EQ(frame.Usable(), frame.GetClientRect());
    frame.SetStatusText("nowhere", 0);
}

TEST(VFrameWindow, AClosedFrameCanBeMadeAgain)
{
    VNotedFrame frame;
    ASSERT_TRUE(frame.Make());
    ASSERT_TRUE(frame.OnClose(true));
    EXPECT_EQ(frame.GetHandle(), nullptr);
    ASSERT_TRUE(frame.Make());
    EXPECT_EQ(frame.GetItem(uRebarId), frame.GetRebar()->GetHandle());
}

// ---- Bars.

TEST_F(VFrameBarsTest, TheUsableAreaIsWhatTheBarsLeave)
{
    const VRect client = m_frame.GetClientRect();
    ASSERT_GT(RebarHeight(), 20);
    // The area reaches one pixel down under the status bar, whose uppermost line is one pixel high.
    EXPECT_EQ(m_frame.Usable(),
              (VRect{0, RebarHeight(), client.right, client.bottom - StatusHeight() + 1}));
    m_frame.ShowBar(uStatusBarId, false);
    EXPECT_EQ(m_frame.Usable(), (VRect{0, RebarHeight(), client.right, client.bottom}));
    m_frame.ShowBar(uRebarId, false);
    EXPECT_EQ(m_frame.Usable(), client);
    m_frame.ShowBar(uStatusBarId, true);
    EXPECT_EQ(m_frame.Usable(), (VRect{0, 0, client.right, client.bottom - StatusHeight() + 1}));
}

TEST_F(VFrameBarsTest, ABarIsShownAndHidden)
{
    for (const UINT uId : {uRebarId, uStatusBarId, uFirstBarId}) {
        EXPECT_TRUE(m_frame.IsBarVisible(uId)) << "id " << uId;
        EXPECT_FALSE(m_frame.ToggleBar(uId)) << "id " << uId;
        EXPECT_FALSE(m_frame.IsBarVisible(uId)) << "id " << uId;
        EXPECT_EQ(m_frame.m_record.calls.back(), "UpdateCommands") << "id " << uId;
        EXPECT_TRUE(m_frame.ToggleBar(uId)) << "id " << uId;
        EXPECT_TRUE(m_frame.IsBarVisible(uId)) << "id " << uId;
    }
}

TEST_F(VFrameBarsTest, ABarThatIsAsAskedIsLeftAlone)
{
    m_frame.ShowBar(uStatusBarId, true);
    m_frame.ShowBar(uSecondBarId, true);
    m_frame.ShowBar(77, true);
    m_frame.ShowBar(77, false);
    EXPECT_EQ(m_frame.m_record.Take(), "");
    EXPECT_FALSE(m_frame.IsBarVisible(77));
}

TEST_F(VFrameBarsTest, AHiddenFrameIsNotLaidOutForABar)
{
    m_frame.Show(SW_HIDE);
    m_frame.m_record.Take();
    m_frame.ShowBar(uStatusBarId, false);
    EXPECT_EQ(m_frame.m_record.Take(), "");
    EXPECT_FALSE(m_frame.IsBarVisible(uStatusBarId));
}

TEST_F(VFrameBarsTest, BandsGoAndComeOneByOne)
{
    EXPECT_FALSE(m_frame.ToggleBand(uFirstBarId));
    EXPECT_FALSE(m_frame.IsBarVisible(uFirstBarId));
    EXPECT_TRUE(m_frame.IsBarVisible(uSecondBarId));
    EXPECT_TRUE(m_frame.IsBarVisible(uRebarId));
    EXPECT_EQ(m_frame.m_record.calls.back(), "UpdateCommands");
    EXPECT_TRUE(m_frame.ToggleBand(uFirstBarId));
    EXPECT_TRUE(m_frame.IsBarVisible(uFirstBarId));
    EXPECT_TRUE(m_frame.IsBarVisible(uRebarId));
}

TEST_F(VFrameBarsTest, AnEmptyRebarHidesAndReturnsWithABand)
{
    EXPECT_FALSE(m_frame.ToggleBand(uSecondBarId));
    EXPECT_FALSE(m_frame.ToggleBand(uFirstBarId));
    EXPECT_FALSE(m_frame.IsBarVisible(uRebarId));
    EXPECT_EQ(m_frame.Usable().top, 0);
    EXPECT_TRUE(m_frame.ToggleBand(uSecondBarId));
    EXPECT_TRUE(m_frame.IsBarVisible(uRebarId));
    EXPECT_FALSE(m_frame.IsBarVisible(uFirstBarId));
    EXPECT_EQ(m_frame.Usable().top, RebarHeight());
}

TEST_F(VFrameBarsTest, BandsAreToggledByTheirOwnStateAndToldByTheScreens)
{
    m_frame.Show(SW_HIDE);
    // The bar is not visible, because the frame is hidden, but it has WS_VISIBLE.
    EXPECT_FALSE(m_frame.IsBarVisible(uFirstBarId));
    EXPECT_FALSE(m_frame.ToggleBand(uFirstBarId));
    EXPECT_FALSE(m_frame.GetRebar()->IsBandShown(uFirstBarId));
    EXPECT_FALSE(m_frame.ToggleBand(uFirstBarId));
    EXPECT_TRUE(m_frame.GetRebar()->IsBandShown(uFirstBarId));
    m_frame.Show(SW_SHOWNOACTIVATE);
    EXPECT_TRUE(m_frame.IsBarVisible(uFirstBarId));
}

TEST_F(VFrameBarsTest, BarsFollowTheFramesSize)
{
    m_frame.Move({20, 20, 720, 520});
    PumpAll();
    const VRect client = m_frame.GetClientRect();
    const VRect rebar = PlaceIn(m_frame, *m_frame.GetRebar());
    // Its border is outside the frame.
    EXPECT_LE(rebar.top, 0);
    EXPECT_GE(rebar.right, client.right);
    EXPECT_GT(rebar.GetHeight(), 20);
    const VRect status = PlaceIn(m_frame, *m_frame.GetStatusBar());
    EXPECT_EQ(status.left, 0);
    EXPECT_EQ(status.right, client.right);
    EXPECT_EQ(status.bottom, client.bottom);
    EXPECT_EQ(m_frame.m_record.calls.back(), "ResizeClient");
}

TEST_F(VFrameBarsTest, AChangeInTheRebarMovesTheClient)
{
    NMHDR header = {m_frame.GetRebar()->GetHandle(), uRebarId, static_cast<UINT>(RBN_CHILDSIZE)};
    m_frame.Send(WM_NOTIFY, uRebarId, reinterpret_cast<LPARAM>(&header));
    EXPECT_EQ(m_frame.m_record.Take(), "ResizeClient");
    m_frame.Update();
    header.code = static_cast<UINT>(RBN_HEIGHTCHANGE);
    m_frame.Send(WM_NOTIFY, uRebarId, reinterpret_cast<LPARAM>(&header));
    EXPECT_TRUE(GetUpdateRect(m_frame.GetHandle(), nullptr, FALSE));
}

// ---- Menus.

namespace {

// A bar with a popup of two levels, and a command beside it.
HMENU MakeNestedMenu(HMENU& hNested)
{
    HMENU hBar = CreateMenu();
    HMENU hPopup = CreatePopupMenu();
    hNested = CreatePopupMenu();
    AppendMenuA(hNested, MF_STRING, 201, "Inner");
    AppendMenuA(hPopup, MF_STRING, 101, "One");
    AppendMenuA(hPopup, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(hPopup, MF_POPUP, reinterpret_cast<UINT_PTR>(hNested), "Nested");
    AppendMenuA(hPopup, MF_STRING, 102, "Two");
    AppendMenuA(hBar, MF_POPUP, reinterpret_cast<UINT_PTR>(hPopup), "Popup");
    AppendMenuA(hBar, MF_STRING, 103, "Three");
    // Like the item that Windows adds for closing a maximized document.
    AppendMenuA(hBar, MF_STRING, SC_CLOSE, "Close");
    return hBar;
}

} // namespace

TEST(VFrameMenus, TheUpdatePassAsksForEachCommandOfTheTree)
{
    VNotedFrame frame;
    HMENU hMenu = MakeNestedMenu(frame.m_hNested);
    ASSERT_TRUE(frame.Make(hMenu));
    frame.m_disabled = {102, 201};
    frame.m_checked = {101, 201};
    frame.m_record.Take();
    frame.UpdateCommands();
    EXPECT_EQ(frame.m_record.Take(), "UpdateCommands 101 201n 102 103");
    EXPECT_FALSE(frame.Has(101, MF_GRAYED));
    EXPECT_TRUE(frame.Has(101, MF_CHECKED));
    EXPECT_TRUE(frame.Has(102, MF_GRAYED));
    EXPECT_FALSE(frame.Has(102, MF_CHECKED));
    EXPECT_TRUE(frame.Has(201, MF_GRAYED));
    EXPECT_TRUE(frame.Has(201, MF_CHECKED));
    EXPECT_FALSE(frame.Has(103, MF_GRAYED | MF_CHECKED));
    // Each pass starts anew: it offers an item that was changed as enabled and unchecked again.
    frame.m_disabled.clear();
    frame.m_checked.clear();
    frame.UpdateCommands();
    EXPECT_EQ(frame.m_record.Take(), "UpdateCommands 101 201n 102 103");
    EXPECT_FALSE(frame.Has(201, MF_GRAYED | MF_CHECKED));
}

TEST(VFrameMenus, AFrameWithoutAMenuHasNothingToUpdate)
{
    VNotedFrame frame;
    ASSERT_TRUE(frame.Make());
    frame.m_record.Take();
    frame.UpdateCommands();
    EXPECT_EQ(frame.m_record.Take(), "UpdateCommands");
}

TEST(VFrameMenus, AMirroredToolbarFollowsTheMenu)
{
    VNotedFrame frame;
    ASSERT_TRUE(frame.Make(MakeNestedMenu(frame.m_hNested)));
    VToolbar toolbar;
    ASSERT_TRUE(toolbar.Create(frame.GetHandle(), {}, WS_CHILD, TOOLBARCLASSNAMEA, "", 2000));
    TBBUTTON aButtons[3] = {};
    const int anCommands[] = {101, 201, 300};
    for (int i = 0; i < 3; ++i) {
        aButtons[i].idCommand = anCommands[i];
        aButtons[i].fsState = TBSTATE_ENABLED;
    }
    ASSERT_TRUE(toolbar.AddButtons(aButtons, 3));
    frame.SetMirroredToolbar(toolbar.GetHandle());
    frame.m_disabled = {201};
    frame.m_checked = {101};
    frame.UpdateCommands();
    EXPECT_EQ(toolbar.Send(TB_GETSTATE, 101), TBSTATE_ENABLED | TBSTATE_CHECKED);
    EXPECT_EQ(toolbar.Send(TB_GETSTATE, 201), 0);
    // No item of the menu has this command.
    EXPECT_EQ(toolbar.Send(TB_GETSTATE, 300), TBSTATE_ENABLED);
    frame.m_disabled.clear();
    frame.m_checked.clear();
    frame.UpdateCommands();
    EXPECT_EQ(toolbar.Send(TB_GETSTATE, 101), TBSTATE_ENABLED);
    EXPECT_EQ(toolbar.Send(TB_GETSTATE, 201), TBSTATE_ENABLED);
}

TEST(VFrameMenus, ASelectedItemShowsItsPrompt)
{
    VNotedFrame frame;
    ASSERT_TRUE(frame.Make(MakeNestedMenu(frame.m_hNested)));
    HMENU hMenu = GetMenu(frame.GetHandle());
    EXPECT_EQ(frame.Prompt(IDS_SHORT, MF_HILITE, hMenu), "A short text");
    EXPECT_EQ(frame.Prompt(IDS_PROMPT_AND_TIP, MF_HILITE, hMenu), "The prompt");
    EXPECT_EQ(frame.Prompt(IDS_PROMPT_WITH_TAB, MF_HILITE | MF_GRAYED, hMenu), "Before the tab");
    // A command without a string.
    EXPECT_EQ(frame.Prompt(IDS_MISSING, MF_HILITE, hMenu), "Ready");
}

TEST(VFrameMenus, WhatIsNoItemShowsThatTheFrameIsReady)
{
    VNotedFrame frame;
    ASSERT_TRUE(frame.Make(MakeNestedMenu(frame.m_hNested)));
    HMENU hMenu = GetMenu(frame.GetHandle());
    const auto After = [&](UINT uItem, UINT uFlags, HMENU hOf) {
        EXPECT_EQ(frame.Prompt(IDS_SHORT, MF_HILITE, hMenu), "A short text");
        return frame.Prompt(uItem, uFlags, hOf);
    };
    EXPECT_EQ(After(0, MF_POPUP | MF_HILITE, hMenu), "Ready");
    EXPECT_EQ(After(IDS_SHORT, MF_SEPARATOR, hMenu), "Ready");
    EXPECT_EQ(After(0, 0xFFFF, nullptr), "Ready");
}

TEST(VFrameMenus, AnItemOfTheSystemMenuShowsItsOwnText)
{
    VNotedFrame frame;
    ASSERT_TRUE(frame.Make(MakeNestedMenu(frame.m_hNested)));
    frame.m_hOwnMenu = CreatePopupMenu();
    AppendMenuA(frame.m_hOwnMenu, MF_STRING, IDS_SHORT, "&This && &that\tAlt+T");
    // Only the first ampersand is removed.
    EXPECT_EQ(frame.Prompt(IDS_SHORT, MF_SYSMENU | MF_HILITE, frame.m_hOwnMenu), "This && &that");
    ModifyMenuA(frame.m_hOwnMenu, 0, MF_BYPOSITION, IDS_SHORT, "Plain");
    EXPECT_EQ(frame.Prompt(IDS_SHORT, MF_SYSMENU | MF_HILITE, frame.m_hOwnMenu), "Plain");
}
