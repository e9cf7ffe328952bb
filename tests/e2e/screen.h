// What the screen shows.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class ScreenPicture
{
public:
    // Takes the whole screen as it is now.
    ScreenPicture();

    // The colour of a pixel of the screen, 0x00BBGGRR; CLR_INVALID outside.
    COLORREF At(int x, int y) const;
    // Saves the picture as a BMP file.
    void Save(const std::string& sPath) const;

private:
    int m_nWidth;
    int m_nHeight;
    BITMAPINFO m_info = {};
    std::vector<DWORD> m_pixels; // 0x00RRGGBB, the uppermost line first
};
