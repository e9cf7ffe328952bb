// The owner of a modal window.
#pragma once

#include <windows.h>

// The window that must own a dialog or a message box for hWnd. Usually that is hWnd itself. While a
// modal window keeps the user from hWnd, it is that window, and of several the innermost one. The
// new dialog then disables it too, and when the dialog ends, Windows enables and activates it and
// not a window behind it.
HWND VModalOwner(HWND hWnd);
