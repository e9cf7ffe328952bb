// The status bar and the toolbar.

#include <gtest/gtest.h>

#include "tests/win/support.h"
#include "toolkit/vimagelist.h"
#include "toolkit/vstatusbar.h"
#include "toolkit/vtoolbar.h"

namespace {

// Notes the messages with one number, and their parameters.
class MessageLog : public VMessageFilter
{
public:
    explicit MessageLog(std::set<UINT> messages) : m_messages(std::move(messages)) {}

    bool Filter(VWindow&, UINT uMessage, WPARAM wParam, LPARAM lParam, LRESULT&, bool&) override
    {
        if (m_messages.count(uMessage) != 0) {
            m_log.push_back({uMessage, wParam, lParam});
        }
        return true;
    }

    struct Entry
    {
        UINT uMessage;
        WPARAM wParam;
        LPARAM lParam;
    };
    std::vector<Entry> m_log;

private:
    std::set<UINT> m_messages;
};

class VStatusBarTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent));
        ASSERT_TRUE(m_bar.Create(m_parent.GetHandle(), {}, WS_CHILD | WS_VISIBLE,
                                 "msctls_statusbar32", "", 1));
        const int anEdges[] = {60, 120, -1};
        m_bar.Send(SB_SETPARTS, 3, reinterpret_cast<LPARAM>(anEdges));
        m_bar.AddFilter(m_sent);
    }

    MessageLog m_sent{{SB_SETTEXTA}};
    VWindow m_parent;
    VStatusBar m_bar;
};

class VToolbarTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(CreateTestWindow(m_parent)); }

    bool Make(VToolbar& bar)
    {
        return bar.Create(m_parent.GetHandle(), {}, WS_CHILD | CCS_NORESIZE, "ToolbarWindow32", "",
                          1);
    }

    VWindow m_parent;
};

class VOtherToolbar : public VToolbar
{
public:
    VOtherToolbar() : VToolbar(24, 24, 16, 16) {}
};

} // namespace

TEST_F(VStatusBarTest, ShowsItsTexts)
{
    m_bar.SetPaneText("Balance", 1);
    m_bar.SetPaneText(std::string(200, 'p').c_str(), 2);
    EXPECT_EQ(Text(m_bar.GetPaneText(0)), "");
    EXPECT_EQ(Text(m_bar.GetPaneText(1)), "Balance");
    EXPECT_EQ(Text(m_bar.GetPaneText(2)), std::string(200, 'p'));
}

TEST_F(VStatusBarTest, AnEmptyTextIsTheDefaultText)
{
    m_bar.SetPaneText("", 0);
    EXPECT_EQ(Text(m_bar.GetPaneText(0)), "Ready");
    m_bar.SetDefaultText("Waiting");
    m_bar.SetPaneText(nullptr, 0);
    EXPECT_EQ(Text(m_bar.GetPaneText(0)), "Waiting");
    m_bar.SetDefaultText("");
    m_bar.SetPaneText("", 0);
    EXPECT_EQ(Text(m_bar.GetPaneText(0)), "");
}

TEST_F(VStatusBarTest, TheTextShownAlreadyIsNotSetAgain)
{
    m_bar.SetPaneText("one", 1);
    EXPECT_EQ(m_sent.m_log.size(), 1U);
    m_bar.SetPaneText("one", 1);
    EXPECT_EQ(m_sent.m_log.size(), 1U);
    m_bar.SetPaneText("one", 2);
    EXPECT_EQ(m_sent.m_log.size(), 2U);
    m_bar.SetPaneText("ONE", 1);
    EXPECT_EQ(m_sent.m_log.size(), 3U);
}

TEST_F(VStatusBarTest, TheDefaultTextIsComparedToo)
{
    m_bar.SetPaneText("Ready", 0);
    m_bar.SetPaneText("", 0);
    EXPECT_EQ(m_sent.m_log.size(), 1U);
}

TEST_F(VStatusBarTest, RedrawsAtOnce)
{
    m_parent.Show(SW_SHOWNOACTIVATE);
    PumpAll();
    m_bar.SetPaneText("now", 0);
    EXPECT_FALSE(GetUpdateRect(m_bar.GetHandle(), nullptr, FALSE));
}

TEST_F(VToolbarTest, TellsItsSizesAtTheStart)
{
    MessageLog sent({TB_BUTTONSTRUCTSIZE, TB_SETBUTTONSIZE, TB_SETBITMAPSIZE});
    VToolbar bar;
    bar.AddFilter(sent);
    ASSERT_TRUE(Make(bar));
    ASSERT_EQ(sent.m_log.size(), 3U);
    EXPECT_EQ(sent.m_log[0].uMessage, static_cast<UINT>(TB_BUTTONSTRUCTSIZE));
    EXPECT_EQ(sent.m_log[0].wParam, sizeof(TBBUTTON));
    EXPECT_EQ(sent.m_log[1].uMessage, static_cast<UINT>(TB_SETBUTTONSIZE));
    EXPECT_EQ(sent.m_log[1].lParam, MAKELPARAM(24, 22));
    EXPECT_EQ(sent.m_log[2].uMessage, static_cast<UINT>(TB_SETBITMAPSIZE));
    EXPECT_EQ(sent.m_log[2].lParam, MAKELPARAM(16, 15));
    EXPECT_TRUE(bar.GetFlags().Test(V_FLAG_OFF_SCREEN));
}

TEST_F(VToolbarTest, ADerivedOneHasSizesOfItsOwn)
{
    MessageLog sent({TB_SETBUTTONSIZE, TB_SETBITMAPSIZE});
    VOtherToolbar bar;
    bar.AddFilter(sent);
    ASSERT_TRUE(Make(bar));
    ASSERT_EQ(sent.m_log.size(), 2U);
    EXPECT_EQ(sent.m_log[0].lParam, MAKELPARAM(24, 24));
    EXPECT_EQ(sent.m_log[1].lParam, MAKELPARAM(16, 16));
}

TEST_F(VToolbarTest, HoldsButtons)
{
    VImageList images;
    ASSERT_TRUE(images.Create(16, 15, 2, 0, ILC_COLOR24));
    VToolbar bar;
    ASSERT_TRUE(Make(bar));
    bar.SetImageList(images.GetHandle());
    TBBUTTON aButtons[3] = {};
    aButtons[0].idCommand = 501;
    aButtons[0].fsState = TBSTATE_ENABLED;
    aButtons[1].fsStyle = BTNS_SEP;
    aButtons[2].idCommand = 502;
    EXPECT_TRUE(bar.AddButtons(aButtons, 3));
    EXPECT_EQ(bar.GetButtonCount(), 3);
    EXPECT_EQ(bar.CommandToIndex(502), 2);
    EXPECT_EQ(bar.CommandToIndex(77), -1);
    bar.AutoSize();
    EXPECT_GE(bar.GetMaxSize().cx, 2 * 16);
    bar.SetImageList(nullptr);
}
