// Makes the bytes of an account file.
#pragma once

#include <cstddef>
#include <memory>

#include "account/qmaccount.h"

struct QMFileImage
{
    std::unique_ptr<unsigned char[]> pBytes; // null when there was no memory
    size_t uSize = 0;
};

// How many bytes that takes.
size_t QMAccountImageSize(const QMAccount& account);

// The whole file in the account's format version. The account is left as it is.
QMFileImage QMMakeAccountImage(const QMAccount& account);
