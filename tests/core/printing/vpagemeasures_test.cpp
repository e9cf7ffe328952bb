// The measures of a page, computed from those of the printer and the screen.

#include "printing/vpagemeasures.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

constexpr VSize sizeScreen = {96, 96};

VPrinterMeasures Printer(int32_t lDots, VSize sizeArea = {2400, 3300})
{
    return {{lDots, lDots}, sizeArea, {50, 75}, {2550, 3450}};
}

} // namespace

TEST(VMeasurePage, ScalesThePrintersAreaToTheScreen)
{
    VPageMeasures page;
    ASSERT_TRUE(VMeasurePage(Printer(600, {4800, 6601}), sizeScreen, page));
    EXPECT_EQ(page.sizeDevice, (VSize{4800, 6601}));
    EXPECT_EQ(page.sizePage.cx, 768);
    EXPECT_EQ(page.sizePage.cy, 1056); // 1056.16
}

TEST(VMeasurePage, RoundsHalvesUp)
{
    VPageMeasures page;
    // At a quarter of the size: 100.25, 100.5, 100.75.
    for (const auto& [lDevice, lScreen] : {std::pair{401, 100}, {402, 101}, {403, 101}}) {
        VPrinterMeasures printer = Printer(384, {lDevice, lDevice});
        printer.sizeOffset = {lDevice, lDevice};
        printer.sizePhysical = {lDevice, lDevice};
        ASSERT_TRUE(VMeasurePage(printer, sizeScreen, page));
        EXPECT_EQ(page.sizePage, (VSize{lScreen, lScreen}));
        EXPECT_EQ(page.sizePhysicalOffset, (VSize{lScreen, lScreen}));
        EXPECT_EQ(page.sizePhysical, (VSize{lScreen, lScreen}));
    }
}

TEST(VMeasurePage, TheTwoResolutionsOfAPrinterCountByThemselves)
{
    VPrinterMeasures printer = Printer(600, {6000, 6000});
    printer.sizeDotsPerInch = {600, 300};
    VPageMeasures page;
    ASSERT_TRUE(VMeasurePage(printer, {96, 120}, page));
    EXPECT_EQ(page.sizePage, (VSize{960, 2400}));
}

TEST(VMeasurePage, MarginsAreThousandthsOfAnInchByTheHorizontalResolutionAlone)
{
    VPageMeasures page;
    page.rcMargins = {750, 750, 750, 750};
    page.rcMinMargins = {250, 125, 100, 10};
    ASSERT_TRUE(VMeasurePage(Printer(300), sizeScreen, page));
    EXPECT_EQ(page.rcMarginsScreen, (VRect{72, 72, 72, 72}));
    EXPECT_EQ(page.rcMinMarginsScreen, (VRect{24, 12, 10, 1}));
    ASSERT_TRUE(VMeasurePage(Printer(300), {96, 120}, page));
    EXPECT_EQ(page.rcMarginsScreen, (VRect{72, 72, 72, 72}));
    ASSERT_TRUE(VMeasurePage(Printer(300), {120, 96}, page));
    EXPECT_EQ(page.rcMarginsScreen, (VRect{90, 90, 90, 90}));
}

TEST(VMeasurePage, TheContentLiesInsideTheMarginsThatAreMeasuredFromThePaper)
{
    VPageMeasures page;
    page.rcMargins = {750, 500, 1000, 250};
    page.rcMinMargins = {125, 250, 375, 250};
    ASSERT_TRUE(VMeasurePage(Printer(300), sizeScreen, page));
    ASSERT_EQ(page.sizePage, (VSize{768, 1056}));
    EXPECT_EQ(page.rcPrintable, (VRect{60, 24, 768 - 96 + 36, 1056}));
}

TEST(VMeasurePage, AMarginBelowThePrintersGivesANegativeEdge)
{
    VPageMeasures page;
    page.rcMinMargins = {250, 250, 250, 250};
    ASSERT_TRUE(VMeasurePage(Printer(300), sizeScreen, page));
    EXPECT_EQ(page.rcPrintable, (VRect{-24, -24, 768 + 24, 1056 + 24}));
}

TEST(VMeasurePage, FailsWithoutAResolutionAndChangesNothing)
{
    for (int nMissing = 0; nMissing < 4; ++nMissing) {
        VPrinterMeasures printer = Printer(300);
        VSize screen = sizeScreen;
        int32_t* apDots[] = {&printer.sizeDotsPerInch.cx, &printer.sizeDotsPerInch.cy, &screen.cx,
                             &screen.cy};
        *apDots[nMissing] = 0;
        VPageMeasures page;
        page.sizePage = {1, 2};
        EXPECT_FALSE(VMeasurePage(printer, screen, page)) << "case " << nMissing;
        EXPECT_EQ(page.sizePage, (VSize{1, 2}));
        *apDots[nMissing] = -96;
        EXPECT_FALSE(VMeasurePage(printer, screen, page)) << "case " << nMissing;
    }
}

TEST(VMeasurePage, AbsurdNumbersDoNoHarm)
{
    for (const int32_t l : {INT_MIN, -1, 0, 1, INT_MAX}) {
        for (const int32_t lDots : {1, 96, INT_MAX}) {
            VPageMeasures page;
            page.rcMargins = {l, l, l, l};
            page.rcMinMargins = {-(l / 2), l, INT_MIN, INT_MAX};
            const VPrinterMeasures printer = {{lDots, 1}, {l, l}, {l, l}, {l, l}};
            EXPECT_TRUE(VMeasurePage(printer, {96, lDots}, page));
            EXPECT_GE(page.rcPrintable.left, INT_MIN / 2);
            EXPECT_LE(page.rcPrintable.right, INT_MAX / 2);
        }
    }
}

// ---- Margins that turn with the paper.

TEST(VTurnMargins, FromPortraitToLandscape)
{
    EXPECT_EQ(VTurnMargins({1, 2, 3, 4}, V_ORIENTATION_PORTRAIT, V_ORIENTATION_LANDSCAPE),
              (VRect{2, 3, 4, 1}));
}

TEST(VTurnMargins, FromLandscapeToPortraitIsTheWayBack)
{
    const VRect rc = {1, 2, 3, 4};
    EXPECT_EQ(VTurnMargins(rc, V_ORIENTATION_LANDSCAPE, V_ORIENTATION_PORTRAIT),
              (VRect{4, 1, 2, 3}));
    const VRect turned = VTurnMargins(rc, V_ORIENTATION_PORTRAIT, V_ORIENTATION_LANDSCAPE);
    EXPECT_EQ(VTurnMargins(turned, V_ORIENTATION_LANDSCAPE, V_ORIENTATION_PORTRAIT), rc);
}

TEST(VTurnMargins, AnyOtherPairLeavesThemAlone)
{
    const VRect rc = {1, 2, 3, 4};
    for (const auto& [lFrom, lTo] :
         {std::pair{1, 1}, {2, 2}, {0, 2}, {2, 0}, {1, 99}, {99, 1}, {1, -2}, {0, 0}}) {
        EXPECT_EQ(VTurnMargins(rc, lFrom, lTo), rc)
            << "from orientation " << lFrom << " to " << lTo;
    }
}
