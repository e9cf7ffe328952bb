#include "exchange/qmcsvformat.h"
#include "exchange/qmexchangewriter.h"

namespace {

void AddTruth(QMTextWriter& writer, bool b)
{
    writer.Add(b ? std::string_view(",True") : std::string_view(",False"));
}

void AddCell(QMTextWriter& writer, std::string_view text)
{
    writer.Add(',');
    writer.Add(text);
}

void WriteRow(QMTextWriter& writer, const QMTransaction& transaction)
{
    writer.AddDate(transaction.dtDate, ' ');
    writer.Add(',');
    if (transaction.lType == QM_TRANS_CHECK) {
        writer.AddNumber(static_cast<int32_t>(transaction.lNumber));
    }
    char szPayee[QM_FIELD_TEXT_SIZE];
    AddCell(writer, QMPayeeText(transaction, szPayee));
    AddCell(writer, QMSignedAmount(transaction).GetText());
    AddCell(writer, transaction.szMemo);
    AddCell(writer, transaction.szCategory);
    AddTruth(writer, !transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED));
    AddTruth(writer, transaction.HasFlag(QM_TRANS_FLAG_VOIDED));
    AddTruth(writer, transaction.HasFlag(QM_TRANS_FLAG_TAX));
    AddTruth(writer, transaction.HasFlag(QM_TRANS_FLAG_EXPENSE));
    writer.Add('\n');
}

} // namespace

bool QMCsvFormat::Export(const char* szPath, QMTransactionStore& store)
{
    return QMWriteExchangeFile(szPath, [&](QMByteSink& sink) { WriteTo(sink, store); });
}

bool QMCsvFormat::WriteTo(QMByteSink& sink, QMTransactionStore& store, QMProgress* pProgress)
{
    QMTextWriter writer(sink);
    writer.Add("Date,Number,Payee,Amount,Memo,Category,Cleared,Voided,Tax,Expense\n");
    const bool bAll = QMWriteTransactions(
        store,
        [&](const QMTransaction& transaction) {
            WriteRow(writer, transaction);
            return true;
        },
        pProgress);
    return writer.Finish() && bAll;
}
