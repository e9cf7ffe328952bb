// The dates of the report dialog: what it offers for an account, and the range that the user has
// chosen.
#pragma once

#include <cstdint>

#include "account/qmtransactionstore.h"

// The last day of a month by the calendar, where 29 February is in leap years only; 0 for a month
// outside 1 to 12.
uint16_t QMLastDayOfMonth(int32_t lYear, int32_t lMonth);

// What the dialog starts with.
struct QMReportStart
{
    int32_t lFirstYear = 2000;
    int32_t lLastYear = 2000; // the year that is selected
    int32_t lMonthIndex = 0;  // January is 0
    QMDate dtFrom;            // the whole of the last year
    QMDate dtTo;
};
// Taken from the first and the last transaction of the store as it is; the year 2000 when there are
// none. A month outside 1 to 12 gives January.
QMReportStart QMReportStartOf(const QMTransactionStore& store);

// What the user has chosen.
struct QMReportDateChoice
{
    bool bMonth = true; // true: month and year count; false: from and to count
    int32_t lYear = 0;
    int32_t lMonthIndex = 0;
    QMDate dtFrom;
    QMDate dtTo;
};

// Gives the range, with both days in it. Returns false, and leaves the dates as they are, when it
// ends before it begins.
bool QMReadDateRange(const QMReportDateChoice& choice, QMDate& dateFrom, QMDate& dateTo);
