#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "qmktool/terminal.h"

bool IsTerminal(FILE* pStream)
{
    return isatty(fileno(pStream)) == 1;
}

bool IsFile(FILE* pStream)
{
    struct stat status = {};
    return fstat(fileno(pStream), &status) == 0 && S_ISREG(status.st_mode);
}

bool TakesColours(FILE* pStream)
{
    const char* szNoColour = getenv("NO_COLOR");
    const char* szTerminal = getenv("TERM");
    const bool bUnwanted = szNoColour != nullptr && *szNoColour != '\0';
    const bool bDumb = szTerminal == nullptr || strcmp(szTerminal, "dumb") == 0;
    return IsTerminal(pStream) && !bUnwanted && !bDumb;
}

void UseBytes(FILE* /*pStream*/) {}
