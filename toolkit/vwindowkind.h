// The kinds of windows: which are dialogs, and what a window of a class of Windows is.
#pragma once

#include <windows.h>

#include <cstdint>

bool VIsDialogKind(int32_t lKind);

// The kind of a window, by the name of its class. For buttons the lowest four bits of the style
// decide.
int32_t VKindOfClass(const char* szClass, LONG_PTR lStyle);
