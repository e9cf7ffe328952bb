// Comparing and reading plain 8-bit text. Letters are those of ASCII, whatever the locale: account
// files and exchange files must read the same everywhere.
#pragma once

#include <cstddef>
#include <cstdint>

inline char VToLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

inline bool VIsSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

inline bool VIsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Below 0, 0 or above 0 as a sorts before, equal to or behind b, by character code (0 to 255).
int VCompare(const char* szA, const char* szB);

// The same with upper-case letters taken as lower-case ones.
int VCompareNoCase(const char* szA, const char* szB);

// True when szText begins with szPrefix, ignoring case.
bool VBeginsWithNoCase(const char* szText, const char* szPrefix);

// Copies szSource into an array of uSize bytes, cut to uSize - 1 characters, and fills the rest
// with zeroes. szSource may be null, which empties the array.
void VCopyText(char* pInto, size_t uSize, const char* szSource);

template <size_t uSize>
void VCopyText(char (&szInto)[uSize], const char* szSource)
{
    VCopyText(szInto, uSize, szSource);
}

// The run-time library's rule for whole numbers: leading white space and one sign are passed over,
// digits count up to the first other character, none give 0. A number outside the 32-bit range
// stops at its end of the range. Reading ends at pEnd, or at the terminator when pEnd is null.
int32_t VParseInteger(const char* szText, const char* pEnd = nullptr);

// Reads a decimal number with optional sign, fraction and exponent behind leading white space; 0
// for a text that begins with none. Words and hexadecimal forms are not numbers here. A number too
// large for a double gives infinity with its sign.
double VParseDouble(const char* szText);
