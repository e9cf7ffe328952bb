#include "toolkit/vrebar.h"

bool VReBar::OnPreCreate(CREATESTRUCTA& create)
{
    create.dwExStyle |= WS_EX_TOOLWINDOW;
    return true;
}

LRESULT VReBar::OnReflectNotify(NMHDR* pHeader, LRESULT& lResult)
{
    switch (pHeader->code) {
        case RBN_HEIGHTCHANGE:
            InvalidateRect(GetParent(), nullptr, FALSE);
            return V_NOT_HANDLED;
        case RBN_GETOBJECT:
            return OnGetObject(pHeader, lResult);
        case RBN_LAYOUTCHANGED:
            return OnLayoutChanged(pHeader, lResult);
        case RBN_AUTOSIZE:
            return OnAutoSize(pHeader, lResult);
        case RBN_BEGINDRAG:
            return OnBeginDrag(pHeader, lResult);
        case RBN_ENDDRAG:
            return OnEndDrag(pHeader, lResult);
        case RBN_DELETINGBAND:
            return OnDeletingBand(pHeader, lResult);
        case RBN_DELETEDBAND:
            return OnDeletedBand(pHeader, lResult);
        case RBN_CHILDSIZE:
            return OnChildSize(pHeader, lResult);
        default:
            return VControl::OnReflectNotify(pHeader, lResult);
    }
}

LRESULT VReBar::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    const LRESULT lResult = VControl::DefaultProc(hWnd, uMessage, wParam, lParam);
    for (HWND hBar = uMessage == WM_PAINT ? GetWindow(hWnd, GW_CHILD) : nullptr; hBar != nullptr;
         hBar = GetWindow(hBar, GW_HWNDNEXT)) {
        // The rebar paints its bands under their bars, so the bars are painted again.
        InvalidateRect(hBar, nullptr, FALSE);
    }
    return lResult;
}

bool VReBar::AddBand(VWindow& bar, const char* szLabel, int nWidth, int nHeight)
{
    REBARBANDINFOA band = {};
    band.cbSize = REBARBANDINFOA_V6_SIZE;
    band.fMask = RBBIM_STYLE | RBBIM_CHILD | RBBIM_CHILDSIZE | RBBIM_SIZE | RBBIM_ID;
    band.fStyle = RBBS_CHILDEDGE | RBBS_NOVERT | RBBS_GRIPPERALWAYS;
    band.hwndChild = bar.GetHandle();
    band.cxMinChild = static_cast<UINT>(nWidth);
    band.cyMinChild = static_cast<UINT>(nHeight);
    band.cx = static_cast<UINT>(nWidth);
    band.wID = bar.GetId();
    if (szLabel != nullptr) {
        band.fMask |= RBBIM_TEXT;
        band.lpText = const_cast<char*>(szLabel);
    }
    return Send(RB_INSERTBANDA, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&band)) != 0;
}

bool VReBar::IsBandShown(UINT uId) const
{
    HWND hChild = BandChild(uId);
    return hChild != nullptr && (GetWindowLongPtrA(hChild, GWL_STYLE) & WS_VISIBLE) != 0;
}

bool VReBar::IsBandVisible(UINT uId) const
{
    HWND hChild = BandChild(uId);
    return hChild != nullptr && IsWindowVisible(hChild);
}

bool VReBar::ShowBand(UINT uId, bool bShow)
{
    const int nIndex = BandIndex(uId);
    return nIndex >= 0 && Send(RB_SHOWBAND, static_cast<WPARAM>(nIndex), bShow) != 0;
}

HWND VReBar::BandChild(UINT uId) const
{
    if (HWND hDirect = GetItem(static_cast<int>(uId))) {
        return hDirect;
    }
    const int nIndex = BandIndex(uId);
    REBARBANDINFOA band = {};
    band.cbSize = REBARBANDINFOA_V6_SIZE;
    band.fMask = RBBIM_CHILD;
    const bool bFound = nIndex >= 0 && Send(RB_GETBANDINFOA, static_cast<WPARAM>(nIndex),
                                            reinterpret_cast<LPARAM>(&band)) != 0;
    return bFound ? band.hwndChild : nullptr;
}
