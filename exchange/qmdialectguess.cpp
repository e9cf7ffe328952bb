#include "exchange/qmdialectguess.h"

#include <algorithm>
#include <array>

#include "base/vcharacters.h"
#include "exchange/qmbankreader.h"
#include "exchange/qmcolumnguess.h"
#include "exchange/qmcsvrows.h"
#include "exchange/qmtextdecoder.h"

namespace {

constexpr size_t uLookedAt = 1 << 16; // bytes
constexpr int32_t lMaxRows = 300;

using Cells = std::vector<std::string>;

struct TextRow
{
    int32_t lLine; // lines before it
    Cells cells;
};

std::string Trimmed(const std::string& sText)
{
    const size_t uFirst = sText.find_first_not_of(" \t\r\n\xA0");
    return uFirst == std::string::npos
               ? std::string()
               : sText.substr(uFirst, sText.find_last_not_of(" \t\r\n\xA0") - uFirst + 1);
}

bool IsRecord(const Cells& cells)
{
    const auto pDate = std::ranges::find_if(cells, QMLooksLikeDate);
    return pDate != cells.end() && std::ranges::any_of(cells, [&](const std::string& sCell) {
               return &sCell != &*pDate && QMLooksLikeAmount(sCell) && !QMLooksLikeDate(sCell);
           });
}

std::vector<TextRow> TakeRows(std::string_view text, char cSeparator, char cQuote, int32_t lSkip)
{
    std::vector<TextRow> found;
    QMCsvRows rows(text, cSeparator, cQuote);
    rows.SkipLines(lSkip);
    int32_t lLine = lSkip;
    size_t uCounted = rows.GetPosition();
    for (Cells cells; static_cast<int32_t>(found.size()) < lMaxRows && rows.Next(cells);) {
        for (std::string& sCell : cells) {
            sCell = Trimmed(sCell);
        }
        found.push_back({lLine, cells});
        for (; uCounted < rows.GetPosition(); ++uCounted) {
            const bool bPair = text[uCounted] == '\r' && text.substr(uCounted + 1, 1) == "\n";
            lLine += text[uCounted] == '\n' || (text[uCounted] == '\r' && !bPair) ? 1 : 0;
        }
    }
    return found;
}

// The number of cells that most of the records have.
size_t UsualCells(const std::vector<TextRow>& rows)
{
    std::array<int, 64> anRows = {};
    for (const TextRow& row : rows) {
        if (IsRecord(row.cells)) {
            ++anRows[std::min(row.cells.size(), anRows.size() - 1)];
        }
    }
    return static_cast<size_t>(std::ranges::max_element(anRows) - anRows.begin());
}

int32_t CountRecords(const std::vector<TextRow>& rows, size_t uCells)
{
    int32_t lCount = 0;
    for (const TextRow& row : rows) {
        lCount += row.cells.size() == uCells && IsRecord(row.cells) ? 1 : 0;
    }
    return lCount;
}

// Whether the user gave the value of that name.
class Told
{
public:
    explicit Told(const std::vector<std::string>& names) : m_names(names) {}
    bool Has(const char* szName) const
    {
        return std::ranges::find(m_names, szName) != m_names.end();
    }

private:
    const std::vector<std::string>& m_names;
};

bool IsAscii(std::string_view bytes)
{
    return std::ranges::all_of(bytes, [](char c) { return c > 0; });
}

QMGuess GuessEncoding(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        return {"encoding", "utf-16", QMSureness::Sure, "it begins with the mark of UTF-16"};
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        return {"encoding", "utf-8", QMSureness::Sure, "it begins with the mark of UTF-8"};
    }
    if (std::ranges::count(bytes, '\0') * 4 > static_cast<ptrdiff_t>(bytes.size())) {
        return {"encoding", "utf-16", QMSureness::Likely, "every other byte is zero"};
    }
    if (IsAscii(bytes)) {
        return {"encoding", "auto", QMSureness::Sure, "the letters are the same in all encodings"};
    }
    if (VIsUtf8(bytes)) {
        return {"encoding", "utf-8", QMSureness::Sure, "its letters beyond ASCII are UTF-8"};
    }
    return {"encoding", "cp1252", QMSureness::Likely, "its letters beyond ASCII are not UTF-8"};
}

// The first lines, without a line or a character that is cut off.
std::string_view FrontOf(std::string_view bytes)
{
    if (bytes.size() <= uLookedAt) {
        return bytes;
    }
    const std::string_view front = bytes.substr(0, uLookedAt);
    const size_t uEnd = front.find_last_of('\n');
    const size_t uSize = uEnd == std::string_view::npos ? uLookedAt : uEnd + 1;
    return front.substr(0, uSize + (uSize % 2));
}

