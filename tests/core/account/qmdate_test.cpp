#include "account/qmdate.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <initializer_list>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/support.h"

namespace {

using Values = std::initializer_list<uint16_t>;

auto Triple(const QMDate& date)
{
    return std::tuple(date.wYear, date.wMonth, date.wDay);
}

// All fields without meaning are set to wNoise.
QMDate NoisyDate(uint16_t wYear, uint16_t wMonth, uint16_t wDay, uint16_t wNoise)
{
    QMDate date = QMMakeDate(wYear, wMonth, wDay);
    date.wDayOfWeek = date.wHour = date.wMinute = date.wSecond = date.wMilliseconds = wNoise;
    return date;
}

// Every combination of a few years, months and days, each with different noise.
std::vector<QMDate> SomeDates()
{
    std::vector<QMDate> dates;
    uint16_t wNoise = 0;
    for (const uint16_t wYear : Values{0, 1999, 2000, 65535}) {
        for (const uint16_t wMonth : Values{0, 1, 12, 65535}) {
            for (const uint16_t wDay : Values{0, 1, 31, 65535}) {
                dates.push_back(NoisyDate(wYear, wMonth, wDay, wNoise));
                wNoise = static_cast<uint16_t>(wNoise * 31 + 17);
            }
        }
    }
    return dates;
}

// Reads the text into a date that holds 7/8/1999, and returns what the date is then.
std::string Parsed(const char* szText)
{
    QMDate date = QMMakeDate(1999, 7, 8);
    QMParseDate(szText, date);
    return DateText(date);
}

} // namespace

TEST(QMDate, IsAllZeroesAtFirst)
{
    const QMDate date;
    for (const uint16_t wField : {date.wYear, date.wMonth, date.wDayOfWeek, date.wDay, date.wHour,
                                  date.wMinute, date.wSecond, date.wMilliseconds}) {
        EXPECT_EQ(wField, 0);
    }
}

TEST(QMDate, MakingOneClearsTheFieldsWithoutMeaning)
{
    const QMDate date = QMMakeDate(2004, 3, 14);
    EXPECT_EQ(DateText(date), "3/14/2004");
    for (const uint16_t wField :
         {date.wDayOfWeek, date.wHour, date.wMinute, date.wSecond, date.wMilliseconds}) {
        EXPECT_EQ(wField, 0);
    }
}

TEST(QMDate, ComparesByYearThenMonthThenDayAndNothingElse)
{
    const std::vector<QMDate> dates = SomeDates();
    for (const QMDate& a : dates) {
        for (const QMDate& b : dates) {
            SCOPED_TRACE(DateText(a) + " " + DateText(b));
            ASSERT_EQ(QMDateIsEqual(a, b), Triple(a) == Triple(b));
            ASSERT_EQ(QMDateIsAfter(a, b), Triple(a) > Triple(b));
            ASSERT_EQ(QMDateIsBefore(a, b), Triple(a) < Triple(b));
            ASSERT_EQ(QMDateIsAfterOrEqual(a, b), Triple(a) >= Triple(b));
            ASSERT_EQ(QMDateIsBeforeOrEqual(a, b), Triple(a) <= Triple(b));
            ASSERT_EQ(QMDateKey(a) < QMDateKey(b), Triple(a) < Triple(b));
        }
    }
}

TEST(QMDate, ARangeHoldsBothItsEnds)
{
    const std::vector<QMDate> dates = SomeDates();
    for (const QMDate& date : dates) {
        for (const QMDate& from : dates) {
            for (const QMDate& to : dates) {
                const bool bInside = Triple(date) >= Triple(from) && Triple(date) <= Triple(to);
                ASSERT_EQ(QMDateIsInRange(date, from, to), bInside)
                    << DateText(date) << " " << DateText(from) << " " << DateText(to);
            }
        }
    }
}

TEST(QMDate, IgnoresEveryFieldWithoutMeaning)
{
    uint16_t QMDate::*const aFields[] = {&QMDate::wDayOfWeek, &QMDate::wHour, &QMDate::wMinute,
                                         &QMDate::wSecond, &QMDate::wMilliseconds};
    const QMDate plain = QMMakeDate(2004, 3, 14);
    for (const auto pField : aFields) {
        QMDate other = plain;
        other.*pField = 6;
        EXPECT_TRUE(QMDateIsEqual(plain, other));
        EXPECT_FALSE(QMDateIsBefore(plain, other));
        EXPECT_FALSE(QMDateIsAfter(other, plain));
        EXPECT_TRUE(QMDateIsInRange(plain, other, other));
    }
}

