#include "qmktool/toolexchange.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "account/qmbytesource.h"
#include "account/qmfile.h"
#include "qmktool/toolerror.h"

namespace {

// Why nothing came of the file.
const char* ImportFault(const char* szFile)
{
    QMFile file(szFile);
    if (!file.OpenForReading()) {
        return VFileFaultText(file.GetFault());
    }
    if (file.GetSize() == 0) {
        return "the file is empty";
    }
    return ExchangeKindOf(szFile) == QMExchangeKind::Xml ? "it is not a well-formed XML document"
                                                         : "it holds no line of text";
}

bool UsesDialect(const ToolOptions& options)
{
    return options.szProfile != nullptr || !options.dialect.empty();
}

bool ReadBytes(const char* szFile, std::string& sBytes)
{
    QMFile file(szFile);
    if (!file.OpenForReading()) {
        RefuseFile("open", szFile, VFileFaultText(file.GetFault()));
        return false;
    }
    sBytes.resize(static_cast<size_t>(std::max<int64_t>(file.GetSize(), 0)));
    QMFileSource source(file);
    const int64_t nRead = source.ReadSome(sBytes.data(), sBytes.size());
    if (nRead != static_cast<int64_t>(sBytes.size())) {
        RefuseFile("open", szFile, VFileFaultText(VFileFault::Other));
        return false;
    }
    return true;
}

// The profile first, and over it what the command line says.
bool MakeDialect(const ToolOptions& options, QMDialect& dialect)
{
    if (options.szProfile != nullptr) {
        std::string sText;
        if (!ReadBytes(options.szProfile, sText)) {
            return false;
        }
        const std::string sFault = dialect.ReadProfile(sText);
        if (!sFault.empty()) {
            RefuseFile("use the profile", options.szProfile, sFault.c_str());
            return false;
        }
    }
    for (const auto& [sName, sValue] : options.dialect) {
        dialect.Set(sName, sValue);
    }
    return true;
}

bool ReadByDialect(const char* szFile, const ToolOptions& options, QMTransactionStore& store,
                   QMBankReport& report)
{
    QMDialect dialect;
    std::string sBytes;
    if (!MakeDialect(options, dialect) || !ReadBytes(szFile, sBytes)) {
        return false;
    }
    const QMExchangeKind kind = ExchangeKindOf(szFile);
    std::string sFault = "an XML file has no dialects";
    if (kind == QMExchangeKind::Csv && QMReadBankCsv(sBytes, dialect, store, report, sFault)) {
        return true;
    }
    if (kind == QMExchangeKind::Qif) {
        const std::string sQif = QMTranslateQif(sBytes, dialect, report);
        QMMemorySource source(sQif.data(), sQif.size());
        if (QMImportFrom(source, kind, store)) {
            return true;
        }
        sFault = "it holds no line of text";
    }
    RefuseFile("import", szFile, sFault.c_str());
    return false;
}

bool HasDate(const QMTransaction& transaction)
{
    return QMCheckDate(transaction.dtDate) == 0 &&
           !QMDateIsEqual(transaction.dtDate, QMMakeDate(2000, 1, 1));
}

// What the program's own readers leave at the values of a new transaction. bUsable tells whether
// any of them has a date or an amount, or whether there is none.
QMBankReport ReportOf(QMTransactionStore& store, bool& bUsable)
{
    QMBankReport report;
    bUsable = store.IsEmpty();
    store.First();
    // The texts, which are most of a record, are left alone, so nothing is fetched ahead.
    for (const QMListNode* p = store.GetCurrentNode(); p != nullptr; p = p->GetNext()) {
        const auto& transaction = *static_cast<const QMTransaction*>(p);
        const bool bNoDay = QMCheckDate(transaction.dtDate) != 0;
        const bool bHasDate = HasDate(transaction);
        report.lWithoutDate += bNoDay ? 1 : 0;
        report.lFirstOf2000 += !bNoDay && !bHasDate ? 1 : 0;
        report.lWithoutAmount += transaction.fAmount == 0 ? 1 : 0;
        bUsable = bUsable || bHasDate || transaction.fAmount != 0;
    }
    return report;
}

// A description may have come with the dash that joins it to its type.
const char* WithoutDash(const char* szText)
{
    return strncmp(szText, " - ", 3) == 0 ? szText + 3 : szText;
}

int CompareNumbers(double a, double b)
{
    return a < b ? -1 : a > b ? 1 : 0;
}

// By what makes two transactions look the same.
int CompareLooks(const QMTransaction& a, const QMTransaction& b)
{
    const auto NumberOf = [](const QMTransaction& transaction) {
        return transaction.lType == QM_TRANS_CHECK ? transaction.lNumber : 0;
    };
    const auto AmountOf = [](const QMTransaction& transaction) {
        return transaction.IsDebitType() ? -transaction.GetRoundedAmount()
                                         : transaction.GetRoundedAmount();
    };
    int nResult = CompareNumbers(static_cast<double>(QMDateKey(a.dtDate)),
                                 static_cast<double>(QMDateKey(b.dtDate)));
    nResult = nResult != 0 ? nResult : CompareNumbers(AmountOf(a), AmountOf(b));
    nResult = nResult != 0 ? nResult : CompareNumbers(NumberOf(a), NumberOf(b));
    return nResult != 0 ? nResult
                        : strcmp(WithoutDash(a.szDescription), WithoutDash(b.szDescription));
}

// New transactions that look the same; so many of them the account has.
struct Group
{
    std::vector<const QMTransaction*> members;
    size_t uKnown = 0;
};

std::vector<Group> GroupLooks(const QMTransactionStore& store)
{
    std::vector<const QMTransaction*> sorted;
    store.ForEach([&](const QMTransaction& transaction) { sorted.push_back(&transaction); });
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto* a, const auto* b) { return CompareLooks(*a, *b) < 0; });
    std::vector<Group> groups;
    for (const QMTransaction* p : sorted) {
        if (groups.empty() || CompareLooks(*groups.back().members[0], *p) != 0) {
            groups.emplace_back();
        }
        groups.back().members.push_back(p);
    }
    return groups;
}

