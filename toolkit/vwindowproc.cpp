// The one window procedure: from a message to the object's virtual operations.

#include <new>

#include "base/vtext.h"
#include "toolkit/vdialog.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vwindow.h"
#include "toolkit/vwindowlist.h"

namespace {

bool HasDialogClass(HWND hWnd)
{
    char szClass[16] = "";
    GetClassNameA(hWnd, szClass, sizeof szClass);
    return VCompare(szClass, "#32770") == 0;
}

bool IsModalDialog(const VWindow* pWindow)
{
    const auto* pDialog = dynamic_cast<const VDialog*>(pWindow);
    return pDialog != nullptr && pDialog->IsDialogKind() && pDialog->IsModal();
}

// The object that was passed when the window was made.
VWindow* CreatedObject(UINT uMessage, LPARAM lParam)
{
    const VWindowList& list = VWindowList::Get();
    if (uMessage == WM_NCCREATE) {
        const auto* pCreate = reinterpret_cast<CREATESTRUCTA*>(lParam);
        const bool bMdiChild = (pCreate->dwExStyle & WS_EX_MDICHILD) != 0;
        void* pObject = pCreate->lpCreateParams;
        if (bMdiChild && pObject != nullptr) {
            // For an MDI child, Windows passes an MDICREATESTRUCT, and the object is in that.
            pObject = reinterpret_cast<void*>(static_cast<MDICREATESTRUCTA*>(pObject)->lParam);
        }
        auto* pWindow = static_cast<VWindow*>(pObject);
        return list.Contains(pWindow) ? pWindow : nullptr;
    }
    auto* pWindow = reinterpret_cast<VWindow*>(lParam);
    if (pWindow == nullptr || list.Contains(pWindow)) {
        return pWindow;
    }
    return reinterpret_cast<VWindow*>(reinterpret_cast<PROPSHEETPAGEA*>(lParam)->lParam);
}

} // namespace

