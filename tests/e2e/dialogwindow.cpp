#include "tests/e2e/dialogwindow.h"

#include <commctrl.h>
#include <dlgs.h>

#include <cstdio>

#include "resources/resource.h"
#include "tests/e2e/remoteprocess.h"
#include "tests/e2e/wait.h"
#include "tests/e2e/windowaccess.h"

namespace {

constexpr size_t uTextSize = 1024;

// A message box has only its sentence, its icon and its buttons, with ids from Windows.
bool IsMessageBox(HWND hWnd)
{
    constexpr int nSentenceId = 0xFFFF;
    constexpr int nLastId = 255; // of the system's
    for (HWND hChild : ChildrenOf(hWnd)) {
        const std::string sClass = WindowClass(hChild);
        const int nId = GetDlgCtrlID(hChild);
        const bool bSentence = sClass == "Static" && nId == nSentenceId;
        const bool bOfSystem = (sClass == "Static" || sClass == "Button") && nId <= nLastId;
        if (!bSentence && !bOfSystem) {
            return false;
        }
    }
    return true;
}

void NotifyParent(HWND hItem, int nCode)
{
    SendTo(GetParent(hItem), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hItem), nCode),
           reinterpret_cast<LPARAM>(hItem));
}

// Sends a message from within the other program, so that pointers point into its own memory.
LRESULT SendFromWithin(HANDLE hProcess, HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    return static_cast<LRESULT>(
        CallRemote(hProcess, GetProcAddress(GetModuleHandleA("user32.dll"), "SendMessageA"),
                   reinterpret_cast<UINT_PTR>(hWnd), uMessage, static_cast<UINT_PTR>(wParam),
                   static_cast<UINT_PTR>(lParam)));
}

} // namespace

// ---- The dialog.

std::string DialogWindow::GetCaption() const
{
    return WindowText(m_hDialog);
}

void DialogWindow::AwaitEnd() const
{
    // The dialog is already gone, with its caption.
    Await("the end of a dialog",
          [&] { return !IsWindow(m_hDialog) || !IsWindowVisible(m_hDialog); });
}

void DialogWindow::Close() const
{
    PostMessageA(m_hDialog, WM_CLOSE, 0, 0);
}

// ---- Controls.

bool DialogWindow::HasItem(int nId) const
{
    return FindItem(nId) != nullptr;
}

HWND DialogWindow::FindItem(int nId) const
{
    // Direct children first: deeper down, the dialogs of Windows use the same ids again.
    HWND hChild = GetDlgItem(m_hDialog, nId);
    return hChild != nullptr ? hChild : FindChildById(m_hDialog, nId);
}

HWND DialogWindow::GetItem(int nId) const
{
    HWND hItem = FindItem(nId);
    if (hItem == nullptr) {
        FailTest("the dialog '" + GetCaption() + "' has no control " + std::to_string(nId));
    }
    return hItem;
}

bool DialogWindow::IsEnabled(int nId) const
{
    return IsWindowEnabled(GetItem(nId)) != 0;
}

bool DialogWindow::IsVisible(int nId) const
{
    return IsWindowVisible(GetItem(nId)) != 0;
}

std::string DialogWindow::GetText(int nId) const
{
    return WindowText(GetItem(nId));
}

void DialogWindow::SetText(int nId, const std::string& sText) const
{
    SendTo(GetItem(nId), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(sText.c_str()));
}

void DialogWindow::Press(int nId) const
{
    if (!IsEnabled(nId) || !IsVisible(nId)) {
        FailTest("control " + std::to_string(nId) + " of '" + GetCaption() + "' cannot be pressed");
    }
    PostMessageA(GetItem(nId), BM_CLICK, 0, 0);
}

void DialogWindow::End(int nId) const
{
    Press(nId);
    AwaitEnd();
}

bool DialogWindow::IsChecked(int nId) const
{
    return SendTo(GetItem(nId), BM_GETCHECK) == BST_CHECKED;
}

void DialogWindow::Check(int nId, bool bOn) const
{
    if (IsChecked(nId) != bOn) {
        Press(nId);
        Await("the state of button " + std::to_string(nId), [&] { return IsChecked(nId) == bOn; });
    }
}

