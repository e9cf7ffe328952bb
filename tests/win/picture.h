// What a window paints, for looking at single pixels.
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
    explicit Picture(HWND hWnd);
    // Takes a bitmap of the resources.
    explicit Picture(UINT uId);
    // Takes a picture of an image list; an empty one when there is none of that index.
    Picture(const VImageList& list, int nIndex);

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }

    // The colour of a pixel, 0x00BBGGRR; CLR_INVALID outside.
    COLORREF At(int x, int y) const;

    // Whether all pixels of a part, or any of them, have that colour. Both are false for a part
    // that is not inside.
    bool IsAll(const VRect& part, COLORREF cr) const;
    bool HasAny(const VRect& part, COLORREF cr) const;

    // Rows of pixels for the message of a failing test. Each colour has a character, in the order
    // in which the colours appear: ".", "a" to "z", then "?".
    std::string Describe(const VRect& part) const;

    // Saves the picture as a BMP file in the folder that QUILLMARK_PICTURES in the environment
    // names, if it is set.
    void Save(const char* szName) const;

private:
    bool Make(int nWidth, int nHeight);

    VBitmap m_bitmap;
    const COLORREF* m_pPixels = nullptr; // 0x00RRGGBB, top down
    int m_nWidth = 0;
    int m_nHeight = 0;
};
