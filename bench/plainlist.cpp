// What listing is measured against: it reads an account file that is in order, fills records,
// prints the lines of a register with a running balance, and does nothing else.

#include <cstdio>

#include "bench/plainread.h"

namespace {

void Add(const QMTransactionFields& record, double& dBalance)
{
    const QMSide side = QMTypeSide(record.lType);
    if ((record.lFlags & QM_TRANS_FLAG_VOIDED) == 0) {
        dBalance += side == QMSide::Debit ? -static_cast<double>(record.fAmount)
                                          : static_cast<double>(record.fAmount);
    }
}

void Print(const QMTransactionFields& record, double dBalance)
{
    char szNumber[16] = "     ";
    if (record.lType == QM_TRANS_CHECK) {
        snprintf(szNumber, sizeof szNumber, "%5d", static_cast<int>(record.lNumber));
    }
    char szDescription[300];
    if (record.lType == QM_TRANS_CHECK) {
        snprintf(szDescription, sizeof szDescription, "%s", record.szDescription);
    } else {
        snprintf(szDescription, sizeof szDescription, "%s - %s", QMTypeLabel(record.lType),
                 record.szDescription);
    }
    char szAmount[48];
    snprintf(szAmount, sizeof szAmount, "%10.2f", static_cast<double>(record.fAmount));
    const bool bDebit = QMTypeSide(record.lType) == QMSide::Debit;
    printf("%2d/%2d/%02d  %s  %-46s  %10s  %10s  %12.2f  %-3s  %-24s  %s\n", record.dtDate.wMonth,
           record.dtDate.wDay, record.dtDate.wYear % 100, szNumber, szDescription,
           bDebit ? szAmount : "", bDebit ? "" : szAmount, dBalance,
           (record.lFlags & QM_TRANS_FLAG_NOT_CLEARED) != 0 ? "NC" : "", record.szMemo,
           record.szCategory);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        return 2;
    }
    const PlainAccount account = PlainRead(argv[1]);
    double dBalance = 0;
    for (int32_t i = 0; i < account.lCount; ++i) {
        const QMTransactionFields& record = account.aRecords[static_cast<size_t>(i)];
        Add(record, dBalance);
        Print(record, dBalance);
    }
    return 0;
}
