#include "tests/win/dialog_support.h"

#include "tests/win/support.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"

namespace {

constexpr int nBoxMark = 16; // pixels of a check box's or radio button's mark, with its gap

BOOL CALLBACK Collect(HWND hWnd, LPARAM lInto)
{
    reinterpret_cast<std::vector<HWND>*>(lInto)->push_back(hWnd);
    return TRUE;
}

// The controls of the dialog, without the parts of controls, in the order of the template.
std::vector<HWND> ControlsOf(HWND hDialog)
{
    std::vector<HWND> all;
    EnumChildWindows(hDialog, Collect, reinterpret_cast<LPARAM>(&all));
    std::erase_if(all, [=](HWND hWnd) { return GetParent(hWnd) != hDialog; });
    return all;
}

std::string NameOf(HWND hControl)
{
    return std::to_string(GetDlgCtrlID(hControl)) + " " + Text(VWindow::WindowText(hControl));
}

RECT RectIn(HWND hDialog, HWND hControl)
{
    RECT rect = {};
    GetWindowRect(hControl, &rect);
    MapWindowPoints(nullptr, hDialog, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

bool HasTextBeside(int32_t lKind)
{
    return lKind == V_KIND_CHECK_BOX || lKind == V_KIND_RADIO_BUTTON;
}

// Whether a control has room for its text. Kinds that may hold longer texts always have.
bool FitsText(HWND hControl)
{
    const int32_t lKind = VWindow::KindOfWindow(hControl);
    const LONG_PTR lStyle = GetWindowLongPtrA(hControl, GWL_STYLE);
    if (lKind == V_KIND_BUTTON && (lStyle & (BS_ICON | BS_BITMAP)) != 0) {
        return true; // shows a picture
    }
    if (lKind != V_KIND_STATIC && lKind != V_KIND_BUTTON && !HasTextBeside(lKind)) {
        return true;
    }
    VClientSurface surface(hControl);
    const VSelectScope font(surface,
                            reinterpret_cast<HGDIOBJ>(SendMessageA(hControl, WM_GETFONT, 0, 0)));
    RECT room = {};
    GetClientRect(hControl, &room);
    room.right -= HasTextBeside(lKind) ? nBoxMark : 0;
    VRect needed = {0, 0, static_cast<int32_t>(room.right), 0};
    surface.DrawText(VWindow::WindowText(hControl).GetText(), needed,
                     DT_CALCRECT | (lKind == V_KIND_STATIC ? DT_WORDBREAK : DT_SINGLELINE));
    return needed.right <= room.right && needed.bottom <= room.bottom;
}

} // namespace

void Click(HWND hDialog, int nId)
{
    HWND hControl = GetDlgItem(hDialog, nId);
    if (IsWindowEnabled(hControl)) {
        SendMessageA(hControl, BM_CLICK, 0, 0);
    }
}

void TypeCharacters(HWND hEdit, const std::string& sText)
{
    for (const char c : sText) {
        SendMessageA(hEdit, WM_CHAR, static_cast<WPARAM>(c), 1);
    }
}

void PostKey(HWND hControl, WPARAM uKey)
{
    PostMessageA(hControl, WM_KEYDOWN, uKey, 1);
    PostMessageA(hControl, WM_KEYUP, uKey, static_cast<LPARAM>(0xC0000001));
}

bool IsOn(HWND hDialog, int nId)
{
    return IsDlgButtonChecked(hDialog, nId) == BST_CHECKED;
}

bool IsEnabled(HWND hDialog, int nId)
{
    return IsWindowEnabled(GetDlgItem(hDialog, nId)) != FALSE;
}

bool IsShown(HWND hDialog, int nId)
{
    return IsWindowVisible(GetDlgItem(hDialog, nId)) != FALSE;
}

int FocusedId(HWND hDialog)
{
    HWND hFocus = GetFocus();
    while (hFocus != nullptr && GetParent(hFocus) != hDialog) {
        hFocus = GetAncestor(hFocus, GA_PARENT);
    }
    return hFocus == nullptr ? 0 : GetDlgCtrlID(hFocus);
}

int LimitOf(HWND hDialog, int nId)
{
    HWND hControl = GetDlgItem(hDialog, nId);
    HWND hEdit = FindWindowExA(hControl, nullptr, "Edit", nullptr);
    return static_cast<int>(
        SendMessageA(hEdit == nullptr ? hControl : hEdit, EM_GETLIMITTEXT, 0, 0));
}

std::string SizeInUnits(HWND hDialog)
{
    RECT client = {};
    GetClientRect(hDialog, &client);
    // As exact as pixels allow.
    RECT unit = {0, 0, 400, 800};
    MapDialogRect(hDialog, &unit);
    return std::to_string((client.right * 400 + unit.right / 2) / unit.right) + "x" +
           std::to_string((client.bottom * 800 + unit.bottom / 2) / unit.bottom);
}

Texts TabOrder(HWND hDialog)
{
    Texts order;
    for (HWND hControl : ControlsOf(hDialog)) {
        if (static_cast<int16_t>(GetDlgCtrlID(hControl)) != -1) {
            order.push_back(NameOf(hControl));
        }
    }
    return order;
}

Texts LayoutFaults(HWND hDialog)
{
    Texts faults;
    std::vector<HWND> placed;
    RECT client = {};
    GetClientRect(hDialog, &client);
    for (HWND hControl : ControlsOf(hDialog)) {
        if (!IsWindowVisible(hControl)) {
            continue;
        }
        const RECT rect = RectIn(hDialog, hControl);
        if (!FitsText(hControl)) {
            faults.push_back(NameOf(hControl) + " is cut");
        }
        if (rect.left < 0 || rect.top < 0 || rect.right > client.right ||
            rect.bottom > client.bottom) {
            faults.push_back(NameOf(hControl) + " sticks out");
        }
        // The frame around a group may cover the controls in it. It must not be above a control
        // that then would not be painted.
        const bool bFrame = VWindow::KindOfWindow(hControl) == V_KIND_GROUP_BOX;
        const bool bClips = (GetWindowLongPtrA(hControl, GWL_STYLE) & WS_CLIPSIBLINGS) != 0;
        for (HWND hOther : placed) {
            const RECT other = RectIn(hDialog, hOther);
            RECT common = {};
            const bool bAroundFrame = bFrame || VWindow::KindOfWindow(hOther) == V_KIND_GROUP_BOX;
            if ((bClips || !bAroundFrame) && IntersectRect(&common, &rect, &other)) {
                faults.push_back(NameOf(hControl) + " covers " + NameOf(hOther));
            }
        }
        placed.push_back(hControl);
    }
    return faults;
}

std::string NameOfControl(HWND hControl)
{
    const int32_t lKind = VWindow::KindOfWindow(hControl);
    if (lKind == V_KIND_BUTTON || HasTextBeside(lKind)) {
        return Text(VWindow::WindowText(hControl));
    }
    HWND hBefore = GetWindow(hControl, GW_HWNDPREV);
    const bool bLabel = hBefore != nullptr && VWindow::KindOfWindow(hBefore) == V_KIND_STATIC;
    return bLabel ? Text(VWindow::WindowText(hBefore)) : std::string();
}

Texts NamelessControls(HWND hDialog)
{
    Texts nameless;
    for (HWND hControl : ControlsOf(hDialog)) {
        const int32_t lKind = VWindow::KindOfWindow(hControl);
        const std::string sName = NameOfControl(hControl);
        const bool bSilent = lKind == V_KIND_STATIC || lKind == V_KIND_GROUP_BOX;
        if (!bSilent && (sName.empty() || sName == "$")) {
            nameless.push_back(std::to_string(GetDlgCtrlID(hControl)));
        }
    }
    return nameless;
}

ModalDriver::Action AnswerBox(int nButton, std::string* psSentence, std::string* psCaption)
{
    return [=](HWND hBox) {
        if (psSentence != nullptr) {
            *psSentence = BoxText(hBox);
        }
        if (psCaption != nullptr) {
            *psCaption = Text(VWindow::WindowText(hBox));
        }
        Press(hBox, nButton);
    };
}
