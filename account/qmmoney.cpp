#include "account/qmmoney.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

// Every double from this one on is a whole number.
constexpr double dWhole = 4503599627370496.0; // 2^52

// Rounds to the nearest whole number, and a half to the even one. The sign stays. A sum with 2^52
// has no bits left for a fraction, so the addition itself rounds.
double RoundHalfEven(double dValue)
{
    const double dMagnitude = std::fabs(dValue);
    if (!(dMagnitude < dWhole)) {
        return dValue;
    }
    return std::copysign((dMagnitude + dWhole) - dWhole, dValue);
}

// The cents of dValue as "%.2f" prints them. Returns false when only printf can tell.
bool FindCents(double dValue, uint64_t& uCents)
{
    // Below this limit the product is off by less than 2^-11. The margin around a half is far wider
    // than that.
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
    // A float has 24 bits and 100 has 7, so their product fits into a double exactly. The rounding
    // is exact too. The division then gives the double nearest to the cents, which is what reading
    // the printed text gives.
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
