// VMDIChildWindow: one document's window in an MDI frame. The object deletes itself with its
// window.
#pragma once

#include "toolkit/vwindow.h"

class VMDIFrameWindow;

class VMDIChildWindow : public VWindow
{
public:
    explicit VMDIChildWindow(int32_t lKind = V_KIND_MDI_CHILD);

    // ---- Virtual operations, behind those of VWindow.

    // Asks whether the document may close, unless bForced, and closes its window. True when it is
    // gone.
    virtual bool QueryClose(bool bForced);
    // Makes what is inside; false ends the creation.
    virtual bool OnCreate() { return true; }
    virtual void OnActivated() {}
    virtual void OnDeactivated() {}

    bool OnClose(bool bForced) override { return QueryClose(bForced); }
    void OnDestroy() override;
    void OnFinalDestroy() override;
    void Maximize() override;
    void Restore() override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

    // Makes the window in the frame's client. The menu, the window list's submenu and the
    // accelerators hold while this document is on top; they stay the caller's.
    bool CreateChild(VMDIFrameWindow& frame, const char* szTitle, const VRect& rect, DWORD uStyle,
                     HMENU hMenu, HMENU hWindowMenu, HACCEL hAccelerators);

    VMDIFrameWindow* GetFrame() const { return m_pFrame; }
    bool IsMaximized() const { return IsZoomed(GetHandle()) != 0; }

protected:
    // Destroys the window through the frame's client. The object is gone afterwards.
    void DestroyChild();

private:
    void OnMDIActivate(HWND hDeactivated, HWND hActivated);
    void TakeOverMenu(HMENU hMenu, HMENU hWindowMenu);

    VMDIFrameWindow* m_pFrame = nullptr;
    HMENU m_hMenu = nullptr;
    HMENU m_hWindowMenu = nullptr;
};
