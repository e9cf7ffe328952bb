// VWindow: the base of every window. Each window has one object, and all objects share one window
// procedure.
//
// The procedure turns messages into the virtual operations below. An operation that has not handled
// its message returns V_NOT_HANDLED; DefaultProc then gets the message. Only an override of
// DefaultProc sees raw messages.
//
// A derived class that overrides an operation calls Detach in its own destructor. Detach destroys
// the window, and the messages of that still reach the override. ~VWindow would be too late: the
// derived part of the object is gone by then.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <memory>

#include "base/vflagset.h"
#include "base/vrect.h"
#include "base/vstring.h"

class VDrawingSurface;
class VWindow;

inline constexpr LRESULT V_NOT_HANDLED = -65535;

// The kind of window that an object stands for.
enum VWindowKind : int32_t
{
    V_KIND_BUTTON = 1,
    V_KIND_CHECK_BOX = 2,
    V_KIND_COMBO_BOX = 3,
    V_KIND_DIALOG = 4,
    V_KIND_EDIT = 5,
    V_KIND_GROUP_BOX = 6,
    V_KIND_LIST_BOX = 7,
    V_KIND_LIST_VIEW = 8,
    V_KIND_FRAME = 10,
    V_KIND_RADIO_BUTTON = 11,
    V_KIND_SCROLL_BAR = 12,
    V_KIND_SPLASH = 13,
    V_KIND_STATIC = 17,
    V_KIND_STATUS_BAR = 18,
    V_KIND_TAB = 19,
    V_KIND_TOOLBAR = 21,
    V_KIND_TREE_VIEW = 22,
    V_KIND_OTHER = 23,
    V_KIND_PROPERTY_SHEET = 28,
    V_KIND_PROPERTY_PAGE = 29,
    V_KIND_PROGRESS_BAR = 30,
    V_KIND_COMMON_DIALOG = 36,
    V_KIND_REBAR = 39,
    V_KIND_FOREIGN = 41,
    V_KIND_MDI_FRAME = 42,
    V_KIND_MDI_CHILD = 43,
    V_KIND_MDI_FRAME_2 = 45,
    V_KIND_DATE_PICKER = 46,
    V_KIND_MONTH_CALENDAR = 47,
    V_KIND_UP_DOWN = 48,
    V_KIND_MDI_CHILD_2 = 50,
    V_KIND_HEADER = 52,

    // No class here is of these kinds, but the rules of the toolkit name them: which kinds are
    // dialogs, which stand at the front of the window list, which are painted off screen.
    V_KIND_FRONT_DIALOG = 9,
    V_KIND_FRONT_DIALOG_2 = 14,
    V_KIND_FRONT_WINDOW = 15,
    V_KIND_DIALOG_2 = 24,
    V_KIND_OFF_SCREEN = 26,
    V_KIND_SYSTEM_DIALOG_FIRST = 32, // up to the last, with V_KIND_COMMON_DIALOG among them
    V_KIND_SYSTEM_DIALOG_LAST = 38,
};

// Behaviour bits.
inline constexpr uint32_t V_FLAG_PAINTS = 1; // the object paints the window by OnPaint
inline constexpr uint32_t V_FLAG_INITIALIZE_LATER =
    2; // Attach does not call OnInitialize; the creator calls it later
inline constexpr uint32_t V_FLAG_OFF_SCREEN =
    4; // painted in memory first, and not erased on the screen
inline constexpr uint32_t V_FLAG_DELETE_SELF = 8; // the object is deleted when its window is gone

// Sees the messages of a window before the window does.
class VMessageFilter
{
public:
    VMessageFilter() = default;
    VMessageFilter(const VMessageFilter&) = delete;
    VMessageFilter& operator=(const VMessageFilter&) = delete;
    // Takes the filter from its window. A filter may end at any time, in its own call too.
    virtual ~VMessageFilter();

