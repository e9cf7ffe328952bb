// Texts and boxes for the user: strings of the resources, message boxes, the wait cursor.
#pragma once

#include <windows.h>

#include "base/vstring.h"

// The platform's headers give this name to a macro of theirs.
#undef MessageBox

// The string of that id, at most 4096 characters; empty for id 0 and for a missing string. The
// module is the application's resource module unless given.
VString ResourceString(UINT uId, HINSTANCE hModule = nullptr);

// What a command's string says: its prompt before the first line feed, its tooltip after it. A
// string without a line feed is both; a command without a string has neither.
struct VCommandText
{
    VString sPrompt;
    VString sTooltip;
};
VCommandText GetCommandText(UINT uCommand);

// Shows a message box and gives the focus back to the window that had it. Returns the button. The
// short form has the application's name for a caption.
int MessageBox(HWND hWindow, const char* szText, const char* szCaption, UINT uFlags);
int MessageBox(HWND hWindow, const char* szText, UINT uFlags);

// Shows the hourglass until the end of its scope, then the cursor from before, or the arrow.
class VWaitCursor
{
public:
    VWaitCursor() : m_hBefore(SetCursor(LoadCursorA(nullptr, IDC_WAIT))) {}
    VWaitCursor(const VWaitCursor&) = delete;
    VWaitCursor& operator=(const VWaitCursor&) = delete;
    ~VWaitCursor()
    {
        SetCursor(m_hBefore == nullptr ? LoadCursorA(nullptr, IDC_ARROW) : m_hBefore);
    }

private:
    HCURSOR m_hBefore;
};
