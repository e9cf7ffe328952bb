// Dollars as text: exactly what "%.2f" prints, only faster.
#pragma once

#include <cstddef>

// The amount rounded to cents: the double that comes of printing with "%.2f" and parsing back.
// Sums and comparisons of money start from it.
double QMRoundToCents(float fAmount);

// Prints "%*.2f" of dValue with the given minimum width into pInto, cut to uSize - 1 characters;
// returns the length. uSize is at least 1, nWidth at least 0.
size_t QMFormatMoney(double dValue, int nWidth, char* pInto, size_t uSize);
