// What a print preview computes: its scales, where paper and shadow lie, which page is next.
#pragma once

#include <cstdint>

#include "base/vrect.h"

// A row of the list of scales; a row without a text ends the table.
struct VPreviewScale
{
    const char* szText;
    int32_t lIndex;
    float fScale;
};

extern const VPreviewScale V_PREVIEW_SCALES[];
inline constexpr int32_t V_PREVIEW_FIRST_SCALE = 4; // the row chosen at each opening

// The picture of a sheet of paper on its ground.
struct VPreviewPicture
{
    VSize sizePicture; // of all, the ground included
    VRect rcSheet;     // the scaled paper
    VRect rcFrame;     // the corners of the line around it, both of them drawn
    VRect rcShadowRight;
    VRect rcShadowBottom;
};

// For a sheet in pixels of the screen, at a scale.
VPreviewPicture VLayOutPreview(const VSize& sizePhysical, float fScale);

// Where the page's picture lies on the sheet: its offset, each side rounded down to an even number
// as if towards zero.
VSize VPreviewOffset(const VSize& sizePhysicalOffset);

// Which of the buttons that turn pages are of use. Pages count from 0.
struct VPageButtons
{
    bool bFirst;
    bool bPrevious;
    bool bNext;
    bool bLast;

    bool operator==(const VPageButtons&) const = default;
};

VPageButtons VUsefulPageButtons(int32_t lPage, int32_t lPages);

// The nearest page that there is; 0 without pages.
int32_t VHoldPage(int64_t lPage, int32_t lPages);

// The number at the beginning of a text that a user typed, blanks before it left out; 0 for none
// and for one above 4294967295.
uint32_t VReadPageNumber(const char* szText);
