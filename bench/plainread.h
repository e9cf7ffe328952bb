// What reading is measured against: a plain loop that reads the whole file by one call, unscrambles
// the texts and copies each entry into a record of fixed size. It trusts every length.
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
