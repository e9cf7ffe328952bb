// Dates and amounts as banks write them.
#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <string>

#include "base/vtext.h"
#include "exchange/qmbankreader.h"

namespace {

constexpr const char* aMonths[12] = {"jan", "feb", "mar", "apr", "may", "jun",
                                     "jul", "aug", "sep", "oct", "nov", "dec"};

bool IsLetter(char c)
{
    const char cLower = VToLower(c);
    return cLower >= 'a' && cLower <= 'z';
}

// The parts of a date: numbers, and a month by name.
struct DateParts
{
    std::array<int, 3> anNumbers = {};
    std::array<int, 3> anDigits = {};
    int nCount = 0;
    int nMonthAt = -1; // the part that was a name
};

// 1 to 12 for a text that begins with the name of a month, else 0.
int MonthOf(std::string_view word)
{
    for (int i = 0; i < 12 && word.size() >= 3; ++i) {
        bool bSame = true;
        for (size_t u = 0; u < 3; ++u) {
            bSame = bSame && VToLower(word[u]) == aMonths[i][u];
        }
        if (bSame) {
            return i + 1;
        }
    }
    return 0;
}

bool TakePart(std::string_view text, size_t& u, DateParts& parts)
{
    const size_t uBegin = u;
    const bool bWord = IsLetter(text[u]);
    while (u < text.size() && (bWord ? IsLetter(text[u]) : VIsDigit(text[u]))) {
        ++u;
    }
    const std::string_view part = text.substr(uBegin, u - uBegin);
    const auto uAt = static_cast<size_t>(parts.nCount);
    if (bWord) {
        parts.nMonthAt = parts.nCount;
        parts.anNumbers[uAt] = MonthOf(part);
    } else {
        parts.anNumbers[uAt] = part.size() > 8 ? -1 : atoi(std::string(part).c_str());
    }
    parts.anDigits[uAt] = static_cast<int>(part.size());
    ++parts.nCount;
    return !bWord || parts.anNumbers[uAt] > 0;
}

bool SplitDate(std::string_view text, DateParts& parts)
{
    size_t u = 0;
    while (u < text.size() && parts.nCount < 3) {
        if (!VIsDigit(text[u]) && !IsLetter(text[u])) {
            ++u;
        } else if (!TakePart(text, u, parts)) {
            return false;
        }
    }
    // A time of day may follow.
    return u >= text.size() || text[u] == 'T' || text[u] == ' ';
}

// Eight digits without anything between them.
void SplitEight(int nNumber, QMDateOrder order, DateParts& parts)
{
    parts.nCount = 3;
    if (order == QMDateOrder::YearFirst) {
        parts.anNumbers = {nNumber / 10000, nNumber / 100 % 100, nNumber % 100};
        parts.anDigits = {4, 2, 2};
    } else {
        parts.anNumbers = {nNumber / 1000000, nNumber / 10000 % 100, nNumber % 10000};
        parts.anDigits = {2, 2, 4};
    }
}

int FullYear(int nYear, int nDigits)
{
    return nDigits > 2 ? nYear : nYear + (nYear < 70 ? 2000 : 1900);
}

QMDate DateOf(const DateParts& parts, QMDateOrder order)
{
    size_t uYear = 2;
    size_t uMonth = order == QMDateOrder::DayFirst ? 1 : 0;
    if (parts.anDigits[0] == 4 || (order == QMDateOrder::YearFirst && parts.anDigits[2] < 4)) {
        uYear = 0;
        uMonth = 1;
    }
    if (parts.nMonthAt >= 0) {
        uMonth = static_cast<size_t>(parts.nMonthAt);
    }
    const size_t uDay = 3 - uYear - uMonth;
    const int nYear = FullYear(parts.anNumbers[uYear], parts.anDigits[uYear]);
    return QMMakeDate(static_cast<uint16_t>(nYear), static_cast<uint16_t>(parts.anNumbers[uMonth]),
                      static_cast<uint16_t>(parts.anNumbers[uDay]));
}

// The sign, by what is around the digits: nothing, a minus, DR, or parentheses.
bool IsNegative(std::string_view before, std::string_view after)
{
    const bool bDebit = after.find("DR") != std::string_view::npos ||
                        after.find("Dr") != std::string_view::npos ||
                        after.find("dr") != std::string_view::npos;
    return before.find('-') != std::string_view::npos || bDebit ||
           after.find('-') != std::string_view::npos ||
           (before.find('(') != std::string_view::npos &&
            after.find(')') != std::string_view::npos);
}

// What may stand before and after the digits: a currency, a sign, blanks.
bool IsFrame(std::string_view text)
{
    constexpr std::string_view marks = " $()+-.'";
    return std::ranges::all_of(text, [&](char c) {
        const bool bHigh = static_cast<unsigned char>(c) > 127;
        return IsLetter(c) || bHigh || marks.find(c) != std::string_view::npos;
    });
}

// Marks of thousands: the other one of point and comma, blanks, apostrophes.
bool IsGroupMark(char c, char cDecimal)
{
    const char cOther = cDecimal == ',' ? '.' : ',';
    return c == cOther || c == ' ' || c == '\xA0' || c == '\'' || c == '\x92';
}

// Returns the digits of an amount with a decimal point; empty when the text is no amount.
std::string DigitsOf(std::string_view text, char cDecimal)
{
    std::string sDigits;
    bool bPoint = false;
    for (const char c : text) {
        if (VIsDigit(c)) {
            sDigits += c;
        } else if (c == cDecimal && !bPoint) {
            sDigits += '.';
            bPoint = true;
        } else if (bPoint || !IsGroupMark(c, cDecimal)) {
            return {};
        }
    }
    return sDigits;
}

} // namespace