TEST(QMCheckDate, KnowsTheLengthOfEveryMonth)
{
    const uint16_t aDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (uint16_t wMonth = 1; wMonth <= 12; ++wMonth) {
        for (uint16_t wDay = 0; wDay <= 40; ++wDay) {
            const bool bGood = wDay >= 1 && wDay <= aDays[wMonth - 1];
            EXPECT_EQ(QMCheckDate(QMMakeDate(2003, wMonth, wDay)), bGood ? 0 : QM_DATE_FAULT_DAY)
                << wMonth << "/" << wDay;
        }
        EXPECT_EQ(QMCheckDate(QMMakeDate(2003, wMonth, 65535)), QM_DATE_FAULT_DAY);
    }
}

TEST(QMCheckDate, Allows29FebruaryInEveryYearLeapOrNot)
{
    for (uint16_t wYear = 1752; wYear <= 3000; ++wYear) {
        EXPECT_EQ(QMCheckDate(QMMakeDate(wYear, 2, 29)), 0u) << "year " << wYear;
        EXPECT_EQ(QMCheckDate(QMMakeDate(wYear, 2, 30)), QM_DATE_FAULT_DAY) << "year " << wYear;
    }
}

TEST(QMCheckDate, DoesNotTestTheDayOfAWrongMonth)
{
    for (const uint16_t wMonth : Values{0, 13, 99, 65535}) {
        for (const uint16_t wDay : Values{0, 1, 32}) {
            EXPECT_EQ(QMCheckDate(QMMakeDate(2004, wMonth, wDay)), QM_DATE_FAULT_MONTH);
        }
    }
}

TEST(QMCheckDate, TakesTheYears1752To3000)
{
    for (const uint16_t wYear : Values{1752, 1753, 2000, 2999, 3000}) {
        EXPECT_EQ(QMCheckDate(QMMakeDate(wYear, 1, 1)), 0u) << "year " << wYear;
    }
    for (const uint16_t wYear : Values{0, 4, 99, 1751, 3001, 65535}) {
        EXPECT_EQ(QMCheckDate(QMMakeDate(wYear, 1, 1)), QM_DATE_FAULT_YEAR) << "year " << wYear;
    }
}

TEST(QMCheckDate, AddsUpItsFindings)
{
    EXPECT_EQ(QMCheckDate(QMMakeDate(4, 4, 31)), QM_DATE_FAULT_DAY | QM_DATE_FAULT_YEAR);
    EXPECT_EQ(QMCheckDate(QMDate()), QM_DATE_FAULT_MONTH | QM_DATE_FAULT_YEAR);
}

TEST(QMParseDate, ReadsMonthDayAndYearAtAnyOfThreeSeparators)
{
    EXPECT_EQ(Parsed("3/14/2004"), "3/14/2004");
    EXPECT_EQ(Parsed("3-14-2004"), "3/14/2004");
    EXPECT_EQ(Parsed("3.14.2004"), "3/14/2004");
    EXPECT_EQ(Parsed("03/04/0005"), "3/4/5");
}

TEST(QMParseDate, LeavesTheDateWithoutASeparator)
{
    for (const char* szText :
         {"", "   ", "3", "20040314", "3 14 2004", "3,14,2004", "3\\14\\2004", "today"}) {
        EXPECT_EQ(Parsed(szText), "7/8/1999") << szText;
    }
    EXPECT_EQ(Parsed(nullptr), "7/8/1999");
}

TEST(QMParseDate, TakesDayAndYearFromTheSameTextBehindASingleSeparator)
{
    EXPECT_EQ(Parsed("3/14"), "3/14/14");
    EXPECT_EQ(Parsed("3-2004"), "3/2004/2004");
    EXPECT_EQ(Parsed("3."), "3/0/0");
    EXPECT_EQ(Parsed("/14"), "0/14/14");
    EXPECT_EQ(Parsed("/"), "0/0/0");
}

