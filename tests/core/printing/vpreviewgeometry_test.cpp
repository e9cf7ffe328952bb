// What a print preview computes.

#include "printing/vpreviewgeometry.h"

#include <gtest/gtest.h>

#include <climits>

TEST(VPreviewScales, AreTwelveInTheOrderOfTheList)
{
    const char* aszTexts[] = {"30%", "40%",  "50%",  "60%",  "70%",  "80%",
                              "90%", "100%", "125%", "150%", "175%", "200%"};
    int nRow = 0;
    for (const VPreviewScale* p = V_PREVIEW_SCALES; p->szText != nullptr; ++p, ++nRow) {
        ASSERT_LT(nRow, 12);
        EXPECT_STREQ(p->szText, aszTexts[nRow]);
        EXPECT_EQ(p->lIndex, nRow);
        EXPECT_FLOAT_EQ(p->fScale * 100, static_cast<float>(atoi(p->szText)));
    }
    EXPECT_EQ(nRow, 12);
    EXPECT_EQ(V_PREVIEW_SCALES[V_PREVIEW_FIRST_SCALE].fScale, 0.7F);
}

TEST(VLayOutPreview, PutsThePaperOnItsGround)
{
    const VPreviewPicture picture = VLayOutPreview({816, 1056}, 0.5F);
    EXPECT_EQ(picture.sizePicture, (VSize{448, 568}));
    EXPECT_EQ(picture.rcSheet, (VRect{20, 20, 428, 548}));
    EXPECT_EQ(picture.rcFrame, (VRect{19, 19, 428, 548}));
    EXPECT_EQ(picture.rcShadowRight, (VRect{429, 23, 433, 553}));
    EXPECT_EQ(picture.rcShadowBottom, (VRect{23, 549, 433, 553}));
}

TEST(VLayOutPreview, DropsFractions)
{
    // 571.2 and 739.2. The float nearest to 0.7 is a little less than 0.7.
    EXPECT_EQ(VLayOutPreview({816, 1056}, 0.7F).sizePicture, (VSize{571 + 40, 739 + 40}));
    EXPECT_EQ(VLayOutPreview({10, 10}, 0.7F).sizePicture, (VSize{46, 46}));
    EXPECT_EQ(VLayOutPreview({10, 10}, 0.3F).sizePicture, (VSize{43, 43}));
}

TEST(VLayOutPreview, AbsurdSheetsDoNoHarm)
{
    EXPECT_EQ(VLayOutPreview({0, -5}, 2).sizePicture, (VSize{40, 40}));
    EXPECT_GT(VLayOutPreview({INT_MAX, INT_MAX}, 2).sizePicture.cx, 0);
}

TEST(VPreviewOffset, IsRoundedDownToEvenNumbers)
{
    EXPECT_EQ(VPreviewOffset({16, 24}), (VSize{16, 24}));
    EXPECT_EQ(VPreviewOffset({17, 25}), (VSize{16, 24}));
    EXPECT_EQ(VPreviewOffset({1, 0}), (VSize{0, 0}));
}

TEST(VUsefulPageButtons, FollowThePage)
{
    EXPECT_EQ(VUsefulPageButtons(0, 3), (VPageButtons{false, false, true, true}));
    EXPECT_EQ(VUsefulPageButtons(1, 3), (VPageButtons{true, true, true, true}));
    EXPECT_EQ(VUsefulPageButtons(2, 3), (VPageButtons{true, true, false, false}));
    EXPECT_EQ(VUsefulPageButtons(0, 1), (VPageButtons{false, false, false, false}));
}

TEST(VHoldPage, FindsTheNearestPage)
{
    EXPECT_EQ(VHoldPage(-1, 5), 0);
    EXPECT_EQ(VHoldPage(3, 5), 3);
    EXPECT_EQ(VHoldPage(5, 5), 4);
    EXPECT_EQ(VHoldPage(INT64_MAX, 5), 4);
    EXPECT_EQ(VHoldPage(7, 0), 0);
}

TEST(VReadPageNumber, ReadsDigitsUpToTheFirstOtherCharacter)
{
    const struct
    {
        const char* szText;
        uint32_t uNumber;
    } tests[] = {
        {"7", 7},          {"  12", 12},
        {"3 of 9", 3},     {"", 0},
        {"0", 0},          {"-3", 0},
        {"page 2", 0},     {"007", 7},
        {"+1", 0},         {"4294967295", 4294967295U},
        {"4294967296", 0}, {"99999999999999999999999", 0},
    };
    for (const auto& test : tests) {
        EXPECT_EQ(VReadPageNumber(test.szText), test.uNumber) << test.szText;
    }
}
