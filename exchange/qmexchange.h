// Import and export by the extension of a file's name.
#pragma once

#include <cstdint>

#include "account/qmbytesource.h"
#include "account/qmprogress.h"
#include "account/qmtransactionstore.h"
#include "exchange/qmimporttally.h"
#include "exchange/qmtemporaryrecords.h"
#include "exchange/qmtextwriter.h"

enum class QMExchangeKind
{
    None, // no extension, or an unknown one
    Qif,
    Csv,
    Xml,
    Text, // the file dialogs offer it, but there is no such format: always refused
};

// The kind of file, by what comes after the last dot of the path, ignoring case.
QMExchangeKind QMKindOfPath(const char* szPath);

// Replaces the contents of the store by the transactions of a file. Returns false, and leaves the
// store as it is, for a kind that cannot be read, and when the format's Import returns false.
//
// pProgress may be null; when it gives the work up, the result is false too.
bool QMImportFile(const char* szPath, QMTransactionStore& store, QMProgress* pProgress = nullptr);

// Reads the bytes of a source instead of a file. pTally, which may be null, gets what the records
// are like; without a kind that can be read it is left alone.
bool QMImportFrom(QMByteSource& source, QMExchangeKind kind, QMTransactionStore& store,
                  QMImportTally* pTally = nullptr);

// Gives the transactions to a taker as they are read, in the order of the file. On false it may
// have got some of them.
bool QMImportTo(QMRecordTaker& taker, QMByteSource& source, QMExchangeKind kind,
                QMImportTally* pTally = nullptr);

// Writes all transactions of the store. The store's cursor moves. Returns false, without making a
// file, for a kind that cannot be written, and when the file cannot be created.
//
// When pProgress, which may be null, gives the work up, the file is removed and the result is
// false.
//
// Kept: when QMExportObstacle has a reason against the export, this never returns by itself.
bool QMExportFile(const char* szPath, QMTransactionStore& store, QMProgress* pProgress = nullptr);

// Writes to a sink instead of a file. Returns false for a kind that cannot be written, and when the
// sink refused anything.
bool QMExportTo(QMByteSink& sink, QMExchangeKind kind, QMTransactionStore& store,
                QMProgress* pProgress = nullptr);

// Why a store must not be exported to that kind, as a phrase that ends a sentence; null when it may
// be.
const char* QMExportObstacle(QMExchangeKind kind, const QMTransactionStore& store);
