// VScrollView: shows a bitmap, with bars to scroll it where it is larger than the window.
#pragma once

#include "printing/vscrollgeometry.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"
#include "toolkit/vwindow.h"

// Bits of a view's flags.
inline constexpr uint32_t V_VIEW_CENTRED = 1; // the picture stays in the middle of the client area

// Make it with WS_CHILD, WS_HSCROLL and WS_VSCROLL, of the toolkit's own class.
class VScrollView : public VWindow
{
public:
    VScrollView();
    ~VScrollView() override { Detach(); }

    // Takes the bitmap over; the one before is destroyed. What is on the screen changes with the
    // next paint: call Invalidate or Redraw.
    void SetBitmap(HBITMAP hBitmap);
    void Clear();

    // Has the window painted anew, soon or at once.
    void Invalidate();
    void Redraw();

    // Pixels of one step of the bars; 10 at first.
    void SetLineSteps(int nX, int nY);
    // What shows beside the picture; white at first.
    void SetBackground(COLORREF crBackground);
    // V_VIEW_ bits.
    void SetFlags(uint32_t uFlags) { m_uViewFlags.Set(uFlags); }

    // How far the picture is scrolled, in pixels; 0 along an axis without a bar.
    void GetScrollPositions(int& x, int& y) const;
    // What of the picture lies where in the view's canvas.
    const VRect& GetPictureRect() const { return m_rcPicture; }

    // Scroll as a user's Page Up, Page Down, Home, End and arrow keys do (VK_ codes) and as the
    // wheel does (a WM_MOUSEWHEEL's first word); false for any other key.
    bool ScrollByKey(WPARAM uKey);
    void ScrollByWheel(WPARAM wParam);

    bool OnClose(bool bForced) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    bool OnPaint(VDrawingSurface& surface) override;
    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;
    bool OnInitialize() override;

private:
    VSize ClientSize() const;
    VSize PictureSize() const;
    void UpdatePicture(const VDrawingSurface& surface);
    bool MakeCanvas(const VDrawingSurface& surface);
    void UpdateBars();
    void ShowBars(const VScrollBars& bars);
    void SetRange(int nBar, bool bShown, int nRange, int nClient);
    void Scroll(int nBar, VScrollRequest request, int nThumb = 0);
    void OnScroll(int nBar, UINT uRequest);
    int GetPosition(int nBar) const;

    VFlagSet m_uViewFlags;
    COLORREF m_crBackground = RGB(255, 255, 255);
    VBrush m_brushBackground;
    VRect m_rcPicture;
    bool m_bDirty = true; // the canvas is to be made anew
    VBitmap m_bmpPicture;
    VBitmap m_bmpCanvas; // the picture on its ground
    const VBitmap* m_pShown = nullptr;
    int m_nLineX = 10;
    int m_nLineY = 10;
    int m_nWheel = 0; // of a turn that is not yet a step
};
