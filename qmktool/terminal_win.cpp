#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdlib>

#include "qmktool/terminal.h"

namespace {

HANDLE HandleOf(FILE* pStream)
{
    // The C library holds the handle as a number.
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(pStream)));
}

} // namespace

bool IsTerminal(FILE* pStream)
{
    DWORD uMode = 0;
    return GetConsoleMode(HandleOf(pStream), &uMode) != 0;
}

bool IsFile(FILE* pStream)
{
    return GetFileType(HandleOf(pStream)) == FILE_TYPE_DISK;
}

bool TakesColours(FILE* pStream)
{
    const char* szNoColour = getenv("NO_COLOR");
    const bool bUnwanted = szNoColour != nullptr && *szNoColour != '\0';
    DWORD uMode = 0;
    HANDLE hStream = HandleOf(pStream);
    // A console before Windows 10 refuses the mode, and would show the sequences as text.
    return !bUnwanted && GetConsoleMode(hStream, &uMode) &&
           SetConsoleMode(hStream, uMode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

void UseBytes(FILE* pStream)
{
    _setmode(_fileno(pStream), _O_BINARY);
}
