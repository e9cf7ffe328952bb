#include "toolkit/vdrawingsurface.h"

#include "toolkit/vrect_win.h"

VDrawingSurface::~VDrawingSurface()
{
    Release();
}

HDC VDrawingSurface::Attach(HDC hDC, bool bOwned)
{
    Release();
    m_hDC = hDC;
    m_bOwned = bOwned;
    return hDC;
}

void VDrawingSurface::Release()
{
    if (m_hDC != nullptr) {
        RestoreDC();
        if (m_bOwned) {
            Free(m_hDC);
        }
        m_hDC = nullptr;
    }
}

void VDrawingSurface::Free(HDC hDC)
{
    DeleteDC(hDC);
}

bool VDrawingSurface::CreateCompatible(VDrawingSurface& target) const
{
    HDC hDC = CreateCompatibleDC(m_hDC);
    return hDC != nullptr && target.Attach(hDC, true) != nullptr;
}

SIZE VDrawingSurface::TextExtent(const char* szText, int nLength) const
{
    SIZE size = {};
    GetTextExtentPoint32A(m_hDC, szText, nLength, &size);
    return size;
}

int VDrawingSurface::DrawText(const char* szText, VRect& rect, UINT uFlags, int nLength)
{
    RECT area = VToRect(rect);
    const int nHeight = ::DrawTextA(m_hDC, szText, nLength, &area, uFlags);
    rect = VFromRect(area);
    return nHeight;
}

void VDrawingSurface::DrawEdges(const VRect& rect, uint32_t uMask)
{
    if ((uMask & 1) != 0) {
        MoveTo(rect.left, rect.bottom);
        LineTo(rect.left, rect.top - 1);
    }
    if ((uMask & 2) != 0) {
        MoveTo(rect.left, rect.top);
        LineTo(rect.right, rect.top);
    }
    if ((uMask & 4) != 0) {
        MoveTo(rect.right - 1, rect.top);
        LineTo(rect.right - 1, rect.bottom);
    }
    if ((uMask & 8) != 0) {
        MoveTo(rect.left, rect.bottom);
        LineTo(rect.right, rect.bottom);
    }
}

void VDrawingSurface::FillRect(const VRect& rect, HBRUSH hBrush)
{
    const RECT area = VToRect(rect);
    ::FillRect(m_hDC, &area, hBrush);
}

bool VDrawingSurface::BitBlt(int x, int y, int w, int h, const VDrawingSurface& source, int sx,
                             int sy, DWORD uRop)
{
    return ::BitBlt(m_hDC, x, y, w, h, source.m_hDC, sx, sy, uRop) != 0;
}

bool VDrawingSurface::StretchBlt(int x, int y, int w, int h, const VDrawingSurface& source, int sx,
                                 int sy, int sw, int sh, DWORD uRop)
{
    return ::StretchBlt(m_hDC, x, y, w, h, source.m_hDC, sx, sy, sw, sh, uRop) != 0;
}

bool VDrawingSurface::SaveDC()
{
    RestoreDC();
    m_nSavedState = ::SaveDC(m_hDC);
    return m_nSavedState != 0;
}

bool VDrawingSurface::RestoreDC()
{
    const bool bRestored = m_nSavedState != 0 && ::RestoreDC(m_hDC, m_nSavedState) != 0;
    m_nSavedState = 0;
    return bRestored;
}

VClientSurface::VClientSurface(HWND hWnd) : m_hWnd(hWnd)
{
    Attach(GetDC(hWnd), true);
}

void VClientSurface::Free(HDC hDC)
{
    ReleaseDC(m_hWnd, hDC);
}

VPaintSurface::VPaintSurface(HWND hWnd) : m_hWnd(hWnd)
{
    Attach(BeginPaint(hWnd, &m_record), true);
}

void VPaintSurface::Free(HDC /*hDC*/)
{
    EndPaint(m_hWnd, &m_record);
}

VBufferedSurface::VBufferedSurface(VDrawingSurface& target, int nWidth, int nHeight)
    : VMemorySurface(target), m_target(target), m_nWidth(nWidth), m_nHeight(nHeight)
{
    if (GetHandle() == nullptr) {
        return;
    }
    m_hBitmap = CreateCompatibleBitmap(target.GetHandle(), nWidth, nHeight);
    if (m_hBitmap == nullptr) {
        Release();
        return;
    }
    m_hDisplaced = SelectObject(GetHandle(), m_hBitmap);
}

VBufferedSurface::~VBufferedSurface()
{
    if (m_hBitmap != nullptr) {
        RestoreDC(); // the copy needs the surface's own origin, and a saved state may hold the
                     // bitmap
        m_target.BitBlt(0, 0, m_nWidth, m_nHeight, *this, 0, 0, SRCCOPY);
        SelectObject(GetHandle(), m_hDisplaced);
        DeleteObject(m_hBitmap);
    }
}
