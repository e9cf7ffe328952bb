// Whether texts can be read in the system's colours.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "base/vrect.h"

// Gives the system a dark scheme while the object lives: white on black, white on purple where
// something is selected. Programs that start meanwhile have these colours.
class ScopedDarkColors
{
public:
    ScopedDarkColors();
    ScopedDarkColors(const ScopedDarkColors&) = delete;
    ScopedDarkColors& operator=(const ScopedDarkColors&) = delete;
    ~ScopedDarkColors();

private:
    std::vector<COLORREF> m_before;
};

// From 1, for the same colour twice, to 21, for black and white, as the guidelines for readable web
// pages count it. They want 4.5 at least for texts.
double ContrastOf(COLORREF crA, COLORREF crB);
inline constexpr double fReadable = 4.5;

// A picture's pixel, 0x00BBGGRR.
using PixelAt = std::function<COLORREF(int x, int y)>;

// The colour that most pixels of a part have.
COLORREF GroundOf(const PixelAt& at, const VRect& part);
// The contrast of that colour to the pixel of the part that differs most from it.
double ContrastIn(const PixelAt& at, const VRect& part);
