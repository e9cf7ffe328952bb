#include <cstring>

#include "account/qmmoney.h"
#include "exchange/qmexchangewriter.h"
#include "exchange/qmreplace.h"
#include "exchange/qmxmlformat.h"

namespace {

// Declarations for a human reader. Nothing validates a document against them.
//
// Kept: the document type is named DOCUMENT, which is not the name of the root element, and a date
// is plain text in a tag. No encoding is named and texts are written in the code page of Windows,
// so a character beyond 127 makes a document that no parser accepts.
constexpr char szProlog[] =
    "<?xml version=\"1.0\" standalone=\"yes\"?>\n"
    "<!DOCTYPE DOCUMENT [\n"
    "<!ELEMENT quillmark    (transaction)*>\n"
    "<!ELEMENT transaction  (number?, date, description?, amount, memo?, category?, tag*)>\n"
    "<!ATTLIST transaction  type (check | deposit | withdrawal | fee | direct-deposit | "
    "direct-debit | atm-deposit | atm-withdrawal | auto-payment | transfer-credit | "
    "transfer-debit | interest) #REQUIRED>\n"
    "<!ELEMENT number       (#PCDATA)*>\n"
    "<!ELEMENT date         (#PCDATA)*>\n"
    "<!ELEMENT description  (#PCDATA)*>\n"
    "<!ELEMENT amount       (#PCDATA)*>\n"
    "<!ELEMENT memo         (#PCDATA)*>\n"
    "<!ELEMENT category     (#PCDATA)*>\n"
    "<!ELEMENT tag          (date)?>\n"
    "<!ATTLIST tag          type (voided | expense | tax-deductible | cleared) #REQUIRED>\n"
    "]>\n"
    "\n"
    "<quillmark>\n";

// The names, indexed by QMTransactionType.
constexpr const char* aszTypeNames[QM_TRANS_TYPE_COUNT] = {
    "check",          "deposit",         "withdrawal",     "fee",
    "direct-deposit", "direct-debit",    "atm-deposit",    "atm-withdrawal",
    "auto-payment",   "transfer-credit", "transfer-debit", "interest",
};

constexpr struct
{
    char c;
    const char* szEntity;
} aEntities[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'\'', "&apos;"}, {'"', "&quot;"},
};

void AddElement(QMTextWriter& writer, std::string_view element, std::string_view text)
{
    writer.Add("\t<");
    writer.Add(element);
    writer.Add('>');
    writer.Add(text);
    writer.Add("</");
    writer.Add(element);
    writer.Add(">\n");
}

// Kept: the replacement for "&" holds an "&", so QMReplace replaces only the first one of a text. A
// text with two gives a document that no parser accepts.
void WriteText(QMTextWriter& writer, std::string_view element, const char* szText)
{
    if (*szText == '\0') {
        return;
    }
    if (strpbrk(szText, "&<>'\"") == nullptr) {
        AddElement(writer, element, szText);
        return;
    }
    VString sEscaped(szText);
    for (const auto& entity : aEntities) {
        QMReplace(sEscaped, entity.c, entity.szEntity);
    }
    AddElement(writer, element, sEscaped.GetText());
}

void WriteTags(QMTextWriter& writer, const QMTransaction& transaction)
{
    if (transaction.HasFlag(QM_TRANS_FLAG_VOIDED)) {
        writer.Add("\t<tag type=\"voided\"></tag>\n");
    }
    if (transaction.HasFlag(QM_TRANS_FLAG_EXPENSE)) {
        writer.Add("\t<tag type=\"expense\"></tag>\n");
    }
    if (transaction.HasFlag(QM_TRANS_FLAG_TAX)) {
        writer.Add("\t<tag type=\"tax-deductible\"></tag>\n");
    }
    if (!transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)) {
        writer.Add("\t<tag type=\"cleared\">");
        writer.AddDate(transaction.dtCleared, '0');
        writer.Add("</tag>\n");
    }
}

void WriteNumber(QMTextWriter& writer, const QMTransaction& transaction)
{
    writer.Add("\t<number>");
    writer.AddNumber(static_cast<int32_t>(transaction.lNumber));
    writer.Add("</number>\n");
}

void WriteRecord(QMTextWriter& writer, const QMTransaction& transaction)
{
    writer.Add("<transaction type=\"");
    writer.Add(aszTypeNames[transaction.lType]);
    writer.Add("\">\n");
    const bool bCheck = transaction.lType == QM_TRANS_CHECK;
    if (bCheck) {
        WriteNumber(writer, transaction);
    }
    writer.Add("\t<date>");
    writer.AddDate(transaction.dtDate, '0');
    writer.Add("</date>\n");
    // Kept: the description is written from the payee column, which is empty for everything but
    // checks.
    WriteText(writer, "description", bCheck ? transaction.szDescription : "");
    char szAmount[64];
    QMFormatMoney(transaction.GetRoundedAmount(), 0, szAmount, sizeof szAmount);
    AddElement(writer, "amount", szAmount);
    WriteText(writer, "memo", transaction.szMemo);
    WriteText(writer, "category", transaction.szCategory);
    WriteTags(writer, transaction);
    writer.Add("</transaction>\n");
}

} // namespace

bool QMXmlFormat::Export(const char* szPath, QMTransactionStore& store)
{
    return QMWriteExchangeFile(szPath, [&](QMByteSink& sink) { WriteTo(sink, store); });
}

bool QMXmlFormat::WriteTo(QMByteSink& sink, QMTransactionStore& store, QMProgress* pProgress)
{
    QMTextWriter writer(sink);
    writer.Add(szProlog);
    const bool bAll = QMWriteTransactions(
        store,
        [&](const QMTransaction& transaction) {
            const bool bWritten = transaction.IsTypeValid();
            if (bWritten) {
                WriteRecord(writer, transaction);
            }
            return bWritten;
        },
        pProgress);
    writer.Add("</quillmark>\n");
    return writer.Finish() && bAll;
}