TEST(QMParseDate, PrefersTheSlashToTheHyphenToThePoint)
{
    EXPECT_EQ(Parsed("3-14/2004"), "3/2004/2004");
    EXPECT_EQ(Parsed("3.14/2004"), "3/2004/2004");
    EXPECT_EQ(Parsed("3.14-2004"), "3/2004/2004");
    EXPECT_EQ(Parsed("3/14-5/2004"), "3/14/2004");
    EXPECT_EQ(Parsed("3-14.5-2004"), "3/14/2004");
    EXPECT_EQ(Parsed("3/14/2004-5"), "3/14/2004");
    EXPECT_EQ(Parsed("1.2.3-4-5"), "1/4/5");
    EXPECT_EQ(Parsed("1-2-3/4/5"), "1/4/5");
}

TEST(QMParseDate, SplitsAtTheFirstAndTheLastOfManySeparators)
{
    EXPECT_EQ(Parsed("3/14/15/2004"), "3/14/2004");
    EXPECT_EQ(Parsed("3//2004"), "3/0/2004");
    EXPECT_EQ(Parsed("3/14/"), "3/14/0");
    EXPECT_EQ(Parsed("//"), "0/0/0");
    EXPECT_EQ(Parsed("3/14/2004/"), "3/14/0");
}

TEST(QMParseDate, KeepsTheOrderMonthDayYearWhateverTheNumbers)
{
    EXPECT_EQ(Parsed("2004-03-14"), "2004/3/14");
    EXPECT_EQ(Parsed("31.12.2004"), "31/12/2004");
    EXPECT_EQ(Parsed("99/99/9999"), "99/99/9999");
}

TEST(QMParseDate, AddsNoCenturyToAShortYear)
{
    EXPECT_EQ(Parsed("3/14/04"), "3/14/4");
    EXPECT_EQ(Parsed("3/14/99"), "3/14/99");
}

TEST(QMParseDate, ReadsEachPartUpToItsFirstOtherCharacter)
{
    EXPECT_EQ(Parsed(" 3 / 14 / 2004 "), "3/14/2004");
    EXPECT_EQ(Parsed("\t3/\t14/\t2004"), "3/14/2004");
    EXPECT_EQ(Parsed("3rd/14th/2004 AD"), "3/14/2004");
    EXPECT_EQ(Parsed("Mar/14/2004"), "0/14/2004");
    EXPECT_EQ(Parsed("a/b/c"), "0/0/0");
    EXPECT_EQ(Parsed("3/14/'04"), "3/14/0");
    EXPECT_EQ(Parsed("+3/+14/+2004"), "3/14/2004");
}

TEST(QMParseDate, ReadsANumberThatTheFieldCannotHoldAs65535)
{
    EXPECT_EQ(Parsed("65535/65535/65535"), "65535/65535/65535");
    EXPECT_EQ(Parsed("65536/70000/99999999999"), "65535/65535/65535");
    EXPECT_EQ(Parsed("-3/-14/-2004"), "65535/65535/65535");
}

TEST(QMParseDate, LeavesTheOtherFields)
{
    QMDate date = NoisyDate(1999, 7, 8, 5);
    QMParseDate("3/14/2004", date);
    EXPECT_EQ(DateText(date), "3/14/2004");
    for (const uint16_t wField :
         {date.wDayOfWeek, date.wHour, date.wMinute, date.wSecond, date.wMilliseconds}) {
        EXPECT_EQ(wField, 5);
    }
}

TEST(QMToday, IsTheLocalDateWithItsDayOfTheWeek)
{
    const auto LocalDate = [] {
        char szText[16];
        const std::time_t now = std::time(nullptr);
        const size_t uLength =
            std::strftime(szText, sizeof szText, "%m/%d/%Y", std::localtime(&now));
        return DateText(MakeDate(std::string(szText, uLength)));
    };
    const std::string sBefore = LocalDate();
    const QMDate today = QMToday();
    const std::string sAfter = LocalDate();
    EXPECT_TRUE(DateText(today) == sBefore || DateText(today) == sAfter) << DateText(today);
    EXPECT_EQ(QMCheckDate(today), 0u);
    const std::chrono::year_month_day day(std::chrono::year(today.wYear),
                                          std::chrono::month(today.wMonth),
                                          std::chrono::day(today.wDay));
    const std::chrono::weekday weekday{std::chrono::sys_days(day)};
    EXPECT_EQ(today.wDayOfWeek, weekday.c_encoding());
    EXPECT_EQ(today.wHour + today.wMinute + today.wSecond + today.wMilliseconds, 0);
}
