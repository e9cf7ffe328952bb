#include "account/qmtransaction.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>

#include "account/qmmoney.h"
#include "base/vstring.h"
#include "base/vtext.h"

namespace {

// The most bytes that an amount takes in its column, terminating zero included.
constexpr size_t uMoneyTextSize = 32;

constexpr struct
{
    uint32_t uFlag;
    const char* szLetters;
} aTagLetters[] = {
    {QM_TRANS_FLAG_VOIDED, "V"},
    {QM_TRANS_FLAG_EXPENSE, "E"},
    {QM_TRANS_FLAG_TAX, "T"},
    {QM_TRANS_FLAG_NOT_CLEARED, "NC"},
};

// Builds a text in a buffer of QM_FIELD_TEXT_SIZE bytes. A text that does not fit is cut.
class TextBuilder
{
public:
    explicit TextBuilder(char* szBuffer) : m_szBuffer(szBuffer) {}

    void Add(const char* szText)
    {
        const size_t uLength = std::min(strlen(szText), QM_FIELD_TEXT_SIZE - 1 - m_uLength);
        memcpy(m_szBuffer + m_uLength, szText, uLength);
        m_uLength += uLength;
    }

    // Adds a number, right-aligned in nWidth characters. cFill fills the space before it.
    void AddNumber(uint32_t uNumber, ptrdiff_t nWidth, char cFill)
    {
        char szDigits[10];
        const auto result = std::to_chars(szDigits, szDigits + sizeof szDigits, uNumber);
        const ptrdiff_t nDigits = result.ptr - szDigits;
        for (ptrdiff_t n = nDigits; n < nWidth; ++n) {
            m_szBuffer[m_uLength++] = cFill;
        }
        memcpy(m_szBuffer + m_uLength, szDigits, static_cast<size_t>(nDigits));
        m_uLength += static_cast<size_t>(nDigits);
    }

    void AddDate(const QMDate& date)
    {
        AddNumber(date.wMonth, 2, ' ');
        m_szBuffer[m_uLength++] = '/';
        AddNumber(date.wDay, 2, ' ');
        m_szBuffer[m_uLength++] = '/';
        AddNumber(date.wYear % 100U, 2, '0');
    }

    size_t Finish()
    {
        m_szBuffer[m_uLength] = '\0';
        return m_uLength;
    }

private:
    char* m_szBuffer;
    size_t m_uLength = 0;
};

size_t FormatText(const char* szText, char* szBuffer)
{
    TextBuilder builder(szBuffer);
    builder.Add(szText);
    return builder.Finish();
}

size_t FormatDate(const QMDate& date, char* szBuffer)
{
    TextBuilder builder(szBuffer);
    builder.AddDate(date);
    return builder.Finish();
}

size_t FormatNumber(const QMTransactionFields& fields, char* szBuffer)
{
    if (fields.lType != QM_TRANS_CHECK) {
        return FormatText("     ", szBuffer);
    }
    if (fields.lNumber > INT32_MAX) {
        // The column prints the number with a sign. Only a damaged file can hold one that is
        // negative then.
        const auto lNumber = static_cast<int32_t>(fields.lNumber);
        return static_cast<size_t>(snprintf(szBuffer, QM_FIELD_TEXT_SIZE, "%5d", lNumber));
    }
    TextBuilder builder(szBuffer);
    builder.AddNumber(fields.lNumber, 5, ' ');
    return builder.Finish();
}

// Moves the bits of QMCheckDate to the places that they have in the result of Validate.
uint32_t DateFaults(const QMDate& date)
{
    const uint32_t uFound = QMCheckDate(date);
    return ((uFound & QM_DATE_FAULT_DAY) != 0 ? QM_FAULT_DAY : 0) |
           ((uFound & QM_DATE_FAULT_MONTH) != 0 ? QM_FAULT_MONTH : 0) |
           ((uFound & QM_DATE_FAULT_YEAR) != 0 ? QM_FAULT_YEAR : 0);
}

bool AreFlagsValid(uint32_t uFlags)
{
    constexpr uint32_t uExclusive =
        QM_TRANS_FLAG_VOIDED | QM_TRANS_FLAG_EXPENSE | QM_TRANS_FLAG_TAX;
    const uint32_t uSet = uFlags & uExclusive;
    const bool bAtMostOne = (uSet & (uSet - 1)) == 0;
    return bAtMostOne && (uFlags & ~(uExclusive | QM_TRANS_FLAG_NOT_CLEARED)) == 0;
}

bool HasText(const char* szText)
{
    return szText != nullptr && *szText != '\0';
}

} // namespace

void QMTransaction::SetDefaults()
{
    static constexpr QMTransactionFields defaults;
    CopyFrom(defaults);
}

void QMTransaction::CopyFrom(const QMTransactionFields& other)
{
    static_cast<QMTransactionFields&>(*this) = other;
}

double QMTransaction::GetRoundedAmount() const
{
    return QMRoundToCents(fAmount);
}

double QMTransaction::ApplyToBalances(double& dBalance, double& dAvailable) const
{
    const QMSide side = QMTypeSide(lType);
    if (side == QMSide::None || HasFlag(QM_TRANS_FLAG_VOIDED)) {
        return dBalance;
    }
    const double dAmount = side == QMSide::Debit ? -GetRoundedAmount() : GetRoundedAmount();
    dAvailable += dAmount;
    if (!HasFlag(QM_TRANS_FLAG_NOT_CLEARED)) {
        dBalance += dAmount;
    }
    return dBalance;
}

