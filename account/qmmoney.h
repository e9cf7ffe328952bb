// Dollars as text: exactly what printf with "%.2f" gives, but faster.
#pragma once

#include <cstddef>

// The amount rounded to cents: the double that results from printing it with "%.2f" and reading it
// back. All sums and comparisons of money start from it.
double QMRoundToCents(float fAmount);

// Prints dValue as "%*.2f" does, with a width of at least nWidth, into pInto. The text is cut to
// uSize - 1 characters. Returns its length. uSize must be at least 1 and nWidth at least 0.
size_t QMFormatMoney(double dValue, int nWidth, char* pInto, size_t uSize);
