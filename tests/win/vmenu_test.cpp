#include "toolkit/vmenu.h"

#include <gtest/gtest.h>

#include "tests/win/resource.h"
#include "tests/win/support.h"
#include "toolkit/vtoolbar.h"

namespace {

UINT StateOf(const VMenu& menu, UINT uId)
{
    return GetMenuState(menu.GetHandle(), uId, MF_BYCOMMAND);
}

// A menu with a toolbar that has a button for one of its commands.
class VMenuToolbar : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_menu.Load(IDM_TEST));
        ASSERT_TRUE(CreateTestWindow(m_parent));
        ASSERT_TRUE(m_bar.Create(m_parent.GetHandle(), {}, WS_CHILD, "ToolbarWindow32", "", 1));
        TBBUTTON button = {};
        button.iBitmap = I_IMAGENONE;
        button.idCommand = 102;
        button.fsStyle = BTNS_CHECK;
        button.fsState = TBSTATE_ENABLED;
        ASSERT_TRUE(m_bar.AddButtons(&button, 1));
        m_menu.SetToolbar(m_bar.GetHandle());
    }

    bool IsEnabled() const { return m_bar.Send(TB_ISBUTTONENABLED, 102) != 0; }
    bool IsChecked() const { return m_bar.Send(TB_ISBUTTONCHECKED, 102) != 0; }

    VMenu m_menu;
    VWindow m_parent;
    VToolbar m_bar;
};

} // namespace

TEST(VMenu, LoadsFromTheResources)
{
    VMenu menu;
    EXPECT_EQ(menu.GetHandle(), nullptr);
    ASSERT_TRUE(menu.Load(IDM_TEST));
    EXPECT_EQ(menu.GetItemCount(), 2);
    EXPECT_EQ(GetMenuItemCount(menu.GetSubMenu(0)), 2);
    EXPECT_EQ(menu.GetSubMenu(1), nullptr);
    EXPECT_FALSE(menu.Load(999));
    EXPECT_EQ(menu.GetHandle(), nullptr);
}

TEST(VMenu, DestroysWhatItLoaded)
{
    HMENU hFirst = nullptr;
    HMENU hSecond = nullptr;
    {
        VMenu menu;
        ASSERT_TRUE(menu.Load(IDM_TEST));
        hFirst = menu.GetHandle();
        ASSERT_TRUE(menu.Load(IDM_TEST));
        hSecond = menu.GetHandle();
        EXPECT_FALSE(IsMenu(hFirst));
        EXPECT_TRUE(IsMenu(hSecond));
    }
    EXPECT_FALSE(IsMenu(hSecond));
}

TEST(VMenu, LeavesWhatItMerelyWraps)
{
    HMENU hMenu = CreateMenu();
    {
        VMenu menu;
        menu.Attach(hMenu);
        EXPECT_EQ(menu.GetHandle(), hMenu);
    }
    ASSERT_TRUE(IsMenu(hMenu));
    {
        VMenu menu;
        menu.Attach(hMenu, true);
    }
    EXPECT_FALSE(IsMenu(hMenu));
}

TEST(VMenu, GivesItsOwnershipAway)
{
    HMENU hMenu = nullptr;
    {
        VMenu menu;
        ASSERT_TRUE(menu.Load(IDM_TEST));
        hMenu = menu.Release();
        EXPECT_EQ(menu.GetHandle(), hMenu);
    }
    EXPECT_TRUE(IsMenu(hMenu));
    DestroyMenu(hMenu);
}

TEST(VMenu, ItemsAreAddedAndDeleted)
{
    VMenu menu;
    menu.Attach(CreatePopupMenu(), true);
    EXPECT_TRUE(menu.Append(7, "Seven"));
    EXPECT_TRUE(menu.Append(8, "Eight"));
    EXPECT_EQ(menu.GetItemCount(), 2);
    char szText[16] = "";
    GetMenuStringA(menu.GetHandle(), 8, szText, sizeof szText, MF_BYCOMMAND);
    EXPECT_STREQ(szText, "Eight");
    EXPECT_TRUE(menu.Delete(7));
    EXPECT_FALSE(menu.Delete(7));
    EXPECT_EQ(menu.GetItemCount(), 1);
}

TEST(VMenu, StatesReachTheWholeTree)
{
    VMenu menu;
    ASSERT_TRUE(menu.Load(IDM_TEST));
    menu.EnableItem(102, false);
    menu.CheckItem(103, true);
    EXPECT_EQ(StateOf(menu, 101), 0U);
    EXPECT_EQ(StateOf(menu, 102), static_cast<UINT>(MF_GRAYED));
    EXPECT_EQ(StateOf(menu, 103), static_cast<UINT>(MF_CHECKED));
    menu.EnableItem(102, true);
    menu.CheckItem(103, false);
    EXPECT_EQ(StateOf(menu, 102), 0U);
    EXPECT_EQ(StateOf(menu, 103), 0U);
}

TEST_F(VMenuToolbar, ButtonsFollowTheItems)
{
    m_menu.EnableItem(102, false);
    EXPECT_FALSE(IsEnabled());
    m_menu.EnableItem(102, true);
    EXPECT_TRUE(IsEnabled());
    m_menu.CheckItem(102, true);
    EXPECT_TRUE(IsChecked());
    m_menu.CheckItem(102, false);
    EXPECT_FALSE(IsChecked());
    m_menu.EnableItem(101, false); // without a button
    EXPECT_TRUE(IsEnabled());
}

TEST_F(VMenuToolbar, ButtonsAloneFollowACommandWithoutAnItem)
{
    m_menu.Delete(102);
    m_menu.EnableItem(102, false);
    EXPECT_FALSE(IsEnabled());
    m_menu.SetToolbar(nullptr);
    m_menu.EnableItem(102, true);
    EXPECT_FALSE(IsEnabled());
}
