// Proposes the dialect of a bank's file by its first lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/qmdialect.h"

// How sure a guess is.
enum class QMSureness
{
    Told,    // by the user
    Sure,    // nothing else fits what was looked at
    Likely,  // other readings are possible, but not usual
    Guess,   // nothing in the file speaks against it, and nothing for it
    Unknown, // it is not guessed
};

// One name of a profile.
struct QMGuess
{
    std::string sName;
    std::string sValue; // "?" where it is not known
    QMSureness sureness = QMSureness::Guess;
    std::string sReason;
};

struct QMDialectGuess
{
    QMDialect dialect; // with the month first where the order of the dates is not known
    std::vector<QMGuess> guesses;
    int32_t lRows = 0;    // rows that were looked at
    int32_t lRecords = 0; // of these, rows with a date and an amount

    // A profile, with a remark before each name that tells how sure it is. A name whose value is
    // not known has a "?", which no reader of profiles takes: the user must decide.
    std::string GetProfile() const;
};

// Looks at the first lines of a CSV or a QIF file. What the user has told stands in told, and its
// names in names; the rest is guessed. Between day first and month first nothing is guessed when
// every day is below 13. Returns false, with the reason in sFault, when no line has a date and an
// amount.
bool QMGuessCsvDialect(std::string_view bytes, const QMDialect& told,
                       const std::vector<std::string>& names, QMDialectGuess& guess,
                       std::string& sFault);
bool QMGuessQifDialect(std::string_view bytes, const QMDialect& told,
                       const std::vector<std::string>& names, QMDialectGuess& guess,
                       std::string& sFault);