void CountKnown(const QMTransactionStore& account, std::vector<Group>& groups)
{
    account.ForEach([&](const QMTransaction& transaction) {
        const auto pGroup = std::lower_bound(groups.begin(), groups.end(), transaction,
                                             [](const Group& group, const auto& other) {
                                                 return CompareLooks(*group.members[0], other) < 0;
                                             });
        if (pGroup != groups.end() && CompareLooks(*pGroup->members[0], transaction) == 0 &&
            pGroup->uKnown < pGroup->members.size()) {
            ++pGroup->uKnown;
        }
    });
}

void TellCount(Output& output, int32_t lCount, const char* szWhat)
{
    if (lCount > 0) {
        output.Format(", %d %s", lCount, szWhat);
    }
}

} // namespace

bool ReadExchangeFile(const char* szFile, const ToolOptions& options, QMTransactionStore& store,
                      QMBankReport& report)
{
    if (UsesDialect(options)) {
        return ReadByDialect(szFile, options, store, report);
    }
    QMTransactionStore found;
    if (!QMImportFile(szFile, found)) {
        RefuseFile("import", szFile, ImportFault(szFile));
        return false;
    }
    bool bUsable = false;
    const QMBankReport counted = ReportOf(found, bUsable);
    if (!bUsable) {
        RefuseFile("import", szFile,
                   "none of its records has a date or an amount (see qmktool help import for "
                   "other dialects)");
        return false;
    }
    report = counted;
    store.TakeFrom(found);
    return true;
}

int32_t FindKnown(const QMTransactionStore& account, QMTransactionStore& store, bool bLeaveOut)
{
    if (account.IsEmpty()) {
        return 0;
    }
    std::vector<Group> groups = GroupLooks(store);
    CountKnown(account, groups);
    int32_t lKnown = 0;
    std::set<const QMTransaction*> known;
    for (const Group& group : groups) {
        lKnown += static_cast<int32_t>(group.uKnown);
        for (size_t u = 0; bLeaveOut && u < group.uKnown; ++u) {
            known.insert(group.members[u]);
        }
    }
    store.First();
    for (int32_t i = store.GetCount(); bLeaveOut && i > 0; --i) {
        if (known.contains(store.GetCurrentNode())) {
            store.Remove();
        } else {
            store.Next();
        }
    }
    return lKnown;
}

void TellReport(Output& output, const QMBankReport& report)
{
    TellCount(output, report.lWithoutDate, "without a date");
    TellCount(output, report.lFirstOf2000, "of 1/1/2000, as those without a date are");
    TellCount(output, report.lWithoutAmount, "without an amount");
    TellCount(output, report.lPassedOver, "other lines passed over");
    TellCount(output, report.lReplaced, "characters replaced");
}

bool WriteExchangeFile(QMTransactionStore& store, const char* szFile, bool bReplace)
{
    return WriteToolFile(szFile, bReplace, [&](QMByteSink& sink) {
        return QMExportTo(sink, ExchangeKindOf(szFile), store);
    });
}
