// Looks at the windows of other programs and presses their buttons, as a user would.
//   boxes.exe texts TITLE          prints what the windows with this title say, each window's
//   number
//                                  before its texts
//   boxes.exe press TITLE BUTTON   presses a button; its name is without the mark of its key
// The exit code is 1 where there is no such window, or no such button that can be pressed now.
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr UINT g_uLimitMs = 10000;

std::string TextOf(HWND hWnd)
{
    char szText[4096] = "";
    DWORD_PTR uLength = 0;
    SendMessageTimeoutA(hWnd, WM_GETTEXT, sizeof szText, reinterpret_cast<LPARAM>(szText),
                        SMTO_ABORTIFHUNG, g_uLimitMs, &uLength);
    return szText;
}

BOOL CALLBACK AddVisible(HWND hWnd, LPARAM lWindows)
{
    if (IsWindowVisible(hWnd)) {
        reinterpret_cast<std::vector<HWND>*>(lWindows)->push_back(hWnd);
    }
    return TRUE;
}

std::vector<HWND> ChildrenOf(HWND hWnd)
{
    std::vector<HWND> children;
    EnumChildWindows(hWnd, AddVisible, reinterpret_cast<LPARAM>(&children));
    return children;
}

std::vector<HWND> WindowsOf(const std::string& sTitle)
{
    std::vector<HWND> all;
    std::vector<HWND> found;
    EnumWindows(AddVisible, reinterpret_cast<LPARAM>(&all));
    for (HWND hWnd : all) {
        // The title of an installer of NSIS ends in a blank.
        std::string sText = TextOf(hWnd);
        sText.erase(sText.find_last_not_of(' ') + 1);
        if (sText == sTitle) {
            found.push_back(hWnd);
        }
    }
    return found;
}

bool IsButton(HWND hWnd, const std::string& sName)
{
    char szClass[64] = "";
    GetClassNameA(hWnd, szClass, sizeof szClass);
    std::string sText = TextOf(hWnd);
    std::erase(sText, '&');
    return std::string("Button") == szClass && sText == sName;
}

bool PrintTexts(const std::string& sTitle)
{
    const std::vector<HWND> windows = WindowsOf(sTitle);
    for (HWND hWnd : windows) {
        printf("window %u\n", static_cast<unsigned>(reinterpret_cast<UINT_PTR>(hWnd)));
        for (HWND hChild : ChildrenOf(hWnd)) {
            printf("%s\n", TextOf(hChild).c_str());
        }
    }
    return !windows.empty();
}

bool Press(const std::string& sTitle, const std::string& sName)
{
    for (HWND hWnd : WindowsOf(sTitle)) {
        if (!IsWindowEnabled(hWnd)) {
            continue; // it has a box above it
        }
        for (HWND hChild : ChildrenOf(hWnd)) {
            if (IsWindowEnabled(hChild) && IsButton(hChild, sName)) {
                return PostMessageA(GetParent(hChild), WM_COMMAND,
                                    MAKEWPARAM(GetDlgCtrlID(hChild), BN_CLICKED),
                                    reinterpret_cast<LPARAM>(hChild)) != 0;
            }
        }
    }
    return false;
}

} // namespace

int main(int nArguments, char* aszArguments[])
{
    const std::vector<std::string> words(aszArguments + 1, aszArguments + nArguments);
    if (words.size() == 2 && words[0] == "texts") {
        return PrintTexts(words[1]) ? 0 : 1;
    }
    if (words.size() == 3 && words[0] == "press") {
        return Press(words[1], words[2]) ? 0 : 1;
    }
    return 2;
}
