#include "tests/e2e/windowaccess.h"

#include "tests/e2e/wait.h"

namespace {

struct Search
{
    DWORD uProcessId;
    bool bVisibleOnly;
    std::vector<HWND> found;
};

BOOL CALLBACK NoteWindow(HWND hWnd, LPARAM lParam)
{
    auto& search = *reinterpret_cast<Search*>(lParam);
    DWORD uOwner = 0;
    GetWindowThreadProcessId(hWnd, &uOwner);
    if (uOwner == search.uProcessId && (!search.bVisibleOnly || IsWindowVisible(hWnd))) {
        search.found.push_back(hWnd);
    }
    return TRUE;
}

BOOL CALLBACK NoteChild(HWND hWnd, LPARAM lParam)
{
    reinterpret_cast<std::vector<HWND>*>(lParam)->push_back(hWnd);
    return TRUE;
}

std::vector<HWND> DescendantsOf(HWND hParent)
{
    std::vector<HWND> windows;
    EnumChildWindows(hParent, NoteChild, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

} // namespace

LRESULT SendTo(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    DWORD_PTR uResult = 0;
    if (SendMessageTimeoutA(hWnd, uMessage, wParam, lParam, SMTO_NORMAL, uStateLimit, &uResult) ==
        0) {
        const DWORD uError = GetLastError();
        FailTest("no answer to message " + std::to_string(uMessage) + " from window " +
                 std::to_string(reinterpret_cast<UINT_PTR>(hWnd)) + " of class '" +
                 WindowClass(hWnd) + "': error " + std::to_string(uError));
    }
    return static_cast<LRESULT>(uResult);
}

std::string WindowText(HWND hWnd)
{
    char szText[1024] = "";
    const std::string sClass = WindowClass(hWnd);
    if (sClass == "#32770" || sClass == "Static" || sClass == "Button") {
        // Windows itself knows these texts and sends no message for them. A message to a window
        // that is being destroyed may never return, and the tests look at dialogs while they close.
        GetWindowTextA(hWnd, szText, sizeof szText);
        return szText;
    }
    DWORD_PTR uLength = 0;
    SendMessageTimeoutA(hWnd, WM_GETTEXT, sizeof szText, reinterpret_cast<LPARAM>(szText),
                        SMTO_NORMAL, uStateLimit, &uLength);
    return szText;
}

std::string WindowClass(HWND hWnd)
{
    char szClass[256] = "";
    GetClassNameA(hWnd, szClass, sizeof szClass);
    return szClass;
}

VRect WindowRect(HWND hWnd)
{
    RECT rect = {};
    GetWindowRect(hWnd, &rect);
    return {rect.left, rect.top, rect.right, rect.bottom};
}

std::vector<HWND> TopWindows(DWORD uProcessId)
{
    Search search = {uProcessId, true, {}};
    EnumWindows(NoteWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::vector<HWND> AllWindows(DWORD uProcessId)
{
    Search search = {uProcessId, false, {}};
    EnumWindows(NoteWindow, reinterpret_cast<LPARAM>(&search));
    std::vector<HWND> all = search.found;
    for (HWND hTop : search.found) {
        const std::vector<HWND> inside = DescendantsOf(hTop);
        all.insert(all.end(), inside.begin(), inside.end());
    }
    return all;
}

std::vector<HWND> ChildrenOf(HWND hParent)
{
    std::vector<HWND> children;
    for (HWND hChild = GetWindow(hParent, GW_CHILD); hChild != nullptr;
         hChild = GetWindow(hChild, GW_HWNDNEXT)) {
        children.push_back(hChild);
    }
    return children;
}

HWND FindChild(HWND hParent, const std::string& sClass)
{
    for (HWND hChild : DescendantsOf(hParent)) {
        if (lstrcmpiA(WindowClass(hChild).c_str(), sClass.c_str()) == 0) {
            return hChild;
        }
    }
    return nullptr;
}

HWND FindChildById(HWND hParent, int nId)
{
    for (HWND hChild : DescendantsOf(hParent)) {
        if (GetDlgCtrlID(hChild) == nId) {
            return hChild;
        }
    }
    return nullptr;
}
