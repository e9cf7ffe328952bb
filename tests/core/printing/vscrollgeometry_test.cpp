// What a scrolling view decides: its bars, its positions, where its picture lies.

#include "printing/vscrollgeometry.h"

#include <gtest/gtest.h>

#include <climits>

TEST(VScrollBars, AreNeededWhereTheSpaceIsSmaller)
{
    EXPECT_EQ(VNeededScrollBars({100, 100}, {100, 100}), (VScrollBars{false, false}));
    EXPECT_EQ(VNeededScrollBars({100, 100}, {101, 100}), (VScrollBars{true, false}));
    EXPECT_EQ(VNeededScrollBars({100, 100}, {100, 101}), (VScrollBars{false, true}));
    EXPECT_EQ(VNeededScrollBars({0, 0}, {1, 1}), (VScrollBars{true, true}));
    EXPECT_EQ(VNeededScrollBars({100, 100}, {0, 0}), (VScrollBars{false, false}));
}

TEST(VScrollBars, OneThatTakesTheRoomMakesTheOtherNeeded)
{
    const VScrollBars vertical = {false, true};
    EXPECT_EQ(VMoreScrollBars(vertical, {85, 100}, {90, 200}), (VScrollBars{true, true}));
    EXPECT_EQ(VMoreScrollBars(vertical, {85, 100}, {85, 200}), vertical);
    // A bar that is shown is not hidden again.
    EXPECT_EQ(VMoreScrollBars(vertical, {500, 500}, {85, 200}), vertical);
}

TEST(VScrollTo, MovesByLinesPagesAndToTheEnds)
{
    const VScrollAxis axis = {300, 1000, 200, 10};
    EXPECT_EQ(VScrollTo(axis, VScrollRequest::LineBack), 290);
    EXPECT_EQ(VScrollTo(axis, VScrollRequest::LineForward), 310);
    EXPECT_EQ(VScrollTo(axis, VScrollRequest::PageBack), 100);
    EXPECT_EQ(VScrollTo(axis, VScrollRequest::PageForward), 500);
    EXPECT_EQ(VScrollTo(axis, VScrollRequest::Begin), 0);
    EXPECT_EQ(VScrollTo(axis, VScrollRequest::End), 800);
    EXPECT_EQ(VScrollTo(axis, VScrollRequest::Thumb, 456), 456);
}

TEST(VScrollTo, StaysBetweenZeroAndTheMaximum)
{
    EXPECT_EQ(VScrollTo({5, 1000, 200, 10}, VScrollRequest::LineBack), 0);
    EXPECT_EQ(VScrollTo({150, 1000, 200, 10}, VScrollRequest::PageBack), 0);
    EXPECT_EQ(VScrollTo({795, 1000, 200, 10}, VScrollRequest::LineForward), 800);
    EXPECT_EQ(VScrollTo({790, 1000, 200, 10}, VScrollRequest::PageForward), 800);
    EXPECT_EQ(VScrollTo({790, 1000, 200, 10}, VScrollRequest::Thumb, 900), 800);
    EXPECT_EQ(VScrollTo({790, 1000, 200, 10}, VScrollRequest::Thumb, -1), 0);
    // Without a bar nothing scrolls.
    for (int n = 0; n <= static_cast<int>(VScrollRequest::End); ++n) {
        EXPECT_EQ(VScrollTo({0, 0, 200, 10}, static_cast<VScrollRequest>(n), 50), 0)
            << "request " << n;
    }
}

TEST(VScrollTo, AbsurdNumbersDoNoHarm)
{
    for (const int32_t l : {INT_MIN, -1, 0, INT_MAX}) {
        for (int n = 0; n <= static_cast<int>(VScrollRequest::End); ++n) {
            EXPECT_GE(VScrollTo({l, INT_MAX, l, l}, static_cast<VScrollRequest>(n), l), 0);
        }
    }
}

TEST(VPlacePicture, CentresInWhatIsFreeWithHalvesTowardsZero)
{
    EXPECT_EQ(VPlacePicture({10, 20}, {100, 100}, false), (VRect{0, 0, 10, 20}));
    EXPECT_EQ(VPlacePicture({10, 20}, {101, 101}, true), (VRect{45, 40, 55, 60}));
    EXPECT_EQ(VPlacePicture({200, 20}, {100, 100}, true), (VRect{0, 40, 200, 60}));
    EXPECT_EQ(VPlacePicture({200, 300}, {100, 100}, true), (VRect{0, 0, 200, 300}));
}

TEST(VCanvas, IsNeededUnlessThePictureCoversTheClientArea)
{
    EXPECT_TRUE(VCoversClient({0, 0, 100, 100}, {100, 100}));
    EXPECT_TRUE(VCoversClient({0, 0, 101, 100}, {100, 99}));
    EXPECT_FALSE(VCoversClient({0, 0, 99, 100}, {100, 100}));
    EXPECT_FALSE(VCoversClient({0, 0, 100, 99}, {100, 100}));
    EXPECT_EQ(VCanvasSize({40, 0, 60, 300}, {100, 200}), (VSize{100, 300}));
}
