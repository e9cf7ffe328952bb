#include "register/qmperiod.h"

#include "account/qmaccountdata.h"

namespace {

constexpr const char* aNames[QM_PERIOD_COUNT] = {"All", "Previous Month", "Current Month",
                                                 "Current Year", "Date Range"};

uint16_t LastDayOf(uint16_t wYear, uint16_t wMonth)
{
    constexpr uint16_t anDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool bLeap = wYear % 4 == 0 && (wYear % 100 != 0 || wYear % 400 == 0);
    return wMonth == 2 && bLeap ? 29 : anDays[wMonth - 1];
}

void SetMonth(uint16_t wYear, uint16_t wMonth, QMDate& dtFrom, QMDate& dtTo)
{
    dtFrom = QMMakeDate(wYear, wMonth, 1);
    dtTo = QMMakeDate(wYear, wMonth, LastDayOf(wYear, wMonth));
}

} // namespace

const char* QMPeriodName(int nPeriod)
{
    return nPeriod >= 0 && nPeriod < QM_PERIOD_COUNT ? aNames[nPeriod] : "";
}

void QMGetPeriodDates(uint32_t uPeriod, const QMDate& dtToday, QMDate& dtFrom, QMDate& dtTo)
{
    const uint16_t wYear = dtToday.wYear;
    const uint16_t wMonth = dtToday.wMonth;
    switch (uPeriod) {
        case QM_ACCNT_DISPLAY_ALL:
            dtFrom = dtTo = dtToday;
            break;
        case QM_ACCNT_DISPLAY_PREVIOUS_MONTH:
            if (wMonth == 1) {
                SetMonth(static_cast<uint16_t>(wYear - 1), 12, dtFrom, dtTo);
            } else {
                SetMonth(wYear, static_cast<uint16_t>(wMonth - 1), dtFrom, dtTo);
            }
            break;
        case QM_ACCNT_DISPLAY_CURRENT_MONTH:
            SetMonth(wYear, wMonth, dtFrom, dtTo);
            break;
        case QM_ACCNT_DISPLAY_CURRENT_YEAR:
            dtFrom = QMMakeDate(wYear, 1, 1);
            dtTo = QMMakeDate(wYear, 12, 31);
            break;
        default:
            break;
    }
}
