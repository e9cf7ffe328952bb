#include "toolkit/vrebar.h"

bool VReBar::OnPreCreate(CREATESTRUCTA& create)
{
    create.dwExStyle |= WS_EX_TOOLWINDOW;
    return true;
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
