// The measure of reading: a plain loop that reads the whole file in one call, unscrambles the texts
// and copies each entry into a record of its fixed size. It believes every length.
#pragma once

#include <cstddef>
#include <memory>

#include "account/qmtransaction.h"

struct PlainAccount
{
    std::unique_ptr<QMTransactionFields[]> aRecords;
    int32_t lCount = 0;
};

PlainAccount PlainRead(const char* szPath);
