#include "toolkit/vrebar.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/win/support.h"

namespace {

constexpr UINT uRebarId = 3502;

// A rebar with two bands, in a visible window that notes its notifications.
class VReBarTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent));
        ASSERT_TRUE(m_rebar.Create(m_parent.GetHandle(), {},
                                   WS_CHILD | WS_VISIBLE | RBS_VARHEIGHT | CCS_NODIVIDER,
                                   REBARCLASSNAMEA, "", uRebarId));
        Add(m_low, 2000, nullptr, 24);
        Add(m_high, 2001, "High", 60);
        m_parent.Show(SW_SHOWNOACTIVATE);
        PumpAll();
        m_record.Take();
    }

    void Add(VWindow& bar, UINT uId, const char* szLabel, int nHeight)
    {
        ASSERT_TRUE(bar.Create(m_rebar.GetHandle(), {}, WS_CHILD, "Static", "", uId));
        ASSERT_TRUE(m_rebar.AddBand(bar, szLabel, 60, nHeight));
    }

    REBARBANDINFOA Band(UINT uPosition, UINT uMask, char* szText = nullptr, UINT uSize = 0) const
    {
        REBARBANDINFOA band = {};
        band.cbSize = REBARBANDINFOA_V6_SIZE;
        band.fMask = uMask;
        band.lpText = szText;
        band.cch = uSize;
        EXPECT_NE(m_rebar.Send(RB_GETBANDINFOA, uPosition, reinterpret_cast<LPARAM>(&band)), 0);
        return band;
    }

    // The notifications of the rebar.
    bool Heard(int nCode) const
    {
        const std::string sCall = "OnNotify(" + std::to_string(uRebarId) + "," +
                                  std::to_string(static_cast<UINT>(nCode)) + ")";
        return std::find(m_record.calls.begin(), m_record.calls.end(), sCall) !=
               m_record.calls.end();
    }

    Record m_record;
    VRecordingWindow m_parent{m_record};
    VReBar m_rebar;
    VWindow m_low;
    VWindow m_high;
};

} // namespace

TEST_F(VReBarTest, IsAToolWindowPaintedOffScreen)
{
    EXPECT_NE(m_rebar.GetLong(GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
    EXPECT_TRUE(m_rebar.GetFlags().Test(V_FLAG_OFF_SCREEN));
}

TEST_F(VReBarTest, BandsHaveGrippersEdgesAndTheirBarsSizes)
{
    EXPECT_EQ(m_rebar.GetBandCount(), 2);
    constexpr UINT uStyle = RBBS_CHILDEDGE | RBBS_NOVERT | RBBS_GRIPPERALWAYS;
    char szText[32] = "none";
    const REBARBANDINFOA low =
        Band(0, RBBIM_STYLE | RBBIM_ID | RBBIM_CHILD | RBBIM_CHILDSIZE | RBBIM_TEXT, szText, 32);
    EXPECT_EQ(low.fStyle & uStyle, uStyle);
    EXPECT_EQ(low.wID, 2000U);
    EXPECT_EQ(low.hwndChild, m_low.GetHandle());
    EXPECT_EQ(low.cxMinChild, 60U);
    EXPECT_EQ(low.cyMinChild, 24U);
    EXPECT_EQ(std::string(szText), "");
    const REBARBANDINFOA high = Band(1, RBBIM_ID | RBBIM_CHILDSIZE | RBBIM_TEXT, szText, 32);
    EXPECT_EQ(high.wID, 2001U);
    EXPECT_EQ(high.cyMinChild, 60U);
    EXPECT_EQ(std::string(szText), "High");
}

TEST_F(VReBarTest, BandsAreShownAndHiddenByTheirIds)
{
    for (const UINT uId : {2000U, 2001U}) {
        EXPECT_TRUE(m_rebar.IsBandShown(uId));
        EXPECT_TRUE(m_rebar.IsBandVisible(uId));
        EXPECT_TRUE(m_rebar.ShowBand(uId, false));
        EXPECT_FALSE(m_rebar.IsBandShown(uId));
        EXPECT_FALSE(m_rebar.IsBandVisible(uId));
        EXPECT_TRUE(m_rebar.ShowBand(uId, true));
        EXPECT_TRUE(m_rebar.IsBandShown(uId));
    }
    EXPECT_FALSE(m_rebar.ShowBand(77, true));
    EXPECT_FALSE(m_rebar.IsBandShown(77));
    EXPECT_FALSE(m_rebar.IsBandVisible(77));
}

TEST_F(VReBarTest, AShownBandIsNotVisibleInAHiddenWindow)
{
    m_parent.Show(SW_HIDE);
    EXPECT_TRUE(m_rebar.IsBandShown(2000));
    EXPECT_FALSE(m_rebar.IsBandVisible(2000));
}

TEST_F(VReBarTest, IdsAreFollowedWhenBandsMove)
{
    ASSERT_NE(m_rebar.Send(RB_MOVEBAND, 0, 1), 0);
    EXPECT_TRUE(m_rebar.ShowBand(2001, false));
    EXPECT_FALSE(m_high.IsVisible());
    EXPECT_TRUE(m_low.IsVisible());
}

TEST_F(VReBarTest, ABarOfADeeperLevelIsFoundThroughItsBand)
{
    // The band has another id than its bar.
    REBARBANDINFOA band = {};
    band.cbSize = REBARBANDINFOA_V6_SIZE;
    band.fMask = RBBIM_ID;
    band.wID = 3000;
    ASSERT_NE(m_rebar.Send(RB_SETBANDINFOA, 1, reinterpret_cast<LPARAM>(&band)), 0);
    EXPECT_TRUE(m_rebar.IsBandShown(3000));
    EXPECT_TRUE(m_rebar.ShowBand(3000, false));
    EXPECT_FALSE(m_rebar.IsBandShown(3000));
    EXPECT_FALSE(m_high.IsVisible());
}

TEST_F(VReBarTest, TellsTheParentOfNewSizes)
{
    const int nBefore = m_rebar.GetWindowRect().GetHeight();
    m_rebar.ShowBand(2001, false);
    EXPECT_LT(m_rebar.GetWindowRect().GetHeight(), nBefore);
    EXPECT_TRUE(Heard(RBN_HEIGHTCHANGE));
    m_record.Take();
    m_rebar.ShowBand(2001, true);
    EXPECT_EQ(m_rebar.GetWindowRect().GetHeight(), nBefore);
    EXPECT_TRUE(Heard(RBN_HEIGHTCHANGE));
    EXPECT_TRUE(Heard(RBN_CHILDSIZE));
}
