// VFrameWindow: a top-level window with a menu, a rebar above and a status bar below.
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

    // ---- Virtual operations, behind those of VWindow.

    // Brings menu and toolbar in line with what can be done now.
    virtual void UpdateCommands();
    // Does nothing for a bar that does not exist or is as asked.
    virtual void ShowBar(UINT uId, bool bShow);
    virtual void SetStatusText(const char* szText, int nPane);
    // The client area less the bars.
    virtual void UsableArea(VRect& rect) const;
    virtual std::unique_ptr<VReBar> CreateRebar();
    virtual std::unique_ptr<VStatusBar> CreateStatusBar();
    virtual std::unique_ptr<VToolbar> CreateToolbar();
    // Changes bEnabled and bChecked, which come as true and false, where a command needs it.
    virtual void OnUpdateCommand(HMENU hMenu, UINT uId, bool& bEnabled, bool& bChecked);

    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    // Makes the window with its bars and then calls OnInitialize; a false there closes it again.
    // The menu goes to the window.
    bool CreateFrame(HMENU hMenu, const char* szTitle, const VRect& rect, DWORD uStyle,
                     UINT uRebarId, UINT uStatusBarId);

    bool IsBarVisible(UINT uId) const;
    // Both return whether the bar is visible now.
    bool ToggleBar(UINT uId);
    bool ToggleBand(UINT uId);

    // Null where a bar could not be made.
    VReBar* GetRebar() const { return m_pRebar.get(); }
    VStatusBar* GetStatusBar() const { return m_pStatusBar.get(); }

protected:
    // The window that fills what the bars leave; nothing here.
    virtual void ResizeClient() {}

    // Buttons of this toolbar follow the state of the menu items with the same command.
    void SetMirroredToolbar(HWND hToolbar) { m_hMirroredToolbar = hToolbar; }

    bool OnPreCreate(CREATESTRUCTA& create) override;

private:
    VWindow* FindBar(UINT uId) const;
    void MakeBars(UINT uRebarId, UINT uStatusBarId);
    void LayOutBars();
    void RefitClient();
    void UpdateMenu(HMENU hMenu);
    void ShowPrompt(HMENU hMenu, UINT uItem, UINT uFlags);

    HMENU m_hMenu = nullptr; // for the time of the creation
    HWND m_hMirroredToolbar = nullptr;
    std::unique_ptr<VReBar> m_pRebar;
    std::unique_ptr<VStatusBar> m_pStatusBar;
};
