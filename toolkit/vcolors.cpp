#include "toolkit/vcolors.h"

namespace {

// Wine 8 never reports high contrast, whatever its colours are.
bool IsHighContrast()
{
    HIGHCONTRASTA contrast = {};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

} // namespace

bool VIsDark(COLORREF cr)
{
    // How bright the eye sees red, green and blue, in thousandths.
    const int nBrightness = 299 * GetRValue(cr) + 587 * GetGValue(cr) + 114 * GetBValue(cr);
    return nBrightness < 128 * 1000;
}

bool VNeedsSystemColors()
{
    return IsHighContrast() || VIsDark(GetSysColor(COLOR_WINDOW));
}
