// What a window paints, to be examined pixel by pixel.
#pragma once

#include <windows.h>

#include <string>

#include "base/vrect.h"
#include "toolkit/vgdiobjects.h"

class VImageList;
class VWindow;

class Picture
{
public:
    // Lets the window paint its client area, with its background, into memory.
    explicit Picture(const VWindow& window);
    // Takes a bitmap of the resources.
    explicit Picture(UINT uId);
    // Takes a picture of an image list; an empty one when there is none of that index.
    Picture(const VImageList& list, int nIndex);

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }

    // The colour of a pixel, 0x00BBGGRR; CLR_INVALID outside.
    COLORREF At(int x, int y) const;

    // Whether all pixels of a part, or any of them, have that colour. A part that is not inside has
    // none.
    bool IsAll(const VRect& part, COLORREF cr) const;
    bool HasAny(const VRect& part, COLORREF cr) const;

    // Rows of pixels with a character for each colour in the order in which the colours come: ".",
    // "a" to "z", then "?". For the messages of failing tests.
    std::string Describe(const VRect& part) const;

    // Saves the picture as a BMP file in the folder that the variable QUILLMARK_PICTURES of the
    // environment names, if it is set.
    void Save(const char* szName) const;

private:
    bool Make(int nWidth, int nHeight);

    VBitmap m_bitmap;
    const COLORREF* m_pPixels = nullptr; // 0x00RRGGBB, top down
    int m_nWidth = 0;
    int m_nHeight = 0;
};
