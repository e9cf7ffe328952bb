// What counts as the right password, how often one may be tried, and what a new one must be.
#pragma once

#include <cstdint>

#include "base/vstring.h"

// Characters that can be typed.
inline constexpr int QM_PASSWORD_LENGTH = 15;

class QMPasswordCheck
{
public:
    static constexpr int32_t lMaxTries = 3;

    // An empty password needs no check.
    explicit QMPasswordCheck(const char* szExpected) : m_strExpected(szExpected) {}

    bool IsNeeded() const { return !m_strExpected.IsEmpty(); }
    // Ignores case; an empty entry is wrong, whatever the password. A wrong one counts as a try.
    bool Accepts(const char* szEntry);
    // No further try is to be given.
    bool IsSpent() const { return m_nTries >= lMaxTries; }

private:
    VString m_strExpected;
    int32_t m_nTries = 0; // wrong entries so far
};

enum class QMNewPassword
{
    None, // both entries are empty: protection is to be turned off
    Differ,
    Agree
};

// Two entries of a new password agree in spite of their case.
QMNewPassword QMJudgeNewPassword(const char* szFirst, const char* szSecond);
