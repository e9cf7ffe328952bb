// Import and export by the extension of a file's name.
#pragma once

#include <cstdint>
#include <cstdio>

#include "account/qmtransactionstore.h"

enum class QMExchangeKind
{
    None, // no extension, or one that means nothing here
    Qif,
    Csv,
    Xml,
    Text, // offered with the others, but there is no such format: always refused
};

// By what follows the last dot of the path, ignoring case.
QMExchangeKind QMKindOfPath(const char* szPath);

// Makes the file's transactions the contents of the store. False, with the store as it was, for a
// kind that cannot be read and as the formats tell.
bool QMImportFile(const char* szPath, QMTransactionStore& store);

// Writes all transactions of the store, whose cursor moves. False, with no file made, for a kind
// that cannot be written, and when the file cannot be created. Never returns where QMExportObstacle
// has a reason.
bool QMExportFile(const char* szPath, QMTransactionStore& store);

// The same into a file that is open for writing text, for who must know whether every byte found
// its place: ferror and fclose tell.
bool QMExportTo(FILE* pFile, QMExchangeKind kind, QMTransactionStore& store);

// Why a store must not be exported in that kind, as a phrase for the end of a sentence; null when
// it may be.
const char* QMExportObstacle(QMExchangeKind kind, const QMTransactionStore& store);
