#include "exchange/qmcolumnguess.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "base/vtext.h"
#include "exchange/qmbankreader.h"

namespace {

constexpr const char* aszBalance[] = {"balance", "saldo", "solde", "kontostand", nullptr};
constexpr const char* aszDebit[] = {"debit",     "d\xE9\x62it", "soll",      "ausgang",
                                    "belastung", "withdraw",    "paid out",  "cargo",
                                    "addeb",     "uscit",       "money out", nullptr};
constexpr const char* aszCredit[] = {"credit",     "cr\xE9\x64it", "haben",    "eingang",
                                     "gutschrift", "deposit",      "paid in",  "abono",
                                     "accred",     "entrat",       "money in", nullptr};
constexpr const char* aszAmount[] = {"amount", "betrag", "umsatz", "montant", "importe", "importo",
                                     "bedrag", "belopp", "kwota",  "valor",   nullptr};
constexpr const char* aszDescription[] = {
    "description", "payee", "text",   "libell", "concept", "descri", "omschrijving",
    "tytu",        "empf",  "detail", "name",   "naam",    "navn",   nullptr};
constexpr const char* aszMemo[] = {"memo",  "note",  "remark",       "verwendungszweck",
                                   "zweck", "refer", "mededelingen", "mitteilung",
                                   nullptr};
constexpr const char* aszCategory[] = {"categ", "kategorie", nullptr};
constexpr const char* aszNumber[] = {"check", "cheque", "num", nullptr};
constexpr const char* aszSideWords[] = {"-",  "+",     "d",     "c",   "dr", "cr",
                                        "db", "debit", "s",     "h",   "af", "credit",
                                        "in", "soll",  "haben", "bij", "out"};

std::string SmallLetters(const std::string& sText)
{
    std::string sSmall;
    for (const char c : sText) {
        sSmall += VToLower(c);
    }
    return sSmall;
}

double AmountOf(const std::string& sText)
{
    // The last point or comma counts as the decimal mark.
    double dAmount = 0;
    const size_t uMark = sText.find_last_of(".,");
    const char cDecimal = uMark != std::string::npos && sText[uMark] == ',' ? ',' : '.';
    return QMParseBankAmount(sText, cDecimal, dAmount) ? dAmount : 0;
}

// The decimal mark before one or two digits at the end; 0 without one.
char DecimalOf(const std::string& sText)
{
    const size_t uMark = sText.find_last_of(".,");
    const size_t uLast = sText.find_last_of("0123456789");
    if (uMark == std::string::npos || uLast == std::string::npos || uLast <= uMark ||
        uLast - uMark > 2) {
        return '\0';
    }
    return sText[uMark];
}

bool IsSideWord(const std::string& sText)
{
    return std::ranges::any_of(aszSideWords, [&](const char* szWord) {
        return VCompareNoCase(sText.c_str(), szWord) == 0;
    });
}

bool IsTypeLabel(const std::string& sText)
{
    for (int32_t lType = 0; lType < QM_TRANS_TYPE_COUNT; ++lType) {
        if (VCompareNoCase(sText.c_str(), QMTypeLabel(lType)) == 0) {
            return true;
        }
    }
    return false;
}

// Nine of ten.
bool IsMost(int nOf, int nAll)
{
    return nAll > 0 && nOf * 10 >= nAll * 9;
}

std::string Count(const char* szWhat, int n)
{
    return std::string(szWhat) + ": " + std::to_string(n);
}

} // namespace

bool QMLooksLikeDate(const std::string& sText)
{
    QMDate date;
    return QMParseBankDate(sText, QMDateOrder::MonthFirst, date) ||
           QMParseBankDate(sText, QMDateOrder::DayFirst, date) ||
           QMParseBankDate(sText, QMDateOrder::YearFirst, date);
}

bool QMLooksLikeAmount(const std::string& sText)
{
    double dAmount;
    return QMParseBankAmount(sText, '.', dAmount) || QMParseBankAmount(sText, ',', dAmount);
}

void QMValueTally::TakeDate(const std::string& sText)
{
    ++m_anHints[static_cast<size_t>(QMTellDateOrder(sText))];
}

void QMValueTally::TakeAmount(const std::string& sText)
{
    const char cDecimal = DecimalOf(sText);
    m_nCommas += cDecimal == ',' ? 1 : 0;
    m_nPoints += cDecimal == '.' ? 1 : 0;
}

