// Feeds arbitrary bytes to the reader of XML files.
#include "fuzz/exchangecheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize);

int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize)
{
    CheckExchangeFile(".xml", pBytes, uSize);
    return 0;
}
