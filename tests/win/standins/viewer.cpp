#include "tests/win/standins/viewer.h"

#include <cstdio>
#include <cstring>

extern "C" {

ViewerCalls Calls = {};

// Adds a line for the call to LIBRARY.txt beside the library, for a test in another process.
static void NoteInFile()
{
    HMODULE hModule = nullptr;
    char szPath[MAX_PATH + 8] = "";
    GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const char*>(&Calls), &hModule);
    GetModuleFileNameA(hModule, szPath, MAX_PATH);
    strcat(szPath, ".txt");
    if (FILE* pFile = fopen(szPath, "ab")) {
        fprintf(pFile, "%lu|%s|%u|%lu\n", HandleToULong(Calls.hWindow), Calls.szFile,
                Calls.uCommand, static_cast<unsigned long>(Calls.uData));
        fclose(pFile);
    }
}

HWND WINAPI ShowHelp(HWND hWindow, const char* szFile, UINT uCommand, DWORD_PTR uData)
{
    ++Calls.nCount;
    Calls.hWindow = hWindow;
    lstrcpynA(Calls.szFile, szFile, sizeof Calls.szFile);
    Calls.uCommand = uCommand;
    Calls.uData = uData;
    NoteInFile();
    return reinterpret_cast<HWND>(static_cast<UINT_PTR>(VIEWER_ANSWER));
}
}