std::vector<std::string> DialogWindow::GetChoices(int nId) const
{
    HWND hItem = GetItem(nId);
    std::vector<std::string> choices;
    RemoteMemory memory(m_hProcess, uTextSize);
    for (LRESULT l = 0; l < SendTo(hItem, CB_GETCOUNT); ++l) {
        const auto uIndex = static_cast<WPARAM>(l);
        if (SendTo(hItem, CB_GETLBTEXTLEN, uIndex) >= static_cast<LRESULT>(uTextSize)) {
            FailTest("too long a line in combo box " + std::to_string(nId));
        }
        // From another process some systems give only a part of the text.
        SendFromWithin(m_hProcess, hItem, CB_GETLBTEXT, uIndex, memory.AsParameter());
        char szText[uTextSize] = "";
        memory.Read(0, szText, uTextSize - 1);
        choices.emplace_back(szText);
    }
    return choices;
}

int DialogWindow::GetChoice(int nId) const
{
    return static_cast<int>(SendTo(GetItem(nId), CB_GETCURSEL));
}

void DialogWindow::Choose(int nId, int nChoice) const
{
    HWND hItem = GetItem(nId);
    if (SendTo(hItem, CB_SETCURSEL, static_cast<WPARAM>(nChoice)) != nChoice) {
        FailTest("no line " + std::to_string(nChoice) + " in combo box " + std::to_string(nId));
    }
    for (const int nCode : {CBN_SELENDOK, CBN_SELCHANGE, CBN_CLOSEUP}) {
        NotifyParent(hItem, nCode);
    }
}

std::string DialogWindow::GetDate(int nId) const
{
    RemoteMemory memory(m_hProcess, sizeof(SYSTEMTIME));
    if (SendTo(GetItem(nId), DTM_GETSYSTEMTIME, 0, memory.AsParameter()) != GDT_VALID) {
        return "(none)";
    }
    SYSTEMTIME time = {};
    memory.Read(0, &time, sizeof time);
    char szDate[32] = "";
    snprintf(szDate, sizeof szDate, "%04d-%02d-%02d", time.wYear, time.wMonth, time.wDay);
    return szDate;
}

void DialogWindow::SetDate(int nId, const std::string& sDate) const
{
    HWND hItem = GetItem(nId);
    NMDATETIMECHANGE notice = {};
    if (sscanf(sDate.c_str(), "%4hu-%2hu-%2hu", &notice.st.wYear, &notice.st.wMonth,
               &notice.st.wDay) != 3) {
        FailTest("no date: " + sDate);
    }
    notice.nmhdr = {hItem, static_cast<UINT_PTR>(nId), DTN_DATETIMECHANGE};
    RemoteMemory memory(m_hProcess, sizeof notice);
    memory.Write(0, &notice, sizeof notice);
    const LPARAM lTime = memory.AsParameter(offsetof(NMDATETIMECHANGE, st));
    if (SendTo(hItem, DTM_SETSYSTEMTIME, GDT_VALID, lTime) == 0) {
        FailTest("the date is not taken: " + sDate);
    }
    // The control notifies its dialog of changes by its user only, and a notification cannot be
    // sent across processes.
    CallRemote(m_hProcess, GetProcAddress(GetModuleHandleA("user32.dll"), "SendMessageA"),
               reinterpret_cast<UINT_PTR>(GetParent(hItem)), WM_NOTIFY, static_cast<UINT_PTR>(nId),
               static_cast<UINT_PTR>(memory.AsParameter()));
}

// ---- Keyboard.

void DialogWindow::Focus(int nId) const
{
    PostMessageA(m_hDialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetItem(nId)), TRUE);
    AwaitFocus(nId);
}

int DialogWindow::GetFocus() const
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(m_hDialog, nullptr), &info);
    for (HWND hWnd = info.hwndFocus; hWnd != nullptr; hWnd = GetParent(hWnd)) {
        // The edit field of a combo box counts as the combo box.
        if (GetParent(hWnd) == m_hDialog) {
            return GetDlgCtrlID(hWnd);
        }
    }
    return 0;
}

