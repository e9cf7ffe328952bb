// Writes its command line, as Windows gives it, into the file PROGRAM.txt beside itself. It writes
// another file first and renames it, so that a test that waits for PROGRAM.txt finds it complete.

#include <windows.h>

#include <cstdio>
#include <cstring>

int WINAPI WinMain(HINSTANCE, HINSTANCE, char*, int)
{
    char szProgram[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, szProgram, sizeof szProgram);
    char szUnfinished[MAX_PATH + 8];
    char szFinished[MAX_PATH + 8];
    snprintf(szUnfinished, sizeof szUnfinished, "%s.new", szProgram);
    snprintf(szFinished, sizeof szFinished, "%s.txt", szProgram);
    FILE* pFile = fopen(szUnfinished, "wb");
    if (pFile == nullptr) {
        return 1;
    }
    const char* szLine = GetCommandLineA();
    fwrite(szLine, 1, strlen(szLine), pFile);
    fclose(pFile);
    return MoveFileExA(szUnfinished, szFinished, MOVEFILE_REPLACE_EXISTING) ? 0 : 1;
}
