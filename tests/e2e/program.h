// quillmark.exe as a user has it on the screen: its frame, documents, menu, bars and boxes.
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
    Checked, // and enabled
};

class Program
{
public:
    // Starts it and waits until it is idle with its frame on the screen.
    void Open(const std::vector<std::string>& arguments = {});
    // Only starts it.
    void Start(const std::vector<std::string>& arguments);
    // Waits for the frame, and until the program waits for its user.
    void AwaitFrame();

    bool IsRunning() const { return m_process.IsRunning(); }
    DWORD AwaitExit() { return m_process.AwaitExit(); }
    // Closes the frame as its user does and returns the exit code.
    DWORD Close();
    DWORD GetId() const { return m_process.GetId(); }
    HANDLE GetProcess() const { return m_process.GetHandle(); }

    // ---- The frame and its parts; null for what is not there.

    HWND GetFrame() const { return m_hFrame; }
    HWND GetClient() const;
    HWND GetRebar() const;
    HWND GetToolbar() const;
    HWND GetStatusBar() const;
    // The frame's title without that of a maximized document.
    std::string GetTitle() const;

    // ---- Commands and menus.

    // As a menu, a key or a button sends it; does not wait.
    void Post(UINT uCommand) const;
    // Waits until everything posted so far has been carried out, or waits in a box.
    void Settle() const;
    MenuItem GetMenuItem(UINT uCommand) const;
    // The label with its key, as "&New\tCtrl+N"; empty for a missing item.
    std::string GetMenuText(UINT uCommand) const;
    // The same for any menu of the program.
    std::string GetMenuText(HMENU hMenu, UINT uCommand) const;
    void AwaitMenuItem(UINT uCommand, MenuItem state) const;

    // ---- Documents.

    // From the front to the back.
    std::vector<HWND> GetDocuments() const;
    // Their titles, in that order.
    std::vector<std::string> GetDocumentTitles() const;
    HWND GetActiveDocument() const;
    // Empty without one.
    std::string GetActiveTitle() const;
    void AwaitDocuments(size_t uCount) const;
    // Waits until the active document has this title; empty stands for no document.
    void AwaitActive(const std::string& sTitle) const;
    // Makes a new document and waits until it is active. nNumber is the one it must get.
    void NewDocument(int nNumber) const;
    // The list of a document's register.
    static HWND GetList(HWND hDocument);

    // ---- Status bar.

    std::string GetPaneText(int nPane) const;
    // Whether the bar shows the free pane alone.
    bool IsStatusSimple() const;

    // ---- Boxes.

    // Waits for a box with this text, checks that it is one of the program's usual ones, and
    // presses its button.
    void AnswerBox(const std::string& sText) const;
    // The same for a question with these buttons, in any order.
    void AnswerQuestion(const std::string& sText, const std::vector<int>& buttons,
                        int nAnswer) const;
    std::vector<MessageBoxWindow> GetBoxes() const { return MessageBoxesOf(GetId()); }

private:
    HMENU GetMenuHandle() const;

    Process m_process;
    HWND m_hFrame = nullptr;
};

// The frame of any running instance; null for none.
HWND FindRunningInstance();
