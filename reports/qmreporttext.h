// The texts of reports: amounts, dates and numbers as they are printed, built without an
// allocation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "account/qmtransaction.h"

class QMReportText
{
public:
    // "%0.2f"; a double of any size fits.
    QMReportText& AddAmount(double dAmount);
    // "%d"
    QMReportText& AddInteger(int64_t nNumber) { return AddNumber(nNumber, 0); }
    // "%2d/%2d/%2d" of month, day and the full year
    QMReportText& AddDate(const QMDate& date);
    QMReportText& Add(std::string_view text);
    // "s", unless the count is exactly 1.
    QMReportText& AddPlural(int64_t nCount);
    // "%*d"
    QMReportText& AddNumber(int64_t nNumber, int nWidth);

    std::string_view Get() const { return {m_szText, m_uLength}; }

private:
    // Two fields of a transaction and all that is put around them; more is cut.
    static constexpr size_t uSize = 1024;

    size_t m_uLength = 0;
    char m_szText[uSize];
};

// The text of a transaction's row: its description column with "   (voided)" where it applies, and
// with bMemo the memo, if there is one, behind " - ".
void QMAddRowText(QMReportText& text, const QMTransaction& transaction, bool bMemo);

// The total of a list as it is drawn: rounded to cents first, in parentheses when it is then below
// 0.
void QMAddTotal(QMReportText& text, double dTotal);
