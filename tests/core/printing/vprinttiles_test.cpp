// The tiles in which a page goes to a printer that refuses the whole page.

#include "printing/vprinttiles.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

// Prints the numbers of a tile in the message of a failing test.
void PrintTo(const VPrintTile& t, std::ostream* pOut)
{
    *pOut << t.x << "," << t.y << " " << t.w << "x" << t.h << " from " << t.sx << "," << t.sy << " "
          << t.sw << "x" << t.sh;
}

namespace {

std::vector<VPrintTile> TilesOf(const VPrintTiling& tiling)
{
    std::vector<VPrintTile> tiles;
    EXPECT_TRUE(VForEachPrintTile(tiling, [&](const VPrintTile& tile) {
        tiles.push_back(tile);
        return true;
    }));
    return tiles;
}

int64_t AreaOf(const std::vector<VPrintTile>& tiles)
{
    int64_t lArea = 0;
    for (const VPrintTile& tile : tiles) {
        lArea += int64_t{tile.w} * tile.h;
    }
    return lArea;
}

} // namespace

TEST(VForEachPrintTile, APageOfWholeInchesHasNoStrips)
{
    const VPrintTiling tiling = {{300, 300}, {96, 96}, {600, 900}, {192, 288}};
    const std::vector<VPrintTile> expected = {
        {0, 0, 300, 300, 0, 0, 96, 96},       {0, 300, 300, 300, 0, 96, 96, 96},
        {0, 600, 300, 300, 0, 192, 96, 96},   {300, 0, 300, 300, 96, 0, 96, 96},
        {300, 300, 300, 300, 96, 96, 96, 96}, {300, 600, 300, 300, 96, 192, 96, 96},
    };
    EXPECT_EQ(TilesOf(tiling), expected);
}

TEST(VForEachPrintTile, WhatRemainsGoesAtTheRightTheBottomAndTheCorner)
{
    const VPrintTiling tiling = {{100, 100}, {10, 10}, {230, 140}, {23, 14}};
    const std::vector<VPrintTile> expected = {
        {0, 0, 100, 100, 0, 0, 10, 10},     {0, 100, 100, 40, 0, 10, 10, 4},
        {100, 0, 100, 100, 10, 0, 10, 10},  {200, 0, 30, 100, 20, 0, 3, 10},
        {100, 100, 100, 40, 10, 10, 10, 4}, {200, 100, 30, 40, 20, 10, 3, 4},
    };
    EXPECT_EQ(TilesOf(tiling), expected);
    EXPECT_EQ(AreaOf(TilesOf(tiling)), 230 * 140);
}

TEST(VForEachPrintTile, CoversAnyPageOfEqualResolutionsOnce)
{
    for (int32_t cx = 100; cx < 340; cx += 7) {
        for (int32_t cy = 100; cy < 340; cy += 11) {
            const VPrintTiling tiling = {{100, 100}, {50, 50}, {cx, cy}, {cx / 2, cy / 2}};
            ASSERT_EQ(AreaOf(TilesOf(tiling)), int64_t{cx} * cy)
                << "page of " << cx << " by " << cy;
        }
    }
}

// Kept: the strip at the right edge goes by the vertical resolution.
TEST(VForEachPrintTile, KeptTheRightStripIsMissedWithUnequalResolutions)
{
    // Three columns by the horizontal resolution and six by the vertical one: the strip is never
    // drawn.
    const VPrintTiling never = {{200, 100}, {96, 96}, {650, 100}, {312, 96}};
    for (const VPrintTile& tile : TilesOf(never)) {
        EXPECT_NE(tile.w, 50);
    }
    // Six columns and three: the strip is drawn beside the third column, in the middle of the page.
    const VPrintTiling early = {{100, 200}, {96, 96}, {650, 200}, {624, 96}};
    const std::vector<VPrintTile> tiles = TilesOf(early);
    ASSERT_EQ(tiles.size(), 7U);
    EXPECT_EQ(tiles[2].x, 200);
    EXPECT_EQ(tiles[3], (VPrintTile{600, 0, 50, 200, 576, 0, 48, 96}));
    EXPECT_EQ(tiles[4].x, 300);
}

TEST(VForEachPrintTile, StopsAtTheFirstFailure)
{
    const VPrintTiling tiling = {{100, 100}, {10, 10}, {230, 140}, {23, 14}};
    for (int nFailing = 1; nFailing <= 6; ++nFailing) {
        int nTiles = 0;
        EXPECT_FALSE(
            VForEachPrintTile(tiling, [&](const VPrintTile&) { return ++nTiles < nFailing; }));
        EXPECT_EQ(nTiles, nFailing);
    }
}

TEST(VForEachPrintTile, FailsWithoutAResolutionBeforeTheFirstTile)
{
    const auto Never = [](const VPrintTile&) {
        ADD_FAILURE() << "without a resolution there must be no tile";
        return true;
    };
    for (int nMissing = 0; nMissing < 4; ++nMissing) {
        VPrintTiling tiling = {{100, 100}, {10, 10}, {230, 140}, {23, 14}};
        int32_t* apDots[] = {&tiling.sizeDotsPerInch.cx, &tiling.sizeDotsPerInch.cy,
                             &tiling.sizeScreenDotsPerInch.cx, &tiling.sizeScreenDotsPerInch.cy};
        *apDots[nMissing] = 0;
        EXPECT_FALSE(VForEachPrintTile(tiling, Never)) << "case " << nMissing;
    }
}

TEST(VForEachPrintTile, APageSmallerThanAnInchOrNegativeEnds)
{
    EXPECT_EQ(TilesOf({{300, 300}, {96, 96}, {200, 100}, {64, 32}}).size(), 1U); // the corner
    EXPECT_TRUE(TilesOf({{300, 300}, {96, 96}, {0, 0}, {0, 0}}).empty());
    EXPECT_TRUE(TilesOf({{300, 300}, {96, 96}, {-5, -700}, {-1, INT_MIN}}).empty());
    EXPECT_FALSE(
        TilesOf({{INT_MAX / 2, 1 << 20}, {INT_MAX, INT_MAX}, {INT_MAX, INT_MAX}, {9, 9}}).empty());
}
