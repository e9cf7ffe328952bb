// The frame and its documents come up where the last run left them.

#include "tests/e2e/e2e_test.h"

namespace {

constexpr DWORD uFrameMaximized = 1;
constexpr DWORD uChildMaximized = 2;

class PlacementTest : public E2ETest
{
protected:
    void MoveFrame(int nLeft, int nTop, int nWidth, int nHeight) const
    {
        SetWindowPos(m_program.GetFrame(), nullptr, nLeft, nTop, nWidth, nHeight,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }

    static void AwaitPosition(const std::string& sText)
    {
        Await("Position '" + sText + "'", [&] { return ReadPosition() == sText; });
    }

    static void AwaitFlag(DWORD uFlag, bool bSet)
    {
        Await("flag " + std::to_string(uFlag) + (bSet ? " set" : " clear"),
              [&] { return ((ReadFlags() & uFlag) != 0) == bSet; });
    }

    static std::string PositionOf(const VRect& place)
    {
        char szText[64];
        snprintf(szText, sizeof szText, "%04d %04d %04d %04d", place.left, place.top,
                 place.GetWidth(), place.GetHeight());
        return szText;
    }

    VRect FrameRect() const { return WindowRect(m_program.GetFrame()); }
    bool IsActiveMaximized() const { return IsZoomed(m_program.GetActiveDocument()) != 0; }

    void RestoreActive() const
    {
        SendTo(m_program.GetClient(), WM_MDIRESTORE,
               reinterpret_cast<WPARAM>(m_program.GetActiveDocument()));
    }
};

TEST_F(PlacementTest, FreshFrameIsOnTheScreen)
{
    m_program.Open();
    const VRect place = FrameRect();
    EXPECT_GT(place.GetWidth(), 200);
    EXPECT_GT(place.GetHeight(), 200);
    EXPECT_LT(place.left, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LT(place.top, GetSystemMetrics(SM_CYSCREEN));
    EXPECT_FALSE(IsZoomed(m_program.GetFrame()));
}

TEST_F(PlacementTest, PlaceIsRememberedBetweenRuns)
{
    m_program.Open();
    MoveFrame(61, 72, 803, 504);
    AwaitPosition("0061 0072 0803 0504");
    m_program.Close();
    EXPECT_EQ(ReadPosition(), "0061 0072 0803 0504");
    m_program.Open();
    EXPECT_EQ(FrameRect(), (VRect{61, 72, 864, 576}));
    EXPECT_EQ(ReadPosition(), "0061 0072 0803 0504");
}

// The first start stores the size that Windows gave the frame, without a change by the user.
TEST_F(PlacementTest, PlaceOfAFrameThatWasOnlyMovedIsRemembered)
{
    m_program.Open();
    const VRect first = FrameRect();
    SetWindowPos(m_program.GetFrame(), nullptr, 77, 55, 0, 0,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSIZE);
    const VRect moved = {77, 55, 77 + first.GetWidth(), 55 + first.GetHeight()};
    AwaitPosition(PositionOf(moved));
    m_program.Close();
    EXPECT_EQ(ReadPosition(), PositionOf(moved));
    m_program.Open();
    EXPECT_EQ(FrameRect(), moved);
}

// The same after a run that ended with a maximized frame. That size is not one that the user chose.
TEST_F(PlacementTest, FirstSizeOfAMaximizedStartLeavesItsFlag)
{
    m_program.Open();
    MoveFrame(61, 72, 803, 504);
    AwaitPosition("0061 0072 0803 0504");
    ShowWindow(m_program.GetFrame(), SW_MAXIMIZE);
    AwaitFlag(uFrameMaximized, true);
    m_program.Close();
    m_program.Open();
    EXPECT_EQ(ReadFlags() & uFrameMaximized, uFrameMaximized);
    EXPECT_EQ(ReadPosition(), "0061 0072 0803 0504");
}

TEST_F(PlacementTest, PlaceOutsideEveryScreenCountsAsNone)
{
    m_program.Open();
    m_program.Close();
    const int nBeyond = GetSystemMetrics(SM_XVIRTUALSCREEN) + GetSystemMetrics(SM_CXVIRTUALSCREEN);
    for (const std::string& sPlace :
         {std::string("100000 100000 0800 0600"), std::string("-5000 0100 0800 0600"),
          std::to_string(nBeyond) + " 0100 0800 0600"}) {
        WriteSettingText("Settings", "Position", sPlace);
        m_program.Open();
        const VRect place = FrameRect();
        const RECT rect = {place.left, place.top, place.right, place.bottom};
        EXPECT_NE(MonitorFromRect(&rect, MONITOR_DEFAULTTONULL), nullptr) << sPlace;
        EXPECT_EQ(m_program.Close(), 0U);
        EXPECT_EQ(ReadPosition(), PositionOf(place));
    }
}

TEST_F(PlacementTest, PlacePartlyOnTheScreenIsTaken)
{
    m_program.Open();
    m_program.Close();
    const int nRight = GetSystemMetrics(SM_XVIRTUALSCREEN) + GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const VRect place = {nRight - 100, 50, nRight + 600, 450};
    WriteSettingText("Settings", "Position", PositionOf(place));
    m_program.Open();
    EXPECT_EQ(FrameRect(), place);
}

TEST_F(PlacementTest, PlaceLeftOfTheScreenIsKeptAsZero)
{
    m_program.Open();
    MoveFrame(-40, -30, 640, 480);
    AwaitPosition("0000 0000 0640 0480");
}

TEST_F(PlacementTest, MaximizedFrameComesBackMaximizedWithItsPlace)
{
    m_program.Open();
    MoveFrame(61, 72, 803, 504);
    AwaitPosition("0061 0072 0803 0504");
    ShowWindow(m_program.GetFrame(), SW_MAXIMIZE);
    AwaitFlag(uFrameMaximized, true);
    EXPECT_EQ(ReadPosition(), "0061 0072 0803 0504");
    m_program.Close();
    EXPECT_EQ(ReadPosition(), "0061 0072 0803 0504");
    EXPECT_EQ(ReadFlags(), 15U);
    m_program.Open();
    EXPECT_TRUE(IsZoomed(m_program.GetFrame()));
    EXPECT_EQ(ReadPosition(), "0061 0072 0803 0504");
    ShowWindow(m_program.GetFrame(), SW_RESTORE);
    AwaitFlag(uFrameMaximized, false);
    EXPECT_EQ(FrameRect(), (VRect{61, 72, 864, 576}));
}

TEST_F(PlacementTest, MinimizingWritesNothing)
{
    m_program.Open();
    MoveFrame(61, 72, 803, 504);
    AwaitPosition("0061 0072 0803 0504");
    const std::vector<std::string> before = AllSettings();
    ShowWindow(m_program.GetFrame(), SW_MINIMIZE);
    Await("the frame as an icon", [&] { return IsIconic(m_program.GetFrame()) != 0; });
    EXPECT_EQ(AllSettings(), before);
}

TEST_F(PlacementTest, FirstDocumentComesUpMaximized)
{
    m_program.Open();
    m_program.NewDocument(1);
    EXPECT_TRUE(IsActiveMaximized());
    EXPECT_EQ(ReadFlags(), 14U);
}

TEST_F(PlacementTest, NextDocumentIsLikeTheActiveOne)
{
    m_program.Open();
    m_program.NewDocument(1);
    RestoreActive();
    m_program.NewDocument(2);
    EXPECT_FALSE(IsActiveMaximized());
    SendTo(m_program.GetClient(), WM_MDIMAXIMIZE,
           reinterpret_cast<WPARAM>(m_program.GetActiveDocument()));
    m_program.NewDocument(3);
    EXPECT_TRUE(IsActiveMaximized());
}

TEST_F(PlacementTest, NextDocumentIsLikeTheLastOneThatWasClosed)
{
    m_program.Open({CopySample()});
    EXPECT_TRUE(IsActiveMaximized());
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("");
    m_program.Settle();
    EXPECT_EQ(ReadFlags(), 14U);
    m_program.NewDocument(1);
    EXPECT_TRUE(IsActiveMaximized());
    RestoreActive();
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive("");
    m_program.Settle();
    EXPECT_EQ(ReadFlags(), 12U);
    m_program.NewDocument(2);
    EXPECT_FALSE(IsActiveMaximized());
}

TEST_F(PlacementTest, ClosingOneOfTwoMaximizedOnesLeavesTheOtherMaximized)
{
    const std::string sFirst = MakeAccount("first.qmk", 1);
    m_program.Open({sFirst, MakeAccount("second.qmk", 2)});
    m_program.Post(IDM_FILE_CLOSE);
    m_program.AwaitActive(sFirst);
    m_program.Settle();
    EXPECT_TRUE(IsActiveMaximized());
    m_program.NewDocument(1);
    EXPECT_TRUE(IsActiveMaximized());
    // Some systems activate the other document before they maximize it. In the end the flag is
    // right.
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(ReadFlags(), 14U);
}

TEST_F(PlacementTest, RestoredDocumentIsRememberedBetweenRuns)
{
    m_program.Open();
    m_program.NewDocument(1);
    RestoreActive();
    m_program.NewDocument(2);
    AwaitFlag(uChildMaximized, false);
    m_program.Close();
    EXPECT_EQ(ReadFlags(), 14 & ~uChildMaximized);
    m_program.Open({CopySample()});
    EXPECT_FALSE(IsActiveMaximized());
}

// Everything that one run leaves for the next, together.
TEST_F(PlacementTest, NextRunComesUpAsTheLastOneWasLeft)
{
    const std::string sFirst = MakeAccount("first.qmk", 1);
    const std::string sSecond = MakeAccount("second.qmk", 2);
    m_program.Open({sFirst, sSecond});
    MoveFrame(40, 50, 820, 610);
    AwaitPosition("0040 0050 0820 0610");
    m_program.Post(IDM_VIEW_TRANSACTIONSBAR);
    m_program.Post(IDM_VIEW_STATUSBAR);
    RestoreActive();
    m_program.NewDocument(1);
    m_program.Settle();
    EXPECT_EQ(ReadFlags(), 20U);
    const std::vector<std::string> left = AllSettings();
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(AllSettings(), left);
    // The last file of the list is opened, not the new document.
    m_program.Open();
    m_program.AwaitActive(sSecond);
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
    EXPECT_FALSE(IsActiveMaximized());
    EXPECT_EQ(FrameRect(), (VRect{40, 50, 860, 660}));
    EXPECT_TRUE(IsWindowVisible(m_program.GetToolbar()));
    EXPECT_TRUE(IsWindowVisible(FindChildById(m_program.GetFrame(), IDC_TRANSACTIONSBAR)));
    EXPECT_FALSE(IsWindowVisible(m_program.GetStatusBar()));
    EXPECT_EQ(m_program.GetMenuText(IDM_FILE_RECENT_FIRST), "&1 second.qmk");
    EXPECT_EQ(m_program.GetMenuText(IDM_FILE_RECENT_FIRST + 1), "&2 first.qmk");
    EXPECT_EQ(AllSettings(), left);
}

TEST_F(PlacementTest, MaximizedFrameWithAMaximizedDocumentComesBackSo)
{
    m_program.Open({CopySample()});
    ShowWindow(m_program.GetFrame(), SW_MAXIMIZE);
    AwaitFlag(uFrameMaximized, true);
    m_program.Post(IDM_VIEW_TOOLBAR);
    m_program.Settle();
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(ReadFlags(), 11U);
    m_program.Open();
    EXPECT_TRUE(IsZoomed(m_program.GetFrame()));
    EXPECT_TRUE(IsActiveMaximized());
    EXPECT_FALSE(IsWindowVisible(m_program.GetRebar()));
    RECT frame = {};
    GetClientRect(m_program.GetFrame(), &frame);
    const VRect area = WindowRect(m_program.GetClient());
    EXPECT_EQ(area.GetWidth(), frame.right);
    EXPECT_EQ(area.GetHeight(),
              frame.bottom - WindowRect(m_program.GetStatusBar()).GetHeight() + 1);
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(ReadFlags(), 11U);
}

TEST_F(PlacementTest, ListCoversItsDocument)
{
    m_program.Open({CopySample()});
    RestoreActive();
    HWND hDocument = m_program.GetActiveDocument();
    SetWindowPos(hDocument, nullptr, 10, 10, 500, 300, SWP_NOZORDER);
    RECT client = {};
    GetClientRect(hDocument, &client);
    const VRect list = WindowRect(Program::GetList(hDocument));
    EXPECT_EQ(list.GetWidth(), client.right);
    EXPECT_EQ(list.GetHeight(), client.bottom);
}

} // namespace
