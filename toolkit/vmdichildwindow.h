// VMDIChildWindow: the window of one document in an MDI frame. The object is deleted with its
// window.
#pragma once

#include "toolkit/vwindow.h"

class VMDIFrameWindow;

// What a document window is made with. The menu, the submenu for the list of windows and the
// accelerators are those of the frame while the window is active. The caller still owns them.
struct VChildArgs
{
    const char* szTitle = "";
    VRect rect = {}; // empty lets Windows place the window
    DWORD uStyle = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
    HMENU hMenu = nullptr;
    HMENU hWindowMenu = nullptr;
    HACCEL hAccelerators = nullptr;
};

class VMDIChildWindow : public VWindow
{
public:
    explicit VMDIChildWindow(int32_t lKind = V_KIND_MDI_CHILD);

    // ---- Virtual operations, after those of VWindow.

    // Asks the user whether the document may close, unless bForced is set, and closes the window.
    // Returns true when the window is gone.
    virtual bool QueryClose(bool bForced);
    // Makes the contents of the window. False ends the creation.
    virtual bool OnCreate() { return true; }
    virtual void OnActivated() {}
    virtual void OnDeactivated() {}

    // Refused while a command runs, unless bForced.
    bool OnClose(bool bForced) override;
    void OnDestroy() override;
    void OnFinalDestroy() override;
    void Maximize() override;
    void Restore() override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    // Makes the window in the client window of the frame.
    bool CreateChild(VMDIFrameWindow& frame, const VChildArgs& args);

    VMDIFrameWindow* GetFrame() const { return m_pFrame; }
    bool IsMaximized() const { return IsZoomed(GetHandle()) != 0; }

protected:
    // Destroys the window by WM_MDIDESTROY. The object is deleted by that.
    void DestroyChild();

private:
    void OnMDIActivate(HWND hDeactivated, HWND hActivated);
    void TakeOverMenu(HMENU hMenu, HMENU hWindowMenu);

    VMDIFrameWindow* m_pFrame = nullptr;
    HMENU m_hMenu = nullptr;
    HMENU m_hWindowMenu = nullptr;
};
