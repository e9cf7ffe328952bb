#include "qmktool/commands.h"
#include "qmktool/output.h"
#include "qmktool/toolaccount.h"
#include "qmktool/toolexchange.h"

int RunImport(const ToolOptions& options)
{
    const char* szIn = options.aFiles[0];
    const char* szAccount = options.aFiles[1];
    if (ExchangeKindOf(szIn) == QMExchangeKind::None) {
        return RefuseFile("import", szIn, "only .qif, .csv and .xml files can be imported");
    }
    QMReadReport report;
    auto pOpened = OpenToolAccount(szAccount, options, report);
    if (pOpened == nullptr) {
        return QM_EXIT_REFUSED;
    }
    QMAccount& account = KeepUntilExit(std::move(pOpened));
    // Kept: an account marked read-only takes an import, here and in the program.
    const int32_t lCount = ImportInto(account, szIn);
    if (lCount < 0) {
        return QM_EXIT_REFUSED;
    }
    // A save in the program makes the account one of format 2.0 too. With nothing to add, the
    // account is not written.
    account.SetVersion(QM_VERSION_2_0);
    if (lCount > 0 && !WriteToolAccount(account, szAccount, true)) {
        return QM_EXIT_REFUSED;
    }
    Output output;
    output.Format("%d transaction%s imported into ", lCount, lCount == 1 ? "" : "s");
    output.AddPrintable(szAccount);
    output.Add('\n');
    return output.Finish();
}
