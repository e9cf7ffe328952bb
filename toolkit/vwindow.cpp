#include "toolkit/vwindow.h"

#include <new>

#include "base/vtext.h"
#include "toolkit/vapplication.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vrect_win.h"
#include "toolkit/vwindowkind.h"
#include "toolkit/vwindowlist.h"

namespace {

VWindow* g_pMainWindow = nullptr;

BOOL CALLBACK EnableChild(HWND hChild, LPARAM lEnable)
{
    EnableWindow(hChild, lEnable != 0);
    return TRUE;
}

BOOL CALLBACK ShowChild(HWND hChild, LPARAM lShow)
{
    ShowWindow(hChild, lShow != 0 ? SW_SHOW : SW_HIDE);
    return TRUE;
}

struct ChildSearch
{
    const char* szClass;
    HWND hFound;
};

BOOL CALLBACK FindChild(HWND hChild, LPARAM lSearch)
{
    auto* pSearch = reinterpret_cast<ChildSearch*>(lSearch);
    char szClass[256];
    GetClassNameA(hChild, szClass, sizeof szClass);
    if (VCompareNoCase(szClass, pSearch->szClass) != 0) {
        return TRUE;
    }
    const bool bButton = VCompareNoCase(szClass, "BUTTON") == 0;
    if (bButton && (GetWindowLongPtrA(hChild, GWL_STYLE) & 7) == 0) {
        return TRUE;
    }
    pSearch->hFound = hChild;
    return FALSE;
}

} // namespace

VWindow::VWindow(int32_t lKind) : m_lKind(lKind)
{
    VWindowList::Get().Add(this);
}

VWindow::~VWindow()
{
    Detach();
}

void VWindow::Detach()
{
    const bool bClose = IsAttached() && IsValid();
    // Closing must not delete the object: its owner is still using it.
    m_flags.Clear(V_FLAG_DELETE_SELF);
    ForgetFilters();
    if (bClose) {
        OnClose(true);
    }
    if (IsValid()) {
        // An override of OnClose kept the window. It gets its former procedure back.
        RestoreProcedure(m_hWnd);
    }
    m_hWnd = nullptr;
    m_uId = 0;
    if (g_pMainWindow == this) {
        g_pMainWindow = nullptr;
    }
    VWindowList::Get().Remove(this);
    EndDispatch();
}

void VWindow::EnsureLive()
{
    if (!IsLive(this)) {
        VWindowList::Get().Add(this);
    }
}

bool VWindow::Create(HWND hParent, const VRect& rect, DWORD uStyle, const char* szClass,
                     const char* szTitle, UINT uId, DWORD uExStyle)
{
    EnsureLive();
    CREATESTRUCTA create = {};
    create.style = static_cast<LONG>(uStyle);
    create.dwExStyle = uExStyle;
    create.hMenu = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(uId));
    create.hwndParent = hParent;
    create.lpszName = szTitle;
    create.lpszClass = szClass == nullptr ? VApplication::GetClassName() : szClass;
    create.hInstance = GetApplication().GetInstance();
    if (!rect.IsEmpty()) {
        create.x = rect.left;
        create.y = rect.top;
        create.cx = rect.GetWidth();
        create.cy = rect.GetHeight();
    } else if ((uStyle & WS_CHILD) == 0 || (uExStyle & WS_EX_MDICHILD) != 0) {
        create.x = create.y = create.cx = create.cy = CW_USEDEFAULT;
    }
    if (!OnPreCreate(create)) {
        return false;
    }
    HWND hWnd = CreateWindowExA(create.dwExStyle, create.lpszClass, create.lpszName,
                                static_cast<DWORD>(create.style), create.x, create.y, create.cx,
                                create.cy, create.hwndParent, create.hMenu, create.hInstance, this);
    if (hWnd == nullptr) {
        // An object with V_FLAG_DELETE_SELF may have been deleted with its half-made window.
        return false;
    }
    m_hWnd = hWnd;
    m_uId = uId;
    // A window of a class that is not the toolkit's is not bound yet: its procedure does not know
    // this object.
    if (IsAttached() || Attach(hWnd)) {
        return true;
    }
    m_hWnd = nullptr;
    DestroyWindow(hWnd);
    return false;
}

bool VWindow::Attach(HWND hWnd, bool bRunInitialize)
{
    EnsureLive();
    if (m_hWnd != hWnd || !IsAttached()) {
        m_hWnd = hWnd;
        bRunInitialize = true;
        if (!IsAttached()) {
            Subclass(hWnd);
        }
    }
    if (bRunInitialize && !m_flags.Test(V_FLAG_INITIALIZE_LATER) && !OnInitialize()) {
        RestoreProcedure(hWnd);
        return false;
    }
    return true;
}

