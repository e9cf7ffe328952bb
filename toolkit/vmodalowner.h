// The owner of a modal window.
#pragma once

#include <windows.h>

// The window that a dialog or a box for hWnd must be owned by. Mostly that is hWnd itself. While a
// modal window keeps the user from hWnd, it is the innermost one of these: an inner modal window
// then keeps the user from it too, and at the inner one's end Windows enables and activates it, not
// a window behind it.
HWND VModalOwner(HWND hWnd);
