// What a scrolling view decides about its bars and its picture. All numbers are pixels.
#pragma once

#include <cstdint>

#include "base/vrect.h"

// Which bars a view shows.
struct VScrollBars
{
    bool bHorizontal = false;
    bool bVertical = false;

    bool operator==(const VScrollBars&) const = default;
};

// A bar is needed where the space is smaller than the picture.
VScrollBars VNeededScrollBars(const VSize& sizeSpace, const VSize& sizePicture);
// Those of bars, and those that are needed in what the bars left of the window.
VScrollBars VMoreScrollBars(const VScrollBars& bars, const VSize& sizeClient,
                            const VSize& sizePicture);

// What asks for a scroll along one axis.
enum class VScrollRequest
{
    LineBack,
    LineForward,
    PageBack,
    PageForward,
    Thumb, // to where the user holds the thumb
    Begin,
    End,
};

struct VScrollAxis
{
    int32_t lPosition; // pixels of the picture before the view's first one
    int32_t lRange;    // extent of the picture, the end of the bar's range
    int32_t lClient;   // extent of the view
    int32_t lLine;     // one step
};

// The position after a request, between 0 and the range less the view's extent. lThumb counts for
// VScrollRequest::Thumb alone.
int32_t VScrollTo(const VScrollAxis& axis, VScrollRequest request, int32_t lThumb = 0);

// Where a picture lies: at the origin, or with bCentre in the middle of what is free of the client
// area; the halves are rounded towards zero.
VRect VPlacePicture(const VSize& sizePicture, const VSize& sizeClient, bool bCentre);
// Whether the picture alone covers the client area.
bool VCoversClient(const VRect& rcPicture, const VSize& sizeClient);
// Of a canvas that holds the picture and covers the client area.
VSize VCanvasSize(const VRect& rcPicture, const VSize& sizeClient);
