#include "printing/vpreviewgeometry.h"

#include <algorithm>
#include <limits>

const VPreviewScale V_PREVIEW_SCALES[] = {
    {"30%", 0, 0.3F},    {"40%", 1, 0.4F},  {"50%", 2, 0.5F},    {"60%", 3, 0.6F},
    {"70%", 4, 0.7F},    {"80%", 5, 0.8F},  {"90%", 6, 0.9F},    {"100%", 7, 1.0F},
    {"125%", 8, 1.25F},  {"150%", 9, 1.5F}, {"175%", 10, 1.75F}, {"200%", 11, 2.0F},
    {nullptr, -1, 0.0F},
};

namespace {

constexpr int32_t lGround = 20; // beside the paper, on each side

// The product of two floats is exact in a double, so that every build drops the same fraction.
int32_t Scale(int32_t lPixels, float fScale)
{
    constexpr double dLimit = 100000000;
    const double dScaled = static_cast<double>(lPixels) * static_cast<double>(fScale);
    return static_cast<int32_t>(std::clamp(dScaled, 0.0, dLimit));
}

} // namespace

VPreviewPicture VLayOutPreview(const VSize& sizePhysical, float fScale)
{
    const int32_t w = Scale(sizePhysical.cx, fScale);
    const int32_t h = Scale(sizePhysical.cy, fScale);
    VPreviewPicture picture;
    picture.sizePicture = {w + 2 * lGround, h + 2 * lGround};
    picture.rcSheet = {lGround, lGround, lGround + w, lGround + h};
    picture.rcFrame = {lGround - 1, lGround - 1, lGround + w, lGround + h};
    picture.rcShadowRight = {w + 21, 23, w + 25, h + 25};
    picture.rcShadowBottom = {23, h + 21, w + 25, h + 25};
    return picture;
}

VSize VPreviewOffset(const VSize& sizePhysicalOffset)
{
    return {sizePhysicalOffset.cx / 2 * 2, sizePhysicalOffset.cy / 2 * 2};
}

VPageButtons VUsefulPageButtons(int32_t lPage, int32_t lPages)
{
    const bool bMany = lPages != 1;
    const bool bBefore = lPage != 0;
    const bool bAfter = lPage != lPages - 1;
    return {bBefore && bMany, bBefore, bAfter, bAfter && bMany};
}

int32_t VHoldPage(int64_t lPage, int32_t lPages)
{
    return static_cast<int32_t>(std::clamp<int64_t>(lPage, 0, std::max(lPages - 1, 0)));
}

uint32_t VReadPageNumber(const char* szText)
{
    while (*szText == ' ' || *szText == '\t') {
        ++szText;
    }
    uint64_t uNumber = 0;
    for (; *szText >= '0' && *szText <= '9'; ++szText) {
        uNumber = uNumber * 10 + static_cast<uint64_t>(*szText - '0');
        if (uNumber > std::numeric_limits<uint32_t>::max()) {
            return 0;
        }
    }
    return static_cast<uint32_t>(uNumber);
}
