#include "toolkit/vmdiframewindow.h"

#include "toolkit/vapplication.h"
#include "toolkit/vmdichildwindow.h"

VCommandScope::VCommandScope(VMDIFrameWindow& frame, const VMDIChildWindow* pOn)
    : m_frame(frame), m_pOn(pOn), m_pOuter(frame.m_pRunning)
{
    frame.m_pRunning = this;
}

VCommandScope::~VCommandScope()
{
    m_frame.m_pRunning = m_pOuter;
    m_frame.OnCommandEnded();
}

VMDIFrameWindow::~VMDIFrameWindow()
{
    if (IsValid() && m_hClient != nullptr) {
        DestroyWindow(m_hClient);
    }
}

bool VMDIFrameWindow::CreateClient(HMENU hWindowMenu, UINT uClientId, UINT uFirstChildId)
{
    m_hFrameMenu = GetMenu(GetHandle());
    m_hWindowMenu = hWindowMenu;
    CLIENTCREATESTRUCT client = {hWindowMenu, uFirstChildId};
    CREATESTRUCTA create = {};
    create.lpCreateParams = &client;
    create.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_HSCROLL |
                   WS_VSCROLL | MDIS_ALLCHILDSTYLES;
    create.dwExStyle = WS_EX_CLIENTEDGE;
    OnPreCreateClient(create);
    m_hClient = CreateWindowExA(create.dwExStyle, "MDICLIENT", "", static_cast<DWORD>(create.style),
                                0, 0, 0, 0, GetHandle(),
                                reinterpret_cast<HMENU>(static_cast<UINT_PTR>(uClientId)),
                                GetApplication().GetInstance(), create.lpCreateParams);
    SetMdiClient(m_hClient);
    // The scroll bars appear when a child window is partly outside. Wine 8 shows them from the
    // beginning.
    ShowScrollBar(m_hClient, SB_BOTH, FALSE);
    ResizeClient();
    return m_hClient != nullptr;
}

void VMDIFrameWindow::ResizeClient()
{
    if (m_hClient != nullptr) {
        VRect area;
        UsableArea(area);
        MoveWindow(m_hClient, area.left, area.top, area.GetWidth(), area.GetHeight(), TRUE);
    }
}

void VMDIFrameWindow::OnChildCreated(VMDIChildWindow& /*child*/) {}
void VMDIFrameWindow::OnChildActivated(VMDIChildWindow& /*child*/) {}
void VMDIFrameWindow::OnChildDeactivated(VMDIChildWindow& /*child*/) {}
void VMDIFrameWindow::OnChildDestroyed(VMDIChildWindow& /*child*/) {}
void VMDIFrameWindow::OnChildGone(VMDIChildWindow& /*child*/) {}
void VMDIFrameWindow::OnPreCreateClient(CREATESTRUCTA& /*create*/) {}

bool VMDIFrameWindow::SaveClosingChild(VMDIChildWindow& /*child*/)
{
    return false;
}

bool VMDIFrameWindow::IsBusyWith(const VMDIChildWindow& child) const
{
    const VCommandScope* pScope = m_pRunning;
    while (pScope != nullptr && pScope->m_pOn != &child) {
        pScope = pScope->m_pOuter;
    }
    return pScope != nullptr;
}

bool VMDIFrameWindow::PreTranslate(MSG& message)
{
    return m_hClient != nullptr && TranslateMDISysAccel(m_hClient, &message) != 0;
}

VMDIChildWindow* VMDIFrameWindow::GetActiveChild() const
{
    if (m_hClient == nullptr) {
        return nullptr;
    }
    auto* hActive = reinterpret_cast<HWND>(SendMessageA(m_hClient, WM_MDIGETACTIVE, 0, 0));
    VWindow* pActive = FromHandle(hActive);
    const bool bChild = pActive != nullptr && (pActive->GetKind() == V_KIND_MDI_CHILD ||
                                               pActive->GetKind() == V_KIND_MDI_CHILD_2);
    return bChild ? static_cast<VMDIChildWindow*>(pActive) : nullptr;
}

void VMDIFrameWindow::ActivateChild(VMDIChildWindow& child)
{
    SendMessageA(m_hClient, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(child.GetHandle()), 0);
}

bool VMDIFrameWindow::CloseChildren()
{
    HWND hChild = GetWindow(m_hClient, GW_CHILD);
    while (hChild != nullptr) {
        HWND hNext = GetWindow(hChild, GW_HWNDNEXT);
        VWindow* pChild = FromHandle(hChild);
        // A window with an owner is the title of an icon, not a child window.
        if (GetWindow(hChild, GW_OWNER) == nullptr && pChild != nullptr &&
            !pChild->OnClose(false)) {
            return false;
        }
        hChild = hNext;
    }
    return GetActiveChild() == nullptr;
}

void VMDIFrameWindow::RegisterArrangeCommands(const UINT (&auIds)[V_ARRANGE_COUNT])
{
    for (int i = 0; i < V_ARRANGE_COUNT; ++i) {
        m_auArrange[i] = auIds[i];
    }
}

bool VMDIFrameWindow::Arrange(UINT uId)
{
    int nArrange = 0;
    while (nArrange < V_ARRANGE_COUNT && m_auArrange[nArrange] != uId) {
        ++nArrange;
    }
    switch (static_cast<VArrange>(nArrange)) {
        case VArrange::Cascade:
            SendMessageA(m_hClient, WM_MDICASCADE, 0, 0);
            return true;
        case VArrange::TileHorizontal:
            SendMessageA(m_hClient, WM_MDITILE, MDITILE_HORIZONTAL, 0);
            return true;
        case VArrange::TileVertical:
            SendMessageA(m_hClient, WM_MDITILE, MDITILE_VERTICAL, 0);
            return true;
        case VArrange::Previous:
            Step(false);
            return true;
        case VArrange::Next:
            // Kept: "next" goes backwards in the stack of windows, which is forwards to the eye of
            // the user.
            Step(true);
            return true;
        case VArrange::Close:
            if (VMDIChildWindow* pChild = GetActiveChild()) {
                pChild->OnClose(false);
            }
            return true;
        case VArrange::CloseAll:
            CloseChildren();
            return true;
    }
    return false;
}

void VMDIFrameWindow::Step(bool bBack)
{
    if (const VMDIChildWindow* pChild = GetActiveChild()) {
        SendMessageA(m_hClient, WM_MDINEXT, reinterpret_cast<WPARAM>(pChild->GetHandle()), bBack);
    }
}

void VMDIFrameWindow::SetFrameAccelerators(HACCEL hAccelerators)
{
    m_hFrameAccelerators = hAccelerators;
    SetAccelerators(hAccelerators);
}
