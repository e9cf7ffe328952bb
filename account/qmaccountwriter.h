// Makes the bytes of an account file in memory, and puts them into a file.
#pragma once

#include <cstddef>
#include <memory>

#include "account/qmaccount.h"
#include "account/qmbytesink.h"
#include "account/qmprogress.h"

class QMPackedTransactions;

struct QMFileImage
{
    std::unique_ptr<unsigned char[]> pBytes; // null when memory ran out or the work was given up
    size_t uSize = 0;
};

// Makes the whole file in the format version lVersion. The account is not changed. pProgress may be
// null.
QMFileImage QMMakeAccountImage(const QMAccount& account, int32_t lVersion, QMProgress* pProgress);

// The same in the account's own format version.
QMFileImage QMMakeAccountImage(const QMAccount& account);

// Creates the file anew, whether it is open or not, and writes the image to it. The file is open
// afterwards. Returns false for an image without bytes, and when the file cannot be created anew;
// what can be known of that is tested before the old contents are touched. pProgress may be null.
//
// Kept: once the file was created anew, a failing write still returns true.
bool QMReplaceByImage(QMFile& file, const QMFileImage& image, QMProgress* pProgress);

// Hands the same bytes to a sink, in pieces, so that they are never in memory as a whole.
// pProgress, which may be null, is told of the transactions. Returns false when the sink refused a
// piece, and when the work was given up.
bool QMWriteAccountTo(QMByteSink& sink, const QMAccount& account, QMProgress* pProgress = nullptr);

// The same with the header of the account and, instead of its store, transactions that were packed
// in its format version. They cannot be used afterwards. Returns false also when memory ran out.
bool QMWriteAccountTo(QMByteSink& sink, const QMAccount& account, QMPackedTransactions& packed,
                      QMProgress* pProgress = nullptr);
