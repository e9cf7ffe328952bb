#include "tests/e2e/program.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "resources/resource.h"
#include "tests/e2e/remoteprocess.h"
#include "tests/e2e/wait.h"

namespace {

constexpr size_t uTextSize = 1024;

// The splash window has the same class, but no documents.
bool IsFrame(HWND hWnd)
{
    return WindowClass(hWnd).rfind("Quillmark:", 0) == 0 &&
           FindChildById(hWnd, IDC_MDICLIENT) != nullptr;
}

BOOL CALLBACK FindFrame(HWND hWnd, LPARAM lParam)
{
    if (IsFrame(hWnd)) {
        *reinterpret_cast<HWND*>(lParam) = hWnd;
        return FALSE;
    }
    return TRUE;
}

FARPROC UserFunction(const char* szName)
{
    return GetProcAddress(GetModuleHandleA("user32.dll"), szName);
}

} // namespace

HWND FindRunningInstance()
{
    HWND hFound = nullptr;
    EnumWindows(FindFrame, reinterpret_cast<LPARAM>(&hFound));
    return hFound;
}

// ---- Start and end.

void Program::Start(const std::vector<std::string>& arguments)
{
    m_hFrame = nullptr;
    m_process.Start(ProgramFolder() + "quillmark.exe", arguments);
}

void Program::Open(const std::vector<std::string>& arguments)
{
    Start(arguments);
    AwaitFrame();
}

void Program::AwaitFrame()
{
    Await("the frame of quillmark.exe", [&] {
        if (!IsRunning()) {
            FailTest("quillmark.exe ended with code " + std::to_string(m_process.AwaitExit()) +
                     " before its frame was shown");
        }
        for (HWND hWnd : TopWindows(GetId())) {
            m_hFrame = IsFrame(hWnd) ? hWnd : m_hFrame;
        }
        return m_hFrame != nullptr;
    });
    if (WaitForInputIdle(GetProcess(), uStateLimit) != 0) {
        FailTest("quillmark.exe does not get to wait for its user");
    }
    PrepareCalls(GetProcess());
    Settle();
}

DWORD Program::Close()
{
    // The frame refuses to close while a command runs, and a command still runs for a moment after
    // its box was answered.
    Await("the end of the frame's command", [this] { return IsWindowEnabled(m_hFrame) != FALSE; });
    PostMessageA(m_hFrame, WM_CLOSE, 0, 0);
    return m_process.AwaitExit();
}

// ---- Parts of the frame.

HWND Program::GetClient() const
{
    return FindChildById(m_hFrame, IDC_MDICLIENT);
}

HWND Program::GetRebar() const
{
    return FindChildById(m_hFrame, IDC_REBAR);
}

HWND Program::GetToolbar() const
{
    return FindChildById(m_hFrame, IDC_TOOLBAR);
}

HWND Program::GetStatusBar() const
{
    return FindChildById(m_hFrame, IDC_STATUSBAR);
}

std::string Program::GetTitle() const
{
    const std::string sTitle = WindowText(m_hFrame);
    return sTitle.substr(0, sTitle.find(" - ["));
}

// ---- Commands and menus.

void Program::Post(UINT uCommand) const
{
    PostMessageA(m_hFrame, WM_COMMAND, uCommand, 0);
}

void Program::Settle() const
{
    // Posted messages are handled in their order. So once the toolbar has handled this one, the
    // command is done.
    HWND hToolbar = GetToolbar();
    const bool bWas = SendTo(hToolbar, TB_GETANCHORHIGHLIGHT) != 0;
    PostMessageA(hToolbar, TB_SETANCHORHIGHLIGHT, !bWas, 0);
    Await("the end of what was posted",
          [&] { return (SendTo(hToolbar, TB_GETANCHORHIGHLIGHT) != 0) != bWas; });
}

HMENU Program::GetMenuHandle() const
{
    return GetMenu(m_hFrame);
}

// On some systems a menu's handle is valid only in the program that made it.
MenuItem Program::GetMenuItem(UINT uCommand) const
{
    const auto uState = static_cast<UINT>(CallRemote(GetProcess(), UserFunction("GetMenuState"),
                                                     reinterpret_cast<UINT_PTR>(GetMenuHandle()),
                                                     uCommand, MF_BYCOMMAND));
    if (uState == static_cast<UINT>(-1)) {
        return MenuItem::Missing;
    }
    if ((uState & (MF_GRAYED | MF_DISABLED)) != 0) {
        return MenuItem::Grayed;
    }
    return (uState & MF_CHECKED) != 0 ? MenuItem::Checked : MenuItem::Enabled;
}

