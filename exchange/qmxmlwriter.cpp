#include <cstring>

#include "account/qmmoney.h"
#include "exchange/qmreplace.h"
#include "exchange/qmstdiofile.h"
#include "exchange/qmxmlformat.h"

namespace {

// Declarations for a human reader. Nothing validates a document against them.
//
// Kept: the document type is named DOCUMENT, which is not the name of the root element, and a date
// is plain text in a tag.
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

// Kept: the replacement for "&" holds an "&", so QMReplace replaces only the first one of a text. A
// text with two gives a document that no parser accepts.
void WriteText(FILE* pFile, const char* szElement, const char* szText)
{
    if (*szText == '\0') {
        return;
    }
    if (strpbrk(szText, "&<>'\"") == nullptr) {
        fprintf(pFile, "\t<%s>%s</%s>\n", szElement, szText, szElement);
        return;
    }
    VString sEscaped(szText);
    for (const auto& entity : aEntities) {
        QMReplace(sEscaped, entity.c, entity.szEntity);
    }
    fprintf(pFile, "\t<%s>%s</%s>\n", szElement, sEscaped.GetText(), szElement);
}

void WriteTags(FILE* pFile, const QMTransaction& transaction)
{
    if (transaction.HasFlag(QM_TRANS_FLAG_VOIDED)) {
        fputs("\t<tag type=\"voided\"></tag>\n", pFile);
    }
    if (transaction.HasFlag(QM_TRANS_FLAG_EXPENSE)) {
        fputs("\t<tag type=\"expense\"></tag>\n", pFile);
    }
    if (transaction.HasFlag(QM_TRANS_FLAG_TAX)) {
        fputs("\t<tag type=\"tax-deductible\"></tag>\n", pFile);
    }
    if (!transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)) {
        const QMDate& date = transaction.dtCleared;
        fprintf(pFile, "\t<tag type=\"cleared\">%02d/%02d/%d</tag>\n", date.wMonth, date.wDay,
                date.wYear);
    }
}

void WriteRecord(FILE* pFile, const QMTransaction& transaction)
{
    fprintf(pFile, "<transaction type=\"%s\">\n", aszTypeNames[transaction.lType]);
    const bool bCheck = transaction.lType == QM_TRANS_CHECK;
    if (bCheck) {
        fprintf(pFile, "\t<number>%d</number>\n", static_cast<int>(transaction.lNumber));
    }
    const QMDate& date = transaction.dtDate;
    fprintf(pFile, "\t<date>%02d/%02d/%d</date>\n", date.wMonth, date.wDay, date.wYear);
    // Kept: the description is written from the payee column, which is empty for everything but
    // checks.
    WriteText(pFile, "description", bCheck ? transaction.szDescription : "");
    char szAmount[64];
    QMFormatMoney(transaction.GetRoundedAmount(), 0, szAmount, sizeof szAmount);
    fprintf(pFile, "\t<amount>%s</amount>\n", szAmount);
    WriteText(pFile, "memo", transaction.szMemo);
    WriteText(pFile, "category", transaction.szCategory);
    WriteTags(pFile, transaction);
    fputs("</transaction>\n", pFile);
}

} // namespace

bool QMXmlFormat::Export(const char* szPath, QMTransactionStore& store)
{
    const QMStdioFile pFile = QMCreateTextFile(szPath);
    if (pFile == nullptr) {
        return false;
    }
    WriteTo(pFile.get(), store);
    return true;
}

void QMXmlFormat::WriteTo(FILE* pFile, QMTransactionStore& store)
{
    fputs(szProlog, pFile);
    store.First();
    for (;;) {
        // Kept: the loop ends only after the last transaction was written, and at the end of the
        // store there is no next one. The caller makes sure that the last one is written.
        const QMTransaction* pCurrent = store.GetCurrentNode();
        if (pCurrent != nullptr && pCurrent->IsTypeValid()) {
            WriteRecord(pFile, *pCurrent);
            if (store.IsLast()) {
                break;
            }
        }
        store.Next();
    }
    fputs("</quillmark>\n", pFile);
}
