#include "base/vassert.h"

#include <windows.h>

#include <cstdio>

void VAssertFailed(const char* szCondition, const char* szFile, int nLine)
{
    char szText[1024];
    snprintf(szText, sizeof szText, "%s(%d): %s\n", szFile, nLine, szCondition);
    OutputDebugStringA(szText);
}
