#include "toolkit/vmodalowner.h"

#include "toolkit/vdialog.h"

namespace {

// The atom of the window class that Windows uses for dialogs and message boxes.
constexpr ULONG_PTR uDialogClass = 32770;

struct Search
{
    HWND hRoot;
    HWND hModal;    // the foremost modal window of the root
    HWND hModeless; // the foremost modeless dialog of the root
};

bool IsOwnedBy(HWND hWnd, HWND hRoot)
{
    HWND hOwner = GetWindow(hWnd, GW_OWNER);
    while (hOwner != nullptr && hOwner != hRoot) {
        hOwner = GetWindow(hOwner, GW_OWNER);
    }
    return hOwner != nullptr;
}

BOOL CALLBACK Look(HWND hWnd, LPARAM lParam)
{
    auto& search = *reinterpret_cast<Search*>(lParam);
    if (!IsWindowVisible(hWnd) || !IsWindowEnabled(hWnd) ||
        GetClassLongPtrA(hWnd, GCW_ATOM) != uDialogClass || !IsOwnedBy(hWnd, search.hRoot)) {
        return TRUE;
    }
    const auto* pDialog = dynamic_cast<const VDialog*>(VWindow::FromHandle(hWnd));
    // A dialog that has no object, such as a message box, is modal.
    HWND& hFound = pDialog == nullptr || pDialog->IsModal() ? search.hModal : search.hModeless;
    hFound = hFound == nullptr ? hWnd : hFound;
    return TRUE;
}

} // namespace

HWND VModalOwner(HWND hWnd)
{
    HWND hRoot = GetAncestor(hWnd, GA_ROOT);
    if (hRoot == nullptr || IsWindowEnabled(hRoot)) {
        return hWnd;
    }
    Search search = {hRoot, nullptr, nullptr};
    EnumThreadWindows(GetCurrentThreadId(), &Look, reinterpret_cast<LPARAM>(&search));
    if (search.hModal != nullptr) {
        return search.hModal;
    }
    // A progress window is modeless, but keeps the user from the other windows too.
    return search.hModeless != nullptr ? search.hModeless : hWnd;
}
