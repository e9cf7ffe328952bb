// Makes the bytes of an account file in memory.
#pragma once

#include <cstddef>
#include <memory>

#include "account/qmaccount.h"
#include "account/qmbytesink.h"

struct QMFileImage
{
    std::unique_ptr<unsigned char[]> pBytes; // null when memory ran out
    size_t uSize = 0;
};

// How many bytes the file of this account takes.
size_t QMAccountImageSize(const QMAccount& account);

// Makes the whole file in the account's format version. The account is not changed.
QMFileImage QMMakeAccountImage(const QMAccount& account);

// Hands the same bytes to a sink, in pieces, so that they are never in memory as a whole. Returns
// false when the sink refused a piece.
bool QMWriteAccountTo(QMByteSink& sink, const QMAccount& account);
