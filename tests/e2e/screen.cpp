#include "tests/e2e/screen.h"

#include <cstring>
#include <fstream>

ScreenPicture::ScreenPicture()
    : m_nWidth(GetSystemMetrics(SM_CXSCREEN)),
      m_nHeight(GetSystemMetrics(SM_CYSCREEN)),
      m_pixels(static_cast<size_t>(m_nWidth) * static_cast<size_t>(m_nHeight))
{
    m_info.bmiHeader.biSize = sizeof m_info.bmiHeader;
    m_info.bmiHeader.biWidth = m_nWidth;
    m_info.bmiHeader.biHeight = -m_nHeight;
    m_info.bmiHeader.biPlanes = 1;
    m_info.bmiHeader.biBitCount = 32;
    m_info.bmiHeader.biCompression = BI_RGB;
    HDC hScreen = GetDC(nullptr);
    HDC hMemory = CreateCompatibleDC(hScreen);
    HBITMAP hBitmap = CreateCompatibleBitmap(hScreen, m_nWidth, m_nHeight);
    HGDIOBJ hOld = SelectObject(hMemory, hBitmap);
    BitBlt(hMemory, 0, 0, m_nWidth, m_nHeight, hScreen, 0, 0, SRCCOPY);
    SelectObject(hMemory, hOld);
    GetDIBits(hMemory, hBitmap, 0, static_cast<UINT>(m_nHeight), m_pixels.data(), &m_info,
              DIB_RGB_COLORS);
    DeleteObject(hBitmap);
    DeleteDC(hMemory);
    ReleaseDC(nullptr, hScreen);
}

COLORREF ScreenPicture::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_nWidth || y >= m_nHeight) {
        return CLR_INVALID;
    }
    const DWORD u =
        m_pixels[static_cast<size_t>(y) * static_cast<size_t>(m_nWidth) + static_cast<size_t>(x)];
    return RGB((u >> 16) & 0xFF, (u >> 8) & 0xFF, u & 0xFF);
}

void ScreenPicture::Save(const std::string& sPath) const
{
    const auto uBytes = static_cast<DWORD>(m_pixels.size() * sizeof m_pixels[0]);
    BITMAPFILEHEADER header = {};
    memcpy(&header.bfType, "BM", 2);
    header.bfOffBits = sizeof header + sizeof m_info.bmiHeader;
    header.bfSize = header.bfOffBits + uBytes;
    std::ofstream file(sPath, std::ios::binary);
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(&m_info.bmiHeader), sizeof m_info.bmiHeader);
    file.write(reinterpret_cast<const char*>(m_pixels.data()),
               static_cast<std::streamsize>(uBytes));
}
