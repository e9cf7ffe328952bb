#include "register/qmperiod.h"

#include <gtest/gtest.h>

#include <string>

#include "account/qmaccountdata.h"
#include "tests/support/support.h"

namespace {

constexpr int anCommonDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr int anLeapDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

struct Year
{
    int nYear;
    bool bLeap;
};

// A fourth year is a leap year, a hundredth is not, and a four hundredth is one again.
const Year aYears[] = {{2003, false}, {2004, true},  {1999, false}, {2000, true}, {1900, false},
                       {2100, false}, {2400, true},  {1601, false}, {1604, true}, {1800, false},
                       {9999, false}, {9996, true},  {1, false},    {4, true},    {2023, false},
                       {2024, true},  {1700, false}, {1600, true}};

int DaysOf(const Year& year, int nMonth)
{
    return (year.bLeap ? anLeapDays : anCommonDays)[nMonth - 1];
}

std::string Text(int nMonth, int nDay, int nYear)
{
    return std::to_string(nMonth) + "/" + std::to_string(nDay) + "/" + std::to_string(nYear);
}

// Both dates of a period, as "2/1/2004 2/29/2004".
std::string DatesOf(uint32_t uPeriod, const std::string& sToday)
{
    QMDate dtFrom = MakeDate("7/8/1977");
    QMDate dtTo = MakeDate("9/10/1978");
    QMGetPeriodDates(uPeriod, MakeDate(sToday), dtFrom, dtTo);
    return DateText(dtFrom) + " " + DateText(dtTo);
}

std::string MonthOf(const Year& year, int nMonth)
{
    return Text(nMonth, 1, year.nYear) + " " + Text(nMonth, DaysOf(year, nMonth), year.nYear);
}

// Calls visit with every day of every month of the years above.
template <class F>
void ForEachDay(F visit)
{
    for (const Year& year : aYears) {
        for (int nMonth = 1; nMonth <= 12; ++nMonth) {
            for (int nDay = 1; nDay <= DaysOf(year, nMonth); ++nDay) {
                visit(year, nMonth, Text(nMonth, nDay, year.nYear));
            }
        }
    }
}

} // namespace

TEST(QMPeriod, NamesAreInTheOrderOfTheirNumbers)
{
    ASSERT_EQ(QM_PERIOD_COUNT, 5);
    EXPECT_STREQ(QMPeriodName(QM_ACCNT_DISPLAY_ALL), "All");
    EXPECT_STREQ(QMPeriodName(QM_ACCNT_DISPLAY_PREVIOUS_MONTH), "Previous Month");
    EXPECT_STREQ(QMPeriodName(QM_ACCNT_DISPLAY_CURRENT_MONTH), "Current Month");
    EXPECT_STREQ(QMPeriodName(QM_ACCNT_DISPLAY_CURRENT_YEAR), "Current Year");
    EXPECT_STREQ(QMPeriodName(QM_ACCNT_DISPLAY_DATE_RANGE), "Date Range");
    EXPECT_STREQ(QMPeriodName(-1), "");
    EXPECT_STREQ(QMPeriodName(5), "");
}

TEST(QMPeriod, AllIsTheDayItself)
{
    ForEachDay([](const Year& /*year*/, int /*nMonth*/, const std::string& sToday) {
        ASSERT_EQ(DatesOf(QM_ACCNT_DISPLAY_ALL, sToday), sToday + " " + sToday);
    });
}

TEST(QMPeriod, CurrentMonthRunsFromItsFirstDayToItsLast)
{
    ForEachDay([](const Year& year, int nMonth, const std::string& sToday) {
        ASSERT_EQ(DatesOf(QM_ACCNT_DISPLAY_CURRENT_MONTH, sToday), MonthOf(year, nMonth));
    });
}

TEST(QMPeriod, PreviousMonthIsThatBeforeWhateverTheDay)
{
    ForEachDay([](const Year& year, int nMonth, const std::string& sToday) {
        const std::string sExpected =
            nMonth == 1 ? Text(12, 1, year.nYear - 1) + " " + Text(12, 31, year.nYear - 1)
                        : MonthOf(year, nMonth - 1);
        ASSERT_EQ(DatesOf(QM_ACCNT_DISPLAY_PREVIOUS_MONTH, sToday), sExpected);
    });
}

TEST(QMPeriod, CurrentYearRunsFromJanuaryToDecember)
{
    ForEachDay([](const Year& year, int /*nMonth*/, const std::string& sToday) {
        ASSERT_EQ(DatesOf(QM_ACCNT_DISPLAY_CURRENT_YEAR, sToday),
                  Text(1, 1, year.nYear) + " " + Text(12, 31, year.nYear));
    });
}

TEST(QMPeriod, PreviousMonthOfJanuaryIsDecemberOfTheYearBefore)
{
    EXPECT_EQ(DatesOf(QM_ACCNT_DISPLAY_PREVIOUS_MONTH, "1/1/2004"), "12/1/2003 12/31/2003");
    EXPECT_EQ(DatesOf(QM_ACCNT_DISPLAY_PREVIOUS_MONTH, "1/31/2000"), "12/1/1999 12/31/1999");
}

TEST(QMPeriod, PreviousMonthOfMarchKnowsLeapYears)
{
    EXPECT_EQ(DatesOf(QM_ACCNT_DISPLAY_PREVIOUS_MONTH, "3/31/2004"), "2/1/2004 2/29/2004");
    EXPECT_EQ(DatesOf(QM_ACCNT_DISPLAY_PREVIOUS_MONTH, "3/31/2003"), "2/1/2003 2/28/2003");
    EXPECT_EQ(DatesOf(QM_ACCNT_DISPLAY_PREVIOUS_MONTH, "3/31/2100"), "2/1/2100 2/28/2100");
    EXPECT_EQ(DatesOf(QM_ACCNT_DISPLAY_PREVIOUS_MONTH, "3/31/2000"), "2/1/2000 2/29/2000");
}

TEST(QMPeriod, RangeAndNoPeriodLeaveBothDates)
{
    for (const uint32_t uPeriod : {QM_ACCNT_DISPLAY_DATE_RANGE, 5U, 6U, 100U, 0xFFFFFFFFU}) {
        EXPECT_EQ(DatesOf(uPeriod, "3/14/2004"), "7/8/1977 9/10/1978") << "period " << uPeriod;
    }
}
