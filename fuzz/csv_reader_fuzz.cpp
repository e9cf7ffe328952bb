// Feeds arbitrary bytes to the reader of CSV files and to the line reader below it.
#include "fuzz/exchangecheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize);

int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize)
{
    CheckExchangeFile(".csv", pBytes, uSize);
    // The line length that the formats use, and one so small that many lines are cut.
    CheckLines(16384, pBytes, uSize);
    CheckLines(9, pBytes, uSize);
    return 0;
}
