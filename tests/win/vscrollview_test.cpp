// The scrolling view: its bars, what it paints, how it scrolls.

#include "printing/vscrollview.h"

#include <gtest/gtest.h>

#include "tests/win/picture.h"
#include "tests/win/support.h"

namespace {

constexpr COLORREF crGround = RGB(0, 0, 128);

class VScrollViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent, WS_POPUP));
        m_parent.Move({10, 10, 410, 310});
        m_parent.Show(SW_SHOWNOACTIVATE);
        ASSERT_TRUE(MakeView(m_view));
        PumpAll();
    }

    // A view of 200 by 150 pixels.
    bool MakeView(VScrollView& view)
    {
        constexpr DWORD uStyle = WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL;
        const bool bMade =
            view.Create(m_parent.GetHandle(), {0, 0, 200, 150}, uStyle, nullptr, "", 0);
        view.SetBackground(crGround);
        return bMade;
    }

    // Shows a picture whose pixels tell their place: x in red, y in green.
    void Show(VScrollView& view, int nWidth, int nHeight)
    {
        const VClientSurface screen(view.GetHandle());
        VMemorySurface memory(screen);
        HBITMAP hBitmap = CreateCompatibleBitmap(screen.GetHandle(), nWidth, nHeight);
        {
            const VSelectScope scope(memory, hBitmap);
            for (int x = 0; x < nWidth; x += 10) {
                for (int y = 0; y < nHeight; y += 10) {
                    const VBrush brush(ColourAt(x, y));
                    memory.FillRect({x, y, x + 10, y + 10}, brush.GetHandle());
                }
            }
        }
        view.SetBitmap(hBitmap);
        view.Redraw();
        PumpAll();
    }

    static COLORREF ColourAt(int x, int y) { return RGB(x / 10, y / 10, 77); }

    bool HasBar(int nStyle) const { return (m_view.GetLong(GWL_STYLE) & nStyle) != 0; }

    SCROLLINFO Info(int nBar) const
    {
        SCROLLINFO info = {};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        GetScrollInfo(m_view.GetHandle(), nBar, &info);
        return info;
    }

    VSize Positions() const
    {
        VSize at;
        int x = 0;
        int y = 0;
        m_view.GetScrollPositions(x, y);
        at = {x, y};
        return at;
    }

    void Vertical(UINT uRequest) { m_view.Send(WM_VSCROLL, uRequest); }

    VWindow m_parent;
    VScrollView m_view;
};

} // namespace

TEST_F(VScrollViewTest, ASmallPictureHasNoBarsAndItsGroundBeside)
{
    Show(m_view, 100, 50);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    const Picture picture(m_view);
    EXPECT_EQ(picture.At(0, 0), ColourAt(0, 0));
    EXPECT_EQ(picture.At(99, 49), ColourAt(90, 40));
    EXPECT_TRUE(picture.IsAll({100, 0, 200, 150}, crGround));
    EXPECT_TRUE(picture.IsAll({0, 50, 200, 150}, crGround));
}

TEST_F(VScrollViewTest, CentresThePictureInWhatIsFree)
{
    m_view.SetFlags(V_VIEW_CENTRED);
    Show(m_view, 100, 50);
    EXPECT_EQ(m_view.GetPictureRect(), (VRect{50, 50, 150, 100}));
    const Picture picture(m_view);
    EXPECT_EQ(picture.At(49, 60), crGround);
    EXPECT_EQ(picture.At(50, 50), ColourAt(0, 0));
    EXPECT_EQ(picture.At(149, 99), ColourAt(90, 40));
    EXPECT_EQ(picture.At(150, 60), crGround);
    // The same after a change of size. The picture must not move twice.
    m_view.Move({0, 0, 300, 150});
    PumpAll();
    EXPECT_EQ(m_view.GetPictureRect(), (VRect{100, 50, 200, 100}));
}

TEST_F(VScrollViewTest, ALargePictureHasBothBars)
{
    Show(m_view, 500, 400);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    const VRect client = m_view.GetClientRect();
    EXPECT_EQ(Info(SB_HORZ).nMax, 500);
    EXPECT_EQ(Info(SB_HORZ).nPage, static_cast<UINT>(client.right));
    EXPECT_EQ(Info(SB_VERT).nMax, 400);
    EXPECT_EQ(Info(SB_VERT).nPage, static_cast<UINT>(client.bottom));
    const Picture picture(m_view);
    EXPECT_EQ(picture.At(0, 0), ColourAt(0, 0));
    EXPECT_EQ(picture.At(client.right - 1, client.bottom - 1),
              ColourAt((client.right - 1) / 10 * 10, (client.bottom - 1) / 10 * 10));
}

TEST_F(VScrollViewTest, ABarThatTakesTheRoomBringsTheOther)
{
    Show(m_view, 195, 400); // fits beside no bar
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    Show(m_view, 100, 400);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    EXPECT_EQ(Info(SB_HORZ).nMax, 0);
}

