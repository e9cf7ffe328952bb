// The tiles in which a page goes to a printer that refuses the whole of it in one stretch.
#pragma once

#include <cstdint>
#include <functional>

#include "base/vrect.h"

// One copy with scaling: from a part of the page's picture to a part of the printer's area, each as
// its corner and its size.
struct VPrintTile
{
    int32_t x;
    int32_t y;
    int32_t w;
    int32_t h;
    int32_t sx;
    int32_t sy;
    int32_t sw;
    int32_t sh;

    bool operator==(const VPrintTile&) const = default;
};

struct VPrintTiling
{
    VSize sizeDotsPerInch;       // of the printer
    VSize sizeScreenDotsPerInch; // of the picture
    VSize sizeDevice;            // of the printer's area
    VSize sizePage;              // of the picture
};

// Calls print with each tile: square inches by columns, with what remains at the right edge, at the
// bottom edge and in the corner. False as soon as print is false, and when a resolution is not
// above 0, before the first tile.
bool VForEachPrintTile(const VPrintTiling& tiling,
                       const std::function<bool(const VPrintTile&)>& print);