QMGuess QMValueTally::GuessDates() const
{
    const auto CountOf = [&](QMDateHint hint) { return m_anHints[static_cast<size_t>(hint)]; };
    const int nDay = CountOf(QMDateHint::DayFirst);
    const int nMonth = CountOf(QMDateHint::MonthFirst);
    if (CountOf(QMDateHint::YearFirst) > 0) {
        return {
            "dates", "ymd", nDay + nMonth == 0 ? QMSureness::Sure : QMSureness::Likely,
            Count("dates that begin with a year of four digits", CountOf(QMDateHint::YearFirst))};
    }
    if (nDay > 0 && nMonth > 0) {
        return {"dates", "?", QMSureness::Unknown,
                Count("dates with the day first", nDay) + Count(", with the month first", nMonth) +
                    "; write mdy, dmy or ymd"};
    }
    if (nDay + nMonth > 0) {
        return {"dates", nDay > 0 ? "dmy" : "mdy", QMSureness::Sure,
                Count(nDay > 0 ? "dates whose first number is above 12"
                               : "dates whose second number is above 12",
                      nDay + nMonth)};
    }
    if (CountOf(QMDateHint::Either) > 0) {
        return {"dates", "?", QMSureness::Unknown,
                "every day is below 13, so it is day.month or month/day: write dmy or mdy"};
    }
    return {"dates", "mdy", QMSureness::Sure, "each date is the same day in any order"};
}

QMGuess QMValueTally::GuessDecimal() const
{
    if (m_nCommas + m_nPoints == 0) {
        return {"decimal", ".", QMSureness::Guess, "no amount has cents"};
    }
    const bool bComma = m_nCommas > m_nPoints;
    const int nFor = bComma ? m_nCommas : m_nPoints;
    const int nAgainst = bComma ? m_nPoints : m_nCommas;
    return {
        "decimal", bComma ? "," : ".", nAgainst == 0 ? QMSureness::Sure : QMSureness::Guess,
        Count("amounts with it before the cents", nFor) + Count(", with the other mark", nAgainst)};
}

QMColumnGuesser::QMColumnGuesser(const std::vector<std::vector<std::string>>& rows,
                                 const std::vector<std::string>& headings)
    : m_rows(rows)
{
    size_t uColumns = 0;
    for (const auto& row : rows) {
        uColumns = std::max(uColumns, row.size());
    }
    for (const std::string& sHeading : headings) {
        m_headings.push_back(SmallLetters(sHeading));
    }
    m_headings.resize(uColumns);
    m_counts.resize(uColumns);
    m_columns.resize(uColumns, QMBankColumn::Ignored);
}

const std::string& QMColumnGuesser::CellOf(size_t uRow, size_t uColumn) const
{
    static const std::string sNone;
    return uColumn < m_rows[uRow].size() ? m_rows[uRow][uColumn] : sNone;
}

void QMColumnGuesser::Count(size_t uColumn)
{
    Column& column = m_counts[uColumn];
    const std::string* pFirst = nullptr;
    for (size_t u = 0; u < m_rows.size(); ++u) {
        const std::string& sCell = CellOf(u, uColumn);
        if (sCell.empty()) {
            continue;
        }
        pFirst = pFirst == nullptr ? &sCell : pFirst;
        ++column.nFilled;
        column.nDates += QMLooksLikeDate(sCell) ? 1 : 0;
        column.nAmounts += QMLooksLikeAmount(sCell) ? 1 : 0;
        column.nCents += DecimalOf(sCell) != '\0' ? 1 : 0;
        column.nNegative += AmountOf(sCell) < 0 ? 1 : 0;
        column.nSigns += IsSideWord(sCell) ? 1 : 0;
        column.nTypes += IsTypeLabel(sCell) ? 1 : 0;
        column.nNumbers += sCell.find_first_not_of("0123456789") == std::string::npos ? 1 : 0;
        column.uLength += sCell.size();
        column.bConstant = column.bConstant && sCell == *pFirst;
    }
}

bool QMColumnGuesser::HeadingHas(size_t uColumn, const char* const* aszWords) const
{
    for (; *aszWords != nullptr; ++aszWords) {
        if (m_headings[uColumn].find(*aszWords) != std::string::npos) {
            return true;
        }
    }
    return false;
}

// All columns together are as sure as the least sure one.
void QMColumnGuesser::Doubt(QMSureness sureness, const std::string& sReason)
{
    m_sureness = std::max(m_sureness, sureness);
    m_sReason += (m_sReason.empty() ? "" : "; ") + sReason;
}

