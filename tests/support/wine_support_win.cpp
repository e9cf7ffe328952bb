#include "tests/support/wine_support_win.h"

#include <windows.h>

bool IsWine()
{
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}
