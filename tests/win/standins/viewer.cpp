#include "tests/win/standins/viewer.h"

extern "C" {

ViewerCalls Calls = {};

HWND WINAPI ShowHelp(HWND hWindow, const char* szFile, UINT uCommand, DWORD_PTR uData)
{
    ++Calls.nCount;
    Calls.hWindow = hWindow;
    lstrcpynA(Calls.szFile, szFile, sizeof Calls.szFile);
    Calls.uCommand = uCommand;
    Calls.uData = uData;
    return reinterpret_cast<HWND>(static_cast<UINT_PTR>(VIEWER_ANSWER));
}
}