std::string Program::GetMenuText(UINT uCommand) const
{
    return GetMenuText(GetMenuHandle(), uCommand);
}

std::string Program::GetMenuText(HMENU hMenu, UINT uCommand) const
{
    // GetMenuString takes five arguments, and a remote call four at most. GetMenuItemInfo takes a
    // record instead.
    RemoteMemory memory(GetProcess(), sizeof(MENUITEMINFOA) + uTextSize);
    MENUITEMINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = memory.At(sizeof info);
    info.cch = uTextSize;
    memory.Write(0, &info, sizeof info);
    char szText[uTextSize] = "";
    const UINT_PTR uDone = CallRemote(GetProcess(), UserFunction("GetMenuItemInfoA"),
                                      reinterpret_cast<UINT_PTR>(hMenu), uCommand, FALSE,
                                      static_cast<UINT_PTR>(memory.AsParameter()));
    if (static_cast<BOOL>(uDone)) {
        memory.Read(sizeof info, szText, uTextSize - 1);
    }
    return szText;
}

void Program::AwaitMenuItem(UINT uCommand, MenuItem state) const
{
    Await("state " + std::to_string(static_cast<int>(state)) + " of menu item " +
              std::to_string(uCommand),
          [&] { return GetMenuItem(uCommand) == state; });
}

// ---- Documents.

std::vector<HWND> Program::GetDocuments() const
{
    std::vector<HWND> documents;
    for (HWND hChild : ChildrenOf(GetClient())) {
        if (WindowClass(hChild) == "VMDIChildWindow") {
            documents.push_back(hChild);
        }
    }
    return documents;
}

std::vector<std::string> Program::GetDocumentTitles() const
{
    std::vector<std::string> titles;
    for (HWND hDocument : GetDocuments()) {
        titles.push_back(WindowText(hDocument));
    }
    return titles;
}

HWND Program::GetActiveDocument() const
{
    return reinterpret_cast<HWND>(SendTo(GetClient(), WM_MDIGETACTIVE));
}

std::string Program::GetActiveTitle() const
{
    HWND hActive = GetActiveDocument();
    return hActive == nullptr ? "" : WindowText(hActive);
}

void Program::AwaitDocuments(size_t uCount) const
{
    Await(std::to_string(uCount) + " documents", [&] { return GetDocuments().size() == uCount; });
}

void Program::AwaitActive(const std::string& sTitle) const
{
    Await("the active document '" + sTitle + "'", [&] { return GetActiveTitle() == sTitle; });
}

void Program::NewDocument(int nNumber) const
{
    Post(IDM_FILE_NEW);
    Settle();
    AwaitActive("Untitled" + std::to_string(nNumber));
}

HWND Program::GetList(HWND hDocument)
{
    HWND hList = FindChild(hDocument, WC_LISTVIEWA);
    if (hList == nullptr) {
        FailTest("no list in the document '" + WindowText(hDocument) + "'");
    }
    return hList;
}

// ---- Status bar.

std::string Program::GetPaneText(int nPane) const
{
    HWND hBar = GetStatusBar();
    const auto uPane = static_cast<WPARAM>(nPane);
    if (LOWORD(SendTo(hBar, SB_GETTEXTLENGTHA, uPane)) >= uTextSize) {
        FailTest("too long a text in pane " + std::to_string(nPane));
    }
    RemoteMemory memory(GetProcess(), uTextSize);
    SendTo(hBar, SB_GETTEXTA, uPane, memory.AsParameter());
    char szText[uTextSize] = "";
    memory.Read(0, szText, uTextSize - 1);
    return szText;
}

bool Program::IsStatusSimple() const
{
    return SendTo(GetStatusBar(), SB_ISSIMPLE) != 0;
}

// ---- Boxes.

void Program::AnswerBox(const std::string& sText) const
{
    AnswerQuestion(sText, {IDOK}, IDOK);
}

void Program::AnswerQuestion(const std::string& sText, const std::vector<int>& buttons,
                             int nAnswer) const
{
    const MessageBoxWindow box = AwaitMessageBox(GetId(), sText);
    EXPECT_EQ(box.GetCaption(), "Quillmark");
    std::vector<int> found = box.GetButtons();
    EXPECT_TRUE(std::is_permutation(found.begin(), found.end(), buttons.begin(), buttons.end()))
        << sText;
    box.Press(nAnswer);
}
