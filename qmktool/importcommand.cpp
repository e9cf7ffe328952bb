#include "account/qmmerge.h"
#include "qmktool/commands.h"
#include "qmktool/listing.h"
#include "qmktool/output.h"
#include "qmktool/toolaccount.h"
#include "qmktool/toolexchange.h"

namespace {

// One line: how many came in, and what is to be looked at.
void TellImport(Output& output, int32_t lCount, const char* szAccount, const QMBankReport& report,
                int32_t lKnown, const ToolOptions& options)
{
    output.Format("%d transaction%s %s ", lCount, lCount == 1 ? "" : "s",
                  options.bDryRun ? "to import into" : "imported into");
    output.AddName(szAccount);
    TellReport(output, report);
    if (lKnown > 0) {
        output.Format(", %d that it seems to have already%s", lKnown,
                      options.bSkipKnown ? " left out" : "");
    }
    output.Add('\n');
}

// Adds the transactions and writes the account. Returns their count; below 0 after a line on
// standard error.
int32_t AddTo(QMAccount& account, QMTransactionStore& store, const char* szIn,
              const char* szAccount)
{
    const int32_t lCount = QMMergeAll(store, account.store);
    if (lCount < 0) {
        RefuseFile("import", szIn, "there is not enough memory");
        return -1;
    }
    // A save in the program makes the account one of format 2.0 too. With nothing to add, the
    // account is not written.
    account.SetVersion(QM_VERSION_2_0);
    return lCount > 0 && !WriteToolAccount(account, szAccount, true) ? -1 : lCount;
}

} // namespace

int RunImport(const ToolOptions& options)
{
    const char* szIn = options.aFiles[0];
    if (InKindOf(options) == QMExchangeKind::None) {
        return RefuseFile("import", szIn, "only .qif, .csv and .xml files can be imported");
    }
    if (options.bDetect) {
        return RunDetect(options);
    }
    const char* szAccount = options.aFiles[1];
    QMReadReport readReport;
    auto pOpened = OpenToolAccount(szAccount, options, readReport);
    if (pOpened == nullptr) {
        return QM_EXIT_REFUSED;
    }
    // Kept: an account marked read-only takes an import, here and in the program.
    QMAccount& account = KeepUntilExit(std::move(pOpened));
    QMTransactionStore store;
    QMBankReport report;
    if (!ReadExchangeFile(options, store, report)) {
        return QM_EXIT_REFUSED;
    }
    const int32_t lKnown = FindKnown(account.store, store, options.bSkipKnown);
    Output output(EncodingOf(InKindOf(options)));
    int32_t lCount = store.GetCount();
    if (options.bDryRun) {
        WriteStore(output, store);
    } else {
        lCount = AddTo(account, store, szIn, szAccount);
        if (lCount < 0) {
            return QM_EXIT_REFUSED;
        }
    }
    TellImport(output, lCount, szAccount, report, lKnown, options);
    return output.Finish();
}
