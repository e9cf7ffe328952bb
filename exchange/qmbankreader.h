// Reads the files of banks by their dialect: the translation that stands before the readers of this
// program, which know one dialect only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "account/qmprogress.h"
#include "account/qmtransactionstore.h"
#include "exchange/qmdialect.h"

// What the text of a date tells about the order of month and day.
enum class QMDateHint
{
    None,       // it is no date, or the same day in both orders
    Named,      // the month has its name
    YearFirst,  // a year of four digits
    DayFirst,   // the first number is above 12
    MonthFirst, // the second number is above 12
    Either,     // both are below 13
};

QMDateHint QMTellDateOrder(std::string_view text);

// What came of a file.
struct QMBankReport
{
    int32_t lWithoutDate = 0; // records that keep the date of a new transaction, 1/1/2000
    int32_t lFirstOf2000 = 0; // records of that day, of which nobody knows whether they had a date
    int32_t lWithoutAmount = 0; // records whose amount stays 0
    int32_t lPassedOver = 0;    // rows with neither: headings, sums, remarks
    int32_t lReplaced = 0;      // characters that an account cannot hold
    // Dates that are one day with the month first and another with the day first, and dates that
    // are a day in one of the two orders only.
    int32_t lEitherOrder = 0;
    int32_t lOneOrder = 0;
    bool bOrderGuessed = false; // for the caller to set, who knows whether the order was told

    void CountDate(QMDateHint hint);
    // Whether the order of the dates was a guess: each that depends on it could be either.
    bool IsOrderDoubtful() const { return lEitherOrder > 0 && lOneOrder == 0; }
};

// Reads a date of the calendar. Numbers or the English name of a month, with anything but letters
// and digits between them, or eight digits without; what comes after the day, month and year is a
// time of day and left out. A first number of four digits is the year in any order. Of two digits,
// 00 to 69 mean 2000 to 2069. Returns false, and leaves the date, when there is no such day.
bool QMParseBankDate(std::string_view text, QMDateOrder order, QMDate& date);

// Reads an amount. The sign stands before or after it, or it stands in parentheses; DR after it is
// a minus. Currencies and blanks around it are left out, and so are the marks of thousands. Returns
// false, and leaves the amount, when the text is none.
bool QMParseBankAmount(std::string_view text, char cDecimal, double& dAmount);

// Replaces the contents of the store by the records of a CSV file with quotes as in RFC 4180. Texts
// are taken as they are; the sign gives the type, and a number makes a check of a payment. Returns
// false, with the reason in sFault and the store as it was, when no row gave a record,
// and when pProgress, which may be null, gave the work up.
bool QMReadBankCsv(std::string_view bytes, const QMDialect& dialect, QMTransactionStore& store,
                   QMBankReport& report, std::string& sFault, QMProgress* pProgress = nullptr);

// Turns a QIF file of another dialect, as far as dates, decimal, encoding and invert go, into one
// that the reader of this program takes.
std::string QMTranslateQif(std::string_view bytes, const QMDialect& dialect, QMBankReport& report);
