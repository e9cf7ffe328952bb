// Feeds the reader of CSV files, and the line reader below it, with any bytes.
#include "fuzz/exchangecheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize);

int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize)
{
    CheckExchangeFile(".csv", pBytes, uSize);
    // The room for a line that the formats take, and one so small that many lines are cut.
    CheckLines(16384, pBytes, uSize);
    CheckLines(9, pBytes, uSize);
    return 0;
}