// One message on its way. Any call may delete the object or detach it from its window: Forget then
// makes m_pWindow null, and nothing touches the object from then on.
class VDispatcher
{
public:
    VDispatcher(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
        : m_hWnd(hWnd), m_uMessage(uMessage), m_wParam(wParam), m_lParam(lParam)
    {
        s_pInnermost = this;
    }
    VDispatcher(const VDispatcher&) = delete;
    VDispatcher& operator=(const VDispatcher&) = delete;
    ~VDispatcher() { s_pInnermost = m_pOuter; }

    // The object is no longer bound to a window. Messages arrive within messages, so several may be
    // on their way to it.
    static void Forget(const VWindow* pWindow)
    {
        for (VDispatcher* p = s_pInnermost; p != nullptr; p = p->m_pOuter) {
            if (p->m_pWindow == pWindow) {
                p->m_pWindow = nullptr;
            }
        }
    }

    // The filter is taken from its window, and may end.
    static void PassOver(const VMessageFilter& filter)
    {
        for (VDispatcher* p = s_pInnermost; p != nullptr; p = p->m_pOuter) {
            if (p->m_pNextFilter == &filter) {
                p->m_pNextFilter = filter.m_pNextFilter;
            }
        }
    }

    // Where the window procedure ends: no exception may cross Windows, which called it.
    LRESULT Run()
    {
        try {
            return Handle();
        } catch (const std::bad_alloc&) {
            return EndForLackOfMemory();
        }
    }

private:
    LRESULT Handle()
    {
        const bool bCreates = IsCreation();
        m_pWindow =
            bCreates ? CreatedObject(m_uMessage, m_lParam) : VWindowList::Get().FindCached(m_hWnd);
        if (bCreates && m_pWindow != nullptr && !m_pWindow->Attach(m_hWnd)) {
            RefuseCreation();
            return 0;
        }
        if (m_pWindow == nullptr || m_pWindow->m_hWnd == nullptr) {
            return HasDialogClass(m_hWnd) ? 0
                                          : DefWindowProcA(m_hWnd, m_uMessage, m_wParam, m_lParam);
        }
        m_bDialog = m_pWindow->IsDialogKind();
        if (RunFilters() && Dispatch()) {
            return m_lResult;
        }
        Finish();
        return m_lResult;
    }

    bool IsCreation() const { return m_uMessage == WM_NCCREATE || m_uMessage == WM_INITDIALOG; }

    // The message counts as handled. A window that was being made is not made.
    LRESULT EndForLackOfMemory()
    {
        if (m_pWindow == nullptr) {
            return 0;
        }
        if (IsCreation()) {
            m_pWindow->RestoreProcedure(m_hWnd);
            RefuseCreation(-1);
        } else if (m_pWindow->m_pMemoryFailure != nullptr) {
            m_pWindow->m_pMemoryFailure(*m_pWindow, m_uMessage, m_wParam);
        }
        return 0;
    }

    // nResult is that of a modal dialog.
    void RefuseCreation(INT_PTR nResult = IDCANCEL)
    {
        if (m_pWindow == nullptr) {
            return;
        }
        if (!m_pWindow->IsDialogKind()) {
            // WM_NCCREATE will return 0 and Windows will destroy the window. Its last messages must
            // not reach the object, which its creator still owns.
            m_pWindow->m_hWnd = nullptr;
            return;
        }
        if (IsModalDialog(m_pWindow)) {
            EndDialog(m_hWnd, nResult);
        } else {
            DestroyWindow(m_hWnd);
        }
    }

    // Returns false when a filter has kept the message.
    bool RunFilters()
    {
        m_pNextFilter = m_pWindow->m_pFilters;
        while (m_pNextFilter != nullptr) {
            VMessageFilter& filter = *m_pNextFilter;
            m_pNextFilter = filter.m_pNextFilter; // the filter may remove itself
            LRESULT lResult = 0;
            bool bHandled = false;
            const bool bGoOn =
                filter.Filter(*m_pWindow, m_uMessage, m_wParam, m_lParam, lResult, bHandled);
            if (bHandled) {
                m_lResult = lResult;
            }
            if (!bGoOn) {
                m_lResult = bHandled ? lResult : 0;
                return false;
            }
            // The filters of an object that is gone are gone with it.
            if (bHandled || m_pWindow == nullptr) {
                break;
            }
        }
        return true;
    }

    // Returns true when the message is done with, without the default procedure.
    bool Dispatch()
    {
        if (m_pWindow == nullptr) {
            return false;
        }
        switch (m_uMessage) {
            case WM_DESTROY:
                m_pWindow->OnDestroy();
                m_lResult = 0;
                break;
            case WM_SIZE:
                m_lResult = m_pWindow->OnSize(static_cast<UINT>(m_wParam), LOWORD(m_lParam),
                                              HIWORD(m_lParam));
                break;
            case WM_PAINT:
                Paint();
                break;
            case WM_CLOSE:
                // When WM_CLOSE of a dialog is not handled, Windows sends it the command IDCANCEL
                // as well.
                Answer(0);
                Close(false);
                break;
            case WM_QUERYENDSESSION:
                Answer(Close(false) ? 1 : 0);
                break;
            case WM_ENDSESSION:
                Answer(0);
                Close(true);
                break;
            case WM_ERASEBKGND:
                if (m_pWindow->m_flags.Test(V_FLAG_OFF_SCREEN)) {
                    m_lResult = 1;
                }
                break;
            case WM_NOTIFY:
                return Notify(reinterpret_cast<NMHDR*>(m_lParam));
            case WM_COMMAND:
                m_lResult = m_pWindow->OnCommand(HIWORD(m_wParam), LOWORD(m_wParam),
                                                 reinterpret_cast<HWND>(m_lParam));
                break;
            default:
                break;
        }
        return false;
    }

    bool Close(bool bForced)
    {
        const bool bGone = m_pWindow->OnClose(bForced);
        if (bGone) {
            m_pWindow = nullptr;
            VWindowList::Get().ForgetCached();
        }
        return bGone;
    }

    // Returns true when the object of the sender has kept the notification.
    bool Notify(NMHDR* pHeader)
    {
        if (VWindow* pSender = VWindow::FromHandle(pHeader->hwndFrom)) {
            LRESULT lValue = 1;
            if (pSender->OnReflectNotify(pHeader, lValue) == -1) {
                Answer(lValue);
                return true;
            }
        }
        if (m_pWindow == nullptr) {
            return false;
        }
        m_lResult = m_pWindow->OnNotify(static_cast<UINT>(m_wParam), pHeader);
        return false;
    }

    // Sets the result of the message. A dialog procedure only says whether it has handled a
    // message; the result itself goes into DWLP_MSGRESULT.
    void Answer(LRESULT lValue)
    {
        m_lResult = lValue;
        if (m_bDialog) {
            SetWindowLongPtrA(m_hWnd, DWLP_MSGRESULT, lValue);
            m_lResult = TRUE;
        }
    }

    void Paint()
    {
        const bool bPaints = m_pWindow->m_flags.Test(V_FLAG_PAINTS);
        const bool bOffScreen = m_pWindow->m_flags.Test(V_FLAG_OFF_SCREEN);
        if ((!bPaints && !bOffScreen) || m_pWindow->GetClientRect().IsEmpty()) {
            return;
        }
        if (auto hDC = reinterpret_cast<HDC>(m_wParam)) {
            VDrawingSurface given;
            given.Attach(hDC, false);
            PaintOn(given, bPaints, bOffScreen);
        } else {
            VPaintSurface own(m_hWnd);
            PaintOn(own, bPaints, bOffScreen);
        }
    }

    void PaintOn(VDrawingSurface& target, bool bPaints, bool bOffScreen)
    {
        if (target.GetHandle() == nullptr) {
            return;
        }
        m_lResult = 0;
        if (bOffScreen) {
            const VRect area = m_pWindow->GetClientRect();
            VBufferedSurface buffer(target, area.GetWidth(), area.GetHeight());
            if (buffer.GetHandle() != nullptr) {
                // Draws the background, which for this window is not erased on the screen.
                m_pWindow->DefaultProc(m_hWnd, WM_ERASEBKGND,
                                       reinterpret_cast<WPARAM>(buffer.GetHandle()), 0);
                PaintWindow(buffer, bPaints);
                return;
            }
        }
        PaintWindow(target, bPaints);
    }

    void PaintWindow(VDrawingSurface& surface, bool bPaints)
    {
        if (m_pWindow == nullptr || (bPaints && m_pWindow->OnPaint(surface))) {
            return;
        }
        if (m_pWindow != nullptr) {
            m_pWindow->DefaultProc(m_hWnd, WM_PAINT, reinterpret_cast<WPARAM>(surface.GetHandle()),
                                   0);
        }
    }

    void Finish()
    {
        if (m_lResult == V_NOT_HANDLED && m_pWindow != nullptr && m_pWindow->m_hWnd != nullptr) {
            m_lResult = m_pWindow->DefaultProc(m_hWnd, m_uMessage, m_wParam, m_lParam);
        }
        if (m_uMessage == WM_INITDIALOG && m_pWindow != nullptr && IsModalDialog(m_pWindow)) {
            m_lResult = 1;
        }
        if (m_uMessage == WM_NCDESTROY && m_pWindow != nullptr) {
            m_pWindow->RestoreProcedure(m_hWnd);
            m_pWindow->m_hWnd = nullptr;
            m_pWindow->m_uId = 0;
            VWindowList::Get().ForgetCached(m_pWindow);
            m_pWindow->OnFinalDestroy();
        }
    }

    static inline VDispatcher* s_pInnermost = nullptr; // the message being handled
    VDispatcher* m_pOuter = s_pInnermost;              // the message within which this one came
    HWND m_hWnd;
    UINT m_uMessage;
    WPARAM m_wParam;
    LPARAM m_lParam;
    VWindow* m_pWindow = nullptr;
    VMessageFilter* m_pNextFilter = nullptr; // which sees the message after the one that sees it
    bool m_bDialog = false;                  // of a dialog kind, also when the object is gone
    LRESULT m_lResult = V_NOT_HANDLED;
};

void VWindow::EndDispatch() const
{
    VDispatcher::Forget(this);
}

void VWindow::PassOver(const VMessageFilter& filter)
{
    VDispatcher::PassOver(filter);
}

LRESULT CALLBACK VWindow::WindowProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    return VDispatcher(hWnd, uMessage, wParam, lParam).Run();
}
