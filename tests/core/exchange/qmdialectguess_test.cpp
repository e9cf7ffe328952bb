// Proposing the dialect of a bank's file: each value, how sure it is, and files of any bytes.
#include "exchange/qmdialectguess.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "exchange/qmbankreader.h"

namespace {

QMDialectGuess GuessOf(const std::string& sBytes, const QMDialect& told = {},
                       const std::vector<std::string>& names = {})
{
    QMDialectGuess guess;
    std::string sFault;
    EXPECT_TRUE(QMGuessCsvDialect(sBytes, told, names, guess, sFault)) << sFault;
    return guess;
}

const QMGuess& Named(const QMDialectGuess& guess, const std::string& sName)
{
    for (const QMGuess& found : guess.guesses) {
        if (found.sName == sName) {
            return found;
        }
    }
    static const QMGuess none;
    ADD_FAILURE() << "the guess has no value for " << sName;
    return none;
}

std::string ValueOf(const std::string& sBytes, const std::string& sName)
{
    return Named(GuessOf(sBytes), sName).sValue;
}

TEST(DialectGuess, FindsTheSeparator)
{
    EXPECT_EQ(ValueOf("13/1/2004;a,b;5,25\n14/1/2004;c,d;6,25\n", "separator"), ";");
    EXPECT_EQ(ValueOf("13/1/2004,a;b,5.25\n14/1/2004,c;d,6.25\n", "separator"), ",");
    EXPECT_EQ(ValueOf("13/1/2004\ta\t5.25\n", "separator"), "tab");
    EXPECT_EQ(ValueOf("13/1/2004|a|5.25\n", "separator"), "|");
}

TEST(DialectGuess, FindsTheQuote)
{
    EXPECT_EQ(ValueOf("13/1/2004;\"a;b\";5,25\n", "quote"), "\"");
    EXPECT_EQ(ValueOf("13/1/2004;'a;b';'5,25'\n", "quote"), "'");
    EXPECT_EQ(ValueOf("13/1/2004;O'Brien;5,25\n", "quote"), "\"");
}

TEST(DialectGuess, NeverTakesOneOfTwoOrdersOfTheDates)
{
    for (const char* szFile : {"3/4/2004;5,25\n12/12/2004;5,25\n", "03.04.04;5,25\n"}) {
        const QMGuess dates = Named(GuessOf(szFile), "dates");
        EXPECT_EQ(dates.sValue, "?") << szFile;
        EXPECT_EQ(dates.sureness, QMSureness::Unknown);
        QMDialect dialect;
        EXPECT_NE(dialect.ReadProfile(GuessOf(szFile).GetProfile()), "");
    }
    EXPECT_EQ(ValueOf("3/13/2004;5,25\n3/4/2004;5,25\n", "dates"), "mdy");
    EXPECT_EQ(ValueOf("13/3/2004;5,25\n3/4/2004;5,25\n", "dates"), "dmy");
    EXPECT_EQ(ValueOf("2004-03-04;5,25\n", "dates"), "ymd");
    EXPECT_EQ(ValueOf("20040304;5,25\n", "dates"), "ymd");
    EXPECT_EQ(ValueOf("3/13/2004;5,25\n13/3/2004;5,25\n", "dates"), "?");
}

TEST(DialectGuess, TakesWhatIsTold)
{
    QMDialect told;
    told.Set("dates", "dmy");
    told.Set("separator", ",");
    const QMDialectGuess guess = GuessOf("3/4/2004,a,5.25\n", told, {"dates", "separator"});
    EXPECT_EQ(Named(guess, "dates").sValue, "dmy");
    EXPECT_EQ(Named(guess, "dates").sureness, QMSureness::Told);
    EXPECT_EQ(Named(guess, "separator").sureness, QMSureness::Told);
    EXPECT_EQ(guess.dialect.dates, QMDateOrder::DayFirst);
}

TEST(DialectGuess, CountsTheLinesBeforeTheRecords)
{
    EXPECT_EQ(ValueOf("Bank\r\n\r\n\"two\r\nlines\"\r\nDate;Amount\r\n13/1/2004;5,25\r\n", "skip"),
              "5");
    EXPECT_EQ(ValueOf("Bank\rDate;Amount\r13/1/2004;5,25\r", "skip"), "2");
    EXPECT_EQ(ValueOf("13/1/2004;5,25\n", "skip"), "0");
}

TEST(DialectGuess, FindsDebitsAndCredits)
{
    EXPECT_EQ(ValueOf("13/1/2004;;5,25\n14/1/2004;6,25;\n", "columns"), "Date,Debit,Credit");
    const std::string sNamed = "Date;Credit;Debit\n13/1/2004;;5,25\n14/1/2004;6,25;\n";
    EXPECT_EQ(ValueOf(sNamed, "columns"), "Date,Credit,Debit");
    EXPECT_EQ(Named(GuessOf(sNamed), "columns").sureness, QMSureness::Sure);
}

// A word tells the side of an amount, and one of two dates is the first.
TEST(DialectGuess, FindsSignsAndTheFirstOfTwoDates)
{
    EXPECT_EQ(ValueOf("13/1/2004;14/1/2004;D;5,25\n14/1/2004;15/1/2004;C;6,25\n", "columns"),
              "Date,-,Sign,Amount");
}

TEST(DialectGuess, LeavesColumnsOpenWhereNoneHasTheAmounts)
{
    const QMDialectGuess guess = GuessOf("2004-03-14,5.00,D\n2004-03-15,x,4\n");
    const QMGuess& columns = Named(guess, "columns");
    EXPECT_EQ(columns.sValue, "?");
    EXPECT_EQ(columns.sureness, QMSureness::Unknown);
    EXPECT_NE(columns.sReason.find("no column has amounts"), std::string::npos);
    // As it stands, the proposal is refused.
    EXPECT_EQ(QMDialect().ReadProfile(guess.GetProfile()).find("line "), 0U);
}

TEST(DialectGuess, TellsWhyThereIsNone)
{
    QMDialectGuess guess;
    std::string sFault;
    EXPECT_FALSE(QMGuessCsvDialect("", QMDialect(), {}, guess, sFault));
    EXPECT_EQ(sFault, "no line of it has both a date and an amount");
    EXPECT_FALSE(QMGuessQifDialect("!Type:Bank\nD1/1/2004\n^\n", QMDialect(), {}, guess, sFault));
    EXPECT_EQ(sFault, "it has no record with a date and an amount");
}

TEST(DialectGuess, TellsTheOrderOfDatesByTheirNumbers)
{
    EXPECT_EQ(QMTellDateOrder("3/4/2004"), QMDateHint::Either);
    EXPECT_EQ(QMTellDateOrder("3/3/2004"), QMDateHint::None);
    EXPECT_EQ(QMTellDateOrder("13/3/2004"), QMDateHint::DayFirst);
    EXPECT_EQ(QMTellDateOrder("3/13/2004"), QMDateHint::MonthFirst);
    EXPECT_EQ(QMTellDateOrder("31.13.2004"), QMDateHint::None);
    EXPECT_EQ(QMTellDateOrder("4 Mar 2004"), QMDateHint::Named);
    EXPECT_EQ(QMTellDateOrder("2004-03-04"), QMDateHint::YearFirst);
    EXPECT_EQ(QMTellDateOrder("04032004"), QMDateHint::Either);
    EXPECT_EQ(QMTellDateOrder(""), QMDateHint::None);
    EXPECT_EQ(QMTellDateOrder("5.25"), QMDateHint::None);
}

// Files of pieces that files have, in any order, and of any bytes.
TEST(DialectGuess, TakesAnyBytes)
{
    constexpr const char* aPieces[] = {"13/1/2004", "2004-03-04", ";", ",",  "\t", "\"",   "'",
                                       "5,25",      "-1.250,00",  "D", "\n", "\r", "|",    "text",
                                       "\xE9",      "\xFF\xFE",   "T", "^",  "S",  "Check"};
    std::mt19937 random(7);
    for (int i = 0; i < 3000; ++i) {
        std::string sBytes;
        for (int n = static_cast<int>(random() % 60); n > 0; --n) {
            sBytes += random() % 20 == 0 ? std::string(1, static_cast<char>(random()))
                                         : aPieces[random() % std::size(aPieces)];
        }
        QMDialectGuess guess;
        std::string sFault;
        const bool bGuessed = QMGuessCsvDialect(sBytes, QMDialect(), {}, guess, sFault);
        ASSERT_EQ(bGuessed, sFault.empty());
        if (bGuessed) {
            ASSERT_GT(guess.lRecords, 0);
        }
        sFault.clear();
        const bool bQif = QMGuessQifDialect(sBytes, QMDialect(), {}, guess, sFault);
        ASSERT_EQ(bQif, sFault.empty());
    }
}

} // namespace
