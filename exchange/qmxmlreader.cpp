#include <algorithm>
#include <cstring>

#include "base/vtext.h"
#include "exchange/qmstdiofile.h"
#include "exchange/qmxmlformat.h"

namespace {

constexpr int32_t lNone = -1;

// Longer than any field, so a piece need not be longer.
constexpr uint32_t uMaxPiece = 256;

bool IsTransaction(const char* szName)
{
    return VCompareNoCase(szName, "transaction") == 0;
}

// Calls f(value) for each attribute named "type".
template <class F>
void ForEachType(const char** aszAttributes, F f)
{
    for (; aszAttributes[0] != nullptr; aszAttributes += 2) {
        if (VCompareNoCase(aszAttributes[0], "type") == 0) {
            f(aszAttributes[1]);
        }
    }
}

} // namespace

bool QMXmlFormat::Import(const char* szPath, QMTransactionStore& store)
{
    const QMStdioFile pFile = QMOpenForReading(szPath);
    if (pFile == nullptr) {
        return false;
    }
    setvbuf(pFile.get(), nullptr, _IONBF, 0);
    QMStdioSource source(pFile.get());
    return Import(source, store);
}

bool QMXmlFormat::Import(QMByteSource& source, QMTransactionStore& store)
{
    Begin(nullptr);
    if (!Parse(source)) {
        // Nothing is taken from a damaged document, not even its complete records.
        storeTemp.Clear();
        return false;
    }
    return m_records.HandOver(store);
}

bool QMXmlFormat::Import(QMByteSource& source, QMRecordTaker& taker)
{
    Begin(&taker);
    return Parse(source) && m_records.IsComplete();
}

void QMXmlFormat::Begin(QMRecordTaker* pTaker)
{
    // Kept: unlike in the text formats, the number starts as that of a new transaction, 1000.
    txPending.SetDefaults();
    m_records.Begin(pTaker);
    nCurrentType = nCurrentRole = nCurrentTag = lNone;
    strText.Clear(false);
}

void QMXmlFormat::OnStartElement(const char* szName, const char** aszAttributes)
{
    if (IsTransaction(szName)) {
        StartTransaction(aszAttributes);
    } else if (nCurrentType != lNone) {
        StartField(szName, aszAttributes);
    }
}

// A transaction of an unknown type is left out, with everything in it.
void QMXmlFormat::StartTransaction(const char** aszAttributes)
{
    ForEachType(aszAttributes, [&](const char* szValue) {
        const int32_t lType = LookupTypeName(szValue);
        if (lType >= 0) {
            txPending.lType = nCurrentType = lType;
        }
    });
}

void QMXmlFormat::StartField(const char* szName, const char** aszAttributes)
{
    nCurrentRole = LookupFieldName(szName);
    if (nCurrentRole != QM_ROLE_TAG) {
        nCurrentTag = lNone;
    } else if (VCompareNoCase(szName, "tag") == 0) {
        ForEachType(aszAttributes, [&](const char* szValue) { SetTag(LookupFieldName(szValue)); });
    }
}

void QMXmlFormat::SetTag(int32_t lRole)
{
    nCurrentTag = lRole;
    switch (lRole) {
        case QM_ROLE_VOIDED:
            txPending.SetTag(QM_TRANS_FLAG_VOIDED);
            break;
        case QM_ROLE_TAX:
            txPending.SetTag(QM_TRANS_FLAG_TAX);
            break;
        case QM_ROLE_EXPENSE:
            txPending.SetTag(QM_TRANS_FLAG_EXPENSE);
            break;
        case QM_ROLE_CLEARED:
            txPending.lFlags &= ~QM_TRANS_FLAG_NOT_CLEARED;
            break;
        default:
            break;
    }
}

void QMXmlFormat::OnCharacterData(const char* pText, int32_t lLength)
{
    // Expat passes white space between elements as single characters, and they are dropped here.
    //
    // Kept: so is a blank between two entities.
    const bool bBlank = lLength == 1 && VIsSpace(*pText);
    if (nCurrentRole == lNone || lLength <= 0 || bBlank) {
        return;
    }
    char szPiece[uMaxPiece + 1];
    const size_t uLength = std::min(static_cast<size_t>(lLength), size_t{uMaxPiece});
    memcpy(szPiece, pText, uLength);
    szPiece[uLength] = '\0';
    switch (nCurrentRole) {
        case QM_ROLE_DATE:
            txPending.ParseDate(szPiece);
            break;
        case QM_ROLE_NUMBER:
            txPending.ParseNumber(szPiece);
            break;
        case QM_ROLE_AMOUNT:
            txPending.ParseAmount(szPiece);
            break;
        case QM_ROLE_DESCRIPTION:
        case QM_ROLE_MEMO:
        case QM_ROLE_CATEGORY:
            GatherText(szPiece);
            break;
        case QM_ROLE_TAG:
            if (nCurrentTag == QM_ROLE_CLEARED || nCurrentTag == QM_ROLE_DATE_CLEARED) {
                txPending.ParseClearedDate(szPiece);
            }
            break;
        default:
            break;
    }
}

// Text beyond what a field can hold is dropped.
void QMXmlFormat::GatherText(const char* szPiece)
{
    if (strText.GetLength() < uMaxPiece && !strText.Append(szPiece)) {
        m_records.SetIncomplete();
    }
}

void QMXmlFormat::OnEndElement(const char* szName)
{
    if (nCurrentType == lNone) {
        return;
    }
    if (IsTransaction(szName)) {
        EndTransaction();
    } else {
        EndField();
    }
}

void QMXmlFormat::EndField()
{
    const char* szText = strText.GetText();
    if (strText.IsEmpty()) {
        // A field without text keeps its value.
    } else if (nCurrentRole == QM_ROLE_DESCRIPTION) {
        VCopyText(txPending.szDescription, szText);
    } else if (nCurrentRole == QM_ROLE_MEMO) {
        VCopyText(txPending.szMemo, szText);
    } else if (nCurrentRole == QM_ROLE_CATEGORY) {
        VCopyText(txPending.szCategory, szText);
    }
    nCurrentRole = lNone;
    strText.Clear(false);
}

void QMXmlFormat::EndTransaction()
{
    // Kept: of two transactions, one within the other, the end of the inner one ends both. They
    // make one record.
    m_records.Add(txPending);
    txPending.SetDefaults();
    nCurrentType = lNone;
}

// Kept: Windows-1252 is read as if it were ISO-8859-1. Its characters from 128 to 159 become
// control characters.
int32_t QMXmlFormat::OnUnknownEncoding(const char* szName, XML_Encoding* pEncoding)
{
    if (VCompareNoCase(szName, "Windows-1252") != 0) {
        return 0;
    }
    int nValue = 0;
    for (int& nCharacter : pEncoding->map) {
        nCharacter = nValue++;
    }
    return 1;
}
