#include "account/qmmoney.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

// From here on every double is a whole number.
constexpr double dWhole = 4503599627370496.0; // 2^52

// Nearest whole number, halves to the even one, with the sign of the operand. Adding and taking off
// 2^52 leaves no room for a fraction in between, so the unit's own rounding does the work.
double RoundHalfEven(double dValue)
{
    const double dMagnitude = std::fabs(dValue);
    if (!(dMagnitude < dWhole)) {
        return dValue;
    }
    return std::copysign((dMagnitude + dWhole) - dWhole, dValue);
}

// The cents of dValue as "%.2f" would print them; false when that takes the long way.
bool FindCents(double dValue, uint64_t& uCents)
{
    // Below this the product is off by less than 2^-11, far inside the margin kept around a half.
    constexpr double dLimit = 1e12;
    constexpr double dMargin = 0.499;
    const double dProduct = std::fabs(dValue) * 100;
    if (!(dProduct < dLimit)) {
        return false;
    }
    const double dRounded = RoundHalfEven(dProduct);
    uCents = static_cast<uint64_t>(dRounded);
    return std::fabs(dProduct - dRounded) < dMargin;
}

} // namespace

double QMRoundToCents(float fAmount)
{
    // 24 bits of a float times the 7 bits of 100 fit a double, so the product is exact, and so is
    // the rounding; the division then gives the double nearest to the cents, as parsing would.
    return RoundHalfEven(static_cast<double>(fAmount) * 100) / 100;
}

size_t QMFormatMoney(double dValue, int nWidth, char* pInto, size_t uSize)
{
    constexpr size_t uLongest = 32;
    char szDigits[uLongest];
    char* const pEnd = szDigits + uLongest;
    uint64_t uCents = 0;
    if (nWidth >= static_cast<int>(uLongest) || !FindCents(dValue, uCents)) {
        const int nLength = snprintf(pInto, uSize, "%*.2f", nWidth, dValue);
        return std::min(static_cast<size_t>(std::max(nLength, 0)), uSize - 1);
    }
    char* p = pEnd;
    for (int nPlace = 0; uCents > 0 || nPlace < 3; ++nPlace, uCents /= 10) {
        *--p = static_cast<char>('0' + uCents % 10);
        if (nPlace == 1) {
            *--p = '.';
        }
    }
    if (std::signbit(dValue)) {
        *--p = '-';
    }
    while (pEnd - p < nWidth) {
        *--p = ' ';
    }
    const size_t uLength = std::min(static_cast<size_t>(pEnd - p), uSize - 1);
    memcpy(pInto, p, uLength);
    pInto[uLength] = '\0';
    return uLength;
}
