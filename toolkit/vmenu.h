// VMenu: a menu handle, owned where this object loaded or made it.
#pragma once

#include <windows.h>

class VMenu
{
public:
    VMenu() = default;
    VMenu(const VMenu&) = delete;
    VMenu& operator=(const VMenu&) = delete;
    ~VMenu() { Destroy(); }

    // From the application's resources; owned. False when there is none of that id.
    bool Load(UINT uId);
    // Wraps a menu; bOwned gives it to this object.
    void Attach(HMENU hMenu, bool bOwned = false);
    // Gives ownership away: to a window, which destroys its own menu.
    HMENU Release();
    void Destroy();

    HMENU GetHandle() const { return m_hMenu; }
    int GetItemCount() const { return GetMenuItemCount(m_hMenu); }
    HMENU GetSubMenu(int nPosition) const { return ::GetSubMenu(m_hMenu, nPosition); }
    bool Append(UINT uId, const char* szText);
    bool Delete(UINT uId) { return DeleteMenu(m_hMenu, uId, MF_BYCOMMAND) != 0; }

    // Buttons with the same command as an item follow its state; null for none.
    void SetToolbar(HWND hToolbar) { m_hToolbar = hToolbar; }

    // By command, in the whole tree of the menu.
    void EnableItem(UINT uId, bool bEnabled);
    void CheckItem(UINT uId, bool bChecked);

private:
    HMENU m_hMenu = nullptr;
    bool m_bOwned = false;
    HWND m_hToolbar = nullptr;
};
