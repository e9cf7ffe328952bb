#include "printing/vscrollview.h"

#include <windowsx.h>

#include <algorithm>
#include <array>
#include <optional>

#include "toolkit/vrect_win.h"

namespace {

// Kept: one memory for all views of the program. While two views stand side by side, either may
// decide on its bars anew without need; it costs little, and the bars come out the same.
struct LastSizes
{
    VSize sizeWindow;
    VSize sizePicture;

    bool operator==(const LastSizes&) const = default;
};

std::optional<LastSizes> g_last;

struct ScrollKey
{
    WPARAM uKey;
    int nBar;
    VScrollRequest request;
};

constexpr ScrollKey aKeys[] = {
    {VK_PRIOR, SB_VERT, VScrollRequest::PageBack}, {VK_NEXT, SB_VERT, VScrollRequest::PageForward},
    {VK_HOME, SB_VERT, VScrollRequest::Begin},     {VK_END, SB_VERT, VScrollRequest::End},
    {VK_UP, SB_VERT, VScrollRequest::LineBack},    {VK_DOWN, SB_VERT, VScrollRequest::LineForward},
    {VK_LEFT, SB_HORZ, VScrollRequest::LineBack},  {VK_RIGHT, SB_HORZ, VScrollRequest::LineForward},
};

// By the codes of the bars' messages, SB_LINEUP to SB_BOTTOM.
constexpr std::array<VScrollRequest, 8> aRequests = {
    VScrollRequest::LineBack,    VScrollRequest::LineForward, VScrollRequest::PageBack,
    VScrollRequest::PageForward, VScrollRequest::Thumb,       VScrollRequest::Thumb,
    VScrollRequest::Begin,       VScrollRequest::End,
};

} // namespace

VScrollView::VScrollView() : m_brushBackground(m_crBackground)
{
    GetFlags().Set(V_FLAG_PAINTS);
}

bool VScrollView::OnInitialize()
{
    // For a view that was just made, no decision about its bars has been made yet.
    g_last.reset();
    EnableScrollBar(GetHandle(), SB_BOTH, ESB_ENABLE_BOTH);
    return VWindow::OnInitialize();
}

bool VScrollView::OnClose(bool bForced)
{
    m_pShown = nullptr;
    m_bmpCanvas.Attach(nullptr);
    m_bmpPicture.Attach(nullptr);
    return VWindow::OnClose(bForced);
}

void VScrollView::SetBitmap(HBITMAP hBitmap)
{
    m_bmpPicture.Attach(hBitmap);
    m_rcPicture = {0, 0, m_bmpPicture.GetWidth(), m_bmpPicture.GetHeight()};
    m_pShown = nullptr;
    m_bDirty = true;
}

void VScrollView::Clear()
{
    SetBitmap(nullptr);
}

void VScrollView::Invalidate()
{
    m_bDirty = true;
    VWindow::Invalidate(false);
}

void VScrollView::Redraw()
{
    Invalidate();
    Update();
}

void VScrollView::SetLineSteps(int nX, int nY)
{
    m_nLineX = nX;
    m_nLineY = nY;
}

void VScrollView::SetBackground(COLORREF crBackground)
{
    m_crBackground = crBackground;
    m_brushBackground.Create(crBackground);
    m_bDirty = true;
}

VSize VScrollView::ClientSize() const
{
    const VRect client = GetClientRect();
    return {client.right, client.bottom};
}

VSize VScrollView::PictureSize() const
{
    return {m_bmpPicture.GetWidth(), m_bmpPicture.GetHeight()};
}

// ---- Painting.

bool VScrollView::OnPaint(VDrawingSurface& surface)
{
    if (m_bDirty) {
        UpdatePicture(surface);
    }
    RECT area = {};
    GetClipBox(surface.GetHandle(), &area);
    if (m_pShown == nullptr) {
        surface.FillRect(VFromRect(area), m_brushBackground.GetHandle());
        return true;
    }
    int nX = 0;
    int nY = 0;
    GetScrollPositions(nX, nY);
    VMemorySurface memory(surface);
    const VSelectScope scope(memory, m_pShown->GetHandle());
    surface.BitBlt(area.left, area.top, m_pShown->GetWidth() - area.left - nX,
                   m_pShown->GetHeight() - area.top - nY, memory, area.left + nX, area.top + nY,
                   SRCCOPY);
    return true;
}

void VScrollView::UpdatePicture(const VDrawingSurface& surface)
{
    UpdateBars();
    const bool bCentred = m_uViewFlags.Test(V_VIEW_CENTRED);
    m_rcPicture = VPlacePicture(PictureSize(), ClientSize(), bCentred);
    m_bmpCanvas.Attach(nullptr);
    m_pShown = &m_bmpPicture;
    if (!VCoversClient(m_rcPicture, ClientSize())) {
        m_pShown = MakeCanvas(surface) ? &m_bmpCanvas : nullptr;
    }
    m_bDirty = false;
}

bool VScrollView::MakeCanvas(const VDrawingSurface& surface)
{
    const VSize size = VCanvasSize(m_rcPicture, ClientSize());
    VMemorySurface canvas(surface);
    VMemorySurface picture(surface);
    if (canvas.GetHandle() == nullptr || picture.GetHandle() == nullptr ||
        !m_bmpCanvas.Attach(CreateCompatibleBitmap(surface.GetHandle(), size.cx, size.cy))) {
        return false;
    }
    const VSelectScope canvasScope(canvas, m_bmpCanvas.GetHandle());
    const VSelectScope pictureScope(picture, m_bmpPicture.GetHandle());
    canvas.FillRect({0, 0, size.cx, size.cy}, m_brushBackground.GetHandle());
    return m_rcPicture.IsEmpty() ||
           canvas.BitBlt(m_rcPicture.left, m_rcPicture.top, m_rcPicture.GetWidth(),
                         m_rcPicture.GetHeight(), picture, 0, 0, SRCCOPY);
}

