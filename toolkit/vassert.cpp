#include "toolkit/vassert.h"

#include <windows.h>

#include <cstdio>

namespace {

VAssertHandler g_pHandler = nullptr;

} // namespace

void VAssertFailed(const char* szCondition, const char* szFile, int nLine)
{
    if (g_pHandler != nullptr) {
        g_pHandler(szCondition, szFile, nLine);
        return;
    }
    char szText[1024];
    snprintf(szText, sizeof szText, "%s(%d): %s\n", szFile, nLine, szCondition);
    OutputDebugStringA(szText);
}

VAssertHandler VSetAssertHandler(VAssertHandler pHandler)
{
    VAssertHandler pBefore = g_pHandler;
    g_pHandler = pHandler;
    return pBefore;
}
