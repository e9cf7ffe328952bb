// VRect: a rectangle in pixels, with the origin at the top left. The right and the bottom edge are
// outside it. VSize: a width and a height.
#pragma once

#include <cstdint>

struct VRect
{
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;

    int32_t GetWidth() const { return right - left; }
    int32_t GetHeight() const { return bottom - top; }
    bool IsEmpty() const { return right <= left || bottom <= top; }

    bool operator==(const VRect&) const = default;
};

struct VSize
{
    int32_t cx = 0;
    int32_t cy = 0;

    bool operator==(const VSize&) const = default;
};
