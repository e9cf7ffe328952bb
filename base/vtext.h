// Comparing and reading plain 8-bit text. Only the letters of ASCII have upper and lower case,
// whatever the locale is: account files and exchange files must read the same on every machine.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr char VToLower(char c)
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

// Compares by character code (0 to 255). Returns a number below 0, 0, or above 0 as the first text
// sorts before, equal to or after the second.
int VCompare(const char* szA, const char* szB);

// The same, with upper-case letters taken as lower-case ones. Readers of files compare each name
// with many others, of which most differ in the first letter.
inline int VCompareNoCase(const char* szA, const char* szB)
{
    while (*szA != '\0' && VToLower(*szA) == VToLower(*szB)) {
        ++szA;
        ++szB;
    }
    return static_cast<unsigned char>(VToLower(*szA)) - static_cast<unsigned char>(VToLower(*szB));
}

// Whether szText begins with szPrefix, ignoring case.
inline bool VBeginsWithNoCase(const char* szText, const char* szPrefix)
{
    while (*szPrefix != '\0' && VToLower(*szText) == VToLower(*szPrefix)) {
        ++szText;
        ++szPrefix;
    }
    return *szPrefix == '\0';
}

// Copies szSource into an array of uSize bytes. The text is cut to uSize - 1 characters, and the
// rest of the array is filled with zero bytes. A null szSource empties the array.
void VCopyText(char* pInto, size_t uSize, const char* szSource);

template <size_t uSize>
void VCopyText(char (&szInto)[uSize], const char* szSource)
{
    VCopyText(szInto, uSize, szSource);
}

// Reads a whole number as the C library's strtol does: it passes over leading white space and one
// sign, and stops at the first character that is no digit. Without a digit it returns 0. A number
// outside the range of 32 bits gives the end of the range. Reading stops at pEnd, or at the
// terminating zero when pEnd is null.
int32_t VParseInteger(const char* szText, const char* pEnd = nullptr);

// Reads a decimal number with an optional sign, fraction and exponent, after leading white space.
// Returns 0 for a text that begins with no number. Unlike strtod it reads neither words such as
// "inf" nor hexadecimal numbers. A number too large for a double gives infinity with its sign.
double VParseDouble(const char* szText);
