#include "tests/support/readability_win.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace {

constexpr struct
{
    int nWhich;
    COLORREF cr;
} aDark[] = {
    {COLOR_WINDOW, 0x000000},   {COLOR_WINDOWTEXT, 0xFFFFFF}, {COLOR_BTNFACE, 0x000000},
    {COLOR_BTNTEXT, 0xFFFFFF},  {COLOR_HIGHLIGHT, 0x800080},  {COLOR_HIGHLIGHTTEXT, 0xFFFFFF},
    {COLOR_GRAYTEXT, 0x00FF00}, {COLOR_MENU, 0x000000},       {COLOR_MENUTEXT, 0xFFFFFF},
};

// Common controls keep copies of the colours for the whole process, and renew them when one of them
// is told.
void TellCommonControls()
{
    HWND hList = CreateWindowExA(0, WC_LISTVIEWA, "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr,
                                 nullptr);
    SendMessageA(hList, WM_SYSCOLORCHANGE, 0, 0);
    DestroyWindow(hList);
}

// Wine 8 deletes the pens of colours that change, and makes them again for the next frame of a
// window. Tests that count objects find them there.
void DrawFrame()
{
    HWND hWnd = CreateWindowExA(WS_EX_DLGMODALFRAME | WS_EX_CLIENTEDGE | WS_EX_NOACTIVATE, "Static",
                                "", WS_POPUP | WS_CAPTION | WS_VISIBLE, 0, 0, 40, 40, nullptr,
                                nullptr, nullptr, nullptr);
    RedrawWindow(hWnd, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_UPDATENOW);
    DestroyWindow(hWnd);
}

void SetColors(const std::vector<COLORREF>& colors)
{
    std::vector<int> which;
    for (const auto& dark : aDark) {
        which.push_back(dark.nWhich);
    }
    SetSysColors(static_cast<int>(which.size()), which.data(), colors.data());
    TellCommonControls();
}

double Linear(int nPart)
{
    const double f = nPart / 255.0;
    return f <= 0.03928 ? f / 12.92 : pow((f + 0.055) / 1.055, 2.4);
}

double Luminance(COLORREF cr)
{
    return 0.2126 * Linear(GetRValue(cr)) + 0.7152 * Linear(GetGValue(cr)) +
           0.0722 * Linear(GetBValue(cr));
}

void ForEachPixel(const PixelAt& at, const VRect& part, const std::function<void(COLORREF)>& take)
{
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            take(at(x, y));
        }
    }
}

} // namespace

ScopedDarkColors::ScopedDarkColors()
{
    std::vector<COLORREF> colors;
    for (const auto& dark : aDark) {
        m_before.push_back(GetSysColor(dark.nWhich));
        colors.push_back(dark.cr);
    }
    SetColors(colors);
}

ScopedDarkColors::~ScopedDarkColors()
{
    SetColors(m_before);
    DrawFrame();
}

double ContrastOf(COLORREF crA, COLORREF crB)
{
    const double fA = Luminance(crA) + 0.05;
    const double fB = Luminance(crB) + 0.05;
    return std::max(fA, fB) / std::min(fA, fB);
}

COLORREF GroundOf(const PixelAt& at, const VRect& part)
{
    std::map<COLORREF, int> counts;
    ForEachPixel(at, part, [&](COLORREF cr) { ++counts[cr]; });
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](auto& a, auto& b) { return a.second < b.second; });
    return most == counts.end() ? CLR_INVALID : most->first;
}

double ContrastIn(const PixelAt& at, const VRect& part)
{
    const COLORREF crGround = GroundOf(at, part);
    double fBest = 1;
    ForEachPixel(at, part, [&](COLORREF cr) { fBest = std::max(fBest, ContrastOf(cr, crGround)); });
    return fBest;
}
