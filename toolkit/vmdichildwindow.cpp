#include "toolkit/vmdichildwindow.h"

#include "toolkit/vapplication.h"
#include "toolkit/vmdiframewindow.h"

namespace {

constexpr char szClassName[] = "VMDIChildWindow";

} // namespace

VMDIChildWindow::VMDIChildWindow(int32_t lKind) : VWindow(lKind) {}

bool VMDIChildWindow::CreateChild(VMDIFrameWindow& frame, const VChildArgs& args)
{
    m_pFrame = &frame;
    m_hMenu = args.hMenu;
    m_hWindowMenu = args.hWindowMenu;
    SetAccelerators(args.hAccelerators);
    if (!VApplication::RegisterCopy(szClassName) ||
        !Create(frame.GetClient(), args.rect, args.uStyle, szClassName, args.szTitle, 0,
                WS_EX_MDICHILD)) {
        return false;
    }
    // Set only now: when the creation fails its window is destroyed, and the caller still owns the
    // object.
    GetFlags().Set(V_FLAG_DELETE_SELF);
    return true;
}

bool VMDIChildWindow::OnClose(bool bForced)
{
    return (bForced || !m_pFrame->IsBusy()) && QueryClose(bForced);
}

bool VMDIChildWindow::QueryClose(bool /*bForced*/)
{
    DestroyChild();
    return true;
}

void VMDIChildWindow::DestroyChild()
{
    SendMessageA(m_pFrame->GetClient(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(GetHandle()), 0);
}

void VMDIChildWindow::OnDestroy()
{
    if (m_pFrame != nullptr) {
        m_pFrame->OnChildDestroyed(*this);
    }
}

void VMDIChildWindow::OnFinalDestroy()
{
    if (m_pFrame != nullptr && IsLive(m_pFrame)) {
        m_pFrame->OnChildGone(*this);
    }
    VWindow::OnFinalDestroy();
}

void VMDIChildWindow::Maximize()
{
    SendMessageA(m_pFrame->GetClient(), WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(GetHandle()), 0);
}

void VMDIChildWindow::Restore()
{
    SendMessageA(m_pFrame->GetClient(), WM_MDIRESTORE, reinterpret_cast<WPARAM>(GetHandle()), 0);
}

LRESULT VMDIChildWindow::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    const LRESULT lResult = VWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
    if (uMessage == WM_CREATE) {
        if (lResult == -1 || !OnCreate()) {
            return -1;
        }
        m_pFrame->OnChildCreated(*this);
    } else if (uMessage == WM_MDIACTIVATE) {
        OnMDIActivate(reinterpret_cast<HWND>(wParam), reinterpret_cast<HWND>(lParam));
    }
    return lResult;
}

void VMDIChildWindow::TakeOverMenu(HMENU hMenu, HMENU hWindowMenu)
{
    SendMessageA(m_pFrame->GetClient(), WM_MDISETMENU, reinterpret_cast<WPARAM>(hMenu),
                 reinterpret_cast<LPARAM>(hWindowMenu));
    DrawMenuBar(m_pFrame->GetHandle());
}

void VMDIChildWindow::OnMDIActivate(HWND hDeactivated, HWND hActivated)
{
    if (hActivated == GetHandle()) {
        HACCEL hOwn = GetAccelerators();
        m_pFrame->SetAccelerators(hOwn == nullptr ? m_pFrame->GetFrameAccelerators() : hOwn);
        TakeOverMenu(m_hMenu, m_hWindowMenu);
        m_pFrame->UpdateCommands();
        OnActivated();
        m_pFrame->OnChildActivated(*this);
    } else if (hDeactivated == GetHandle()) {
        if (hActivated == nullptr) {
            m_pFrame->SetAccelerators(m_pFrame->GetFrameAccelerators());
            TakeOverMenu(m_pFrame->GetFrameMenu(), m_pFrame->GetWindowMenu());
        }
        OnDeactivated();
        m_pFrame->OnChildDeactivated(*this);
    }
}
