#include "exchange/qmqifformat.h"
#include "exchange/qmstdiofile.h"

namespace {

void WriteText(FILE* pFile, char cField, const char* szText)
{
    if (*szText != '\0') {
        fprintf(pFile, "%c%s\n", cField, szText);
    }
}

void WriteRecord(FILE* pFile, const QMTransaction& transaction)
{
    const QMDate& date = transaction.dtDate;
    fprintf(pFile, "D%02d/%02d/%d\n", date.wMonth, date.wDay, date.wYear);
    if (transaction.lType == QM_TRANS_CHECK) {
        fprintf(pFile, "N%d\n", static_cast<int>(transaction.lNumber));
    }
    fprintf(pFile, "T%s\n", QMSignedAmount(transaction).szText);
    char szPayee[QM_FIELD_TEXT_SIZE];
    transaction.FormatField(QM_FIELD_DESCRIPTION, szPayee, false, 0);
    WriteText(pFile, 'P', szPayee);
    WriteText(pFile, 'M', transaction.szMemo);
    WriteText(pFile, 'L', transaction.szCategory);
    fputs(transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED) ? "^\n" : "CX\n^\n", pFile);
}

} // namespace

bool QMQifFormat::Export(const char* szPath, QMTransactionStore& store)
{
    const QMStdioFile pFile = QMCreateTextFile(szPath);
    if (pFile == nullptr) {
        return false;
    }
    WriteTo(pFile.get(), store);
    return true;
}

void QMQifFormat::WriteTo(FILE* pFile, QMTransactionStore& store)
{
    fputs("!Type:Bank\n", pFile);
    store.First();
    for (;;) {
        // Kept: the loop ends only after the last transaction was written, and at the end of the
        // store there is no next one. The caller makes sure that the last one is written.
        const QMTransaction* pCurrent = store.GetCurrentNode();
        if (pCurrent != nullptr && !pCurrent->HasFlag(QM_TRANS_FLAG_VOIDED)) {
            WriteRecord(pFile, *pCurrent);
            if (store.IsLast()) {
                return;
            }
        }
        store.Next();
    }
}
