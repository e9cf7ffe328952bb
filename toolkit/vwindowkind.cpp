#include "toolkit/vwindowkind.h"

#include "base/vtext.h"
#include "toolkit/vwindow.h"

namespace {

constexpr struct
{
    const char* szClass;
    int32_t lKind;
} aClasses[] = {
    {"Button", V_KIND_BUTTON},
    {"Static", V_KIND_STATIC},
    {"Edit", V_KIND_EDIT},
    {"ComboBox", V_KIND_COMBO_BOX},
    {"ListBox", V_KIND_LIST_BOX},
    {"ScrollBar", V_KIND_SCROLL_BAR},
    {"#32770", V_KIND_DIALOG},
    {"msctls_progress32", V_KIND_PROGRESS_BAR},
    {"SysListView32", V_KIND_LIST_VIEW},
    {"SysTreeView32", V_KIND_TREE_VIEW},
    {"SysTabControl32", V_KIND_TAB},
    {"SysDateTimePick32", V_KIND_DATE_PICKER},
    {"SysMonthCal32", V_KIND_MONTH_CALENDAR},
    {"msctls_updown32", V_KIND_UP_DOWN},
    {"SysHeader32", V_KIND_HEADER},
    {"ReBarWindow32", V_KIND_REBAR},
    {"msctls_statusbar32", V_KIND_STATUS_BAR},
    {"ToolbarWindow32", V_KIND_TOOLBAR},
};

int32_t KindOfButton(LONG_PTR lStyle)
{
    switch (lStyle & BS_TYPEMASK) {
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
        case BS_3STATE:
        case BS_AUTO3STATE:
            return V_KIND_CHECK_BOX;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return V_KIND_RADIO_BUTTON;
        case BS_GROUPBOX:
            return V_KIND_GROUP_BOX;
        default:
            return V_KIND_BUTTON;
    }
}

} // namespace

bool VIsDialogKind(int32_t lKind)
{
    switch (lKind) {
        case V_KIND_DIALOG:
        case V_KIND_FRONT_DIALOG:
        case V_KIND_FRONT_DIALOG_2:
        case V_KIND_DIALOG_2:
        case V_KIND_PROPERTY_SHEET:
        case V_KIND_PROPERTY_PAGE:
            return true;
        default:
            return lKind >= V_KIND_SYSTEM_DIALOG_FIRST && lKind <= V_KIND_SYSTEM_DIALOG_LAST;
    }
}

int32_t VKindOfClass(const char* szClass, LONG_PTR lStyle)
{
    for (const auto& known : aClasses) {
        if (VCompareNoCase(szClass, known.szClass) == 0) {
            return known.lKind == V_KIND_BUTTON ? KindOfButton(lStyle) : known.lKind;
        }
    }
    return V_KIND_OTHER;
}

int32_t VWindow::KindOfWindow(HWND hWnd)
{
    char szClass[256] = "";
    GetClassNameA(hWnd, szClass, sizeof szClass);
    return VKindOfClass(szClass, GetWindowLongPtrA(hWnd, GWL_STYLE));
}
