// Texts and boxes for the user: strings of the resources, message boxes and the hourglass.
#pragma once

#include <windows.h>

#include "base/vstring.h"

// windows.h defines a macro of this name, which would rename the functions below.
#undef MessageBox

// The string of that id from hModule, or from the resource module of the application; at most 4096
// characters. Empty for id 0 and for a string that does not exist.
VString ResourceString(UINT uId, HINSTANCE hModule = nullptr);

// What a command's string says: its prompt before the first line feed, its tooltip after it. A
// string without a line feed is both; a command without a string has neither.
struct VCommandText
{
    VString sPrompt;
    VString sTooltip;
};
VCommandText GetCommandText(UINT uCommand);

// Shows a message box and then sets the focus back to the window that had it. Returns the id of the
// button. The form without a caption uses the name of the application. A modal window that keeps
// the user from hWindow is kept from the user too (VModalOwner).
int MessageBox(HWND hWindow, const char* szText, const char* szCaption, UINT uFlags);
int MessageBox(HWND hWindow, const char* szText, UINT uFlags);

// VWaitCursor: shows the hourglass until the end of its scope, and then the cursor that was there
// before, or the arrow.
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