    // Returns whether the next filter and the window should see the message too. When it sets
    // bHandled, lResult is the result of the message.
    virtual bool Filter(VWindow& window, UINT uMessage, WPARAM wParam, LPARAM lParam,
                        LRESULT& lResult, bool& bHandled) = 0;

private:
    friend class VDispatcher;
    friend class VWindow;

    VWindow* m_pFiltered = nullptr; // the window that has this filter; null for none
    VMessageFilter* m_pNextFilter = nullptr;
};

class VWindow
{
public:
    explicit VWindow(int32_t lKind = V_KIND_OTHER);
    VWindow(const VWindow&) = delete;
    VWindow& operator=(const VWindow&) = delete;

    // ---- The virtual operations, in the order of their slots.

    virtual ~VWindow();
    // Destroys the window, if there is one. Returns true when it is gone. With bForced nobody is
    // asked. The object may be deleted afterwards.
    virtual bool OnClose(bool bForced);
    // The part inside the frame and the caption, in coordinates of the window. Empty for a window
    // without a caption.
    virtual void ClientArea(VRect& rect) const;
    virtual bool IsDialogKind() const;
    virtual void Maximize();
    virtual void Minimize();
    // Called by the message loop of the main window before a message is translated. Returns true
    // when the message needs no further treatment.
    virtual bool PreTranslate(MSG& message);
    virtual void Restore();
    virtual LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);
    virtual LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl);
    virtual void OnDestroy() {}
    // Paints the window. Returns true when it did.
    virtual bool OnPaint(VDrawingSurface& surface);
    virtual LRESULT OnSize(UINT uType, int nWidth, int nHeight);
    virtual LRESULT OnNotify(UINT uId, NMHDR* pHeader);
    // Called for a notification of this control, before its parent gets it. Returns -1 to keep it
    // from the parent; lResult is then its result.
    virtual LRESULT OnReflectNotify(NMHDR* pHeader, LRESULT& lResult);
    virtual void OnFinalDestroy();
    // Called before the window is made. False stops the creation.
    virtual bool OnPreCreate(CREATESTRUCTA& create);
    // Called when the object has been bound to its window. False unbinds it again.
    virtual bool OnInitialize();

    // ---- Making, binding and finding windows.

    // Makes the window. A null szClass means the class that VApplication registered. With an empty
    // rect Windows places the window, unless it is a child. Returns false when the window cannot be
    // made.
    bool Create(HWND hParent, const VRect& rect, DWORD uStyle, const char* szClass,
                const char* szTitle, UINT uId, DWORD uExStyle = 0);

    // Binds the object to an existing window. Returns false when OnInitialize refused.
    bool Attach(HWND hWnd, bool bRunInitialize = true);

    // Unbinds the object. Its window is closed first; a window that an override of OnClose has kept
    // goes on without the object. Create and Attach can bind the object again.
    void Detach();

    static VWindow* FromHandle(HWND hWnd);
    static int32_t KindOfWindow(HWND hWnd);
    static VWindow* GetMainWindow();
    static void SetMainWindow(VWindow* pWindow);
    // Whether the pointer is that of an object that still exists.
    static bool IsLive(const VWindow* pWindow);
    static LRESULT CALLBACK WindowProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

    bool IsAttached() const;
    bool IsValid() const { return m_hWnd != nullptr && IsWindow(m_hWnd); }

    // What to do when an operation threw std::bad_alloc while it handled a message. The window
    // procedure has caught it, for no exception may cross Windows, and answers 0. A creation is
    // refused instead, without a call. Null, as at first, does nothing.
    // A function and no virtual operation, for the slots above are fixed.
    using MemoryFailure = void (*)(VWindow& window, UINT uMessage, WPARAM wParam);
    void SetMemoryFailure(MemoryFailure pFailure) { m_pMemoryFailure = pFailure; }

    // The caller owns the filter. The filter that was added first sees a message first; one that is
    // added again counts as added last. Filters stay with the object from one window to the next,
    // until they are removed, end, go to another object, or the object is detached. One that is
    // removed sees no message any more, nor those that are on their way.
    void AddFilter(VMessageFilter& filter);
    void RemoveFilter(VMessageFilter& filter);

    // ---- State.

    HWND GetHandle() const { return m_hWnd; }
    UINT GetId() const { return m_uId; }
    int32_t GetKind() const { return m_lKind; }
    VFlagSet& GetFlags() { return m_flags; }
    HACCEL GetAccelerators() const { return m_hAccelerators; }
    void SetAccelerators(HACCEL hAccelerators) { m_hAccelerators = hAccelerators; }
    void SetFillChild(VWindow* pChild) { m_pFillChild = pChild; }

    // ---- The platform's calls.

    bool Show(int nCommand = SW_SHOW) { return ShowWindow(m_hWnd, nCommand) != 0; }
    bool IsVisible() const { return IsWindowVisible(m_hWnd) != 0; }
    void Move(const VRect& rect, bool bRepaint = true);
    void Enable(bool bEnable) { EnableWindow(m_hWnd, bEnable); }
    void Invalidate(bool bErase = false) { InvalidateRect(m_hWnd, nullptr, bErase); }
    void Update() { UpdateWindow(m_hWnd); }
    bool Post(UINT uMessage, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return PostMessageA(m_hWnd, uMessage, wParam, lParam) != 0;
    }
    LRESULT Send(UINT uMessage, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageA(m_hWnd, uMessage, wParam, lParam);
    }
    LONG_PTR GetLong(int nIndex) const { return GetWindowLongPtrA(m_hWnd, nIndex); }
    LONG_PTR SetLong(int nIndex, LONG_PTR lValue)
    {
        return SetWindowLongPtrA(m_hWnd, nIndex, lValue);
    }
    VRect GetClientRect() const;
    VRect GetWindowRect() const; // in coordinates of the screen
    HWND GetItem(int nId) const { return GetDlgItem(m_hWnd, nId); }
    static VString WindowText(HWND hWnd);
    VString GetText() const { return WindowText(m_hWnd); }
    void SetText(const char* szText) { SetWindowTextA(m_hWnd, szText); }
    void SetFocus() { ::SetFocus(m_hWnd); }
    HWND GetParent() const { return ::GetParent(m_hWnd); }

    void EnableChildren(bool bEnable);
    void ShowChildren(bool bShow);
    // The first child window of a class, ignoring case; null when there is none.
    //
    // Kept: "BUTTON" finds only check boxes, radio buttons and the like: buttons that have one of
    // the lowest three bits of the style set.
    HWND FindChildOfClass(const char* szClass) const;

