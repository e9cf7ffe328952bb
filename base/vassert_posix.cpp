#include "base/vassert.h"

#include <cstdio>

void VAssertFailed(const char* szCondition, const char* szFile, int nLine)
{
    fprintf(stderr, "%s(%d): %s\n", szFile, nLine, szCondition);
}
