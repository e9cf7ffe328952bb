// A message box of another program.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class MessageBoxWindow
{
public:
    explicit MessageBoxWindow(HWND hWnd) : m_hWnd(hWnd) {}

    HWND GetHandle() const { return m_hWnd; }
    std::string GetCaption() const;
    // The sentence, with its line feeds.
    std::string GetText() const;
    // The ids of the buttons. A box with a single button has IDOK.
    std::vector<int> GetButtons() const;
    // Presses a button and waits until the box is gone.
    void Press(int nButton) const;

private:
    std::vector<HWND> FindButtons() const;

    HWND m_hWnd;
};

// The message boxes that a process shows at the moment, and the dialogs, which are of the same
// class. The calculator is not among them.
std::vector<MessageBoxWindow> MessageBoxesOf(DWORD uProcessId);

// Waits for a box with exactly this text.
MessageBoxWindow AwaitMessageBox(DWORD uProcessId, const std::string& sText);
// Waits for a box with this button among others: a question that Windows words.
MessageBoxWindow AwaitBoxWith(DWORD uProcessId, int nButton);
