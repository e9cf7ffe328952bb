// QMDate: the date type of the whole program, and its comparisons.
#pragma once

#include <cstdint>

// The platform's SYSTEMTIME, and filed as such. Only year (four digits), month (1 to 12) and day
// (1 to 31) carry meaning: comparisons look at nothing else.
struct QMDate
{
    uint16_t wYear = 0;
    uint16_t wMonth = 0;
    uint16_t wDayOfWeek = 0; // 0 Sunday to 6 Saturday, where a clock filled it in
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

// Year, month and day as one number that sorts as the dates do.
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
// Both ends belong to the range.
constexpr bool QMDateIsInRange(const QMDate& date, const QMDate& from, const QMDate& to)
{
    return QMDateIsAfterOrEqual(date, from) && QMDateIsBeforeOrEqual(date, to);
}

// What QMCheckDate finds, as bits.
inline constexpr uint32_t QM_DATE_FAULT_DAY = 1;
inline constexpr uint32_t QM_DATE_FAULT_MONTH = 2; // the day is then not tested
inline constexpr uint32_t QM_DATE_FAULT_YEAR = 4;

// Tests month, day and year (1752 to 3000); 29 February is right in every year. 0 for a good date.
uint32_t QMCheckDate(const QMDate& date);

// Reads month, day and year from a text such as 3/14/2004. The separator is the first of "/", "-"
// and "." that the text holds, tried in that order; month, day and year are the numbers in front
// of its first occurrence, between first and last, and behind the last. With one occurrence the
// number behind it is both day and year. No range is tested and no century added; a number that
// the field cannot hold reads as 65535. An empty or null text, or one without a separator, leaves
// the date as it is.
void QMParseDate(const char* szText, QMDate& date);

// Today by the local clock, with the day of the week.
QMDate QMToday();
