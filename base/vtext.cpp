#include "base/vtext.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

const char* SkipSpace(const char* p, const char* pEnd)
{
    while (p < pEnd && VIsSpace(*p)) {
        ++p;
    }
    return p;
}

} // namespace

int VCompare(const char* szA, const char* szB)
{
    while (*szA != '\0' && *szA == *szB) {
        ++szA;
        ++szB;
    }
    return static_cast<unsigned char>(*szA) - static_cast<unsigned char>(*szB);
}

void VCopyText(char* pInto, size_t uSize, const char* szSource)
{
    if (uSize == 0) {
        return;
    }
    const size_t uLength = szSource == nullptr ? 0 : strnlen(szSource, uSize - 1);
    if (uLength > 0) {
        memmove(pInto, szSource, uLength);
    }
    memset(pInto + uLength, 0, uSize - uLength);
}

int32_t VParseInteger(const char* szText, const char* pEnd)
{
    if (pEnd == nullptr) {
        pEnd = szText + strlen(szText);
    }
    const char* p = SkipSpace(szText, pEnd);
    const bool bNegative = p < pEnd && *p == '-';
    if (p < pEnd && (*p == '-' || *p == '+')) {
        ++p;
    }
    constexpr int64_t nLimit = int64_t{std::numeric_limits<int32_t>::max()} + 1;
    int64_t nValue = 0;
    for (; p < pEnd && VIsDigit(*p) && nValue < nLimit; ++p) {
        nValue = nValue * 10 + (*p - '0');
    }
    if (nValue >= nLimit) {
        return bNegative ? std::numeric_limits<int32_t>::min()
                         : std::numeric_limits<int32_t>::max();
    }
    return static_cast<int32_t>(bNegative ? -nValue : nValue);
}

double VParseDouble(const char* szText)
{
    const char* pEnd = szText + strlen(szText);
    const char* p = SkipSpace(szText, pEnd);
    const bool bNegative = p < pEnd && *p == '-';
    if (p < pEnd && (*p == '-' || *p == '+')) {
        ++p;
    }
    // from_chars would also read "inf", "nan" and a second minus sign.
    if (p == pEnd || (!VIsDigit(*p) && *p != '.')) {
        return 0;
    }
    double dValue = 0;
    const auto result = std::from_chars(p, pEnd, dValue, std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range) {
        // from_chars gives the same code for a number that is too large and for one that is too
        // small. strtod tells them apart.
        dValue = strtod(p, nullptr);
    }
    return bNegative ? -dValue : dValue;
}
