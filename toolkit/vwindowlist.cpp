#include "toolkit/vwindowlist.h"

VWindowList& VWindowList::Get()
{
    static VWindowList list;
    return list;
}

void VWindowList::Add(VWindow* pWindow)
{
    switch (pWindow->GetKind()) {
        case V_KIND_FRONT_DIALOG:
        case V_KIND_FRAME:
        case V_KIND_FRONT_DIALOG_2:
        case V_KIND_FRONT_WINDOW:
        case V_KIND_MDI_FRAME:
        case V_KIND_MDI_FRAME_2:
            m_windows.InsertAfter(nullptr, pWindow);
            break;
        default:
            m_windows.AddTail(pWindow);
            break;
    }
}

void VWindowList::Remove(VWindow* pWindow)
{
    ForgetCached(pWindow);
    m_windows.Remove(pWindow);
}

bool VWindowList::Contains(const VWindow* pWindow) const
{
    for (const VWindow* p = GetFirst(); p != nullptr; p = p->m_pNextLive) {
        if (p == pWindow) {
            return true;
        }
    }
    return false;
}

VWindow* VWindowList::Find(HWND hWnd) const
{
    if (hWnd == nullptr) {
        return nullptr;
    }
    for (VWindow* p = GetFirst(); p != nullptr; p = p->m_pNextLive) {
        if (p->GetHandle() == hWnd) {
            return p;
        }
    }
    return nullptr;
}

VWindow* VWindowList::FindCached(HWND hWnd)
{
    if (m_pCached == nullptr || m_pCached->GetHandle() != hWnd) {
        m_pCached = Find(hWnd);
    }
    return m_pCached;
}

void VWindowList::ForgetCached(const VWindow* pWindow)
{
    if (m_pCached == pWindow) {
        m_pCached = nullptr;
    }
}
