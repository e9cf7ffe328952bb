#include "toolkit/vsplashwindow.h"

#include "toolkit/vapplication.h"
#include "toolkit/vdrawingsurface.h"

namespace {

constexpr char szClassName[] = "VSplashWindow";

} // namespace

VSplashWindow::VSplashWindow() : VWindow(V_KIND_SPLASH)
{
    GetFlags().Set(V_FLAG_PAINTS);
}

bool VSplashWindow::ShowBitmap(UINT uId)
{
    if (!m_bitmap.Load(uId)) {
        return false;
    }
    const int x = (GetSystemMetrics(SM_CXSCREEN) - m_bitmap.GetWidth()) / 2;
    const int y = (GetSystemMetrics(SM_CYSCREEN) - m_bitmap.GetHeight()) / 2;
    const VRect rect = {x, y, x + m_bitmap.GetWidth(), y + m_bitmap.GetHeight()};
    // The window has a class of its own. A second start of the program finds the frame by its
    // class, and must not find this window.
    if (!VApplication::RegisterCopy(szClassName) ||
        !Create(nullptr, rect, WS_POPUP, szClassName, "", 0, WS_EX_TOPMOST | WS_EX_TOOLWINDOW)) {
        return false;
    }
    Show(SW_SHOWNOACTIVATE);
    Update();
    return true;
}

LRESULT VSplashWindow::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_ERASEBKGND) {
        return 1;
    }
    if (uMessage == WM_LBUTTONUP) {
        Post(WM_CLOSE);
        return 0;
    }
    return VWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
}

bool VSplashWindow::OnPaint(VDrawingSurface& surface)
{
    VMemorySurface picture(surface);
    const VSelectScope scope(picture, m_bitmap.GetHandle());
    return surface.BitBlt(0, 0, m_bitmap.GetWidth(), m_bitmap.GetHeight(), picture, 0, 0, SRCCOPY);
}
