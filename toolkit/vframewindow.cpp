#include "toolkit/vframewindow.h"

#include <cstring>

#include "toolkit/vmessages.h"

bool VFrameWindow::CreateFrame(HMENU hMenu, const char* szTitle, const VRect& rect, DWORD uStyle,
                               UINT uRebarId, UINT uStatusBarId)
{
    GetFlags().Set(V_FLAG_INITIALIZE_LATER);
    m_hMenu = hMenu;
    const bool bMade = Create(nullptr, rect, uStyle, nullptr, szTitle, 0);
    m_hMenu = nullptr;
    if (!bMade) {
        return false;
    }
    MakeBars(uRebarId, uStatusBarId);
    if (OnInitialize()) {
        return true;
    }
    DestroyWindow(GetHandle());
    return false;
}

bool VFrameWindow::OnPreCreate(CREATESTRUCTA& create)
{
    create.hMenu = m_hMenu;
    return true;
}

void VFrameWindow::MakeBars(UINT uRebarId, UINT uStatusBarId)
{
    constexpr DWORD uBarStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    m_pRebar = CreateRebar();
    if (m_pRebar != nullptr && !m_pRebar->Create(GetHandle(), {},
                                                 uBarStyle | WS_BORDER | RBS_BANDBORDERS |
                                                     RBS_VARHEIGHT | RBS_TOOLTIPS | CCS_NODIVIDER,
                                                 REBARCLASSNAMEA, "", uRebarId)) {
        m_pRebar.reset();
    }
    m_pStatusBar = CreateStatusBar();
    if (m_pStatusBar != nullptr &&
        !m_pStatusBar->Create(GetHandle(), {}, uBarStyle | SBARS_SIZEGRIP, STATUSCLASSNAMEA, "",
                              uStatusBarId)) {
        m_pStatusBar.reset();
    }
    SetStatusText("", 0);
}

std::unique_ptr<VReBar> VFrameWindow::CreateRebar()
{
    return std::make_unique<VReBar>();
}

std::unique_ptr<VStatusBar> VFrameWindow::CreateStatusBar()
{
    return std::make_unique<VStatusBar>();
}

std::unique_ptr<VToolbar> VFrameWindow::CreateToolbar()
{
    return std::make_unique<VToolbar>();
}

// ---- Bars.

VWindow* VFrameWindow::FindBar(UINT uId) const
{
    if (m_pRebar != nullptr && m_pRebar->GetId() == uId) {
        return m_pRebar.get();
    }
    if (m_pStatusBar != nullptr && m_pStatusBar->GetId() == uId) {
        return m_pStatusBar.get();
    }
    return nullptr;
}

bool VFrameWindow::IsBarVisible(UINT uId) const
{
    if (const VWindow* pBar = FindBar(uId)) {
        return (pBar->GetLong(GWL_STYLE) & WS_VISIBLE) != 0;
    }
    return m_pRebar != nullptr && m_pRebar->IsBandVisible(uId);
}

void VFrameWindow::ShowBar(UINT uId, bool bShow)
{
    if (IsBarVisible(uId) == bShow) {
        return;
    }
    if (VWindow* pBar = FindBar(uId)) {
        pBar->Show(bShow ? SW_SHOW : SW_HIDE);
    } else if (m_pRebar == nullptr || !m_pRebar->ShowBand(uId, bShow)) {
        return;
    }
    if (IsVisible()) {
        RefitClient();
    }
}

bool VFrameWindow::ToggleBar(UINT uId)
{
    ShowBar(uId, !IsBarVisible(uId));
    return IsBarVisible(uId);
}

bool VFrameWindow::ToggleBand(UINT uId)
{
    if (m_pRebar == nullptr) {
        return false;
    }
    const UINT uRebar = m_pRebar->GetId();
    const bool bShow = !m_pRebar->IsBandShown(uId);
    if (bShow && !IsBarVisible(uRebar)) {
        m_pRebar->Show(SW_SHOW);
    }
    m_pRebar->ShowBand(uId, bShow);
    RefitClient();
    // A rebar without visible bars is hidden, so that it takes no room.
    bool bAnyShown = false;
    for (HWND hBar = GetWindow(m_pRebar->GetHandle(), GW_CHILD); hBar != nullptr;
         hBar = GetWindow(hBar, GW_HWNDNEXT)) {
        bAnyShown = bAnyShown || m_pRebar->IsBandShown(static_cast<UINT>(GetDlgCtrlID(hBar)));
    }
    if (!bAnyShown && IsBarVisible(uRebar)) {
        ToggleBar(uRebar);
    }
    return m_pRebar->IsBandVisible(uId);
}

