// QMDate: the date type of the whole program, and its comparisons.
#pragma once

#include <cstdint>

// A date, laid out as SYSTEMTIME of Windows, and written to files so. Only year (four digits),
// month (1 to 12) and day (1 to 31) have a meaning. The comparisons look at nothing else.
struct QMDate
{
    uint16_t wYear = 0;
    uint16_t wMonth = 0;
    uint16_t wDayOfWeek = 0; // 0 Sunday to 6 Saturday, if it came from a clock
    uint16_t wDay = 0;
    uint16_t wHour = 0;
    uint16_t wMinute = 0;
    uint16_t wSecond = 0;
    uint16_t wMilliseconds = 0;
};
static_assert(sizeof(QMDate) == 16);

constexpr QMDate QMMakeDate(uint16_t wYear, uint16_t wMonth, uint16_t wDay)
{
    QMDate date;
    date.wYear = wYear;
    date.wMonth = wMonth;
    date.wDay = wDay;
    return date;
}

// Year, month and day as one number. Numbers made so sort as the dates do.
inline constexpr uint64_t QM_DATE_KEY_MAX = 0xFFFFFFFFFFFF;
constexpr uint64_t QMDateKey(const QMDate& date)
{
    return uint64_t{date.wYear} << 32 | uint64_t{date.wMonth} << 16 | date.wDay;
}

constexpr bool QMDateIsEqual(const QMDate& a, const QMDate& b)
{
    return QMDateKey(a) == QMDateKey(b);
}
constexpr bool QMDateIsAfter(const QMDate& a, const QMDate& b)
{
    return QMDateKey(a) > QMDateKey(b);
}
constexpr bool QMDateIsBefore(const QMDate& a, const QMDate& b)
{
    return QMDateKey(a) < QMDateKey(b);
}
constexpr bool QMDateIsAfterOrEqual(const QMDate& a, const QMDate& b)
{
    return !QMDateIsBefore(a, b);
}
constexpr bool QMDateIsBeforeOrEqual(const QMDate& a, const QMDate& b)
{
    return !QMDateIsAfter(a, b);
}
// Whether the date is in the range. Both ends belong to the range.
constexpr bool QMDateIsInRange(const QMDate& date, const QMDate& from, const QMDate& to)
{
    return QMDateIsAfterOrEqual(date, from) && QMDateIsBeforeOrEqual(date, to);
}

// The bits that QMCheckDate returns.
inline constexpr uint32_t QM_DATE_FAULT_DAY = 1;
inline constexpr uint32_t QM_DATE_FAULT_MONTH = 2; // the day is not tested then
inline constexpr uint32_t QM_DATE_FAULT_YEAR = 4;

// Tests the month, the day of that month, and the year (1752 to 3000). Returns 0 for a good date.
//
// Kept: 29 February is a good date in every year. Account files hold such dates, and a register
// must go on showing them.
uint32_t QMCheckDate(const QMDate& date);

// Reads month, day and year from a text such as 3/14/2004. The separator is "/" if the text holds
// one, else "-", else ".". The month is the number before the first separator, the day is the one
// after it, and the year is the one after the last separator. No range is tested and no century is
// added. A number that the field cannot hold reads as 65535. An empty or null text, or one without
// a separator, leaves the date as it is.
//
// Kept: in a text with one separator, the number after it is both the day and the year.
void QMParseDate(const char* szText, QMDate& date);

// Today by the local clock, with the day of the week.
QMDate QMToday();
