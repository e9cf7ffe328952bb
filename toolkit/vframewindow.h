// VFrameWindow: a top-level window with a menu, a rebar at the top and a status bar at the bottom.
#pragma once

#include "toolkit/vmenu.h"
#include "toolkit/vrebar.h"
#include "toolkit/vstatusbar.h"
#include "toolkit/vtoolbar.h"
#include "toolkit/vwindow.h"

class VFrameWindow : public VWindow
{
public:
    explicit VFrameWindow(int32_t lKind = V_KIND_FRAME) : VWindow(lKind) {}

    // ---- Virtual operations, after those of VWindow.

    // Brings the menu and the toolbar up to date with what can be done now.
    virtual void UpdateCommands();
    // Shows or hides a bar. Does nothing when there is no such bar or it is in that state already.
    virtual void ShowBar(UINT uId, bool bShow);
    virtual void SetStatusText(const char* szText, int nPane);
    // The client area without the bars.
    virtual void UsableArea(VRect& rect) const;
    virtual std::unique_ptr<VReBar> CreateRebar();
    virtual std::unique_ptr<VStatusBar> CreateStatusBar();
    virtual std::unique_ptr<VToolbar> CreateToolbar();
    // Sets bEnabled and bChecked for a command. They come as true and false.
    virtual void OnUpdateCommand(HMENU hMenu, UINT uId, bool& bEnabled, bool& bChecked);

    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    // Makes the window with its bars and then calls OnInitialize. When that returns false the
    // window is closed again. The window owns the menu.
    bool CreateFrame(HMENU hMenu, const char* szTitle, const VRect& rect, DWORD uStyle,
                     UINT uRebarId, UINT uStatusBarId);

    bool IsBarVisible(UINT uId) const;
    // Both return whether the bar is visible afterwards.
    bool ToggleBar(UINT uId);
    bool ToggleBand(UINT uId);

    // Null when the bar could not be made.
    VReBar* GetRebar() const { return m_pRebar.get(); }
    VStatusBar* GetStatusBar() const { return m_pStatusBar.get(); }

protected:
    // Called to place the window that fills the area between the bars. This class has none.
    virtual void ResizeClient() {}

    // The buttons of this toolbar follow the state of the menu items with the same command.
    void SetMirroredToolbar(HWND hToolbar) { m_hMirroredToolbar = hToolbar; }

    bool OnPreCreate(CREATESTRUCTA& create) override;

private:
    VWindow* FindBar(UINT uId) const;
    void MakeBars(UINT uRebarId, UINT uStatusBarId);
    void LayOutBars();
    void RefitClient();
    void UpdateMenu(HMENU hMenu);
    void ShowPrompt(HMENU hMenu, UINT uItem, UINT uFlags);

    HMENU m_hMenu = nullptr; // only during the creation
    HWND m_hMirroredToolbar = nullptr;
    std::unique_ptr<VReBar> m_pRebar;
    std::unique_ptr<VStatusBar> m_pStatusBar;
};
