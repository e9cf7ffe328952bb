// VMDIFrameWindow: a frame whose client area holds document windows.
#pragma once

#include "toolkit/vframewindow.h"

class VMDIChildWindow;

// What the frame's base does for a command by itself.
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
    // Ends the documents before the frame they speak to.
    ~VMDIFrameWindow() override;

    // ---- Virtual operations, behind those of VFrameWindow.

    void ResizeClient() override;
    virtual void OnChildCreated(VMDIChildWindow& child);
    virtual void OnChildActivated(VMDIChildWindow& child);
    virtual void OnChildDeactivated(VMDIChildWindow& child);
    virtual void OnChildDestroyed(VMDIChildWindow& child);
    virtual void OnChildGone(VMDIChildWindow& child);
    virtual void OnPreCreateClient(CREATESTRUCTA& create);

    bool PreTranslate(MSG& message) override;

    // Makes the window that holds the documents. The window menu gets the list of them; the frame
    // has its own menu by then.
    bool CreateClient(HMENU hWindowMenu, UINT uClientId, UINT uFirstChildId);
    HWND GetClient() const { return m_hClient; }

    // The document on top; null for none.
    VMDIChildWindow* GetActiveChild() const;
    void ActivateChild(VMDIChildWindow& child);
    // Asks each document to close, from the top down; the first that refuses ends it. True when
    // none is left.
    bool CloseChildren();

    // Says which command stands for which arrangement, in the order of VArrange.
    void RegisterArrangeCommands(const UINT (&auIds)[V_ARRANGE_COUNT]);
    // True when the command is one of them, and carried out.
    bool Arrange(UINT uId);

    // The accelerators that hold while no document has its own.
    void SetFrameAccelerators(HACCEL hAccelerators);
    HACCEL GetFrameAccelerators() const { return m_hFrameAccelerators; }
    // The menu and the window list's submenu that hold while no document has its own.
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
