// QMCsvFormat: comma-separated files with a header row.
#pragma once

#include <cstdio>

#include "base/vstring.h"
#include "exchange/qmexchangeformat.h"
#include "exchange/qmtokenizer.h"

// The writer has one layout and quotes nothing: a text with a comma takes two columns. The reader
// goes by the names in the header row, so that files of other programs can be read.
class QMCsvFormat : public QMExchangeFormat
{
public:
    static constexpr int32_t nMaxColumns = 32;

    QMCsvFormat();

    // Line 1 is the header row, each further one a record; so is a blank one. Always true.
    bool ParseLine(char* szText, int32_t lLine, int32_t lLength) override;

    // Never returns for a store without transactions: QMExportObstacle tells beforehand.
    bool Export(const char* szPath, QMTransactionStore& store) override;

    // The same into a file that is open for writing text. Whether that went well is known to the
    // file: ferror, and fclose at the end.
    static void WriteTo(FILE* pFile, QMTransactionStore& store);

private:
    void ParseHeader(char* szText);
    void ParseRow(char* szText);
    const char* RepairCell(char* szCell, QMTokenizer& tokenizer);
    void ParseCell(int32_t lRole, const char* szCell);
    void ParseTag(uint32_t uTag, const char* szCell);

    int32_t nColumns = 0;             // columns of the header row
    int32_t aColumnRole[nMaxColumns]; // QMFieldRole of each; -1 for an unknown name
    bool bQuoted = false;             // whether the first header cell stood in quotes
    VString m_sCell;                  // a cell that was joined from several
};
