// Exports that never end. Each runs in a process of its own, which the system kills after it has
// worked for a while. An export of this size that ends takes no time worth mentioning.
#include <gtest/gtest.h>

#include <sys/time.h>

#include <csignal>
#include <string>
#include <vector>

#include "exchange/qmexchange.h"
#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {

constexpr uint32_t uVoided = QM_TRANS_FLAG_VOIDED | QM_TRANS_FLAG_NOT_CLEARED;
constexpr int32_t lUnknownType = 12;

// Returns only when the export does.
void ExportForAWhile(const std::string& sPath, const std::vector<QMTransaction>& records)
{
    QMTransactionStore store;
    for (const QMTransaction& record : records) {
        AddTo(store, record);
    }
    signal(SIGVTALRM, SIG_DFL);
    const itimerval work = {{0, 0}, {0, 200'000}};
    setitimer(ITIMER_VIRTUAL, &work, nullptr);
    QMExportFile(sPath.c_str(), store);
}

void ExpectEndless(const std::string& sName, const std::vector<QMTransaction>& records)
{
    SCOPED_TRACE(sName);
    const TemporaryFolder folder;
    QMTransactionStore store;
    for (const QMTransaction& record : records) {
        AddTo(store, record);
    }
    EXPECT_NE(QMExportObstacle(QMKindOfPath(sName.c_str()), store), nullptr);
    EXPECT_EXIT(ExportForAWhile(folder.PathOf(sName), records), testing::KilledBySignal(SIGVTALRM),
                "");
}

} // namespace

TEST(EndlessExport, IsThatOfAnAccountWithoutTransactions)
{
    for (const char* szName : {"a.qif", "a.csv", "a.xml"}) {
        ExpectEndless(szName, {});
    }
}

TEST(EndlessExport, IsThatOfALastTransactionThatTheFormatLeavesOut)
{
    const QMTransaction first = MakeTransaction(1, "1/1/2004", 5);
    ExpectEndless("a.qif", {first, MakeTransaction(1, "1/2/2004", 5, uVoided)});
    ExpectEndless("a.xml", {first, MakeTransaction(lUnknownType, "1/2/2004", 5)});
}
