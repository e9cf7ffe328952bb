#include "tests/win/picture.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "toolkit/vdrawingsurface.h"
#include "toolkit/vimagelist.h"
#include "toolkit/vwindow.h"

namespace {

BITMAPINFOHEADER Header(int nWidth, int nHeight)
{
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = nWidth;
    header.biHeight = -nHeight;
    header.biPlanes = 1;
    header.biBitCount = 32;
    return header;
}

} // namespace

Picture::Picture(const VWindow& window) : Picture(window.GetHandle()) {}

Picture::Picture(HWND hWnd)
{
    RECT area = {};
    GetClientRect(hWnd, &area);
    if (!Make(area.right, area.bottom)) {
        return;
    }
    const VClientSurface screen(hWnd);
    VMemorySurface paper(screen);
    const VSelectScope scope(paper, m_bitmap.GetHandle());
    // A list that paints into a buffer does not erase its background before.
    paper.FillRect({0, 0, m_nWidth, m_nHeight}, GetSysColorBrush(COLOR_WINDOW));
    SendMessageA(hWnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper.GetHandle()),
                 PRF_CLIENT | PRF_ERASEBKGND);
    GdiFlush();
}

Picture::Picture(UINT uId)
{
    VBitmap source;
    if (!source.Load(uId) || !Make(source.GetWidth(), source.GetHeight())) {
        return;
    }
    const VClientSurface screen(GetDesktopWindow());
    VMemorySurface from(screen);
    const VSelectScope fromScope(from, source.GetHandle());
    VMemorySurface paper(screen);
    const VSelectScope scope(paper, m_bitmap.GetHandle());
    paper.BitBlt(0, 0, m_nWidth, m_nHeight, from, 0, 0, SRCCOPY);
    GdiFlush();
}

Picture::Picture(const VImageList& list, int nIndex)
{
    int nWidth = 0;
    int nHeight = 0;
    if (!list.GetIconSize(nWidth, nHeight) || nIndex < 0 || nIndex >= list.GetImageCount() ||
        !Make(nWidth, nHeight)) {
        return;
    }
    const VClientSurface screen(GetDesktopWindow());
    VMemorySurface paper(screen);
    const VSelectScope scope(paper, m_bitmap.GetHandle());
    list.Draw(nIndex, paper, 0, 0);
    GdiFlush();
}

bool Picture::Make(int nWidth, int nHeight)
{
    BITMAPINFO info = {};
    info.bmiHeader = Header(nWidth, nHeight);
    void* pBits = nullptr;
    if (!m_bitmap.Attach(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0))) {
        return false;
    }
    m_pPixels = static_cast<const COLORREF*>(pBits);
    m_nWidth = nWidth;
    m_nHeight = nHeight;
    return true;
}

COLORREF Picture::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_nWidth || y >= m_nHeight) {
        return CLR_INVALID;
    }
    const COLORREF cr = m_pPixels[y * m_nWidth + x];
    return RGB((cr >> 16) & 0xFF, (cr >> 8) & 0xFF, cr & 0xFF);
}

bool Picture::IsAll(const VRect& part, COLORREF cr) const
{
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            if (At(x, y) != cr) {
                return false;
            }
        }
    }
    return !part.IsEmpty();
}

bool Picture::HasAny(const VRect& part, COLORREF cr) const
{
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            if (At(x, y) == cr) {
                return true;
            }
        }
    }
    return false;
}

std::string Picture::Describe(const VRect& part) const
{
    std::vector<COLORREF> colours;
    std::string sRows;
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            size_t u = 0;
            while (u < colours.size() && colours[u] != At(x, y)) {
                ++u;
            }
            if (u == colours.size()) {
                colours.push_back(At(x, y));
            }
            sRows += u == 0 ? '.' : (u <= 26 ? static_cast<char>('a' + u - 1) : '?');
        }
        sRows += '\n';
    }
    for (size_t u = 0; u < colours.size(); ++u) {
        char szColour[16] = "";
        snprintf(szColour, sizeof szColour, " %06lX", static_cast<unsigned long>(colours[u]));
        sRows += szColour;
    }
    return sRows;
}

void Picture::Save(const char* szName) const
{
    const char* szFolder = getenv("QUILLMARK_PICTURES");
    if (szFolder == nullptr || m_pPixels == nullptr) {
        return;
    }
    const BITMAPINFOHEADER info = Header(m_nWidth, m_nHeight);
    const DWORD uBytes = static_cast<DWORD>(m_nWidth * m_nHeight) * 4;
    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof info;
    file.bfSize = file.bfOffBits + uBytes;
    if (FILE* pFile = fopen((std::string(szFolder) + "\\" + szName + ".bmp").c_str(), "wb")) {
        fwrite(&file, sizeof file, 1, pFile);
        fwrite(&info, sizeof info, 1, pFile);
        fwrite(m_pPixels, 1, uBytes, pFile);
        fclose(pFile);
    }
}
