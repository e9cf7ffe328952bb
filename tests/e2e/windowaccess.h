// Looking at the windows of another program.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "base/vrect.h"

// Sends with an end: the running test fails when the window does not answer. Pointers in messages
// above WM_USER must be of the other program's memory.
LRESULT SendTo(HWND hWnd, UINT uMessage, WPARAM wParam = 0, LPARAM lParam = 0);

std::string WindowText(HWND hWnd);
std::string WindowClass(HWND hWnd);
VRect WindowRect(HWND hWnd);

// The visible top-level windows of a process.
std::vector<HWND> TopWindows(DWORD uProcessId);
// All windows of a process, hidden ones and children of children too.
std::vector<HWND> AllWindows(DWORD uProcessId);

// The children of a window alone, from the front to the back.
std::vector<HWND> ChildrenOf(HWND hParent);
// The first child of a class (in any letters), of any depth; null for none.
HWND FindChild(HWND hParent, const std::string& sClass);
// The same for an id.
HWND FindChildById(HWND hParent, int nId);
