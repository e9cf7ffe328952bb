#include "exchange/qmtokenizer.h"

#include <cstring>

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
    char* pEnd = strchr(szToken, cSeparator);
    if (*szToken == '\0' || pEnd == nullptr) {
        nCut = nBehindLast;
        return *szToken == '\0' ? nullptr : szToken;
    }
    *pEnd = '\0';
    nCut = static_cast<int32_t>(pEnd - pszText);
    return szToken;
}
