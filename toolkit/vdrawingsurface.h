// What programs draw on: thin objects over the platform's device contexts.
//
// Coordinates are device pixels from the top left, colours 0x00BBGGRR. No operation shows a
// message; what can fail answers false or null.
#pragma once

#include <windows.h>

#include "base/vrect.h"

class VDrawingSurface
{
public:
    VDrawingSurface() = default;
    VDrawingSurface(const VDrawingSurface&) = delete;
    VDrawingSurface& operator=(const VDrawingSurface&) = delete;
    // Restores a saved state, then frees an owned context.
    virtual ~VDrawingSurface();

    // Lets go of what is held, restoring its saved state and freeing it if owned, and takes hDC.
    HDC Attach(HDC hDC, bool bOwned);
    HDC GetHandle() const { return m_hDC; }

    // Makes a memory context that goes with this surface, for target to own; false when there is
    // none to be had.
    bool CreateCompatible(VDrawingSurface& target) const;

    SIZE TextExtent(const char* szText, int nLength) const;
    int DrawText(const char* szText, VRect& rect, UINT uFlags, int nLength = -1);
    void MoveTo(int x, int y) { MoveToEx(m_hDC, x, y, nullptr); }
    // The end point itself is not drawn.
    void LineTo(int x, int y) { ::LineTo(m_hDC, x, y); }

    // The sides of a rectangle: 1 left, from the bottom up to one above the top; 2 top; 4 right,
    // one inside; 8 bottom, on the edge itself. A rectangle of height 0 with all four is a rule.
    void DrawEdges(const VRect& rect, uint32_t uMask);

    void FillRect(const VRect& rect, HBRUSH hBrush);
    bool PatBlt(int x, int y, int w, int h, DWORD uRop)
    {
        return ::PatBlt(m_hDC, x, y, w, h, uRop);
    }
    bool BitBlt(int x, int y, int w, int h, const VDrawingSurface& source, int sx, int sy,
                DWORD uRop);
    bool StretchBlt(int x, int y, int w, int h, const VDrawingSurface& source, int sx, int sy,
                    int sw, int sh, DWORD uRop);
    int SetStretchBltMode(int nMode) { return ::SetStretchBltMode(m_hDC, nMode); }

    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    COLORREF SetBkColor(COLORREF cr) { return ::SetBkColor(m_hDC, cr); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    COLORREF SetTextColor(COLORREF cr) { return ::SetTextColor(m_hDC, cr); }
    int GetBkMode() const { return ::GetBkMode(m_hDC); }
    int SetBkMode(int nMode) { return ::SetBkMode(m_hDC, nMode); }
    int GetMapMode() const { return ::GetMapMode(m_hDC); }
    int SetMapMode(int nMode) { return ::SetMapMode(m_hDC, nMode); }
    int GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hDC, nIndex); }

    // One state at a time; it comes back with RestoreDC, and at the latest at the object's end.
    bool SaveDC();
    bool RestoreDC();

protected:
    // Frees an owned context in the way it was made; deletes it here.
    virtual void Free(HDC hDC);
    // To be called by the destructor of each class that overrides Free.
    void Release();

private:
    HDC m_hDC = nullptr;
    bool m_bOwned = false;
    int m_nSavedState = 0; // 0 when none is held
};

// The client area of a window.
class VClientSurface : public VDrawingSurface
{
public:
    explicit VClientSurface(HWND hWnd);
    ~VClientSurface() override { Release(); }

protected:
    void Free(HDC hDC) override;

private:
    HWND m_hWnd;
};

// What a window is asked to paint, until the object's end.
class VPaintSurface : public VDrawingSurface
{
public:
    explicit VPaintSurface(HWND hWnd);
    ~VPaintSurface() override { Release(); }

    const PAINTSTRUCT& GetRecord() const { return m_record; }

protected:
    void Free(HDC hDC) override;

private:
    HWND m_hWnd;
    PAINTSTRUCT m_record;
};

// A context in memory. A bitmap to draw on is to be selected into it.
class VMemorySurface : public VDrawingSurface
{
public:
    explicit VMemorySurface(const VDrawingSurface& like) { like.CreateCompatible(*this); }
};

// Draws into a bitmap of its own, which goes to the target at the object's end. Without memory for
// it the handle is null.
class VBufferedSurface : public VMemorySurface
{
public:
    VBufferedSurface(VDrawingSurface& target, int nWidth, int nHeight);
    ~VBufferedSurface() override;

private:
    VDrawingSurface& m_target;
    int m_nWidth;
    int m_nHeight;
    HBITMAP m_hBitmap = nullptr;
    HGDIOBJ m_hDisplaced = nullptr;
};
