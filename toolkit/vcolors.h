// The colours of Windows, and when a program must not use colours of its own.
#pragma once

#include <windows.h>

// Whether a colour is nearer to black than to white, so that only light lines can be seen on it.
bool VIsDark(COLORREF cr);

// Whether windows must use the colours of Windows only: the user has turned high contrast on, or
// the background of windows is dark, so that colours chosen for a white background cannot be read.
bool VNeedsSystemColors();
