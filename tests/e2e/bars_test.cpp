// The toolbar and the status bar: shown, hidden, remembered.

#include "tests/e2e/e2e_test.h"

namespace {

constexpr DWORD uToolbarFlag = 4;
constexpr DWORD uStatusBarFlag = 8;

class BarsTest : public E2ETest
{
protected:
    void AwaitFlags(DWORD uFlags) const
    {
        Await("Flags of " + std::to_string(uFlags), [&] { return ReadFlags() == uFlags; });
    }

    int ClientHeight() const { return WindowRect(m_program.GetClient()).GetHeight(); }

    bool IsButtonEnabled(UINT uCommand) const
    {
        return SendTo(m_program.GetToolbar(), TB_ISBUTTONENABLED, uCommand) != 0;
    }
};

TEST_F(BarsTest, BothShowAtFirst)
{
    m_program.Open();
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_TRUE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_TOOLBAR), MenuItem::Checked);
    EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_STATUSBAR), MenuItem::Checked);
}

TEST_F(BarsTest, ClientLiesBetweenThem)
{
    m_program.Open();
    const VRect client = WindowRect(m_program.GetClient());
    // The rebar's own border may hang over the frame's edge.
    EXPECT_GE(client.top, WindowRect(m_program.GetRebar()).bottom);
    EXPECT_LE(client.top, WindowRect(m_program.GetRebar()).bottom + 2);
    EXPECT_EQ(client.bottom, WindowRect(m_program.GetStatusBar()).top + 1);
}

TEST_F(BarsTest, ToolbarTogglesAndIsRemembered)
{
    m_program.Open();
    const int nHeight = ClientHeight();
    m_program.Post(IDM_VIEW_TOOLBAR);
    AwaitFlags(14 & ~uToolbarFlag);
    m_program.AwaitMenuItem(IDM_VIEW_TOOLBAR, MenuItem::Enabled);
    EXPECT_FALSE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_GT(ClientHeight(), nHeight);
    m_program.Close();
    m_program.Open();
    EXPECT_FALSE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_TRUE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_TOOLBAR), MenuItem::Enabled);
    m_program.Post(IDM_VIEW_TOOLBAR);
    AwaitFlags(14);
    m_program.AwaitMenuItem(IDM_VIEW_TOOLBAR, MenuItem::Checked);
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_EQ(ClientHeight(), nHeight);
}

TEST_F(BarsTest, StatusBarTogglesAndIsRemembered)
{
    m_program.Open();
    const int nHeight = ClientHeight();
    m_program.Post(IDM_VIEW_STATUSBAR);
    AwaitFlags(14 & ~uStatusBarFlag);
    m_program.AwaitMenuItem(IDM_VIEW_STATUSBAR, MenuItem::Enabled);
    EXPECT_FALSE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_GT(ClientHeight(), nHeight);
    m_program.Close();
    m_program.Open();
    EXPECT_FALSE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    m_program.Post(IDM_VIEW_STATUSBAR);
    AwaitFlags(14);
    m_program.AwaitMenuItem(IDM_VIEW_STATUSBAR, MenuItem::Checked);
    EXPECT_TRUE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_EQ(ClientHeight(), nHeight);
}

TEST_F(BarsTest, HiddenStatusBarTakesTextsAllTheSame)
{
    m_program.Open();
    m_program.Post(IDM_VIEW_STATUSBAR);
    AwaitFlags(14 & ~uStatusBarFlag);
    HandOverFile(CopySample());
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 447 of 447");
}

TEST_F(BarsTest, NarrowFrameShowsTheFreePaneAlone)
{
    m_program.Open({CopySample()});
    EXPECT_FALSE(m_program.IsStatusSimple());
    SetWindowPos(m_program.GetFrame(), nullptr, 0, 0, 300, 400, SWP_NOZORDER);
    Await("the status bar to fall back to one pane", [&] { return m_program.IsStatusSimple(); });
    SetWindowPos(m_program.GetFrame(), nullptr, 0, 0, 1000, 400, SWP_NOZORDER);
    Await("the status bar to show its panes again", [&] { return !m_program.IsStatusSimple(); });
}

TEST_F(BarsTest, ToolbarHasItsButtons)
{
    m_program.Open();
    EXPECT_EQ(SendTo(m_program.GetToolbar(), TB_BUTTONCOUNT), 24);
    for (const UINT uCommand :
         {IDM_FILE_NEW, IDM_FILE_IMPORT, IDM_FILE_OPEN, IDM_FILE_SAVE, IDM_FILE_PRINT,
          IDM_FILE_PREVIEW, IDM_TRANSACTION_ADD, IDM_TRANSACTION_EDIT, IDM_TRANSACTION_REMOVE,
          IDM_TRANSACTION_CLEARED, IDM_TRANSACTION_VOIDED, IDM_TRANSACTION_TAX,
          IDM_TRANSACTION_EXPENSE, IDM_TOOLS_REPORTS, IDM_TOOLS_BANKWEBPAGE, IDM_TOOLS_CALCULATOR,
          IDM_WINDOW_PREVIOUS, IDM_WINDOW_NEXT, IDM_HELP_CONTENTS}) {
        EXPECT_GE(SendTo(m_program.GetToolbar(), TB_COMMANDTOINDEX, uCommand), 0) << uCommand;
    }
}

TEST_F(BarsTest, ButtonsFollowTheMenu)
{
    m_program.Open();
    EXPECT_TRUE(IsButtonEnabled(IDM_FILE_NEW));
    EXPECT_FALSE(IsButtonEnabled(IDM_WINDOW_NEXT));
    EXPECT_FALSE(IsButtonEnabled(IDM_FILE_SAVE));
    m_program.NewDocument(1);
    m_program.NewDocument(2);
    Await("the button of the next window", [&] { return IsButtonEnabled(IDM_WINDOW_NEXT); });
    EXPECT_TRUE(IsButtonEnabled(IDM_WINDOW_PREVIOUS));
    m_program.Post(IDM_FILE_CLOSE);
    Await("no button of the next window", [&] { return !IsButtonEnabled(IDM_WINDOW_NEXT); });
}

} // namespace
