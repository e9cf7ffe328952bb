// The frame's own bars: the program's toolbar and the panes of its status bar.

#include "shell/qmbars.h"

#include <gtest/gtest.h>

#include "resources/resource.h"
#include "tests/win/support.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"

namespace {

class QMToolbarTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent));
        ASSERT_TRUE(m_bar.CreateToolbar(m_parent, IDC_TOOLBAR));
    }

    TBBUTTON Button(int nIndex) const
    {
        TBBUTTON button = {};
        EXPECT_NE(m_bar.Send(TB_GETBUTTON, static_cast<WPARAM>(nIndex),
                             reinterpret_cast<LPARAM>(&button)),
                  0);
        return button;
    }

    VWindow m_parent;
    QMToolbar m_bar;
};

class QMStatusBarTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent));
        m_parent.Move({10, 10, 710, 210});
        ASSERT_TRUE(m_bar.Create(m_parent.GetHandle(), {}, WS_CHILD | WS_VISIBLE, STATUSCLASSNAMEA,
                                 "", IDC_STATUSBAR));
    }

    // The right edges of the five panes.
    std::vector<int> Edges() const
    {
        std::vector<int> edges(8);
        const LRESULT lCount = m_bar.Send(SB_GETPARTS, 8, reinterpret_cast<LPARAM>(edges.data()));
        edges.resize(static_cast<size_t>(lCount));
        return edges;
    }

    int TextWidth(const char* szText) const
    {
        VClientSurface surface(m_bar.GetHandle());
        const VSelectScope font(surface, reinterpret_cast<HGDIOBJ>(m_bar.Send(WM_GETFONT)));
        return surface.TextExtent(szText, static_cast<int>(strlen(szText))).cx;
    }

    VWindow m_parent;
    QMStatusBar m_bar;
};

} // namespace

// ---- The toolbar.

TEST_F(QMToolbarTest, HoldsItsButtonsInOrder)
{
    constexpr int anCommands[] = {57600, 111, 57601, 57603, 0,   57607, 57609, 0,
                                  300,   301, 302,   306,   305, 303,   304,   0,
                                  400,   402, 403,   0,     504, 503,   0,     601};
    ASSERT_EQ(m_bar.GetButtonCount(), 24);
    int nPicture = 0;
    for (int n = 0; n < 24; ++n) {
        const TBBUTTON button = Button(n);
        const bool bSeparator = anCommands[n] == 0;
        EXPECT_EQ(button.fsStyle, bSeparator ? BTNS_SEP : BTNS_BUTTON) << "button " << n;
        EXPECT_EQ(button.fsState & TBSTATE_ENABLED, TBSTATE_ENABLED) << "button " << n;
        EXPECT_EQ(button.idCommand, anCommands[n]) << "button " << n;
        if (!bSeparator) {
            EXPECT_EQ(button.iBitmap, nPicture++) << "button " << n;
        }
    }
    EXPECT_EQ(nPicture, 19);
}

TEST_F(QMToolbarTest, ItsPicturesAre16PixelsWideAndHigh)
{
    auto* hImages = reinterpret_cast<HIMAGELIST>(m_bar.Send(TB_GETIMAGELIST));
    int nWidth = 0;
    int nHeight = 0;
    EXPECT_TRUE(ImageList_GetIconSize(hImages, &nWidth, &nHeight));
    EXPECT_EQ(nWidth, 16);
    EXPECT_EQ(nHeight, 16);
    EXPECT_EQ(ImageList_GetImageCount(hImages), 19);
}

