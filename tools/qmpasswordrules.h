// The rules for passwords: which entry is right, how often the user may try, and what a new
// password must be.
#pragma once

#include <cstdint>

#include "base/vstring.h"

// The most characters of a password.
inline constexpr int QM_PASSWORD_LENGTH = 15;

class QMPasswordCheck
{
public:
    static constexpr int32_t lMaxTries = 3;

    // An empty szExpected means that there is no password to check.
    explicit QMPasswordCheck(const char* szExpected) : m_strExpected(szExpected) {}

    bool IsNeeded() const { return !m_strExpected.IsEmpty(); }
    // Whether the entry is right. Upper and lower case are the same. An empty entry is always
    // wrong. A wrong entry counts as a try.
    bool Accepts(const char* szEntry);
    // Whether the user has no try left.
    bool IsSpent() const { return m_nTries >= lMaxTries; }

private:
    VString m_strExpected;
    int32_t m_nTries = 0; // wrong entries so far
};

enum class QMNewPassword
{
    None, // both entries are empty: the protection is to be removed
    Differ,
    Agree
};

// Compares the two entries of a new password.
//
// Kept: two entries that differ only in case agree. QMSetPasswordDialog takes the second one.
QMNewPassword QMJudgeNewPassword(const char* szFirst, const char* szSecond);
