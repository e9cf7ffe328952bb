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
    Sure,    // nothing else fits the lines that were read
    Likely,  // other readings are possible, but not usual
    Guess,   // the file has no sign for it and none against it
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
    int32_t lRows = 0;    // rows that were read
    int32_t lRecords = 0; // of these, rows with a date and an amount

    // A profile. A remark before each name tells how sure the value is. An unknown value is "?",
    // which no reader of profiles accepts, so the user must decide.
    std::string GetProfile() const;
};

// Guesses the dialect by the first lines of a CSV or a QIF file. told holds the values that the
// user gave, and names their names. These are not guessed. When every day is below 13, the order of
// day and month stays unknown. When no line has a date and an amount, returns false and sets sFault
// to the reason.
bool QMGuessCsvDialect(std::string_view bytes, const QMDialect& told,
                       const std::vector<std::string>& names, QMDialectGuess& guess,
                       std::string& sFault);
bool QMGuessQifDialect(std::string_view bytes, const QMDialect& told,
                       const std::vector<std::string>& names, QMDialectGuess& guess,
                       std::string& sFault);
