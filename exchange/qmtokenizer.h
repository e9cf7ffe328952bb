// QMTokenizer: takes a text apart at a separator, in place.
#pragma once

#include <cstdint>

class QMTokenizer
{
public:
    // The text, which may be null, is written to and belongs to the caller.
    QMTokenizer(char* szText, char cSep) : cSeparator(cSep), pszText(szText) {}

    // The next token; null behind the last. It ends with a zero where its separator stood, until
    // the next call puts the separator back. Two separators in a row have an empty token between
    // them; a separator at the very end has none behind it.
    char* Next();

private:
    static constexpr int32_t nBeforeFirst = -1;
    static constexpr int32_t nBehindLast = -2;

    char cSeparator;
    char* pszText;
    int32_t nCut = nBeforeFirst; // where the terminator stands
};
