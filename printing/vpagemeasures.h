// VPageMeasures: how large a page is on the printer and on the screen.
//
// A page is laid out in the pixels of the screen, on a picture of the area that the printer can
// print on; printing and previewing scale that picture and nothing else.
#pragma once

#include <cstdint>

#include "base/vrect.h"

// What a printer tells about itself and its paper, in its own pixels.
struct VPrinterMeasures
{
    VSize sizeDotsPerInch;
    VSize sizeArea;     // that can be printed on
    VSize sizeOffset;   // of that area from the corner of the paper
    VSize sizePhysical; // of the paper
};

struct VPageMeasures
{
    VSize sizeDevice; // the area that can be printed on, in pixels of the printer
    // Thousandths of an inch, from the edges of the paper: the user's margins, and those that the
    // printer needs.
    VRect rcMargins;
    VRect rcMinMargins;

    // All below are pixels of the screen.

    VSize sizePage; // sizeDevice; the size of a page's picture
    VSize sizePhysicalOffset;
    VSize sizePhysical;
    VRect rcMarginsScreen;
    VRect rcMinMarginsScreen;
    // Where the content goes on a page's picture. Left or top are negative where a margin is
    // smaller than the printer's own.
    VRect rcPrintable;
};

// Fills in all of page from the printer, the dots per inch of the screen, and the two margins that
// stand in page. False when a resolution is not above 0; page is then as it was.
bool VMeasurePage(const VPrinterMeasures& printer, const VSize& sizeScreenDotsPerInch,
                  VPageMeasures& page);

// The numbers by which a device mode tells how the paper lies.
inline constexpr int32_t V_ORIENTATION_PORTRAIT = 1;
inline constexpr int32_t V_ORIENTATION_LANDSCAPE = 2;

// The printer's margins after the paper was turned from one orientation to another. Unchanged
// unless one of the two is portrait and the other landscape.
VRect VTurnMargins(const VRect& rcMargins, int32_t lFrom, int32_t lTo);
