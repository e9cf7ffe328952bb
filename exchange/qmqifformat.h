// QMQifFormat: the Quicken Interchange Format for bank accounts, as far as this program supports
// it.
#pragma once

#include "account/qmprogress.h"
#include "exchange/qmexchangeformat.h"
#include "exchange/qmtextwriter.h"

// Kept: writing and reading do not give the same back. Voided transactions, the tags and the date
// cleared are not written, and a description returns with the " - " that joins it to the type.
class QMQifFormat : public QMExchangeFormat
{
public:
    // A line holds one field, which its first character names. "^" ends a record. Always returns
    // true.
    bool ParseLine(char* szText, int32_t lLine, int32_t lLength) override;

    // Kept: for a store without transactions, and for one whose last transaction is voided, this
    // never returns. Call QMExportObstacle first.
    bool Export(const char* szPath, QMTransactionStore& store) override;

    // Writes to a sink. Returns false when the sink refused anything.
    static bool WriteTo(QMByteSink& sink, QMTransactionStore& store,
                        QMProgress* pProgress = nullptr);

private:
    void ParseField(char* szLine);
};
