#include "settings/qmpagesetup.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

void QMReadMargins(const char* szText, VRect& rcMargins)
{
    for (int32_t* pSide : {&rcMargins.left, &rcMargins.top, &rcMargins.right, &rcMargins.bottom}) {
        char* szEnd = nullptr;
        const long long lNumber = strtoll(szText, &szEnd, 10);
        if (szEnd == szText) {
            return;
        }
        *pSide = static_cast<int32_t>(std::clamp<long long>(
            lNumber, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
        szText = szEnd;
    }
}

VString QMWriteMargins(const VRect& rcMargins)
{
    char szText[64];
    snprintf(szText, sizeof szText, "%04d %04d %04d %04d", static_cast<int>(rcMargins.left),
             static_cast<int>(rcMargins.top), static_cast<int>(rcMargins.right),
             static_cast<int>(rcMargins.bottom));
    return VString(szText);
}
