#include "qmktool/toolexchange.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "account/qmbytesource.h"
#include "account/qmfile.h"
#include "exchange/qmstdiofile.h"
#include "qmktool/terminal.h"
#include "qmktool/toolerror.h"
#include "qmktool/toolprogress.h"

namespace {

// Why the reader found no transactions.
const char* ImportFault(const WatchedByteSource& source, QMExchangeKind kind)
{
    if (source.GetDone() == 0) {
        return "the file is empty";
    }
    return kind == QMExchangeKind::Xml ? "it is not a well-formed XML document"
                                       : "it holds no line of text";
}

// Opens a file, or standard input. When that fails, writes a line to standard error, by which it is
// not possible to do szWhat with the file, and returns null.
FILE* OpenInput(const char* szFile, const char* szWhat, QMStdioFile& pFile)
{
    if (IsStandardStream(szFile)) {
        UseBytes(stdin);
        return stdin;
    }
    pFile = QMOpenForReading(szFile);
    if (pFile == nullptr) {
        QMFile file(szFile);
        file.OpenForReading();
        const VFileFault fault = file.GetFault();
        RefuseFile(szWhat, szFile,
                   VFileFaultText(fault == VFileFault::None ? VFileFault::Other : fault));
        return nullptr;
    }
    // The readers have buffers of their own.
    setvbuf(pFile.get(), nullptr, _IONBF, 0);
    return pFile.get();
}

uint64_t SizeOf(FILE* pFile)
{
    const long lSize = fseek(pFile, 0, SEEK_END) == 0 ? ftell(pFile) : 0;
    if (lSize > 0) {
        rewind(pFile);
    }
    return lSize > 0 ? static_cast<uint64_t>(lSize) : 0;
}

// What the program's own readers leave at the values of a new transaction.
QMBankReport ReportOf(const QMImportTally& tally)
{
    QMBankReport report;
    report.lWithoutDate = tally.lWithoutDate;
    report.lFirstOf2000 = tally.lFirstOf2000;
    report.lWithoutAmount = tally.lWithoutAmount;
    report.lOneOrder = tally.lOneOrder;
    report.lEitherOrder = tally.lEitherOrder;
    return report;
}

// Whether anything that was read can be used.
bool IsUsable(const QMImportTally& tally, std::string& sFault)
{
    if (tally.lUsable == 0) {
        sFault = tally.lRecords == 0
                     ? "it holds no transaction"
                     : "none of its records has a date or an amount (see qmktool help import for "
                       "other dialects)";
    }
    return tally.lUsable > 0;
}

bool ReadByDialect(const ToolOptions& options, QMTransactionStore& store, QMBankReport& report)
{
    const char* szFile = options.aFiles[0];
    QMDialect dialect;
    std::string sBytes;
    if (!MakeDialect(options, dialect) || !ReadToolFile(szFile, "import", sBytes)) {
        return false;
    }
    const QMExchangeKind kind = InKindOf(options);
    std::string sFault = "an XML file has no dialects";
    bool bDone = false;
    if (kind == QMExchangeKind::Csv) {
        ToolProgress progress("importing", 1, "bytes");
        bDone = QMReadBankCsv(sBytes, dialect, store, report, sFault, &progress);
    }
    if (kind == QMExchangeKind::Qif) {
        const std::string sQif = QMTranslateQif(sBytes, dialect, report);
        QMMemorySource source(sQif.data(), sQif.size());
        QMTransactionStore found;
        QMImportTally tally;
        bDone = QMImportFrom(source, kind, found, &tally) && IsUsable(tally, sFault);
        if (bDone) {
            store.TakeFrom(found);
        }
    }
    if (!bDone) {
        RefuseFile("import", szFile, sFault.c_str());
    }
    report.bOrderGuessed = !dialect.bDatesTold && report.IsOrderDoubtful();
    return bDone;
}

// Files of this program have the month first.
bool IsOwnCsv(std::string_view front)
{
    return front.starts_with("Date,Number,Payee,Amount,Memo,Category,Cleared,Voided,Tax,Expense");
}

// Calls import(source, kind, tally) to read IN as the program does.
template <class F>
bool ReadPlainly(const ToolOptions& options, QMBankReport& report, F import)
{
    const char* szFile = options.aFiles[0];
    const QMExchangeKind kind = InKindOf(options);
    QMStdioFile pFile;
    FILE* pInput = OpenInput(szFile, "import", pFile);
    if (pInput == nullptr) {
        return false;
    }
    QMStdioSource stdioSource(pInput);
    QMImportTally tally;
    std::string sFault;
    std::string sFront;
    {
        WatchedByteSource source(stdioSource, SizeOf(pInput));
        if (!import(source, kind, tally)) {
            sFault = ImportFault(source, kind);
        }
        sFront = source.GetFront();
    }
    if (!sFault.empty() || !IsUsable(tally, sFault)) {
        RefuseFile("import", szFile, sFault.c_str());
        return false;
    }
    report = ReportOf(tally);
    report.bOrderGuessed =
        kind != QMExchangeKind::Xml && report.IsOrderDoubtful() && !IsOwnCsv(sFront);
    return true;
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

bool ReadToolFile(const char* szFile, const char* szWhat, std::string& sBytes)
{
    QMStdioFile pFile;
    FILE* pInput = OpenInput(szFile, szWhat, pFile);
    if (pInput == nullptr) {
        return false;
    }
    sBytes.clear();
    QMStdioSource stdioSource(pInput);
    WatchedByteSource source(stdioSource, SizeOf(pInput));
    constexpr size_t uStep = 1 << 18;
    int64_t nRead = uStep;
    while (nRead == static_cast<int64_t>(uStep)) {
        const size_t uBefore = sBytes.size();
        sBytes.resize(uBefore + uStep);
        nRead = source.ReadSome(sBytes.data() + uBefore, uStep);
        sBytes.resize(uBefore + static_cast<size_t>(std::max<int64_t>(nRead, 0)));
    }
    if (nRead < 0) {
        RefuseFile(szWhat, szFile, VFileFaultText(VFileFault::Other));
    }
    return nRead >= 0;
}

bool MakeDialect(const ToolOptions& options, QMDialect& dialect, std::vector<std::string>* pNames)
{
    if (options.szProfile != nullptr) {
        std::string sText;
        if (!ReadToolFile(options.szProfile, "use the profile", sText)) {
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
        if (pNames != nullptr) {
            pNames->push_back(sName);
        }
    }
    return true;
}

bool ReadExchangeFile(const ToolOptions& options, QMTransactionStore& store, QMBankReport& report)
{
    if (UsesDialect(options)) {
        return ReadByDialect(options, store, report);
    }
    QMTransactionStore found;
    const bool bRead = ReadPlainly(
        options, report, [&](QMByteSource& source, QMExchangeKind kind, QMImportTally& tally) {
            return QMImportFrom(source, kind, found, &tally);
        });
    if (bRead) {
        store.TakeFrom(found);
    }
    return bRead;
}

bool TakeExchangeFile(const ToolOptions& options, QMRecordTaker& taker, QMBankReport& report)
{
    return ReadPlainly(options, report,
                       [&](QMByteSource& source, QMExchangeKind kind, QMImportTally& tally) {
                           return QMImportTo(taker, source, kind, &tally);
                       });
}

bool UsesDialect(const ToolOptions& options)
{
    return options.szProfile != nullptr || !options.dialect.empty();
}

QMExchangeKind InKindOf(const ToolOptions& options)
{
    return IsStandardStream(options.aFiles[0]) ? options.fromKind
                                               : ExchangeKindOf(options.aFiles[0]);
}

QMExchangeKind OutKindOf(const ToolOptions& options)
{
    return IsStandardStream(options.aFiles[1]) ? options.toKind : ExchangeKindOf(options.aFiles[1]);
}

VEncoding EncodingOf(QMExchangeKind kind)
{
    return kind == QMExchangeKind::Xml ? VEncoding::Utf8 : VEncoding::Windows1252;
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
    TellCount(output, report.lPassedOver,
              report.lPassedOver == 1 ? "other line passed over" : "other lines passed over");
    TellCount(output, report.lReplaced,
              report.lReplaced == 1 ? "character replaced" : "characters replaced");
    if (report.bOrderGuessed) {
        output.Add(", month and day perhaps exchanged: every day is below 13 (see --dates)");
    }
}

bool WriteExchangeFile(QMTransactionStore& store, const ToolOptions& options)
{
    const char* szFile = options.aFiles[1];
    const auto Write = [&](QMByteSink& sink) {
        ToolProgress progress("writing", 1, "transactions");
        return QMExportTo(sink, OutKindOf(options), store, &progress);
    };
    if (!IsStandardStream(szFile)) {
        return WriteToolFile(szFile, options.bForce, Write);
    }
    UseBytes(stdout);
    QMStdioSink sink(stdout);
    if (!Write(sink) || fflush(stdout) != 0) {
        WriteError("cannot write to standard output");
        return false;
    }
    return true;
}