void QMColumnGuesser::Run()
{
    for (size_t u = 0; u < m_counts.size(); ++u) {
        Count(u);
    }
    TakeDate();
    TakeAmounts();
    TakeTexts();
    const auto Has = [&](QMBankColumn column) { return std::ranges::count(m_columns, column) > 0; };
    if (!Has(QMBankColumn::Date)) {
        Doubt(QMSureness::Unknown, "no column has dates in nine of ten rows");
    }
    if (!Has(QMBankColumn::Amount) && !Has(QMBankColumn::Debit) && !Has(QMBankColumn::Credit)) {
        Doubt(QMSureness::Unknown, "no column has amounts in nine of ten rows");
    }
    if (m_sReason.empty()) {
        m_sReason = "by their headings and cells";
    }
}

void QMColumnGuesser::TakeDate()
{
    bool bFound = false;
    for (size_t u = 0; u < m_counts.size(); ++u) {
        const Column& column = m_counts[u];
        if (!IsMost(column.nDates, column.nFilled) ||
            !IsMost(column.nFilled, static_cast<int>(m_rows.size()))) {
            continue;
        }
        if (bFound) {
            Doubt(QMSureness::Likely, "column " + std::to_string(u + 1) + " has dates too");
            continue;
        }
        bFound = true;
        Take(u, QMBankColumn::Date);
        for (size_t uRow = 0; uRow < m_rows.size(); ++uRow) {
            m_tally.TakeDate(CellOf(uRow, u));
        }
    }
}

// Columns that may hold amounts. One without cents and without a heading for amounts counts only if
// there is no other.
std::vector<size_t> QMColumnGuesser::FindAmounts() const
{
    std::vector<size_t> amounts;
    std::vector<size_t> whole;
    for (size_t u = 0; u < m_counts.size(); ++u) {
        const Column& column = m_counts[u];
        if (!IsFree(u) || !IsMost(column.nAmounts, column.nFilled) ||
            IsMost(column.nDates, column.nFilled) || HeadingHas(u, aszNumber)) {
            continue;
        }
        const bool bNamed =
            HeadingHas(u, aszAmount) || HeadingHas(u, aszDebit) || HeadingHas(u, aszCredit);
        (column.nCents > 0 || bNamed ? amounts : whole).push_back(u);
    }
    return amounts.empty() ? whole : amounts;
}

// Whether one column is the sum of another, from the first row on or from the last.
bool QMColumnGuesser::IsBalanceOf(size_t uBalance, size_t uAmount) const
{
    bool bDown = m_rows.size() > 2;
    bool bUp = bDown;
    for (size_t u = 1; u < m_rows.size(); ++u) {
        const double dStep = AmountOf(CellOf(u, uBalance)) - AmountOf(CellOf(u - 1, uBalance));
        bDown = bDown && std::fabs(dStep - AmountOf(CellOf(u, uAmount))) < 0.006;
        bUp = bUp && std::fabs(dStep + AmountOf(CellOf(u - 1, uAmount))) < 0.006;
    }
    return bDown || bUp;
}

// Whether each row has an amount in one of two columns only.
bool QMColumnGuesser::AreSides(size_t a, size_t b) const
{
    for (size_t u = 0; u < m_rows.size(); ++u) {
        if (AmountOf(CellOf(u, a)) != 0 && AmountOf(CellOf(u, b)) != 0) {
            return false;
        }
    }
    return true;
}

bool QMColumnGuesser::TakeSides(const std::vector<size_t>& amounts)
{
    for (const size_t a : amounts) {
        for (const size_t b : amounts) {
            if (b <= a || !AreSides(a, b)) {
                continue;
            }
            const bool bNamed = (HeadingHas(a, aszDebit) && HeadingHas(b, aszCredit)) ||
                                (HeadingHas(a, aszCredit) && HeadingHas(b, aszDebit));
            const bool bSecond = HeadingHas(b, aszDebit) ||
                                 (!bNamed && m_counts[b].nNegative > m_counts[a].nNegative);
            Take(bSecond ? b : a, QMBankColumn::Debit);
            Take(bSecond ? a : b, QMBankColumn::Credit);
            const bool bSigned = m_counts[a].nNegative != m_counts[b].nNegative;
            if (!bNamed) {
                Doubt(bSigned ? QMSureness::Likely : QMSureness::Guess,
                      "no heading tells which column is Debit and which Credit");
            }
            return true;
        }
    }
    return false;
}

