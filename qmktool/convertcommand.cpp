#include <memory>

#include "account/qmpackedtransactions.h"
#include "qmktool/commands.h"
#include "qmktool/listing.h"
#include "qmktool/output.h"
#include "qmktool/toolaccount.h"
#include "qmktool/toolexchange.h"

namespace {

// Null when the name is that of a file that can be converted; otherwise what is wrong with it.
const char* KindFault(const char* szFile, QMExchangeKind kind)
{
    return IsAccountName(szFile) || kind != QMExchangeKind::None
               ? nullptr
               : "only .qmk, .qif, .csv and .xml files can be converted";
}

// Returns null after a line on standard error.
std::unique_ptr<QMAccount> ReadSource(const ToolOptions& options, QMBankReport& report)
{
    const char* szFile = options.aFiles[0];
    if (IsAccountName(szFile)) {
        QMReadReport readReport;
        return OpenToolAccount(szFile, options, readReport);
    }
    // The account needs no name: its file is never opened.
    auto pAccount = std::make_unique<QMAccount>("");
    return ReadExchangeFile(options, pAccount->store, report) ? std::move(pAccount) : nullptr;
}

void TellTransactions(Output& output, int32_t lCount)
{
    output.Format("%d transaction%s", lCount, lCount == 1 ? "" : "s");
}

int ShowOnly(QMAccount& account, const ToolOptions& options, const QMBankReport& report)
{
    Output output(EncodingOf(InKindOf(options)));
    const int32_t lCount = account.store.GetCount();
    WriteStore(output, account.store);
    TellTransactions(output, lCount);
    output.Add(" to convert");
    TellReport(output, report);
    output.Add('\n');
    return output.Finish();
}

template <class F>
int32_t CountThose(const QMTransactionStore& store, F isMeant)
{
    int32_t lCount = 0;
    store.ForEach(
        [&](const QMTransaction& transaction) { lCount += isMeant(transaction) ? 1 : 0; });
    return lCount;
}

void TellLeftOut(Output& output, int32_t lCount, const char* szWhat)
{
    if (lCount > 0) {
        output.Format(", %d %s left out", lCount, szWhat);
    }
}

int TellAccount(const char* szFile, int32_t lVersion, int32_t lCount, int32_t lCategories,
                const QMBankReport& report)
{
    Output output;
    output.AddName(szFile);
    output.Format(": format %s, ", FormatName(lVersion));
    TellTransactions(output, lCount);
    if (!QMVersionHasCategory(lVersion)) {
        TellLeftOut(output, lCategories, "categories");
    }
    TellReport(output, report);
    output.Add('\n');
    return output.Finish();
}

int WriteAccount(QMAccount& account, const ToolOptions& options, const QMBankReport& report)
{
    const char* szFile = options.aFiles[1];
    account.SetVersion(options.lVersion);
    if (!WriteToolAccount(account, szFile, options.bForce)) {
        return QM_EXIT_REFUSED;
    }
    const int32_t lCategories = CountThose(account.store, [](const QMTransaction& transaction) {
        return transaction.szCategory[0] != '\0';
    });
    return TellAccount(szFile, account.lVersion, account.store.GetCount(), lCategories, report);
}

// Packs the transactions of an exchange file, and counts those that have a category.
class Packer : public QMRecordTaker
{
public:
    explicit Packer(int32_t lVersion) : m_packed(lVersion) {}

    bool Take(const QMTransaction& transaction) override
    {
        m_lCategories += transaction.szCategory[0] != '\0' ? 1 : 0;
        return m_packed.Add(transaction);
    }
    QMPackedTransactions& GetPacked() { return m_packed; }
    int32_t GetCategories() const { return m_lCategories; }

private:
    QMPackedTransactions m_packed;
    int32_t m_lCategories = 0;
};

// From an exchange file of no dialect straight into a new account.
int PackAccount(const ToolOptions& options)
{
    const char* szFile = options.aFiles[1];
    QMAccount account("");
    Packer packer(account.SetVersion(options.lVersion));
    QMBankReport report;
    if (!TakeExchangeFile(options, packer, report)) {
        return QM_EXIT_REFUSED;
    }
    QMPackedTransactions& packed = packer.GetPacked();
    return WriteToolAccount(account, packed, szFile, options.bForce)
               ? TellAccount(szFile, account.lVersion, packed.GetCount(), packer.GetCategories(),
                             report)
               : QM_EXIT_REFUSED;
}

void TellExport(Output& output, QMExchangeKind kind, const QMTransactionStore& store)
{
    const int32_t lAll = store.GetCount();
    if (kind == QMExchangeKind::Qif) {
        const int32_t lVoided = CountThose(store, [](const QMTransaction& transaction) {
            return transaction.HasFlag(QM_TRANS_FLAG_VOIDED);
        });
        output.Add("QIF, ");
        TellTransactions(output, lAll - lVoided);
        TellLeftOut(output, lVoided, "voided ones");
    } else if (kind == QMExchangeKind::Xml) {
        const int32_t lUnknown = CountThose(
            store, [](const QMTransaction& transaction) { return !transaction.IsTypeValid(); });
        output.Add("XML, ");
        TellTransactions(output, lAll - lUnknown);
        TellLeftOut(output, lUnknown, "of an unknown type");
    } else {
        output.Add("CSV, ");
        TellTransactions(output, lAll);
    }
}

int WriteExchange(QMAccount& account, const ToolOptions& options, const QMBankReport& report)
{
    const char* szFile = options.aFiles[1];
    const QMExchangeKind kind = OutKindOf(options);
    // The writers of the formats would never return for such a store.
    if (const char* szObstacle = QMExportObstacle(kind, account.store)) {
        return RefuseFile("export", options.aFiles[0], szObstacle);
    }
    if (!WriteExchangeFile(account.store, options)) {
        return QM_EXIT_REFUSED;
    }
    // Standard output holds the records and nothing else.
    Output output(VEncoding::Utf8, IsStandardStream(szFile) ? stderr : stdout);
    output.AddName(szFile);
    output.Add(": ");
    TellExport(output, kind, account.store);
    TellReport(output, report);
    output.Add('\n');
    return output.Finish();
}

} // namespace

int RunConvert(const ToolOptions& options)
{
    const char* szIn = options.aFiles[0];
    if (const char* szFault = KindFault(szIn, InKindOf(options))) {
        return RefuseFile("open", szIn, szFault);
    }
    if (options.bDetect) {
        return RunDetect(options);
    }
    const char* szOut = options.aFiles[1];
    if (const char* szFault = KindFault(szOut, OutKindOf(options))) {
        return RefuseFile("write", szOut, szFault);
    }
    const bool bToAccount = IsAccountName(szOut);
    if (!bToAccount && options.lVersion != 0) {
        WriteError("--format is for account files, and '%s' is none (see qmktool --help)", szOut);
        return QM_EXIT_USAGE;
    }
    if (UsesDialect(options) && IsAccountName(szIn)) {
        WriteError("a dialect is for files of banks, and '%s' is none (see qmktool --help)", szIn);
        return QM_EXIT_USAGE;
    }
    if (bToAccount && !options.bDryRun && !IsAccountName(szIn) && !UsesDialect(options)) {
        return PackAccount(options);
    }
    QMBankReport report;
    auto pSource = ReadSource(options, report);
    if (pSource == nullptr) {
        return QM_EXIT_REFUSED;
    }
    QMAccount& account = KeepUntilExit(std::move(pSource));
    if (options.bDryRun) {
        return ShowOnly(account, options, report);
    }
    return bToAccount ? WriteAccount(account, options, report)
                      : WriteExchange(account, options, report);
}
