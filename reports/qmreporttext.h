// QMReportText: builds the texts of reports, amounts, dates and numbers, without allocating memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "account/qmtransaction.h"

class QMReportText
{
public:
    // Adds a number as "%0.2f" does. Every double fits.
    QMReportText& AddAmount(double dAmount);
    // Adds a number as "%d" does.
    QMReportText& AddInteger(int64_t nNumber) { return AddNumber(nNumber, 0); }
    // Adds month, day and full year as "%2d/%2d/%2d" does.
    QMReportText& AddDate(const QMDate& date);
    QMReportText& Add(std::string_view text);
    // Adds "s" unless the count is 1.
    QMReportText& AddPlural(int64_t nCount);
    // Adds a number as "%*d" does.
    QMReportText& AddNumber(int64_t nNumber, int nWidth);

    std::string_view Get() const { return {m_szText, m_uLength}; }

private:
    // Room for two fields of a transaction and everything around them. More is cut off.
    static constexpr size_t uSize = 1024;

    size_t m_uLength = 0;
    char m_szText[uSize];
};

// The text of a row: the description column, with " (voided)" for a voided transaction. With bMemo,
// " - " and the memo follow, if there is one.
void QMAddRowText(QMReportText& text, const QMTransaction& transaction, bool bMemo);

// The total of a list, rounded to cents. When it is below 0 then, it is in parentheses.
void QMAddTotal(QMReportText& text, double dTotal);