void DialogWindow::AwaitFocus(int nId) const
{
    Await("the focus on control " + std::to_string(nId) + " of '" + GetCaption() + "'",
          [&] { return GetFocus() == nId; });
}

int DialogWindow::GetDefaultButton() const
{
    return LOWORD(SendTo(m_hDialog, DM_GETDEFID));
}

// ---- The dialogs of Windows.

HWND FileDialogWindow::FindNameField() const
{
    // A combo box with an edit field, or an edit field alone.
    HWND hCombo = FindChildById(GetHandle(), cmb13);
    HWND hEdit = hCombo == nullptr ? FindChildById(GetHandle(), edt1) : FindChild(hCombo, "Edit");
    if (hEdit == nullptr) {
        FailTest("the dialog '" + GetCaption() + "' has no field for a name");
    }
    return hEdit;
}

std::string FileDialogWindow::GetName() const
{
    return WindowText(FindNameField());
}

void FileDialogWindow::EnterName(const std::string& sPath) const
{
    SendTo(FindNameField(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(sPath.c_str()));
}

std::vector<std::string> FileDialogWindow::GetTypes() const
{
    return GetChoices(cmb1);
}

int FileDialogWindow::GetType() const
{
    return GetChoice(cmb1);
}

void FileDialogWindow::ChooseType(int nType) const
{
    Choose(cmb1, nType);
}

void FileDialogWindow::Enter(const std::string& sPath, int nType) const
{
    if (nType >= 0) {
        ChooseType(nType);
    }
    // Selecting a file type may change the extension of the name.
    EnterName(sPath);
    Accept();
    AwaitEnd();
}

// ---- Finding dialogs.

std::vector<DialogWindow> FindDialogs(const Program& program, const std::string& sCaption)
{
    std::vector<DialogWindow> dialogs;
    for (HWND hWnd : TopWindows(program.GetId())) {
        if (WindowClass(hWnd) == "#32770" && WindowText(hWnd) == sCaption && !IsMessageBox(hWnd)) {
            dialogs.emplace_back(program.GetProcess(), hWnd);
        }
    }
    return dialogs;
}

DialogWindow AwaitDialog(const Program& program, const std::string& sCaption)
{
    std::vector<DialogWindow> dialogs;
    Await("the dialog '" + sCaption + "'", [&] {
        dialogs = FindDialogs(program, sCaption);
        return !dialogs.empty();
    });
    return dialogs.front();
}

DialogWindow AwaitPage(const Program& program, const DialogWindow& sheet, int nPage, int nControl)
{
    SendTo(sheet.GetHandle(), PSM_SETCURSEL, static_cast<WPARAM>(nPage));
    HWND hPage = nullptr;
    Await("page " + std::to_string(nPage) + " of a sheet", [&] {
        hPage = reinterpret_cast<HWND>(SendTo(sheet.GetHandle(), PSM_GETCURRENTPAGEHWND));
        return hPage != nullptr && GetDlgItem(hPage, nControl) != nullptr;
    });
    return {program.GetProcess(), hPage};
}

FileDialogWindow AwaitFileDialog(const Program& program, const std::string& sCaption)
{
    const FileDialogWindow dialog(AwaitDialog(program, sCaption));
    Await("the types of the dialog '" + sCaption + "'",
          [&] { return dialog.HasItem(IDOK) && dialog.HasItem(cmb1); });
    return dialog;
}

HWND FindProgressOf(const Program& program)
{
    for (HWND hWnd : TopWindows(program.GetId())) {
        // Nobody can press a button of a window that is still being made.
        if (IsWindowVisible(hWnd) && FindChildById(hWnd, IDC_PROGRESS_BAR) != nullptr) {
            return hWnd;
        }
    }
    return nullptr;
}

DialogWindow AwaitProgress(const Program& program)
{
    HWND hProgress = nullptr;
    Await("a progress window", [&] {
        hProgress = FindProgressOf(program);
        return hProgress != nullptr;
    });
    return {program.GetProcess(), hProgress};
}
