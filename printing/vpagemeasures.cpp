#include "printing/vpagemeasures.h"

#include <algorithm>

namespace {

// Nothing on paper is that large; sums and differences of a few such numbers still fit.
constexpr double dLimit = 100000000;

int32_t Round(double dPixels)
{
    return static_cast<int32_t>(std::clamp(dPixels + 0.5, -dLimit, dLimit));
}

// The product of two floats is exact in a double, so that every build drops the same fraction.
int32_t Scale(int32_t lDevice, float fRatio)
{
    return Round(static_cast<double>(lDevice) * static_cast<double>(fRatio));
}

int32_t ToPixels(int32_t lThousandths, int32_t lDotsPerInch)
{
    return Round(lThousandths / 1000.0 * lDotsPerInch);
}

// Kept: the horizontal resolution serves for all four sides, for top and bottom too. Saved margins
// would print elsewhere on a screen with unequal resolutions if it did not.
VRect ToPixels(const VRect& rc, int32_t lDotsPerInch)
{
    return {ToPixels(rc.left, lDotsPerInch), ToPixels(rc.top, lDotsPerInch),
            ToPixels(rc.right, lDotsPerInch), ToPixels(rc.bottom, lDotsPerInch)};
}

} // namespace

bool VMeasurePage(const VPrinterMeasures& printer, const VSize& sizeScreenDotsPerInch,
                  VPageMeasures& page)
{
    const VSize& dots = printer.sizeDotsPerInch;
    if (dots.cx <= 0 || dots.cy <= 0 || sizeScreenDotsPerInch.cx <= 0 ||
        sizeScreenDotsPerInch.cy <= 0) {
        return false;
    }
    const auto fRatioX = static_cast<float>(sizeScreenDotsPerInch.cx) / static_cast<float>(dots.cx);
    const auto fRatioY = static_cast<float>(sizeScreenDotsPerInch.cy) / static_cast<float>(dots.cy);
    const auto OnScreen = [&](const VSize& size) {
        return VSize{Scale(size.cx, fRatioX), Scale(size.cy, fRatioY)};
    };
    page.sizeDevice = printer.sizeArea;
    page.sizePage = OnScreen(printer.sizeArea);
    page.sizePhysicalOffset = OnScreen(printer.sizeOffset);
    page.sizePhysical = OnScreen(printer.sizePhysical);
    page.rcMarginsScreen = ToPixels(page.rcMargins, sizeScreenDotsPerInch.cx);
    page.rcMinMarginsScreen = ToPixels(page.rcMinMargins, sizeScreenDotsPerInch.cx);
    const VRect& m = page.rcMarginsScreen;
    const VRect& n = page.rcMinMarginsScreen;
    // The picture begins inside the printer's margins already; the user's count from the paper.
    page.rcPrintable = {m.left - n.left, m.top - n.top, page.sizePage.cx - m.right + n.right,
                        page.sizePage.cy - m.bottom + n.bottom};
    return true;
}

VRect VTurnMargins(const VRect& rcMargins, int32_t lFrom, int32_t lTo)
{
    const VRect& old = rcMargins;
    if (lFrom == V_ORIENTATION_PORTRAIT && lTo == V_ORIENTATION_LANDSCAPE) {
        return {old.top, old.right, old.bottom, old.left};
    }
    if (lFrom == V_ORIENTATION_LANDSCAPE && lTo == V_ORIENTATION_PORTRAIT) {
        return {old.bottom, old.left, old.top, old.right};
    }
    return old;
}
