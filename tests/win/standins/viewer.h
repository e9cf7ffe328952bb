// How the stand-in for the help viewer was called.
#pragma once

#include <windows.h>

struct ViewerCalls
{
    int nCount;
    // The arguments of the last call.
    HWND hWindow;
    char szFile[512];
    UINT uCommand;
    DWORD_PTR uData;
};

// The stand-in exports a function of this name that returns the calls. Its entry point has only the
// ordinal 14, as the viewer's.
#define VIEWER_CALLS "Calls"
// What its entry point returns.
#define VIEWER_ANSWER 0x1234