int VWindow::ProcedureSlot() const
{
    return IsDialogKind() ? static_cast<int>(DWLP_DLGPROC) : GWLP_WNDPROC;
}

void VWindow::Subclass(HWND hWnd)
{
    const LONG_PTR lOld =
        SetWindowLongPtrA(hWnd, ProcedureSlot(), reinterpret_cast<LONG_PTR>(&WindowProc));
    m_pOldProcedure = reinterpret_cast<WNDPROC>(lOld);
}

void VWindow::RestoreProcedure(HWND hWnd)
{
    if (m_pOldProcedure != nullptr) {
        SetWindowLongPtrA(hWnd, ProcedureSlot(), reinterpret_cast<LONG_PTR>(m_pOldProcedure));
        m_pOldProcedure = nullptr;
    }
}

bool VWindow::IsAttached() const
{
    if (m_pOldProcedure != nullptr) {
        return true;
    }
    const LONG_PTR lProcedure = m_hWnd == nullptr ? 0 : GetWindowLongPtrA(m_hWnd, ProcedureSlot());
    return lProcedure == reinterpret_cast<LONG_PTR>(&WindowProc);
}

VWindow* VWindow::FromHandle(HWND hWnd)
{
    return VWindowList::Get().Find(hWnd);
}

VWindow* VWindow::GetMainWindow()
{
    return g_pMainWindow;
}

void VWindow::SetMainWindow(VWindow* pWindow)
{
    g_pMainWindow = pWindow;
}

bool VWindow::IsLive(const VWindow* pWindow)
{
    return VWindowList::Get().Contains(pWindow);
}

void VWindow::AddFilter(VMessageFilter& filter)
{
    // A filter has one link: in two places it would make a ring of the list, or cut off another's.
    if (filter.m_pFiltered != nullptr) {
        filter.m_pFiltered->RemoveFilter(filter);
    }
    filter.m_pFiltered = this;
    filter.m_pNextFilter = nullptr;
    VMessageFilter** ppLink = &m_pFilters;
    while (*ppLink != nullptr) {
        ppLink = &(*ppLink)->m_pNextFilter;
    }
    *ppLink = &filter;
}

void VWindow::RemoveFilter(VMessageFilter& filter)
{
    for (VMessageFilter** ppLink = &m_pFilters; *ppLink != nullptr;
         ppLink = &(*ppLink)->m_pNextFilter) {
        if (*ppLink == &filter) {
            PassOver(filter);
            *ppLink = filter.m_pNextFilter;
            filter.m_pFiltered = nullptr;
            return;
        }
    }
}

void VWindow::ForgetFilters()
{
    for (VMessageFilter* p = m_pFilters; p != nullptr; p = p->m_pNextFilter) {
        p->m_pFiltered = nullptr;
    }
    m_pFilters = nullptr;
}

VMessageFilter::~VMessageFilter()
{
    if (m_pFiltered != nullptr) {
        m_pFiltered->RemoveFilter(*this);
    }
}

// ---- The defaults of the virtual operations.

bool VWindow::OnClose(bool /*bForced*/)
{
    if (IsAttached()) {
        DestroyWindow(m_hWnd);
    }
    return true;
}

void VWindow::ClientArea(VRect& rect) const
{
    rect = VRect();
    const LONG_PTR lStyle = GetLong(GWL_STYLE);
    if ((lStyle & WS_CAPTION) != WS_CAPTION) {
        return;
    }
    const bool bSizes = (lStyle & WS_THICKFRAME) != 0;
    const int nFrameX = GetSystemMetrics(bSizes ? SM_CXSIZEFRAME : SM_CXFIXEDFRAME);
    const int nFrameY = GetSystemMetrics(bSizes ? SM_CYSIZEFRAME : SM_CYFIXEDFRAME);
    const VRect window = GetWindowRect();
    rect.left = nFrameX;
    rect.top = nFrameY + GetSystemMetrics(SM_CYCAPTION);
    rect.right = window.GetWidth() - nFrameX;
    rect.bottom = window.GetHeight() - nFrameY;
}

bool VWindow::IsDialogKind() const
{
    return VIsDialogKind(m_lKind);
}

void VWindow::Maximize()
{
    Show(SW_SHOWMAXIMIZED);
}

void VWindow::Minimize()
{
    Show(SW_SHOWMINIMIZED);
}

bool VWindow::PreTranslate(MSG& /*message*/)
{
    return false;
}

void VWindow::Restore()
{
    Show(SW_RESTORE);
}

