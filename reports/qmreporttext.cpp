#include "reports/qmreporttext.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "account/qmmoney.h"
#include "base/vtext.h"

QMReportText& QMReportText::Add(std::string_view text)
{
    const size_t uLength = std::min(text.size(), uSize - m_uLength);
    memcpy(m_szText + m_uLength, text.data(), uLength);
    m_uLength += uLength;
    return *this;
}

QMReportText& QMReportText::AddAmount(double dAmount)
{
    if (std::isnan(dAmount)) {
        // The sign of a sum that is not a number depends on the compiler. So none is written.
        return Add("nan");
    }
    char szAmount[400];
    return Add({szAmount, QMFormatMoney(dAmount, 0, szAmount, sizeof szAmount)});
}

QMReportText& QMReportText::AddNumber(int64_t nNumber, int nWidth)
{
    char szDigits[24];
    const auto result = std::to_chars(szDigits, szDigits + sizeof szDigits, nNumber);
    for (auto n = result.ptr - szDigits; n < nWidth; ++n) {
        Add(" ");
    }
    return Add({szDigits, static_cast<size_t>(result.ptr - szDigits)});
}

QMReportText& QMReportText::AddDate(const QMDate& date)
{
    AddNumber(date.wMonth, 2).Add("/");
    AddNumber(date.wDay, 2).Add("/");
    return AddNumber(date.wYear, 2);
}

QMReportText& QMReportText::AddPlural(int64_t nCount)
{
    return Add(nCount == 1 ? "" : "s");
}

void QMAddRowText(QMReportText& text, const QMTransaction& transaction, bool bMemo)
{
    char szDescription[QM_FIELD_TEXT_SIZE];
    const int32_t lLength = transaction.FormatField(QM_FIELD_DESCRIPTION, szDescription, true, 0);
    text.Add({szDescription, static_cast<size_t>(std::max(lLength, 0))});
    if (bMemo && transaction.szMemo[0] != '\0') {
        text.Add(" - ").Add(transaction.szMemo);
    }
}

void QMAddTotal(QMReportText& text, double dTotal)
{
    char szRounded[400];
    QMFormatMoney(dTotal, 0, szRounded, sizeof szRounded);
    // Amounts that cancel each other may leave a trace below zero, which rounds to a zero with a
    // sign.
    const double dRounded = std::isfinite(dTotal) ? VParseDouble(szRounded) + 0.0 : dTotal;
    if (dRounded < 0) {
        text.Add("(").AddAmount(-dRounded).Add(")");
    } else {
        text.AddAmount(dRounded);
    }
}
