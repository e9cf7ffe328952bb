// quillmark.exe as its user sees it: frame, documents, menu, bars and boxes.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/e2e/messagebox.h"
#include "tests/e2e/process.h"
#include "tests/e2e/windowaccess.h"

// A menu item's state.
enum class MenuItem
{
    Missing,
    Grayed,
    Enabled,
    Checked, // with a check mark, and enabled
};

class Program
{
public:
    // Starts the program and waits until its frame is visible and idle.
    void Open(const std::vector<std::string>& arguments = {});
    // Starts the program without waiting.
    void Start(const std::vector<std::string>& arguments);
    // Waits for the frame, and until the program is idle.
    void AwaitFrame();

    bool IsRunning() const { return m_process.IsRunning(); }
    DWORD AwaitExit() { return m_process.AwaitExit(); }
    // Closes the frame as its user does and returns the exit code.
    DWORD Close();
    DWORD GetId() const { return m_process.GetId(); }
    HANDLE GetProcess() const { return m_process.GetHandle(); }

    // ---- The frame and its parts; null for a part that does not exist.

    HWND GetFrame() const { return m_hFrame; }
    HWND GetClient() const;
    HWND GetRebar() const;
    HWND GetToolbar() const;
    HWND GetStatusBar() const;
    // The title of the frame, without the title of a maximized document.
    std::string GetTitle() const;

    // ---- Commands and menus.

    // Posts a command as a menu, a key or a button does. Does not wait.
    void Post(UINT uCommand) const;
    // Waits until every command posted so far is done, or waits for an answer in a box.
    void Settle() const;
    MenuItem GetMenuItem(UINT uCommand) const;
    // The label with its key, such as "&New\tCtrl+N"; empty for an item that does not exist.
    std::string GetMenuText(UINT uCommand) const;
    // The same for any menu of the program.
    std::string GetMenuText(HMENU hMenu, UINT uCommand) const;
    void AwaitMenuItem(UINT uCommand, MenuItem state) const;

    // ---- Documents.

    // The documents from the foremost to the last.
    std::vector<HWND> GetDocuments() const;
    // Their titles in the same order.
    std::vector<std::string> GetDocumentTitles() const;
    HWND GetActiveDocument() const;
    // The title of the active document; empty when there is none.
    std::string GetActiveTitle() const;
    void AwaitDocuments(size_t uCount) const;
    // Waits until the active document has this title. An empty title means no document.
    void AwaitActive(const std::string& sTitle) const;
    // Makes a new document and waits until it is active. nNumber is the number that its title must
    // have.
    void NewDocument(int nNumber) const;
    // The list of a document's register.
    static HWND GetList(HWND hDocument);

    // ---- Status bar.

    std::string GetPaneText(int nPane) const;
    // Whether the status bar shows only its first pane.
    bool IsStatusSimple() const;

    // ---- Boxes.

    // Waits for a box with this text, checks its caption and its button, and presses the button.
    void AnswerBox(const std::string& sText) const;
    // The same for a question with these buttons, in any order.
    void AnswerQuestion(const std::string& sText, const std::vector<int>& buttons,
                        int nAnswer) const;
    // What keeps the user from the frame: boxes, and dialogs but for the calculator.
    std::vector<MessageBoxWindow> GetBoxes() const { return MessageBoxesOf(GetId()); }

private:
    HMENU GetMenuHandle() const;

    Process m_process;
    HWND m_hFrame = nullptr;
};

// The frame of an instance that runs already; null when there is none.
HWND FindRunningInstance();
