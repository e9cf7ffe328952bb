#include "bench/reportaccounts.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "base/vtext.h"
#include "bench/accountfiles.h"
#include "bench/child.h"
#include "bench/exchangefiles.h"

void FillForReports(QMAccountData& account, int32_t lCount, int32_t lGroups)
{
    FillStore(account.store, lCount);
    VCopyText(account.header.szBankName, "First Bank");
    int32_t i = 0;
    account.store.ForEach([&](const QMTransaction& transaction) {
        // The store hands its transactions out to read; this one is the benchmark's own.
        auto& t = const_cast<QMTransaction&>(transaction);
        const int32_t lGroup = i * 7 % lGroups;
        snprintf(t.szMemo, sizeof t.szMemo, "memo %04d", lGroup);
        snprintf(t.szCategory, sizeof t.szCategory, "category %04d", lGroup);
        snprintf(t.szDescription, sizeof t.szDescription, "payee %04d", lGroup);
        t.lFlags |= i % 3 == 0 ? QM_TRANS_FLAG_TAX : 0;
        t.lFlags |= i % 3 == 1 ? QM_TRANS_FLAG_EXPENSE : 0;
        t.lFlags |= i % 10 == 0 ? QM_TRANS_FLAG_VOIDED | QM_TRANS_FLAG_NOT_CLEARED : 0;
        ++i;
    });
}

ReportFile::ReportFile(int32_t lCount)
{
    const int nFile = mkstemp(m_szPath);
    // A child makes it, so that this process stays small.
    const Measurement result = MeasureInChild([&](const std::function<void()>&) {
        QMAccount account("");
        FillForReports(account, lCount, lReportGroups);
        const QMFileImage image = QMMakeAccountImage(account);
        return write(nFile, image.pBytes.get(), image.uSize) == static_cast<ssize_t>(image.uSize);
    });
    close(nFile);
    if (!result.bDone) {
        fprintf(stderr, "%s: cannot write\n", m_szPath);
        exit(1);
    }
}

ReportFile::~ReportFile()
{
    unlink(m_szPath);
}
