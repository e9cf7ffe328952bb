// Kinds of windows: which are dialogs, and what a window of the platform's own class is.
#pragma once

#include <windows.h>

#include <cstdint>

bool VIsDialogKind(int32_t lKind);

// By the class name and, for buttons, the low four bits of the style.
int32_t VKindOfClass(const char* szClass, LONG_PTR lStyle);