LRESULT VWindow::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_SETFOCUS && IsFillChildReady()) {
        m_pFillChild->SetFocus();
        return 0;
    }
    if (uMessage == WM_ERASEBKGND && IsFillChildReady()) {
        return 1;
    }
    if (m_pOldProcedure != nullptr && m_pOldProcedure != &WindowProc) {
        return CallWindowProcA(m_pOldProcedure, hWnd, uMessage, wParam, lParam);
    }
    if (IsDialogKind()) {
        return 0;
    }
    if (m_lKind == V_KIND_MDI_FRAME || m_lKind == V_KIND_MDI_FRAME_2) {
        return DefFrameProcA(hWnd, m_hMdiClient, uMessage, wParam, lParam);
    }
    if (m_lKind == V_KIND_MDI_CHILD || m_lKind == V_KIND_MDI_CHILD_2) {
        return DefMDIChildProcA(hWnd, uMessage, wParam, lParam);
    }
    return DefWindowProcA(hWnd, uMessage, wParam, lParam);
}

LRESULT VWindow::OnCommand(UINT /*uNotifyCode*/, UINT /*uId*/, HWND /*hControl*/)
{
    return V_NOT_HANDLED;
}

bool VWindow::OnPaint(VDrawingSurface& /*surface*/)
{
    return true;
}

LRESULT VWindow::OnSize(UINT /*uType*/, int /*nWidth*/, int /*nHeight*/)
{
    FitFillChild();
    return V_NOT_HANDLED;
}

LRESULT VWindow::OnNotify(UINT /*uId*/, NMHDR* /*pHeader*/)
{
    return V_NOT_HANDLED;
}

LRESULT VWindow::OnReflectNotify(NMHDR* /*pHeader*/, LRESULT& /*lResult*/)
{
    return V_NOT_HANDLED;
}

void VWindow::OnFinalDestroy()
{
    if (m_flags.Test(V_FLAG_DELETE_SELF)) {
        delete this;
    }
}

bool VWindow::OnPreCreate(CREATESTRUCTA& /*create*/)
{
    return true;
}

bool VWindow::OnInitialize()
{
    const LONG_PTR lClipBits = WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    LONG_PTR lStyle = GetLong(GWL_STYLE) & ~lClipBits;
    const bool bChild = (lStyle & WS_CHILD) != 0;
    const bool bHasChecks = IsDialogKind() && FindChildOfClass("BUTTON") != nullptr;
    if (!bChild && !bHasChecks) {
        lStyle |= WS_CLIPCHILDREN;
    }
    if (bChild || GetParent() == nullptr) {
        lStyle |= WS_CLIPSIBLINGS;
    }
    SetLong(GWL_STYLE, lStyle);
    FitFillChild();
    return true;
}

// ---- The fill child.

bool VWindow::IsFillChildReady() const
{
    return m_pFillChild != nullptr && m_pFillChild->IsValid() && m_pFillChild->IsVisible();
}

void VWindow::FitFillChild()
{
    if (m_pFillChild != nullptr && m_pFillChild->IsValid()) {
        m_pFillChild->Move(GetClientRect());
    }
}

// ---- The platform's calls.

void VWindow::Move(const VRect& rect, bool bRepaint)
{
    MoveWindow(m_hWnd, rect.left, rect.top, rect.GetWidth(), rect.GetHeight(), bRepaint);
}

VRect VWindow::GetClientRect() const
{
    RECT rect = {};
    ::GetClientRect(m_hWnd, &rect);
    return VFromRect(rect);
}

VRect VWindow::GetWindowRect() const
{
    RECT rect = {};
    ::GetWindowRect(m_hWnd, &rect);
    return VFromRect(rect);
}

VString VWindow::WindowText(HWND hWnd)
{
    VString sText;
    const int nLength = GetWindowTextLengthA(hWnd);
    const std::unique_ptr<char[]> szText(new (std::nothrow) char[static_cast<size_t>(nLength) + 1]);
    if (szText != nullptr) {
        szText[0] = '\0';
        GetWindowTextA(hWnd, szText.get(), nLength + 1);
        sText = szText.get();
    }
    return sText;
}

void VWindow::EnableChildren(bool bEnable)
{
    EnumChildWindows(m_hWnd, EnableChild, bEnable ? 1 : 0);
}

void VWindow::ShowChildren(bool bShow)
{
    EnumChildWindows(m_hWnd, ShowChild, bShow ? 1 : 0);
}

HWND VWindow::FindChildOfClass(const char* szClass) const
{
    ChildSearch search = {szClass, nullptr};
    EnumChildWindows(m_hWnd, FindChild, reinterpret_cast<LPARAM>(&search));
    return search.hFound;
}