// Gathers the guesses, and puts them into the dialect.
class Proposal
{
public:
    Proposal(QMDialectGuess& guess, const QMDialect& told, const Told& names)
        : m_guess(guess), m_names(names)
    {
        m_guess = QMDialectGuess();
        m_guess.dialect = told;
    }

    bool IsTold(const char* szName) const { return m_names.Has(szName); }

    void Add(QMGuess guess)
    {
        if (IsTold(guess.sName.c_str())) {
            guess.sValue = ValueOf(guess.sName);
            guess.sureness = QMSureness::Told;
            guess.sReason = "as it was told";
        } else {
            m_guess.dialect.Set(guess.sName, guess.sValue);
        }
        m_guess.guesses.push_back(std::move(guess));
    }

    std::string Decode(std::string_view bytes)
    {
        const std::string_view front = FrontOf(bytes);
        Add(GuessEncoding(front));
        int32_t lReplaced = 0;
        return QMDecodeText(front, m_guess.dialect.encoding, lReplaced);
    }

private:
    // The value in the profile of what the user gave.
    std::string ValueOf(const std::string& sName) const
    {
        std::string sProfile("\n");
        sProfile += m_guess.dialect.GetProfile();
        const std::string sLine = "\n" + sName + " = ";
        const size_t uAt = sProfile.find(sLine);
        if (uAt == std::string::npos) {
            return {};
        }
        const size_t uBegin = uAt + sLine.size();
        return sProfile.substr(uBegin, sProfile.find('\n', uBegin) - uBegin);
    }

    QMDialectGuess& m_guess;
    const Told& m_names;
};

// How often a cell begins with the quote, by the character before it.
int CountQuotes(std::string_view text, char cSeparator, char cQuote)
{
    int nCount = 0;
    for (size_t u = 0; u < text.size(); ++u) {
        const bool bBegin = u == 0 || text[u - 1] == cSeparator || text[u - 1] == '\n';
        nCount += bBegin && text[u] == cQuote ? 1 : 0;
    }
    return nCount;
}

QMGuess GuessQuote(std::string_view text, char cSeparator)
{
    const int nDouble = CountQuotes(text, cSeparator, '"');
    const int nSingle = CountQuotes(text, cSeparator, '\'');
    if (nDouble == 0 && nSingle > 1) {
        return {"quote", "'", QMSureness::Likely,
                "cells that begin with it: " + std::to_string(nSingle)};
    }
    if (nDouble == 0) {
        return {"quote", "\"", QMSureness::Guess, "no cell begins with a quote"};
    }
    return {"quote", "\"", QMSureness::Sure,
            "cells that begin with it: " + std::to_string(nDouble)};
}

// The separator with which most lines are records; of several, the one that gives the most cells.
QMGuess GuessSeparator(std::string_view text, int32_t lSkip, std::string& sFault)
{
    char cBest = '\0';
    int32_t lBest = 0;
    size_t uBest = 0;
    int nFitting = 0;
    for (const char cSeparator : {';', ',', '\t', '|'}) {
        const std::string sQuote = GuessQuote(text, cSeparator).sValue;
        const auto rows = TakeRows(text, cSeparator, sQuote[0], lSkip);
        const size_t uCells = UsualCells(rows);
        const int32_t lRecords = CountRecords(rows, uCells);
        nFitting += lRecords > 0 ? 1 : 0;
        if (lRecords > lBest || (lRecords == lBest && lRecords > 0 && uCells > uBest)) {
            cBest = cSeparator;
            lBest = lRecords;
            uBest = uCells;
        }
    }
    if (cBest == '\0') {
        sFault = "no line of it has both a date and an amount";
        return {};
    }
    return {"separator", cBest == '\t' ? "tab" : std::string(1, cBest),
            nFitting == 1 ? QMSureness::Sure : QMSureness::Likely,
            "lines with a date and an amount in " + std::to_string(uBest) +
                " cells: " + std::to_string(lBest)};
}

// The records of a table, the lines before them, and what names their columns.
struct Table
{
    std::vector<Cells> records;
    Cells headings;
    int32_t lFirstLine = 0;
};

