#include "exchange/qmtokenizer.h"

char* QMTokenizer::Next()
{
    if (pszText == nullptr || nCut == nBehindLast) {
        return nullptr;
    }
    char* szToken = pszText;
    if (nCut != nBeforeFirst) {
        pszText[nCut] = cSeparator;
        szToken += nCut + 1;
    }
    char* pEnd = szToken;
    while (*pEnd != cSeparator && *pEnd != '\0') {
        ++pEnd;
    }
    if (*pEnd == '\0') {
        nCut = nBehindLast;
        return *szToken == '\0' ? nullptr : szToken;
    }
    *pEnd = '\0';
    nCut = static_cast<int32_t>(pEnd - pszText);
    return szToken;
}
