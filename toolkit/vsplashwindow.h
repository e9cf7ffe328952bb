// VSplashWindow: a picture that is shown on top of everything while the program starts. A click
// closes it.
#pragma once

#include "toolkit/vgdiobjects.h"
#include "toolkit/vwindow.h"

class VSplashWindow : public VWindow
{
public:
    VSplashWindow();

    // Shows the bitmap of that id in the middle of the screen. Returns false when the window or the
    // bitmap cannot be made.
    bool ShowBitmap(UINT uId);

    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    bool OnPaint(VDrawingSurface& surface) override;

private:
    VBitmap m_bitmap;
};
