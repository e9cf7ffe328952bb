// The display periods that a register offers, and the dates that they mean.
#pragma once

#include <cstdint>

#include "account/qmdate.h"

// The periods in the order in which they are offered. QM_ACCNT_DISPLAY_ALL comes first.
inline constexpr int QM_PERIOD_COUNT = 5;
const char* QMPeriodName(int nPeriod);

// Sets both dates to the first and the last day of a period, as of dtToday: of a month, or of a
// year. QM_ACCNT_DISPLAY_ALL sets both to dtToday. QM_ACCNT_DISPLAY_DATE_RANGE, and any other
// value, leaves both as they are.
void QMGetPeriodDates(uint32_t uPeriod, const QMDate& dtToday, QMDate& dtFrom, QMDate& dtTo);