void QMColumnGuesser::TakeSign(size_t uAmount)
{
    m_bOneSided = m_counts[uAmount].nNegative == 0;
    for (size_t u = 0; m_bOneSided && u < m_counts.size(); ++u) {
        if (IsFree(u) && m_counts[u].nSigns == static_cast<int>(m_rows.size())) {
            Take(u, QMBankColumn::Sign);
            m_bOneSided = false;
        }
    }
}

void QMColumnGuesser::TakeAmounts()
{
    std::vector<size_t> amounts = FindAmounts();
    const std::vector<size_t> all = amounts;
    std::erase_if(amounts, [&](size_t u) {
        return all.size() > 1 &&
               (HeadingHas(u, aszBalance) || std::ranges::any_of(all, [&](size_t uOther) {
                    return uOther != u && IsBalanceOf(u, uOther);
                }));
    });
    for (const size_t u : all) {
        for (size_t uRow = 0; uRow < m_rows.size(); ++uRow) {
            m_tally.TakeAmount(CellOf(uRow, u));
        }
    }
    if (amounts.empty()) {
        amounts = all;
    }
    if (amounts.empty() || TakeSides(amounts)) {
        return;
    }
    auto pAmount =
        std::ranges::find_if(amounts, [&](size_t u) { return HeadingHas(u, aszAmount); });
    pAmount = pAmount == amounts.end() ? amounts.begin() : pAmount;
    if (amounts.size() > 1) {
        Doubt(HeadingHas(*pAmount, aszAmount) ? QMSureness::Likely : QMSureness::Guess,
              "more than one column holds amounts");
    }
    Take(*pAmount, QMBankColumn::Amount);
    TakeSign(*pAmount);
}

void QMColumnGuesser::TakeByHeading(QMBankColumn column, const char* const* aszWords)
{
    for (size_t u = 0; u < m_columns.size(); ++u) {
        const Column& counts = m_counts[u];
        const bool bNumber = column == QMBankColumn::Number;
        if (IsFree(u) && HeadingHas(u, aszWords) &&
            (!bNumber || IsMost(counts.nNumbers, std::max(counts.nFilled, 1)))) {
            Take(u, column);
            return;
        }
    }
}

// Takes a column of check numbers with empty cells: only payments by check have a number.
void QMColumnGuesser::TakeSparseNumbers()
{
    if (std::ranges::find(m_columns, QMBankColumn::Number) != m_columns.end()) {
        return;
    }
    for (size_t u = 0; u < m_columns.size(); ++u) {
        const Column& column = m_counts[u];
        const bool bSome = column.nFilled > 0 && column.nFilled < static_cast<int>(m_rows.size());
        if (IsFree(u) && bSome && column.nNumbers == column.nFilled &&
            column.uLength <= 7 * static_cast<size_t>(column.nFilled)) {
            Take(u, QMBankColumn::Number);
            Doubt(QMSureness::Guess, "whole numbers of some rows, in column " +
                                         std::to_string(u + 1) + ", may be check numbers");
            return;
        }
    }
}

// A column that was not taken and whose texts differ; none is the number of columns.
size_t QMColumnGuesser::LongestText() const
{
    size_t uBest = m_columns.size();
    for (size_t u = 0; u < m_columns.size(); ++u) {
        const Column& column = m_counts[u];
        const bool bText = column.nFilled > 0 && !IsMost(column.nAmounts, column.nFilled) &&
                           !IsMost(column.nDates, column.nFilled) &&
                           (!column.bConstant || m_rows.size() < 2);
        if (IsFree(u) && bText &&
            (uBest == m_columns.size() || column.uLength > m_counts[uBest].uLength)) {
            uBest = u;
        }
    }
    return uBest;
}

void QMColumnGuesser::TakeTexts()
{
    for (size_t u = 0; u < m_columns.size(); ++u) {
        if (IsFree(u) && m_counts[u].nFilled > 0 && m_counts[u].nTypes == m_counts[u].nFilled) {
            Take(u, QMBankColumn::Type);
            break;
        }
    }
    TakeByHeading(QMBankColumn::Number, aszNumber);
    TakeSparseNumbers();
    TakeByHeading(QMBankColumn::Category, aszCategory);
    TakeByHeading(QMBankColumn::Memo, aszMemo);
    TakeByHeading(QMBankColumn::Description, aszDescription);
    const bool bDescribed =
        std::ranges::find(m_columns, QMBankColumn::Description) != m_columns.end();
    const size_t uText = LongestText();
    if (!bDescribed && uText < m_columns.size()) {
        Take(uText, QMBankColumn::Description);
        Doubt(QMSureness::Likely, "the longest texts are the Description");
    }
}
