#include "reports/qmreportdates.h"

#include <algorithm>

uint16_t QMLastDayOfMonth(int32_t lYear, int32_t lMonth)
{
    constexpr uint16_t aDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (lMonth < 1 || lMonth > 12) {
        return 0;
    }
    const bool bLeap = lYear % 4 == 0 && (lYear % 100 != 0 || lYear % 400 == 0);
    return lMonth == 2 && bLeap ? 29 : aDays[lMonth - 1];
}

QMReportStart QMReportStartOf(const QMTransactionStore& store)
{
    QMReportStart start;
    bool bFirst = true;
    store.ForEach([&](const QMTransaction& transaction) {
        start.lFirstYear = bFirst ? transaction.dtDate.wYear : start.lFirstYear;
        start.lLastYear = transaction.dtDate.wYear;
        start.lMonthIndex = transaction.dtDate.wMonth - 1;
        bFirst = false;
    });
    if (start.lMonthIndex < 0 || start.lMonthIndex > 11) {
        start.lMonthIndex = 0;
    }
    const auto wYear = static_cast<uint16_t>(start.lLastYear);
    start.dtFrom = QMMakeDate(wYear, 1, 1);
    start.dtTo = QMMakeDate(wYear, 12, 31);
    return start;
}

bool QMReadDateRange(const QMReportDateChoice& choice, QMDate& dateFrom, QMDate& dateTo)
{
    QMDate dtFrom = choice.dtFrom;
    QMDate dtTo = choice.dtTo;
    if (choice.bMonth) {
        const auto wYear = static_cast<uint16_t>(std::clamp(choice.lYear, 0, 0xFFFF));
        const auto wMonth = static_cast<uint16_t>(std::clamp(choice.lMonthIndex + 1, 0, 12));
        dtFrom = QMMakeDate(wYear, wMonth, 1);
        dtTo = QMMakeDate(wYear, wMonth, QMLastDayOfMonth(wYear, wMonth));
    }
    if (QMDateIsAfter(dtFrom, dtTo)) {
        return false;
    }
    dateFrom = dtFrom;
    dateTo = dtTo;
    return true;
}

void QMCloseRange(const QMTransactionStore& store, uint32_t uKind, bool bOpenFrom, bool bOpenTo,
                  QMDate& dtFrom, QMDate& dtTo)
{
    constexpr QMDate dtEarliest = QMMakeDate(1752, 1, 1);
    constexpr QMDate dtLatest = QMMakeDate(3000, 12, 31);
    const bool bStatement = uKind == QM_REPORT_STATEMENT;
    QMDate dtFirst = bOpenTo ? dtLatest : dtTo;
    QMDate dtLast = bOpenFrom ? dtEarliest : dtFrom;
    store.ForEach([&](const QMTransaction& transaction) {
        if (bStatement && transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)) {
            return;
        }
        const QMDate& date = bStatement ? transaction.dtCleared : transaction.dtDate;
        dtFirst = QMDateIsBefore(date, dtFirst) ? date : dtFirst;
        dtLast = QMDateIsAfter(date, dtLast) ? date : dtLast;
    });
    if (bOpenFrom) {
        dtFrom = QMCheckDate(dtFirst) == 0 ? dtFirst : dtEarliest;
    }
    if (bOpenTo) {
        dtTo = QMCheckDate(dtLast) == 0 ? dtLast : dtLatest;
    }
}
