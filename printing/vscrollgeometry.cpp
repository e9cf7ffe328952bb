#include "printing/vscrollgeometry.h"

#include <algorithm>

VScrollBars VNeededScrollBars(const VSize& sizeSpace, const VSize& sizePicture)
{
    return {sizeSpace.cx < sizePicture.cx, sizeSpace.cy < sizePicture.cy};
}

VScrollBars VMoreScrollBars(const VScrollBars& bars, const VSize& sizeClient,
                            const VSize& sizePicture)
{
    const VScrollBars needed = VNeededScrollBars(sizeClient, sizePicture);
    return {bars.bHorizontal || needed.bHorizontal, bars.bVertical || needed.bVertical};
}

int32_t VScrollTo(const VScrollAxis& axis, VScrollRequest request, int32_t lThumb)
{
    const int64_t lMaximum = int64_t{axis.lRange} - std::max(axis.lClient, 0);
    int64_t lNew = axis.lPosition;
    switch (request) {
        case VScrollRequest::LineBack:
            lNew -= axis.lLine;
            break;
        case VScrollRequest::LineForward:
            lNew += axis.lLine;
            break;
        case VScrollRequest::PageBack:
            lNew -= axis.lClient;
            break;
        case VScrollRequest::PageForward:
            lNew += axis.lClient;
            break;
        case VScrollRequest::Thumb:
            lNew = lThumb;
            break;
        case VScrollRequest::Begin:
            lNew = 0;
            break;
        case VScrollRequest::End:
            lNew = lMaximum;
            break;
    }
    return static_cast<int32_t>(std::clamp<int64_t>(lNew, 0, std::max<int64_t>(lMaximum, 0)));
}

VRect VPlacePicture(const VSize& sizePicture, const VSize& sizeClient, bool bCentre)
{
    const auto Free = [=](int32_t lPicture, int32_t lClient) {
        return bCentre && lPicture < lClient ? (lClient - lPicture) / 2 : 0;
    };
    const int32_t x = Free(sizePicture.cx, sizeClient.cx);
    const int32_t y = Free(sizePicture.cy, sizeClient.cy);
    return {x, y, x + sizePicture.cx, y + sizePicture.cy};
}

bool VCoversClient(const VRect& rcPicture, const VSize& sizeClient)
{
    return sizeClient.cx <= rcPicture.right && sizeClient.cy <= rcPicture.bottom;
}

VSize VCanvasSize(const VRect& rcPicture, const VSize& sizeClient)
{
    return {std::max(rcPicture.right, sizeClient.cx), std::max(rcPicture.bottom, sizeClient.cy)};
}
