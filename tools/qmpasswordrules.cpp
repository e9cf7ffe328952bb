#include "tools/qmpasswordrules.h"

#include "base/vtext.h"

namespace {

bool AreEqual(const char* szEntry, const char* szOther)
{
    return *szEntry != '\0' && VCompareNoCase(szEntry, szOther) == 0;
}

} // namespace

bool QMPasswordCheck::Accepts(const char* szEntry)
{
    const bool bRight = AreEqual(szEntry, m_strExpected.GetText());
    m_nTries += bRight ? 0 : 1;
    return bRight;
}

QMNewPassword QMJudgeNewPassword(const char* szFirst, const char* szSecond)
{
    if (*szFirst == '\0' && *szSecond == '\0') {
        return QMNewPassword::None;
    }
    return AreEqual(szFirst, szSecond) ? QMNewPassword::Agree : QMNewPassword::Differ;
}
