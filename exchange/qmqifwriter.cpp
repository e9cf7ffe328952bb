#include "exchange/qmexchangewriter.h"
#include "exchange/qmqifformat.h"

namespace {

void WriteText(QMTextWriter& writer, char cField, std::string_view text)
{
    if (!text.empty()) {
        writer.Add(cField);
        writer.Add(text);
        writer.Add('\n');
    }
}

void WriteRecord(QMTextWriter& writer, const QMTransaction& transaction)
{
    writer.Add('D');
    writer.AddDate(transaction.dtDate, '0');
    if (transaction.lType == QM_TRANS_CHECK) {
        writer.Add("\nN");
        writer.AddNumber(static_cast<int32_t>(transaction.lNumber));
    }
    writer.Add("\nT");
    writer.Add(QMSignedAmount(transaction).GetText());
    writer.Add('\n');
    char szPayee[QM_FIELD_TEXT_SIZE];
    WriteText(writer, 'P', QMPayeeText(transaction, szPayee));
    WriteText(writer, 'M', transaction.szMemo);
    WriteText(writer, 'L', transaction.szCategory);
    writer.Add(transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED) ? "^\n" : "CX\n^\n");
}

} // namespace

bool QMQifFormat::Export(const char* szPath, QMTransactionStore& store)
{
    return QMWriteExchangeFile(szPath, [&](QMByteSink& sink) { WriteTo(sink, store); });
}

bool QMQifFormat::WriteTo(QMByteSink& sink, QMTransactionStore& store, QMProgress* pProgress)
{
    QMTextWriter writer(sink);
    writer.Add("!Type:Bank\n");
    const bool bAll = QMWriteTransactions(
        store,
        [&](const QMTransaction& transaction) {
            const bool bWritten = !transaction.HasFlag(QM_TRANS_FLAG_VOIDED);
            if (bWritten) {
                WriteRecord(writer, transaction);
            }
            return bWritten;
        },
        pProgress);
    return writer.Finish() && bAll;
}
