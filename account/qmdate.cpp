#include "account/qmdate.h"

#include <cstring>
#include <ctime>

#include "base/vtext.h"

namespace {

constexpr uint16_t aDaysInMonth[12] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr char aSeparators[] = {'/', '-', '.'};
constexpr uint16_t wFirstYear = 1752;
constexpr uint16_t wLastYear = 3000;

uint16_t ParseField(const char* szText, const char* pEnd)
{
    const int32_t lValue = VParseInteger(szText, pEnd);
    const bool bFits = lValue >= 0 && lValue <= UINT16_MAX;
    return bFits ? static_cast<uint16_t>(lValue) : UINT16_MAX;
}

} // namespace

uint32_t QMCheckDate(const QMDate& date)
{
    uint32_t uFaults = 0;
    if (date.wMonth < 1 || date.wMonth > 12) {
        uFaults |= QM_DATE_FAULT_MONTH;
    } else if (date.wDay < 1 || date.wDay > aDaysInMonth[date.wMonth - 1]) {
        uFaults |= QM_DATE_FAULT_DAY;
    }
    if (date.wYear < wFirstYear || date.wYear > wLastYear) {
        uFaults |= QM_DATE_FAULT_YEAR;
    }
    return uFaults;
}

void QMParseDate(const char* szText, QMDate& date)
{
    if (szText == nullptr) {
        return;
    }
    for (const char cSeparator : aSeparators) {
        const char* pFirst = strchr(szText, cSeparator);
        if (pFirst == nullptr) {
            continue;
        }
        const char* pLast = strrchr(szText, cSeparator);
        date.wMonth = ParseField(szText, pFirst);
        date.wDay = ParseField(pFirst + 1, pLast > pFirst ? pLast : nullptr);
        date.wYear = ParseField(pLast + 1, nullptr);
        return;
    }
}

QMDate QMToday()
{
    const std::time_t now = std::time(nullptr);
    QMDate date;
    if (const std::tm* pLocal = std::localtime(&now)) {
        date.wYear = static_cast<uint16_t>(pLocal->tm_year + 1900);
        date.wMonth = static_cast<uint16_t>(pLocal->tm_mon + 1);
        date.wDayOfWeek = static_cast<uint16_t>(pLocal->tm_wday);
        date.wDay = static_cast<uint16_t>(pLocal->tm_mday);
    }
    return date;
}
