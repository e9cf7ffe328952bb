// QMColumnGuesser: finds out what the columns of a table hold, by the cells and by their headings.
#pragma once

#include <string>
#include <vector>

#include "exchange/qmdialectguess.h"

// Whether the text is a date in any order.
bool QMLooksLikeDate(const std::string& sText);
// Whether the text is an amount with either decimal mark.
bool QMLooksLikeAmount(const std::string& sText);

// Counts how dates and amounts are written.
class QMValueTally
{
public:
    void TakeDate(const std::string& sText);
    void TakeAmount(const std::string& sText);

    // Returns the guess; the reason tells on what it rests.
    QMGuess GuessDates() const;
    QMGuess GuessDecimal() const;

private:
    int m_anHints[6] = {}; // by QMDateHint
    int m_nCommas = 0;     // amounts with a comma and one or two digits after it at the end
    int m_nPoints = 0;
};

class QMColumnGuesser
{
public:
    // Each row must have a date and an amount. headings may be empty.
    QMColumnGuesser(const std::vector<std::vector<std::string>>& rows,
                    const std::vector<std::string>& headings);

    // Looks at the dates, at the amounts, and then at the texts. Where no column is that of the
    // dates, or of the amounts, the columns are not known.
    void Run();

    const QMValueTally& GetTally() const { return m_tally; }
    const std::vector<QMBankColumn>& GetColumns() const { return m_columns; }
    QMSureness GetSureness() const { return m_sureness; }
    const std::string& GetReason() const { return m_sReason; }
    // Whether no amount has a minus and none is in a column of debits.
    bool IsOneSided() const { return m_bOneSided; }

private:
    struct Column
    {
        int nFilled = 0;
        int nDates = 0;
        int nAmounts = 0;
        int nCents = 0; // amounts with a decimal mark
        int nNegative = 0;
        int nSigns = 0; // words that tell a side
        int nTypes = 0; // labels of types
        int nNumbers = 0;
        size_t uLength = 0; // of all texts
        bool bConstant = true;
    };

    const std::string& CellOf(size_t uRow, size_t uColumn) const;
    void Count(size_t uColumn);
    bool HeadingHas(size_t uColumn, const char* const* aszWords) const;
    bool IsFree(size_t uColumn) const { return m_columns[uColumn] == QMBankColumn::Ignored; }
    void Take(size_t uColumn, QMBankColumn column) { m_columns[uColumn] = column; }
    void Doubt(QMSureness sureness, const std::string& sReason);
    void TakeDate();
    void TakeAmounts();
    std::vector<size_t> FindAmounts() const;
    bool IsBalanceOf(size_t uBalance, size_t uAmount) const;
    bool AreSides(size_t a, size_t b) const;
    bool TakeSides(const std::vector<size_t>& amounts);
    void TakeSign(size_t uAmount);
    void TakeTexts();
    void TakeByHeading(QMBankColumn column, const char* const* aszWords);
    void TakeSparseNumbers();
    size_t LongestText() const;

    const std::vector<std::vector<std::string>>& m_rows;
    std::vector<std::string> m_headings; // in small letters
    std::vector<Column> m_counts;
    std::vector<QMBankColumn> m_columns;
    QMValueTally m_tally;
    QMSureness m_sureness = QMSureness::Sure;
    std::string m_sReason;
    bool m_bOneSided = false;
};
