// QMQifFormat: the Quicken Interchange Format, bank form, as far as this program carries it.
#pragma once

#include <cstdio>

#include "exchange/qmexchangeformat.h"

// Writer and reader are not inverse to each other: voided transactions, the tags and the date
// cleared are not written, and a description comes back with the dash that joins it to its type.
class QMQifFormat : public QMExchangeFormat
{
public:
    // One field to a line, named by its first character; a record ends with "^". Always true.
    bool ParseLine(char* szText, int32_t lLine, int32_t lLength) override;

    // Never returns for a store without transactions, nor for one whose last transaction is voided:
    // QMExportObstacle tells beforehand.
    bool Export(const char* szPath, QMTransactionStore& store) override;

    // The same into a file that is open for writing text. Whether that went well is known to the
    // file: ferror, and fclose at the end.
    static void WriteTo(FILE* pFile, QMTransactionStore& store);

private:
    void ParseField(char* szLine);
};
