// Makes the bytes of an account file in memory.
#pragma once

#include <cstddef>
#include <memory>

#include "account/qmaccount.h"

struct QMFileImage
{
    std::unique_ptr<unsigned char[]> pBytes; // null when memory ran out
    size_t uSize = 0;
};

// How many bytes the file of this account takes.
size_t QMAccountImageSize(const QMAccount& account);

// Makes the whole file in the account's format version. The account is not changed.
QMFileImage QMMakeAccountImage(const QMAccount& account);
