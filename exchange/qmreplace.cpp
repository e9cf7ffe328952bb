#include "exchange/qmreplace.h"

#include <cstring>
#include <utility>

bool QMReplace(VString& sText, char cFind, const char* szReplacement)
{
    const char* szRest = sText.GetText();
    const char* pFound = strchr(szRest, cFind);
    if (pFound == nullptr) {
        return true;
    }
    const bool bOnce = strchr(szReplacement, cFind) != nullptr;
    VString sNew;
    bool bDone = true;
    while (pFound != nullptr && bDone) {
        const auto uFront = static_cast<uint32_t>(pFound - szRest);
        bDone = sNew.Append(szRest, uFront) && sNew.Append(szReplacement);
        szRest = pFound + 1;
        pFound = bOnce ? nullptr : strchr(szRest, cFind);
    }
    if (!bDone || !sNew.Append(szRest)) {
        return false;
    }
    sText = std::move(sNew);
    return true;
}

void QMStrip(char* szText, char cFind)
{
    char* pInto = strchr(szText, cFind);
    if (pInto == nullptr) {
        return;
    }
    for (const char* p = pInto; *p != '\0'; ++p) {
        if (*p != cFind) {
            *pInto++ = *p;
        }
    }
    *pInto = '\0';
}
