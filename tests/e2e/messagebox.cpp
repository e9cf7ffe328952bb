#include "tests/e2e/messagebox.h"

#include <algorithm>

#include "resources/resource.h"
#include "tests/e2e/wait.h"
#include "tests/e2e/windowaccess.h"

namespace {

// The calculator is a dialog too, but it stays beside the frame and keeps its user from nothing.
bool IsCalculator(HWND hWnd)
{
    return GetDlgItem(hWnd, IDC_CALC_DISPLAY) != nullptr;
}

std::string TextsOf(const std::vector<MessageBoxWindow>& boxes)
{
    std::string sTexts;
    for (const MessageBoxWindow& box : boxes) {
        sTexts += " [" + box.GetText() + "]";
    }
    return sTexts.empty() ? " none" : sTexts;
}

} // namespace

std::string MessageBoxWindow::GetCaption() const
{
    return WindowText(m_hWnd);
}

std::string MessageBoxWindow::GetText() const
{
    std::string sText;
    for (HWND hChild : ChildrenOf(m_hWnd)) {
        if (WindowClass(hChild) == "Static") {
            // The icon is a static control too, without a text.
            sText += WindowText(hChild);
        }
    }
    return sText;
}

std::vector<HWND> MessageBoxWindow::FindButtons() const
{
    std::vector<HWND> buttons;
    for (HWND hChild : ChildrenOf(m_hWnd)) {
        if (WindowClass(hChild) == "Button" && IsWindowVisible(hChild)) {
            buttons.push_back(hChild);
        }
    }
    return buttons;
}

std::vector<int> MessageBoxWindow::GetButtons() const
{
    std::vector<int> ids;
    const std::vector<HWND> buttons = FindButtons();
    for (HWND hButton : buttons) {
        // When a box has a single button, Esc presses it too. So some systems give it the id
        // IDCANCEL.
        ids.push_back(buttons.size() == 1 ? IDOK : GetDlgCtrlID(hButton));
    }
    return ids;
}

void MessageBoxWindow::Press(int nButton) const
{
    const std::vector<HWND> buttons = FindButtons();
    const std::vector<int> ids = GetButtons();
    const std::string sText = GetText();
    for (size_t u = 0; u < ids.size(); ++u) {
        if (ids[u] == nButton) {
            PostMessageA(m_hWnd, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(buttons[u]), BN_CLICKED),
                         reinterpret_cast<LPARAM>(buttons[u]));
            Await("the end of the box [" + sText + "]", [&] { return !IsWindow(m_hWnd); });
            return;
        }
    }
    FailTest("the box [" + sText + "] has no button " + std::to_string(nButton));
}

std::vector<MessageBoxWindow> MessageBoxesOf(DWORD uProcessId)
{
    std::vector<MessageBoxWindow> boxes;
    for (HWND hWnd : TopWindows(uProcessId)) {
        if (WindowClass(hWnd) == "#32770" && !IsCalculator(hWnd)) {
            boxes.emplace_back(hWnd);
        }
    }
    return boxes;
}

MessageBoxWindow AwaitMessageBox(DWORD uProcessId, const std::string& sText)
{
    const ULONGLONG uEnd = GetTickCount64() + uStateLimit;
    std::vector<MessageBoxWindow> boxes;
    while (GetTickCount64() < uEnd) {
        boxes = MessageBoxesOf(uProcessId);
        for (const MessageBoxWindow& box : boxes) {
            if (box.GetText() == sText && !box.GetButtons().empty()) {
                return box;
            }
        }
        Sleep(5);
    }
    FailTest("awaited: the box [" + sText + "]; boxes on the screen:" + TextsOf(boxes));
}

MessageBoxWindow AwaitBoxWith(DWORD uProcessId, int nButton)
{
    MessageBoxWindow found(nullptr);
    Await("a box with button " + std::to_string(nButton), [&] {
        for (const MessageBoxWindow& box : MessageBoxesOf(uProcessId)) {
            const std::vector<int> buttons = box.GetButtons();
            if (std::count(buttons.begin(), buttons.end(), nButton) == 1) {
                found = box;
            }
        }
        return found.GetHandle() != nullptr;
    });
    return found;
}
