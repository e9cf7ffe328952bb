// The surfaces to draw on. Each is a thin object around a device context of Windows.
//
// Coordinates are device pixels from the top left; colours are 0x00BBGGRR. No operation shows a
// message. An operation that can fail returns false or null.
#pragma once

#include <windows.h>

#include "base/vrect.h"

// The platform's headers give these names to macros of theirs.
#undef DrawText
#undef StartDoc
#undef ResetDC

class VDrawingSurface
{
public:
    VDrawingSurface() = default;
    VDrawingSurface(const VDrawingSurface&) = delete;
    VDrawingSurface& operator=(const VDrawingSurface&) = delete;
    // Restores a saved state and frees the context if it is owned.
    virtual ~VDrawingSurface();

    // Takes hDC. The context held so far gets its saved state back and is freed if it is owned.
    HDC Attach(HDC hDC, bool bOwned);
    HDC GetHandle() const { return m_hDC; }

    // Gives target a memory context compatible with this surface; target owns it. Returns false
    // when it cannot be made.
    bool CreateCompatible(VDrawingSurface& target) const;

    SIZE TextExtent(const char* szText, int nLength) const;
    int DrawText(const char* szText, VRect& rect, UINT uFlags, int nLength = -1);
    void MoveTo(int x, int y) { MoveToEx(m_hDC, x, y, nullptr); }
    // Draws up to the end point, which is not drawn.
    void LineTo(int x, int y) { ::LineTo(m_hDC, x, y); }

    // Draws sides of a rectangle, by these bits: 1 the left one, from the bottom up to one pixel
    // below the top; 2 the top; 4 the right one, one pixel inside; 8 the bottom, on the edge
    // itself. With height 0 and all four bits it is a single line.
    void DrawEdges(const VRect& rect, uint32_t uMask);

    void FillRect(const VRect& rect, HBRUSH hBrush);
    bool PatBlt(int x, int y, int w, int h, DWORD uRop)
    {
        return ::PatBlt(m_hDC, x, y, w, h, uRop);
    }
    bool BitBlt(int x, int y, int w, int h, const VDrawingSurface& source, int sx, int sy,
                DWORD uRop);
    virtual bool StretchBlt(int x, int y, int w, int h, const VDrawingSurface& source, int sx,
                            int sy, int sw, int sh, DWORD uRop);
    // The mode from before; 0 on failure.
    virtual int SetStretchBltMode(int nMode) { return ::SetStretchBltMode(m_hDC, nMode); }

    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    COLORREF SetBkColor(COLORREF cr) { return ::SetBkColor(m_hDC, cr); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    COLORREF SetTextColor(COLORREF cr) { return ::SetTextColor(m_hDC, cr); }
    int GetBkMode() const { return ::GetBkMode(m_hDC); }
    int SetBkMode(int nMode) { return ::SetBkMode(m_hDC, nMode); }
    int GetMapMode() const { return ::GetMapMode(m_hDC); }
    int SetMapMode(int nMode) { return ::SetMapMode(m_hDC, nMode); }
    virtual int GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hDC, nIndex); }

    // ---- Documents, on a printer's surface. A result of 0 or less is a failure.

    virtual int StartDoc(const DOCINFOA& document) { return ::StartDocA(m_hDC, &document); }
    virtual int StartPage() { return ::StartPage(m_hDC); }
    virtual int EndPage() { return ::EndPage(m_hDC); }
    virtual int EndDoc() { return ::EndDoc(m_hDC); }
    virtual int AbortDoc() { return ::AbortDoc(m_hDC); }
    virtual int SetAbortProc(ABORTPROC pProcedure) { return ::SetAbortProc(m_hDC, pProcedure); }
    // Gives the surface the paper and the resolution of a device mode.
    virtual bool ResetDC(const DEVMODEA& mode) { return ::ResetDCA(m_hDC, &mode) != nullptr; }

    // Saves and restores the state of the context, one at a time. A saved state is restored at the
    // end of the object at the latest.
    bool SaveDC();
    bool RestoreDC();

protected:
    // Frees a context in the way in which it was made. Here that is DeleteDC.
    virtual void Free(HDC hDC);
    // The destructor of each class that overrides Free must call it.
    void Release();

private:
    HDC m_hDC = nullptr;
    bool m_bOwned = false;
    int m_nSavedState = 0; // 0 when no state is saved
};

// The client area of a window, by GetDC. It is freed by ReleaseDC.
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

// The part of a window that must be painted, by BeginPaint. EndPaint follows at the end of the
// object.
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

// A memory context. The user selects a bitmap into it to draw on.
class VMemorySurface : public VDrawingSurface
{
public:
    explicit VMemorySurface(const VDrawingSurface& like) { like.CreateCompatible(*this); }
};

// Draws into a bitmap of its own and copies that to the target at the end of the object. The handle
// is null when there is no memory for the bitmap.
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