void VFrameWindow::SetStatusText(const char* szText, int nPane)
{
    if (m_pStatusBar != nullptr) {
        m_pStatusBar->SetPaneText(szText, nPane);
    }
}

void VFrameWindow::UsableArea(VRect& rect) const
{
    rect = GetClientRect();
    if (m_pRebar != nullptr && IsBarVisible(m_pRebar->GetId())) {
        rect.top += m_pRebar->GetWindowRect().GetHeight();
    }
    if (m_pStatusBar != nullptr && IsBarVisible(m_pStatusBar->GetId())) {
        // The bottom line of the client area is under the top line of the bar.
        rect.bottom -= m_pStatusBar->GetWindowRect().GetHeight() - 1;
    }
}

void VFrameWindow::LayOutBars()
{
    const VRect area = GetClientRect();
    if (m_pRebar != nullptr) {
        m_pRebar->Move({0, 0, area.right, 0});
    }
    if (m_pStatusBar != nullptr) {
        m_pStatusBar->Move({0, area.bottom, area.right, area.bottom});
    }
}

void VFrameWindow::RefitClient()
{
    Invalidate(true);
    ResizeClient();
    UpdateCommands();
}

LRESULT VFrameWindow::OnSize(UINT /*uType*/, int /*nWidth*/, int /*nHeight*/)
{
    LayOutBars();
    ResizeClient();
    return 0;
}

LRESULT VFrameWindow::OnNotify(UINT /*uId*/, NMHDR* pHeader)
{
    if (m_pRebar == nullptr || pHeader->hwndFrom != m_pRebar->GetHandle()) {
        return V_NOT_HANDLED;
    }
    if (pHeader->code == RBN_CHILDSIZE || pHeader->code == RBN_HEIGHTCHANGE) {
        ResizeClient();
    }
    return V_NOT_HANDLED;
}

// ---- Commands and prompts.

void VFrameWindow::OnUpdateCommand(HMENU /*hMenu*/, UINT /*uId*/, bool& /*bEnabled*/,
                                   bool& /*bChecked*/)
{}

void VFrameWindow::UpdateCommands()
{
    if (HMENU hMenu = GetMenu(GetHandle())) {
        UpdateMenu(hMenu);
    }
}

void VFrameWindow::UpdateMenu(HMENU hMenu)
{
    for (int nItem = 0; nItem < GetMenuItemCount(hMenu); ++nItem) {
        if (HMENU hSubMenu = GetSubMenu(hMenu, nItem)) {
            UpdateMenu(hSubMenu);
            continue;
        }
        const UINT uId = GetMenuItemID(hMenu, nItem);
        // Separators have the id 0. Ids from SC_SIZE on are the SC_ commands that Windows puts into
        // the menu bar for a maximized document.
        if (uId == 0 || uId >= SC_SIZE) {
            continue;
        }
        bool bEnabled = true;
        bool bChecked = false;
        OnUpdateCommand(hMenu, uId, bEnabled, bChecked);
        VMenu menu;
        menu.Attach(hMenu);
        menu.SetToolbar(m_hMirroredToolbar);
        menu.EnableItem(uId, bEnabled);
        menu.CheckItem(uId, bChecked);
    }
}

void VFrameWindow::ShowPrompt(HMENU hMenu, UINT uItem, UINT uFlags)
{
    VString sPrompt;
    const bool bClosing = hMenu == nullptr;
    if (!bClosing && (uFlags & (MF_POPUP | MF_SEPARATOR)) == 0) {
        if ((uFlags & MF_SYSMENU) != 0) {
            char szText[256] = "";
            GetMenuStringA(hMenu, uItem, szText, sizeof szText, MF_BYCOMMAND);
            if (char* pMark = strchr(szText, '&')) {
                memmove(pMark, pMark + 1, strlen(pMark));
            }
            sPrompt = szText;
        } else {
            sPrompt = GetCommandText(uItem).sPrompt;
        }
        const int32_t lTab = sPrompt.Find('\t');
        if (lTab >= 0) {
            sPrompt = sPrompt.Left(static_cast<uint32_t>(lTab));
        }
    }
    SetStatusText(sPrompt.GetText(), 0);
}

LRESULT VFrameWindow::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_MENUSELECT) {
        ShowPrompt(reinterpret_cast<HMENU>(lParam), LOWORD(wParam), HIWORD(wParam));
    }
    return VWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
}
