// QMTokenizer: splits a text at a separator, in place.
#pragma once

#include <cstdint>

class QMTokenizer
{
public:
    // The caller owns the text, which may be null. It is written to.
    QMTokenizer(char* szText, char cSep) : cSeparator(cSep), pszText(szText) {}

    // The next token; null after the last. It ends with a zero in the place of its separator; the
    // next call puts the separator back. Two separators in a row have an empty token between them.
    // A separator at the very end has no token after it.
    char* Next();

private:
    static constexpr int32_t nBeforeFirst = -1;
    static constexpr int32_t nBehindLast = -2;

    char cSeparator;
    char* pszText;
    int32_t nCut = nBeforeFirst; // where the terminating zero is
};
