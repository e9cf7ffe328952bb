// The display periods that a register offers, and the dates that they stand for.
#pragma once

#include <cstdint>

#include "account/qmdate.h"

// The periods in the order in which they are offered: QM_ACCNT_DISPLAY_ALL comes first.
inline constexpr int QM_PERIOD_COUNT = 5;
const char* QMPeriodName(int nPeriod);

// Sets both dates to those of a period as of dtToday: to that day itself for all transactions, to
// the first and the last day of a month or year. A range of dates, or no period, leaves both.
void QMGetPeriodDates(uint32_t uPeriod, const QMDate& dtToday, QMDate& dtFrom, QMDate& dtTo);
