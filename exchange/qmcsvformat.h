// QMCsvFormat: comma-separated files with a header row.
#pragma once

#include "account/qmprogress.h"
#include "base/vstring.h"
#include "exchange/qmexchangeformat.h"
#include "exchange/qmtextwriter.h"
#include "exchange/qmtokenizer.h"

// The writer has one layout. The reader finds the columns by their names in the header row, so it
// reads files of other programs too.
//
// Kept: the writer puts nothing in quotes, so a text with a comma takes two columns.
class QMCsvFormat : public QMExchangeFormat
{
public:
    static constexpr int32_t nMaxColumns = 32;

    QMCsvFormat();

    // Line 1 is the header row. Every other line is a record, a blank one too. Always returns true.
    bool ParseLine(char* szText, int32_t lLine, int32_t lLength) override;

    // Kept: for a store without transactions this never returns. Call QMExportObstacle first.
    bool Export(const char* szPath, QMTransactionStore& store) override;

    // Writes to a sink. Returns false when the sink refused anything.
    static bool WriteTo(QMByteSink& sink, QMTransactionStore& store,
                        QMProgress* pProgress = nullptr);

private:
    void ParseHeader(char* szText);
    void ParseRow(char* szText);
    const char* RepairCell(char* szCell, QMTokenizer& tokenizer);
    void ParseCell(int32_t lRole, const char* szCell);
    void ParseTag(uint32_t uTag, const char* szCell);

    int32_t nColumns = 0;             // the number of columns in the header row
    int32_t aColumnRole[nMaxColumns]; // the QMFieldRole of each column; -1 for an unknown name
    bool bQuoted = false;             // whether the first cell of the header row is in quotes
    VString m_sCell;                  // a cell that was put together from several
};
