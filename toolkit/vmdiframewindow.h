// VMDIFrameWindow: a frame whose client area holds MDI child windows.
#pragma once

#include "toolkit/vframewindow.h"

class VMDIChildWindow;

// Commands that this class can carry out by itself.
enum class VArrange
{
    Cascade,
    TileHorizontal,
    TileVertical,
    Previous,
    Next,
    Close,
    CloseAll
};
inline constexpr int V_ARRANGE_COUNT = 7;

class VMDIFrameWindow : public VFrameWindow
{
public:
    VMDIFrameWindow() : VFrameWindow(V_KIND_MDI_FRAME) {}
    // Destroys the child windows while the frame, to which they speak, still exists.
    ~VMDIFrameWindow() override;

    // ---- Virtual operations, after those of VFrameWindow.

    void ResizeClient() override;
    virtual void OnChildCreated(VMDIChildWindow& child);
    virtual void OnChildActivated(VMDIChildWindow& child);
    virtual void OnChildDeactivated(VMDIChildWindow& child);
    virtual void OnChildDestroyed(VMDIChildWindow& child);
    virtual void OnChildGone(VMDIChildWindow& child);
    virtual void OnPreCreateClient(CREATESTRUCTA& create);

    bool PreTranslate(MSG& message) override;

    // Makes the MDI client window. hWindowMenu gets the list of the child windows. The frame must
    // have its menu by then.
    bool CreateClient(HMENU hWindowMenu, UINT uClientId, UINT uFirstChildId);
    HWND GetClient() const { return m_hClient; }

    // The active child window; null when there is none.
    VMDIChildWindow* GetActiveChild() const;
    void ActivateChild(VMDIChildWindow& child);
    // Asks each child window to close, from the top of the stack down, until one refuses. Returns
    // true when none is left.
    bool CloseChildren();

    // Sets the command ids for the arrangements, in the order of VArrange.
    void RegisterArrangeCommands(const UINT (&auIds)[V_ARRANGE_COUNT]);
    // Carries out the command when it is one of these. Returns whether it is.
    bool Arrange(UINT uId);

    // The accelerators for when no child window is active.
    void SetFrameAccelerators(HACCEL hAccelerators);
    HACCEL GetFrameAccelerators() const { return m_hFrameAccelerators; }
    // The menu, and the submenu for the list of windows, for when no child window is active.
    HMENU GetFrameMenu() const { return m_hFrameMenu; }
    HMENU GetWindowMenu() const { return m_hWindowMenu; }

private:
    void Step(bool bBack);

    HWND m_hClient = nullptr;
    HMENU m_hFrameMenu = nullptr;
    HMENU m_hWindowMenu = nullptr;
    HACCEL m_hFrameAccelerators = nullptr;
    UINT m_auArrange[V_ARRANGE_COUNT] = {};
};
