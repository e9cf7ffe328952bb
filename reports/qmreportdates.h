// The dates of the report dialog: what it offers for an account, and the range that the user has
// chosen.
#pragma once

#include <cstdint>

#include "account/qmtransactionstore.h"
#include "reports/qmreportkind.h"

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

// Gives a range the end that the user has left open: the day of the first or of the last
// transaction, by the dates that a report of the kind goes by, which are those cleared for the
// statement. The end is never beyond the other one. Where the first or last date is none that
// QMCheckDate accepts, it is the first or the last day of all that it accepts.
void QMCloseRange(const QMTransactionStore& store, uint32_t uKind, bool bOpenFrom, bool bOpenTo,
                  QMDate& dtFrom, QMDate& dtTo);
