// The dates of the report dialog: what its boxes offer for an account, and the range that they
// stand for.
#pragma once

#include <cstdint>

#include "account/qmtransactionstore.h"

// The last day of a month by the calendar, with 29 February in leap years only; 0 for a month
// outside 1 to 12.
uint16_t QMLastDayOfMonth(int32_t lYear, int32_t lMonth);

// What the dialog opens with.
struct QMReportStart
{
    int32_t lFirstYear = 2000;
    int32_t lLastYear = 2000; // the one that is selected
    int32_t lMonthIndex = 0;  // January is 0
    QMDate dtFrom;            // the whole of the last year
    QMDate dtTo;
};
// From the first and the last transaction of the store as it stands; from the year 2000 without
// any. A month that the calendar does not have gives January.
QMReportStart QMReportStartOf(const QMTransactionStore& store);

// What the boxes show.
struct QMReportDateChoice
{
    bool bMonth = true; // month and year count; otherwise from and to
    int32_t lYear = 0;
    int32_t lMonthIndex = 0;
    QMDate dtFrom;
    QMDate dtTo;
};

// The range of the choice, both days in it. False, with the dates as they were, when it ends before
// it begins.
bool QMReadDateRange(const QMReportDateChoice& choice, QMDate& dateFrom, QMDate& dateTo);