QMDateHint QMTellDateOrder(std::string_view text)
{
    DateParts parts;
    if (!SplitDate(text, parts)) {
        return QMDateHint::None;
    }
    if (parts.anDigits[0] == 8 && parts.nMonthAt != 0) {
        const int nYear = parts.anNumbers[0] / 10000;
        const bool bYearFirst = nYear >= 1900 && nYear <= 2100;
        SplitEight(parts.anNumbers[0], bYearFirst ? QMDateOrder::YearFirst : QMDateOrder::DayFirst,
                   parts);
        parts.nMonthAt = -1;
    }
    if (parts.nCount < 3 || parts.anNumbers[0] < 0 || parts.anNumbers[1] < 0) {
        return QMDateHint::None;
    }
    if (parts.nMonthAt >= 0) {
        return QMDateHint::Named;
    }
    if (parts.anDigits[0] == 4) {
        return QMDateHint::YearFirst;
    }
    const bool bFirstAbove = parts.anNumbers[0] > 12;
    const bool bSecondAbove = parts.anNumbers[1] > 12;
    if (bFirstAbove || bSecondAbove) {
        return bFirstAbove && bSecondAbove ? QMDateHint::None
               : bFirstAbove               ? QMDateHint::DayFirst
                                           : QMDateHint::MonthFirst;
    }
    return parts.anNumbers[0] == parts.anNumbers[1] ? QMDateHint::None : QMDateHint::Either;
}

void QMBankReport::CountDate(QMDateHint hint)
{
    lEitherOrder += hint == QMDateHint::Either ? 1 : 0;
    lOneOrder += hint == QMDateHint::DayFirst || hint == QMDateHint::MonthFirst ? 1 : 0;
}

bool QMParseBankDate(std::string_view text, QMDateOrder order, QMDate& date)
{
    DateParts parts;
    if (!SplitDate(text, parts)) {
        return false;
    }
    if (parts.anDigits[0] == 8 && parts.nMonthAt != 0) {
        SplitEight(parts.anNumbers[0], order, parts);
        parts.nMonthAt = -1;
    }
    if (parts.nCount < 3 || parts.nMonthAt == 2) {
        return false;
    }
    for (const int nNumber : parts.anNumbers) {
        if (nNumber < 0 || nNumber > 9999) {
            return false;
        }
    }
    // The year is not where the order has it, so month and day would be a guess.
    const bool bYearLast = parts.anDigits[0] < 4 && parts.anDigits[2] == 4;
    if ((parts.nMonthAt == 0 && parts.anDigits[1] == 4) ||
        (order == QMDateOrder::YearFirst && bYearLast && parts.nMonthAt < 0)) {
        return false;
    }
    const QMDate found = DateOf(parts, order);
    if (QMCheckDate(found) != 0) {
        return false;
    }
    date = found;
    return true;
}

bool QMParseBankAmount(std::string_view text, char cDecimal, double& dAmount)
{
    constexpr std::string_view digits = "0123456789";
    size_t uFirst = text.find_first_of(digits);
    if (uFirst == std::string_view::npos) {
        return false;
    }
    size_t uEnd = text.find_last_of(digits) + 1;
    uFirst -= uFirst > 0 && text[uFirst - 1] == cDecimal ? 1 : 0;
    uEnd += uEnd < text.size() && text[uEnd] == cDecimal ? 1 : 0;
    const std::string sDigits = DigitsOf(text.substr(uFirst, uEnd - uFirst), cDecimal);
    if (sDigits.empty() || !IsFrame(text.substr(0, uFirst)) || !IsFrame(text.substr(uEnd))) {
        return false;
    }
    const double dValue = VParseDouble(sDigits.c_str());
    dAmount = IsNegative(text.substr(0, uFirst), text.substr(uEnd)) ? -dValue : dValue;
    return true;
}