Table TableOf(const std::vector<TextRow>& rows)
{
    Table table;
    const size_t uCells = UsualCells(rows);
    const Cells* pBefore = nullptr;
    for (const TextRow& row : rows) {
        const bool bRecord = row.cells.size() == uCells && IsRecord(row.cells);
        if (bRecord && table.records.empty()) {
            table.lFirstLine = row.lLine;
            table.headings = pBefore == nullptr ? Cells() : *pBefore;
        }
        if (bRecord) {
            table.records.push_back(row.cells);
        }
        pBefore = &row.cells;
    }
    return table;
}

QMGuess GuessOf(const QMColumnGuesser& columns)
{
    const std::string sNames = QMBankColumnNames(columns.GetColumns());
    if (columns.GetSureness() == QMSureness::Unknown) {
        return {"columns", "?", QMSureness::Unknown, columns.GetReason() + "; found is " + sNames};
    }
    return {"columns", sNames, columns.GetSureness(), columns.GetReason()};
}

const char* SurenessName(QMSureness sureness)
{
    constexpr const char* aszNames[] = {"told", "sure", "likely", "a guess", "not known"};
    return aszNames[static_cast<size_t>(sureness)];
}

} // namespace

std::string QMDialectGuess::GetProfile() const
{
    std::string sText = "# Rows with a date and an amount: " + std::to_string(lRecords) +
                        " of the first " + std::to_string(lRows) + ".\n";
    for (const QMGuess& guess : guesses) {
        sText += std::string("# ") + SurenessName(guess.sureness) + ": " + guess.sReason + "\n";
        sText += guess.sName + " = " + guess.sValue + "\n";
    }
    return sText;
}

bool QMGuessCsvDialect(std::string_view bytes, const QMDialect& told,
                       const std::vector<std::string>& names, QMDialectGuess& guess,
                       std::string& sFault)
{
    const Told isTold(names);
    Proposal proposal(guess, told, isTold);
    const std::string sText = proposal.Decode(bytes);
    const QMDialect& dialect = guess.dialect;
    const int32_t lSkip = proposal.IsTold("skip") ? told.lSkip : 0;
    QMGuess separator{"separator", "", QMSureness::Told, ""};
    if (!proposal.IsTold("separator")) {
        separator = GuessSeparator(sText, lSkip, sFault);
        if (separator.sName.empty()) {
            return false;
        }
    }
    proposal.Add(separator);
    proposal.Add(GuessQuote(sText, dialect.cSeparator));
    const auto rows = TakeRows(sText, dialect.cSeparator, dialect.cQuote, lSkip);
    const Table table = TableOf(rows);
    if (table.records.empty()) {
        sFault = "no line of it has both a date and an amount";
        return false;
    }
    QMColumnGuesser columns(table.records, table.headings);
    columns.Run();
    proposal.Add(columns.GetTally().GuessDates());
    proposal.Add(columns.GetTally().GuessDecimal());
    proposal.Add({"skip", std::to_string(table.lFirstLine), QMSureness::Sure,
                  "the first record is on line " + std::to_string(table.lFirstLine + 1)});
    proposal.Add(GuessOf(columns));
    proposal.Add({"invert", "no", columns.IsOneSided() ? QMSureness::Guess : QMSureness::Likely,
                  columns.IsOneSided() ? "no amount has a minus; yes makes all of them payments"
                                       : "a minus usually means that it was spent"});
    guess.lRows = static_cast<int32_t>(rows.size());
    guess.lRecords = static_cast<int32_t>(table.records.size());
    return true;
}

bool QMGuessQifDialect(std::string_view bytes, const QMDialect& told,
                       const std::vector<std::string>& names, QMDialectGuess& guess,
                       std::string& sFault)
{
    const Told isTold(names);
    Proposal proposal(guess, told, isTold);
    const std::string sText = proposal.Decode(bytes);
    QMValueTally tally;
    QMCsvRows lines(sText, '\n', '\0');
    int32_t lDates = 0;
    int32_t lAmounts = 0;
    for (Cells cells; lines.Next(cells);) {
        const std::string sValue = Trimmed(cells[0].substr(cells[0].empty() ? 0 : 1));
        if (cells[0].starts_with('D') && QMLooksLikeDate(sValue)) {
            tally.TakeDate(sValue);
            ++lDates;
        } else if (cells[0].starts_with('T') && QMLooksLikeAmount(sValue)) {
            tally.TakeAmount(sValue);
            ++lAmounts;
        }
        guess.lRows += cells[0].starts_with('^') ? 1 : 0;
    }
    if (lDates == 0 || lAmounts == 0) {
        sFault = "it has no record with a date and an amount";
        return false;
    }
    proposal.Add(tally.GuessDates());
    proposal.Add(tally.GuessDecimal());
    guess.lRecords = std::min(lDates, lAmounts);
    return true;
}
