// The colours of the system, and what they ask of a program that has colours of its own.
#pragma once

#include <windows.h>

// Whether a colour is nearer to black than to white: light strokes can be seen on it, dark ones
// cannot.
bool VIsDark(COLORREF cr);

// Whether windows must keep to the system's colours alone: the user has turned high contrast on, or
// windows have a dark ground, on which colours that were chosen for white cannot be read.
bool VNeedsSystemColors();
