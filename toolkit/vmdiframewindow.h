// VMDIFrameWindow: a frame whose client area holds MDI child windows.
#pragma once

#include "toolkit/vframewindow.h"

class VMDIChildWindow;
class VMDIFrameWindow;

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

// Tells a frame, for as long as the object lives, that a command runs. What the command stands on
// stays: until then neither the frame nor a document closes by a request from outside.
class VCommandScope
{
public:
    // pOn is the document that the command works on; null for none.
    explicit VCommandScope(VMDIFrameWindow& frame, const VMDIChildWindow* pOn = nullptr);
    VCommandScope(const VCommandScope&) = delete;
    VCommandScope& operator=(const VCommandScope&) = delete;
    ~VCommandScope();

private:
    friend class VMDIFrameWindow;

    VMDIFrameWindow& m_frame;
    const VMDIChildWindow* m_pOn;
    VCommandScope* m_pOuter; // a command may run inside another one's dialog
};

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
    // A command has ended, one inside another command's dialog too.
    virtual void OnCommandEnded() {}
    // Saves a document that is to be closed. False keeps it open.
    virtual bool SaveClosingChild(VMDIChildWindow& child);

    bool PreTranslate(MSG& message) override;

    // Makes the MDI client window. hWindowMenu gets the list of the child windows. The frame must
    // have its menu by then.
    bool CreateClient(HMENU hWindowMenu, UINT uClientId, UINT uFirstChildId);
    HWND GetClient() const { return m_hClient; }

    // The active child window; null when there is none.
    VMDIChildWindow* GetActiveChild() const;
    void ActivateChild(VMDIChildWindow& child);
    // Whether a command runs or a modal window keeps the user from the frame. Nothing may be closed
    // then: what is on the stack stands on it.
    bool IsBusy() const { return m_pRunning != nullptr || !IsWindowEnabled(GetHandle()); }
    // Whether a command works on this document.
    bool IsBusyWith(const VMDIChildWindow& child) const;

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
    friend class VCommandScope;

    void Step(bool bBack);

    HWND m_hClient = nullptr;
    HMENU m_hFrameMenu = nullptr;
    HMENU m_hWindowMenu = nullptr;
    HACCEL m_hFrameAccelerators = nullptr;
    VCommandScope* m_pRunning = nullptr; // the innermost
    UINT m_auArrange[V_ARRANGE_COUNT] = {};
};
