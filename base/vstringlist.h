// VStringList: splits a copy of a text at a separator and returns one token after the other.
#pragma once

#include "base/vstring.h"

class VStringList
{
public:
    VStringList(const char* szText, char cSeparator);

    // The next token, valid until the next call; null after the last. Two separators in a row have
    // an empty token between them. A separator at the very end has no token after it.
    const char* Next();

private:
    VString m_sText;
    char m_cSeparator;
    uint32_t m_uPosition = 0;
    VString m_sToken;
};