char* QMTransaction::GetFieldText(uint32_t uKind, char* szBuffer, bool bAppendVoided,
                                  double dBalance) const
{
    return FormatField(uKind, szBuffer, bAppendVoided, dBalance) < 0 ? nullptr : szBuffer;
}

int32_t QMTransaction::FormatField(uint32_t uKind, char* szBuffer, bool bAppendVoided,
                                   double dBalance) const
{
    szBuffer[0] = '\0';
    if (!IsTypeValid()) {
        return -1;
    }
    const auto Format = [&]() -> size_t {
        switch (uKind) {
            case QM_FIELD_DATE:
                return FormatDate(dtDate, szBuffer);
            case QM_FIELD_NUMBER:
                return FormatNumber(*this, szBuffer);
            case QM_FIELD_PAYEE:
                return FormatText(lType == QM_TRANS_CHECK ? szDescription : "", szBuffer);
            case QM_FIELD_DESCRIPTION:
                return FormatDescription(szBuffer, bAppendVoided);
            case QM_FIELD_AMOUNT:
                return QMFormatMoney(static_cast<double>(fAmount), 10, szBuffer, uMoneyTextSize);
            case QM_FIELD_BALANCE:
                return QMFormatMoney(dBalance, 0, szBuffer, uMoneyTextSize);
            case QM_FIELD_MEMO:
                return FormatText(szMemo, szBuffer);
            case QM_FIELD_CATEGORY:
                return FormatText(szCategory, szBuffer);
            case QM_FIELD_TAG:
                return FormatTag(szBuffer);
            default: // QM_FIELD_DATE_CLEARED: the test below lets no other kind through
                return FormatDate(dtCleared, szBuffer);
        }
    };
    return uKind < QM_FIELD_COUNT ? static_cast<int32_t>(Format()) : -1;
}

size_t QMTransaction::FormatDescription(char* szBuffer, bool bAppendVoided) const
{
    TextBuilder builder(szBuffer);
    if (lType == QM_TRANS_CHECK) {
        builder.Add(szDescription);
    } else {
        builder.Add(QMTypeLabel(lType));
        // Kept: a description of a single character is left out.
        if (szDescription[0] != '\0' && szDescription[1] != '\0') {
            builder.Add(" - ");
            builder.Add(szDescription);
        }
    }
    if (bAppendVoided && HasFlag(QM_TRANS_FLAG_VOIDED)) {
        builder.Add("   (voided)");
    }
    return builder.Finish();
}

size_t QMTransaction::FormatTag(char* szBuffer) const
{
    TextBuilder builder(szBuffer);
    const char* szSeparator = "";
    for (const auto& tag : aTagLetters) {
        if (HasFlag(tag.uFlag)) {
            builder.Add(szSeparator);
            builder.Add(tag.szLetters);
            szSeparator = ", ";
        }
    }
    return builder.Finish();
}

void QMTransaction::SetTag(uint32_t uTag)
{
    switch (uTag) {
        case QM_TRANS_FLAG_TAX:
            lFlags &= ~(QM_TRANS_FLAG_VOIDED | QM_TRANS_FLAG_EXPENSE);
            break;
        case QM_TRANS_FLAG_EXPENSE:
            lFlags &= ~(QM_TRANS_FLAG_VOIDED | QM_TRANS_FLAG_TAX);
            break;
        case QM_TRANS_FLAG_VOIDED:
            lFlags &= ~(QM_TRANS_FLAG_EXPENSE | QM_TRANS_FLAG_TAX);
            lFlags |= QM_TRANS_FLAG_NOT_CLEARED;
            break;
        case QM_TRANS_FLAG_NOT_CLEARED:
            break;
        default:
            return;
    }
    lFlags |= uTag;
}

uint32_t QMTransaction::Validate() const
{
    uint32_t uFaults = DateFaults(dtDate) | DateFaults(dtCleared);
    if (!IsTypeValid()) {
        uFaults |= QM_FAULT_TYPE;
    }
    if (lType == QM_TRANS_CHECK && (lNumber == 0 || lNumber > QM_MAX_CHECK_NUMBER)) {
        uFaults |= QM_FAULT_NUMBER;
    }
    const bool bNeedsAmount = !HasFlag(QM_TRANS_FLAG_VOIDED);
    if ((fAmount == 0 && bNeedsAmount) || fAmount < 0 || fAmount > QM_MAX_AMOUNT) {
        uFaults |= QM_FAULT_AMOUNT;
    }
    if (!AreFlagsValid(lFlags)) {
        uFaults |= QM_FAULT_FLAGS;
    }
    return uFaults;
}

void QMTransaction::ParseDate(const char* szText)
{
    QMParseDate(szText, dtDate);
}

void QMTransaction::ParseClearedDate(const char* szText)
{
    QMParseDate(szText, dtCleared);
}

void QMTransaction::ParseNumber(const char* szText)
{
    if (HasText(szText)) {
        lNumber = static_cast<uint32_t>(VParseInteger(szText));
    }
}

void QMTransaction::ParseAmount(const char* szText)
{
    if (!HasText(szText)) {
        return;
    }
    if (strchr(szText, ',') == nullptr) {
        fAmount = static_cast<float>(VParseDouble(szText));
        return;
    }
    VString sDigits;
    for (const char* p = szText; *p != '\0'; ++p) {
        if (*p != ',') {
            sDigits.AppendCharacter(*p);
        }
    }
    fAmount = static_cast<float>(VParseDouble(sDigits.GetText()));
}