protected:
    // Sets the MDI client window, which the default procedure of an MDI frame needs.
    void SetMdiClient(HWND hClient) { m_hMdiClient = hClient; }
    VWindow* GetFillChild() const { return m_pFillChild; }

private:
    friend class VDispatcher;

    void EnsureLive();
    void EndDispatch() const; // of the messages that are on their way to this object
    void ForgetFilters();
    static void PassOver(const VMessageFilter& filter); // for the messages that are on their way
    void FitFillChild();
    bool IsFillChildReady() const;
    void Subclass(HWND hWnd);
    void RestoreProcedure(HWND hWnd);
    int ProcedureSlot() const;

public:
    VWindow* m_pNextLive = nullptr; // the link of VWindowList; nobody else uses it

private:
    int32_t m_lKind;
    VFlagSet m_flags;
    UINT m_uId = 0;
    HWND m_hWnd = nullptr; // null while the object is not bound
    HACCEL m_hAccelerators = nullptr;
    WNDPROC m_pOldProcedure = nullptr; // the procedure that subclassing replaced; null for a window
                                       // of the toolkit's own class
    MemoryFailure m_pMemoryFailure = nullptr;
    VMessageFilter* m_pFilters = nullptr;
    VWindow* m_pFillChild = nullptr; // the child that fills the client area
    HWND m_hMdiClient = nullptr;
};
