// What a window paints, to be looked at pixel by pixel.
#pragma once

#include <windows.h>

#include <string>

#include "base/vrect.h"
#include "toolkit/vgdiobjects.h"

class VWindow;

class Picture
{
public:
    // Has the window paint its client area, background included, into memory.
    explicit Picture(const VWindow& window);
    // A bitmap of the resources.
    explicit Picture(UINT uId);

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }

    // 0x00BBGGRR; CLR_INVALID outside.
    COLORREF At(int x, int y) const;

    // Whether the whole of a part that lies inside has one colour, and whether any of it has it.
    bool IsAll(const VRect& part, COLORREF cr) const;
    bool HasAny(const VRect& part, COLORREF cr) const;

    // Rows of pixels, a character for each colour in the order in which they come: ".", "a" to "z",
    // then "?". For texts of failing tests.
    std::string Describe(const VRect& part) const;

    // For the eye: where the environment's QUILLMARK_PICTURES names a folder, a BMP file in it.
    void Save(const char* szName) const;

private:
    bool Make(int nWidth, int nHeight);

    VBitmap m_bitmap;
    const COLORREF* m_pPixels = nullptr; // 0x00RRGGBB, top down
    int m_nWidth = 0;
    int m_nHeight = 0;
};
