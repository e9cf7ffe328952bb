// VMenu: a menu handle. The object owns it if it loaded it or was told so.
#pragma once

#include <windows.h>

class VMenu
{
public:
    VMenu() = default;
    VMenu(const VMenu&) = delete;
    VMenu& operator=(const VMenu&) = delete;
    ~VMenu() { Destroy(); }

    // Loads the menu of that id from the resource module of the application, and owns it. Returns
    // false when there is none.
    bool Load(UINT uId);
    // Takes a menu; with bOwned the object owns it.
    void Attach(HMENU hMenu, bool bOwned = false);
    // Gives up the ownership, to a window for instance: Windows destroys the menu of a window with
    // it.
    HMENU Release();
    void Destroy();

    HMENU GetHandle() const { return m_hMenu; }
    int GetItemCount() const { return GetMenuItemCount(m_hMenu); }
    HMENU GetSubMenu(int nPosition) const { return ::GetSubMenu(m_hMenu, nPosition); }
    bool Append(UINT uId, const char* szText);
    bool Delete(UINT uId) { return DeleteMenu(m_hMenu, uId, MF_BYCOMMAND) != 0; }

    // The buttons of this toolbar follow the state of items with the same command; null for no
    // toolbar.
    void SetToolbar(HWND hToolbar) { m_hToolbar = hToolbar; }

    // Set the state of the item with that command, in the menu and all its submenus.
    void EnableItem(UINT uId, bool bEnabled);
    void CheckItem(UINT uId, bool bChecked);

private:
    HMENU m_hMenu = nullptr;
    bool m_bOwned = false;
    HWND m_hToolbar = nullptr;
};
