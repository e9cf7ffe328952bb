#include "toolkit/vcontrol.h"

namespace {

DWORD ClassBit(int32_t lKind)
{
    switch (lKind) {
        case V_KIND_LIST_VIEW:
        case V_KIND_HEADER:
            return ICC_LISTVIEW_CLASSES;
        case V_KIND_TREE_VIEW:
            return ICC_TREEVIEW_CLASSES;
        case V_KIND_STATUS_BAR:
        case V_KIND_TOOLBAR:
            return ICC_BAR_CLASSES;
        case V_KIND_TAB:
            return ICC_TAB_CLASSES;
        case V_KIND_PROGRESS_BAR:
            return ICC_PROGRESS_CLASS;
        case V_KIND_UP_DOWN:
            return ICC_UPDOWN_CLASS;
        case V_KIND_REBAR:
            return ICC_COOL_CLASSES;
        case V_KIND_DATE_PICKER:
        case V_KIND_MONTH_CALENDAR:
            return ICC_DATE_CLASSES;
        default:
            return 0;
    }
}

// Loads a window class once by InitCommonControlsEx. Where the library does not have that function,
// InitCommonControls loads all classes.
void InitializeClass(DWORD uBit)
{
    static DWORD uDone = 0;
    if ((uDone & uBit) == uBit) {
        return;
    }
    using Entry = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
    HMODULE hLibrary = GetModuleHandleA("comctl32.dll");
    const auto pEntry = reinterpret_cast<Entry>(
        reinterpret_cast<void*>(GetProcAddress(hLibrary, "InitCommonControlsEx")));
    if (pEntry == nullptr) {
        InitCommonControls();
        uDone = static_cast<DWORD>(-1);
        return;
    }
    const INITCOMMONCONTROLSEX request = {sizeof request, uBit};
    if (pEntry(&request)) {
        uDone |= uBit;
    }
}

bool IsPaintedOffScreen(int32_t lKind)
{
    return lKind == V_KIND_TOOLBAR || lKind == V_KIND_TREE_VIEW || lKind == V_KIND_OFF_SCREEN ||
           lKind == V_KIND_REBAR;
}

} // namespace

VControl::VControl(int32_t lKind) : VWindow(lKind)
{
    InitializeClass(ClassBit(lKind));
    if (IsPaintedOffScreen(lKind)) {
        GetFlags().Set(V_FLAG_OFF_SCREEN);
    }
}

void VControl::OnDestroy()
{
    DefaultProc(GetHandle(), WM_DESTROY, 0, 0);
}

LRESULT VControl::OnReflectNotify(NMHDR* pHeader, LRESULT& lResult)
{
    switch (pHeader->code) {
        case NM_CLICK:
            return OnClick(pHeader, lResult);
        case NM_DBLCLK:
            return OnDoubleClick(pHeader, lResult);
        case NM_KILLFOCUS:
            return OnKillFocus(pHeader, lResult);
        case NM_OUTOFMEMORY:
            return OnOutOfMemory(pHeader, lResult);
        case NM_SETFOCUS:
            return OnSetFocus(pHeader, lResult);
        case NM_RETURN:
            return OnReturn(pHeader, lResult);
        case NM_RCLICK:
            return OnRightClick(pHeader, lResult);
        case NM_RDBLCLK:
            return OnRightDoubleClick(pHeader, lResult);
        default:
            return V_NOT_HANDLED;
    }
}
