#include "tests/e2e/keyboard.h"

#include <algorithm>

#include "tests/e2e/wait.h"

namespace {

bool IsExtended(WORD uKey)
{
    return (uKey >= VK_PRIOR && uKey <= VK_DOWN) || uKey == VK_INSERT || uKey == VK_DELETE;
}

INPUT KeyInput(WORD uKey, bool bUp)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = uKey;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(uKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = (bUp ? static_cast<DWORD>(KEYEVENTF_KEYUP) : 0U) |
                       (IsExtended(uKey) ? static_cast<DWORD>(KEYEVENTF_EXTENDEDKEY) : 0U);
    return input;
}

INPUT CharacterInput(char c, bool bUp)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = static_cast<unsigned char>(c);
    input.ki.dwFlags =
        static_cast<DWORD>(KEYEVENTF_UNICODE) | (bUp ? static_cast<DWORD>(KEYEVENTF_KEYUP) : 0U);
    return input;
}

void Send(std::vector<INPUT>& inputs)
{
    const auto uCount = static_cast<UINT>(inputs.size());
    if (SendInput(uCount, inputs.data(), sizeof(INPUT)) != uCount) {
        FailTest("the keys are not taken: error " + std::to_string(GetLastError()));
    }
}

} // namespace

void Keyboard::AwaitInFront() const
{
    Await("the program in front", [&] {
        DWORD uId = 0;
        GetWindowThreadProcessId(GetForegroundWindow(), &uId);
        return uId == m_program.GetId();
    });
}

void Keyboard::Press(WORD uKey, const std::vector<WORD>& held) const
{
    AwaitInFront();
    std::vector<INPUT> inputs;
    for (const WORD uHeld : held) {
        inputs.push_back(KeyInput(uHeld, false));
    }
    inputs.push_back(KeyInput(uKey, false));
    inputs.push_back(KeyInput(uKey, true));
    for (size_t u = held.size(); u-- > 0;) {
        inputs.push_back(KeyInput(held[u], true));
    }
    Send(inputs);
}

void Keyboard::Type(const std::string& sText) const
{
    AwaitInFront();
    std::vector<INPUT> inputs;
    for (const char c : sText) {
        inputs.push_back(CharacterInput(c, false));
        inputs.push_back(CharacterInput(c, true));
    }
    if (!inputs.empty()) {
        Send(inputs);
    }
}

void Keyboard::TabTo(const DialogWindow& dialog, int nId) const
{
    constexpr int nMostStops = 40;
    for (int i = 0; i < nMostStops; ++i) {
        const int nFocus = dialog.GetFocus();
        if (nFocus == nId) {
            return;
        }
        Press(VK_TAB);
        Await("the next control", [&] { return dialog.GetFocus() != nFocus; });
    }
    FailTest("Tab does not come to control " + std::to_string(nId));
}

void Keyboard::Fill(const DialogWindow& dialog, int nId, const std::string& sText) const
{
    TabTo(dialog, nId);
    Press(VK_HOME);
    Press(VK_END, {VK_SHIFT});
    Press(VK_BACK);
    Await("an empty field", [&] { return dialog.GetText(nId).empty(); });
    Type(sText);
    Await("the text '" + sText + "' in its field", [&] { return dialog.GetText(nId) == sText; });
}

void Keyboard::Check(const DialogWindow& dialog, int nId, bool bOn) const
{
    if (dialog.IsChecked(nId) != bOn) {
        TabTo(dialog, nId);
        Press(VK_SPACE);
        Await("the box " + std::to_string(nId), [&] { return dialog.IsChecked(nId) == bOn; });
    }
}
