#include "toolkit/vmenu.h"

#include <commctrl.h>

#include "toolkit/vapplication.h"

bool VMenu::Load(UINT uId)
{
    Attach(LoadMenuA(GetApplication().GetResourceModule(), MAKEINTRESOURCEA(uId)), true);
    return m_hMenu != nullptr;
}

void VMenu::Attach(HMENU hMenu, bool bOwned)
{
    Destroy();
    m_hMenu = hMenu;
    m_bOwned = bOwned;
}

HMENU VMenu::Release()
{
    m_bOwned = false;
    return m_hMenu;
}

void VMenu::Destroy()
{
    if (m_bOwned && m_hMenu != nullptr) {
        DestroyMenu(m_hMenu);
    }
    m_hMenu = nullptr;
    m_bOwned = false;
}

bool VMenu::Append(UINT uId, const char* szText)
{
    return AppendMenuA(m_hMenu, MF_STRING, uId, szText) != 0;
}

void VMenu::EnableItem(UINT uId, bool bEnabled)
{
    EnableMenuItem(m_hMenu, uId,
                   MF_BYCOMMAND | static_cast<UINT>(bEnabled ? MF_ENABLED : MF_GRAYED));
    if (m_hToolbar != nullptr) {
        SendMessageA(m_hToolbar, TB_ENABLEBUTTON, uId, MAKELPARAM(bEnabled, 0));
    }
}

void VMenu::CheckItem(UINT uId, bool bChecked)
{
    CheckMenuItem(m_hMenu, uId,
                  MF_BYCOMMAND | static_cast<UINT>(bChecked ? MF_CHECKED : MF_UNCHECKED));
    if (m_hToolbar != nullptr) {
        SendMessageA(m_hToolbar, TB_CHECKBUTTON, uId, MAKELPARAM(bChecked, 0));
    }
}
