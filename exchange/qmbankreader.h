// Reads the files of banks, which are written in many dialects. The other readers of this program
// know one dialect only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "account/qmprogress.h"
#include "account/qmtransactionstore.h"
#include "exchange/qmdialect.h"

// What a date tells about the order of month and day.
enum class QMDateHint
{
    None,       // it is no date, or it is the same day in both orders
    Named,      // the month is a name
    YearFirst,  // the first number is a year of four digits
    DayFirst,   // the first number is above 12
    MonthFirst, // the second number is above 12
    Either,     // both are below 13
};

QMDateHint QMTellDateOrder(std::string_view text);

// What the reader found in a file.
struct QMBankReport
{
    int32_t lWithoutDate = 0;   // records that keep the date of a new transaction, 1/1/2000
    int32_t lFirstOf2000 = 0;   // records of that day; it is unknown whether they had a date
    int32_t lWithoutAmount = 0; // records whose amount stays 0
    int32_t lPassedOver = 0;    // rows with neither: headings, sums, remarks
    int32_t lReplaced = 0;      // characters that an account cannot hold
    // Dates that are valid both with the month first and with the day first, and dates that are
    // valid in one of the two orders only.
    int32_t lEitherOrder = 0;
    int32_t lOneOrder = 0;
    bool bOrderGuessed = false; // the caller sets this: it knows whether the user gave the order

    void CountDate(QMDateHint hint);
    // Whether the order of the dates is uncertain: no date is valid in one of the orders only.
    bool IsOrderDoubtful() const { return lEitherOrder > 0 && lOneOrder == 0; }
};

// Reads a date. The text holds numbers, or the English name of a month, with other characters than
// letters and digits between them; or it is eight digits. What comes after day, month and year
// counts as a time of day and is ignored. A first number of four digits is the year, whatever the
// order. A year of two digits from 00 to 69 means 2000 to 2069. When there is no such day in the
// calendar, returns false and leaves the date as it was.
bool QMParseBankDate(std::string_view text, QMDateOrder order, QMDate& date);

// Reads an amount. A minus may come before or after it; parentheses around it, or DR after it, mean
// a minus too. Currencies and blanks around it and the marks of thousands are ignored. When the
// text is no amount, returns false and leaves the amount as it was.
bool QMParseBankAmount(std::string_view text, char cDecimal, double& dAmount);

// Replaces the contents of the store by the records of a CSV file with quotes as in RFC 4180. Texts
// are taken as they are. The sign gives the type, and a payment with a number becomes a check. When
// no row gives a record, or when pProgress, which may be null, gives the work up, returns false,
// leaves the store as it was, and sets sFault to the reason.
bool QMReadBankCsv(std::string_view bytes, const QMDialect& dialect, QMTransactionStore& store,
                   QMBankReport& report, std::string& sFault, QMProgress* pProgress = nullptr);

// Translates a QIF file of another dialect into one that the reader of this program takes. Of the
// dialect, dates, decimal, encoding and invert count.
std::string QMTranslateQif(std::string_view bytes, const QMDialect& dialect, QMBankReport& report);
