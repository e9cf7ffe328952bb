// A dialog of another program: its controls by their ids.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/e2e/program.h"

class DialogWindow
{
public:
    DialogWindow(HANDLE hProcess, HWND hDialog) : m_hProcess(hProcess), m_hDialog(hDialog) {}

    HWND GetHandle() const { return m_hDialog; }
    std::string GetCaption() const;
    bool IsOpen() const { return IsWindow(m_hDialog) && IsWindowVisible(m_hDialog); }
    void AwaitEnd() const;
    // Closes it by the close box in its corner. Does not wait.
    void Close() const;

    // ---- Controls. A control that does not exist fails the running test.

    bool HasItem(int nId) const;
    HWND GetItem(int nId) const;
    bool IsEnabled(int nId) const;
    bool IsVisible(int nId) const;
    // The text of an edit field, or of the edit field of a combo box.
    std::string GetText(int nId) const;
    void SetText(int nId, const std::string& sText) const;
    // Presses a button and returns at once, because the button may open a box.
    void Press(int nId) const;
    // Presses a button and waits until the dialog is gone.
    void End(int nId) const;

    bool IsChecked(int nId) const;
    // Presses a check box or a radio button, unless it has that state already.
    void Check(int nId, bool bOn = true) const;

    std::vector<std::string> GetChoices(int nId) const;
    // The index of the selected line of a combo box; -1 when none is.
    int GetChoice(int nId) const;
    // Selects a line as a user does. The dialog gets the notifications.
    void Choose(int nId, int nChoice) const;

    // The date of a date field without the time, such as "2004-12-31".
    std::string GetDate(int nId) const;
    // Sets the date as a user does. The dialog gets the notification.
    void SetDate(int nId, const std::string& sDate) const;

    // ---- Keyboard.

    void Focus(int nId) const;
    // The id of the control with the focus; 0 when none has it.
    int GetFocus() const;
    void AwaitFocus(int nId) const;
    // The id of the button that Enter presses.
    int GetDefaultButton() const;

protected:
    HANDLE GetProcess() const { return m_hProcess; }

private:
    HWND FindItem(int nId) const;

    HANDLE m_hProcess;
    HWND m_hDialog;
};

// The dialogs of Windows to open and save files.
class FileDialogWindow : public DialogWindow
{
public:
    explicit FileDialogWindow(const DialogWindow& dialog) : DialogWindow(dialog) {}

    std::string GetName() const;
    void EnterName(const std::string& sPath) const;
    std::vector<std::string> GetTypes() const;
    int GetType() const;
    void ChooseType(int nType) const;
    // Presses Open or Save and returns at once, because a question may follow.
    void Accept() const { Press(IDOK); }
    // Enters a path, selects a file type unless nType is -1, presses Open or Save, and waits until
    // the dialog is gone.
    void Enter(const std::string& sPath, int nType = -1) const;

private:
    HWND FindNameField() const;
};

// The dialogs of a program that have this caption. Message boxes are not among them.
std::vector<DialogWindow> FindDialogs(const Program& program, const std::string& sCaption);
// Waits for a dialog by its caption.
DialogWindow AwaitDialog(const Program& program, const std::string& sCaption);
// Selects a page of a property sheet, and waits until it is on top and has that control.
DialogWindow AwaitPage(const Program& program, const DialogWindow& sheet, int nPage, int nControl);
FileDialogWindow AwaitFileDialog(const Program& program, const std::string& sCaption);
// The window that shows how far long work is; null when there is none.
HWND FindProgressOf(const Program& program);
DialogWindow AwaitProgress(const Program& program);