LRESULT VScrollView::OnSize(UINT uType, int nWidth, int nHeight)
{
    Invalidate();
    return VWindow::OnSize(uType, nWidth, nHeight);
}

// ---- The bars.

void VScrollView::UpdateBars()
{
    const VRect window = GetWindowRect();
    const LastSizes now = {{window.GetWidth(), window.GetHeight()}, PictureSize()};
    if (g_last == now) {
        return;
    }
    g_last = now;
    VScrollBars bars = VNeededScrollBars(now.sizeWindow, now.sizePicture);
    ShowBars(bars);
    const VScrollBars more = VMoreScrollBars(bars, ClientSize(), now.sizePicture);
    if (more != bars) {
        bars = more;
        ShowBars(bars);
    }
    const VSize client = ClientSize();
    SetRange(SB_HORZ, bars.bHorizontal, now.sizePicture.cx, client.cx);
    SetRange(SB_VERT, bars.bVertical, now.sizePicture.cy, client.cy);
}

void VScrollView::ShowBars(const VScrollBars& bars)
{
    ShowScrollBar(GetHandle(), SB_HORZ, bars.bHorizontal);
    ShowScrollBar(GetHandle(), SB_VERT, bars.bVertical);
}

void VScrollView::SetRange(int nBar, bool bShown, int nRange, int nClient)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    if (bShown) {
        info.nMax = nRange;
        info.nPage = static_cast<UINT>(nClient);
    } else {
        info.fMask |= SIF_POS;
    }
    SetScrollInfo(GetHandle(), nBar, &info, TRUE);
}

int VScrollView::GetPosition(int nBar) const
{
    return GetScrollPos(GetHandle(), nBar);
}

void VScrollView::GetScrollPositions(int& x, int& y) const
{
    x = GetPosition(SB_HORZ);
    y = GetPosition(SB_VERT);
}

void VScrollView::Scroll(int nBar, VScrollRequest request, int nThumb)
{
    const bool bHorizontal = nBar == SB_HORZ;
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_POS;
    GetScrollInfo(GetHandle(), nBar, &info);
    const VSize client = ClientSize();
    const VScrollAxis axis = {info.nPos, info.nMax, bHorizontal ? client.cx : client.cy,
                              bHorizontal ? m_nLineX : m_nLineY};
    const int nNew = VScrollTo(axis, request, nThumb);
    const int nChange = nNew - info.nPos;
    if (nChange == 0) {
        return;
    }
    SetScrollPos(GetHandle(), nBar, nNew, TRUE);
    ScrollWindow(GetHandle(), bHorizontal ? -nChange : 0, bHorizontal ? 0 : -nChange, nullptr,
                 nullptr);
    Update();
}

void VScrollView::OnScroll(int nBar, UINT uRequest)
{
    if (uRequest >= aRequests.size()) {
        return;
    }
    // The message itself has room for 16 bits of the thumb's place.
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    GetScrollInfo(GetHandle(), nBar, &info);
    Scroll(nBar, aRequests[uRequest], info.nTrackPos);
}

bool VScrollView::ScrollByKey(WPARAM uKey)
{
    const auto* const pKey = std::ranges::find(aKeys, uKey, &ScrollKey::uKey);
    const bool bFound = pKey != std::end(aKeys);
    if (bFound) {
        Scroll(pKey->nBar, pKey->request);
    }
    return bFound;
}

void VScrollView::ScrollByWheel(WPARAM wParam)
{
    UINT uLines = 3;
    SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &uLines, 0);
    m_nWheel += GET_WHEEL_DELTA_WPARAM(wParam);
    const int nNotches = m_nWheel / WHEEL_DELTA;
    m_nWheel -= nNotches * WHEEL_DELTA;
    const bool bPages = uLines == WHEEL_PAGESCROLL;
    const int nSteps =
        (nNotches < 0 ? -nNotches : nNotches) * (bPages ? 1 : static_cast<int>(uLines));
    for (int i = 0; i < nSteps; ++i) {
        if (bPages) {
            Scroll(SB_VERT, nNotches < 0 ? VScrollRequest::PageForward : VScrollRequest::PageBack);
        } else {
            Scroll(SB_VERT, nNotches < 0 ? VScrollRequest::LineForward : VScrollRequest::LineBack);
        }
    }
}

LRESULT VScrollView::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    switch (uMessage) {
        case WM_ERASEBKGND:
            return 1; // the paint covers all
        case WM_PRINTCLIENT: {
            VDrawingSurface surface;
            surface.Attach(reinterpret_cast<HDC>(wParam), false);
            OnPaint(surface);
            return 0;
        }
        case WM_HSCROLL:
            OnScroll(SB_HORZ, LOWORD(wParam));
            return 0;
        case WM_VSCROLL:
            OnScroll(SB_VERT, LOWORD(wParam));
            return 0;
        case WM_MOUSEWHEEL:
            ScrollByWheel(wParam);
            return 0;
        case WM_KEYDOWN:
            if (ScrollByKey(wParam)) {
                return 0;
            }
            break;
        default:
            break;
    }
    return VWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
}
