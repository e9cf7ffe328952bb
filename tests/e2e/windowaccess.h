// Access to the windows of another program.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "base/vrect.h"

// Sends a message with a time limit: the running test fails when the window does not answer.
// Pointers in messages above WM_USER must point into memory of the other program.
LRESULT SendTo(HWND hWnd, UINT uMessage, WPARAM wParam = 0, LPARAM lParam = 0);

std::string WindowText(HWND hWnd);
std::string WindowClass(HWND hWnd);
VRect WindowRect(HWND hWnd);

// The visible top-level windows of a process.
std::vector<HWND> TopWindows(DWORD uProcessId);
// All windows of a process, with hidden ones and with children at every depth.
std::vector<HWND> AllWindows(DWORD uProcessId);

// The direct children of a window, from the foremost to the last.
std::vector<HWND> ChildrenOf(HWND hParent);
// The first child of a class, ignoring case, at any depth; null when there is none.
HWND FindChild(HWND hParent, const std::string& sClass);
// The same for an id.
HWND FindChildById(HWND hParent, int nId);