TEST_F(VScrollViewTest, ScrollsByTheBarsRequests)
{
    Show(m_view, 500, 400);
    const int nPage = m_view.GetClientRect().bottom;
    Vertical(SB_LINEDOWN);
    EXPECT_EQ(Positions(), (VSize{0, 10}));
    Vertical(SB_LINEUP);
    EXPECT_EQ(Positions(), (VSize{0, 0}));
    Vertical(SB_PAGEDOWN);
    EXPECT_EQ(Positions(), (VSize{0, nPage}));
    Vertical(SB_BOTTOM);
    EXPECT_EQ(Positions(), (VSize{0, 400 - nPage}));
    Vertical(SB_LINEDOWN);
    EXPECT_EQ(Positions(), (VSize{0, 400 - nPage}));
    Vertical(SB_PAGEUP);
    EXPECT_EQ(Positions(), (VSize{0, 400 - nPage - nPage}));
    Vertical(SB_TOP);
    EXPECT_EQ(Positions(), (VSize{0, 0}));
    m_view.SetLineSteps(7, 3);
    Vertical(SB_LINEDOWN);
    m_view.Send(WM_HSCROLL, SB_LINERIGHT);
    EXPECT_EQ(Positions(), (VSize{7, 3}));
    Vertical(SB_ENDSCROLL);
    EXPECT_EQ(Positions(), (VSize{7, 3}));
}

TEST_F(VScrollViewTest, PaintsWhatIsScrolledTo)
{
    Show(m_view, 500, 400);
    m_view.SetLineSteps(20, 30);
    Vertical(SB_LINEDOWN);
    m_view.Send(WM_HSCROLL, SB_LINERIGHT);
    const Picture picture(m_view);
    EXPECT_EQ(picture.At(0, 0), ColourAt(20, 30));
    EXPECT_EQ(picture.At(100, 50), ColourAt(120, 80));
    // Only a part is painted, as after another window went away.
    RECT part = {50, 60, 90, 100};
    InvalidateRect(m_view.GetHandle(), &part, FALSE);
    m_view.Update();
    const VClientSurface screen(m_view.GetHandle());
    EXPECT_EQ(GetPixel(screen.GetHandle(), 50, 60), ColourAt(70, 90));
}

TEST_F(VScrollViewTest, KeysAndWheelScroll)
{
    Show(m_view, 500, 400);
    const int nPage = m_view.GetClientRect().bottom;
    m_view.Send(WM_KEYDOWN, VK_NEXT);
    EXPECT_EQ(Positions(), (VSize{0, nPage}));
    m_view.Send(WM_KEYDOWN, VK_PRIOR);
    m_view.Send(WM_KEYDOWN, VK_DOWN);
    m_view.Send(WM_KEYDOWN, VK_RIGHT);
    EXPECT_EQ(Positions(), (VSize{10, 10}));
    m_view.Send(WM_KEYDOWN, VK_END);
    EXPECT_EQ(Positions(), (VSize{10, 400 - nPage}));
    m_view.Send(WM_KEYDOWN, VK_HOME);
    EXPECT_FALSE(m_view.ScrollByKey('A'));
    UINT uLines = 3;
    SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &uLines, 0);
    m_view.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
    EXPECT_EQ(Positions(), (VSize{10, static_cast<int>(uLines) * 10}));
    m_view.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA / 2));
    EXPECT_EQ(Positions(), (VSize{10, static_cast<int>(uLines) * 10}));
    m_view.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA / 2));
    EXPECT_EQ(Positions(), (VSize{10, 0}));
}

TEST_F(VScrollViewTest, ASmallerPictureTakesTheBarsAway)
{
    Show(m_view, 500, 400);
    Vertical(SB_BOTTOM);
    Show(m_view, 50, 40);
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ(Positions(), (VSize{0, 0}));
    const Picture picture(m_view);
    EXPECT_EQ(picture.At(0, 0), ColourAt(0, 0));
    EXPECT_EQ(picture.At(199, 149), crGround);
}

TEST_F(VScrollViewTest, WithoutAPictureShowsItsGround)
{
    m_view.Redraw();
    EXPECT_TRUE(Picture(m_view).IsAll({0, 0, 200, 150}, crGround));
    Show(m_view, 500, 400);
    m_view.Clear();
    m_view.Redraw();
    PumpAll();
    EXPECT_TRUE(Picture(m_view).IsAll({0, 0, 200, 150}, crGround));
    EXPECT_EQ(m_view.GetPictureRect(), VRect());
}

TEST_F(VScrollViewTest, ASecondViewOfTheSameSizeDecidesOnItsOwnBars)
{
    Show(m_view, 100, 50);
    VScrollView second;
    ASSERT_TRUE(MakeView(second));
    Show(second, 100, 50);
    EXPECT_EQ(second.GetLong(GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL), 0);
}

TEST_F(VScrollViewTest, KeptTwoViewsThatShareOneMemoryOfSizesHaveTheirOwnBars)
{
    VScrollView second;
    ASSERT_TRUE(MakeView(second));
    for (int nRound = 0; nRound < 2; ++nRound) {
        Show(m_view, 500, 400);
        Show(second, 100, 50);
        m_view.Redraw();
        PumpAll();
        EXPECT_TRUE(HasBar(WS_HSCROLL) && HasBar(WS_VSCROLL)) << "round " << nRound;
        EXPECT_EQ(second.GetLong(GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL), 0) << "round " << nRound;
    }
}

TEST_F(VScrollViewTest, CanBeMadeAgainAfterItsEnd)
{
    Show(m_view, 500, 400);
    m_view.Detach();
    EXPECT_FALSE(m_view.IsValid());
    ASSERT_TRUE(MakeView(m_view));
    Show(m_view, 100, 50);
    EXPECT_EQ(Picture(m_view).At(0, 0), ColourAt(0, 0));
}