TEST(QMToolbar, AsksForButtonsOf24PixelsAndPicturesOf16)
{
    // Notes the sizes that are asked for. What Windows makes of them does not matter here.
    struct SizeLog : VMessageFilter
    {
        bool Filter(VWindow&, UINT uMessage, WPARAM, LPARAM lParam, LRESULT&, bool&) override
        {
            lButtons = uMessage == TB_SETBUTTONSIZE ? lParam : lButtons;
            lPictures = uMessage == TB_SETBITMAPSIZE ? lParam : lPictures;
            return true;
        }
        LPARAM lButtons = 0;
        LPARAM lPictures = 0;
    };
    SizeLog log;
    VWindow parent;
    ASSERT_TRUE(CreateTestWindow(parent));
    QMToolbar bar;
    bar.AddFilter(log);
    ASSERT_TRUE(bar.CreateToolbar(parent, IDC_TOOLBAR));
    EXPECT_EQ(log.lButtons, MAKELPARAM(24, 24));
    EXPECT_EQ(log.lPictures, MAKELPARAM(16, 16));
}

TEST_F(QMToolbarTest, IsFlatWithTooltips)
{
    constexpr LONG_PTR lStyle = TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NODIVIDER | CCS_NORESIZE;
    EXPECT_EQ(m_bar.GetLong(GWL_STYLE) & lStyle, lStyle);
    EXPECT_TRUE(m_bar.GetFlags().Test(V_FLAG_OFF_SCREEN));
}

// ---- The status bar.

TEST_F(QMStatusBarTest, PanesAreAsWideAsTheirTextsAnd10More)
{
    const char* const aszTexts[] = {" Transaction: 1 of 2", " Balance: $1.00", " Available: $22.00",
                                    " Friday, 3/14/2004"};
    for (int n = 0; n < 4; ++n) {
        m_bar.SetPaneText(aszTexts[n], n + 1);
    }
    const std::vector<int> edges = Edges();
    ASSERT_EQ(edges.size(), 5U);
    EXPECT_EQ(edges[4], m_bar.GetClientRect().right - 15);
    for (size_t u = 4; u > 0; --u) {
        EXPECT_EQ(edges[u] - edges[u - 1], TextWidth(aszTexts[u - 1]) + 10) << "pane " << u;
        EXPECT_EQ(Text(m_bar.GetPaneText(static_cast<int>(u))), aszTexts[u - 1]);
    }
    EXPECT_EQ(m_bar.Send(SB_ISSIMPLE), 0);
}

TEST_F(QMStatusBarTest, AnEmptyPaneTakesNoRoom)
{
    m_bar.SetPaneText(" Balance: $1.00", 2);
    const std::vector<int> edges = Edges();
    ASSERT_EQ(edges.size(), 5U);
    EXPECT_EQ(edges[4], edges[3]);
    EXPECT_EQ(edges[3], edges[2]);
    EXPECT_EQ(edges[2] - edges[1], TextWidth(" Balance: $1.00") + 10);
    EXPECT_EQ(edges[1], edges[0]);
}

TEST_F(QMStatusBarTest, PanesFollowTheBarsSize)
{
    m_bar.SetPaneText(" Balance: $1.00", 2);
    m_parent.Move({10, 10, 510, 210});
    m_bar.Move({0, 0, m_parent.GetClientRect().right, 20});
    EXPECT_EQ(Edges().back(), m_parent.GetClientRect().right - 15);
}

TEST_F(QMStatusBarTest, ABarTooNarrowGoesIntoSimpleModeAndComesBackWithItsTexts)
{
    m_bar.SetPaneText(" Balance: $1.00 and more than a narrow bar holds", 2);
    m_bar.SetPaneText("A prompt", 0);
    m_parent.Move({10, 10, 130, 210});
    m_bar.Move({0, 0, 60, 20});
    EXPECT_EQ(m_bar.Send(SB_ISSIMPLE), 1);
    m_bar.SetPaneText("Another prompt", 0);
    m_bar.SetPaneText(" Balance: $9.00 and more than a narrow bar holds", 2);
    m_parent.Move({10, 10, 710, 210});
    m_bar.Move({0, 0, m_parent.GetClientRect().right, 20});
    EXPECT_EQ(m_bar.Send(SB_ISSIMPLE), 0);
    EXPECT_EQ(Text(m_bar.GetPaneText(0)), "Another prompt");
    EXPECT_EQ(Text(m_bar.GetPaneText(2)), " Balance: $9.00 and more than a narrow bar holds");
}
