// How the stand-in for the viewer of help was called.
#pragma once

#include <windows.h>

struct ViewerCalls
{
    int nCount;
    // Of the last call.
    HWND hWindow;
    char szFile[512];
    UINT uCommand;
    DWORD_PTR uData;
};

// The stand-in exports one under this name, besides its entry point, which has the ordinal 14 only.
#define VIEWER_CALLS "Calls"
// What its entry point answers.
#define VIEWER_ANSWER 0x1234
