#include "exchange/qmcsvformat.h"
#include "exchange/qmstdiofile.h"

namespace {

const char* TruthOf(bool b)
{
    return b ? "True" : "False";
}

void WriteRow(FILE* pFile, const QMTransaction& transaction)
{
    const QMDate& date = transaction.dtDate;
    fprintf(pFile, "%2d/%2d/%d,", date.wMonth, date.wDay, date.wYear);
    if (transaction.lType == QM_TRANS_CHECK) {
        fprintf(pFile, "%d", static_cast<int>(transaction.lNumber));
    }
    char szPayee[QM_FIELD_TEXT_SIZE];
    transaction.FormatField(QM_FIELD_DESCRIPTION, szPayee, false, 0);
    fprintf(pFile, ",%s,%s,%s,%s,%s,%s,%s,%s\n", szPayee, QMSignedAmount(transaction).szText,
            transaction.szMemo, transaction.szCategory,
            TruthOf(!transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)),
            TruthOf(transaction.HasFlag(QM_TRANS_FLAG_VOIDED)),
            TruthOf(transaction.HasFlag(QM_TRANS_FLAG_TAX)),
            TruthOf(transaction.HasFlag(QM_TRANS_FLAG_EXPENSE)));
}

} // namespace

bool QMCsvFormat::Export(const char* szPath, QMTransactionStore& store)
{
    const QMStdioFile pFile = QMCreateTextFile(szPath);
    if (pFile == nullptr) {
        return false;
    }
    WriteTo(pFile.get(), store);
    return true;
}

void QMCsvFormat::WriteTo(FILE* pFile, QMTransactionStore& store)
{
    fputs("Date,Number,Payee,Amount,Memo,Category,Cleared,Voided,Tax,Expense\n", pFile);
    store.First();
    for (;;) {
        // Kept: the loop ends only after a transaction was written. The caller makes sure that
        // there is one.
        if (const QMTransaction* pCurrent = store.GetCurrentNode()) {
            WriteRow(pFile, *pCurrent);
            if (store.IsLast()) {
                return;
            }
        }
        store.Next();
    }
}
