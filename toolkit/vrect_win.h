// Converts between VRect and the rectangle of Windows.
#pragma once

#include <windows.h>

#include "base/vrect.h"

inline VRect VFromRect(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

inline RECT VToRect(const VRect& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}
