// QMDialect: how a bank writes its files, in everything that the formats leave open.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

enum class QMBankColumn
{
    Ignored,
    Date,
    Number, // check number
    Description,
    Amount, // with a sign
    Debit,
    Credit,
    Sign, // a word that tells the side of an amount that has no sign
    Memo,
    Category,
    Type, // the label of a transaction type
};

enum class QMDateOrder
{
    MonthFirst,
    DayFirst,
    YearFirst
};

enum class QMCharacterSet
{
    Automatic, // by the byte order mark; without one, UTF-8 if valid, else Windows-1252
    Utf8,
    Utf16,
    Windows1252,
    Latin1
};

struct QMDialect
{
    char cSeparator = ',';
    char cQuote = '"'; // 0: quotes are part of the text
    QMDateOrder dates = QMDateOrder::MonthFirst;
    char cDecimal = '.';
    QMCharacterSet encoding = QMCharacterSet::Automatic;
    int32_t lSkip = 0;       // lines before the records
    bool bInvert = false;    // a positive amount was spent
    bool bDatesTold = false; // whether Set was called for the order of the dates
    // When empty, the first line after the skipped ones names the columns.
    std::vector<QMBankColumn> columns;

    // Sets the value of a name of a profile. Returns null, or why it refuses the value, as a phrase
    // that ends a sentence.
    const char* Set(std::string_view name, std::string_view value);

    // All names and values, one in each line, as ReadProfile takes them.
    std::string GetProfile() const;

    // Takes the lines "name = value" of a profile. Blank lines and lines that begin with "#" are
    // left out. Returns an empty text, or the line and the reason of the first fault.
    std::string ReadProfile(std::string_view text);
};

// The names of columns in --columns and in a profile, with commas between them.
std::string QMBankColumnNames(const std::vector<QMBankColumn>& columns);
