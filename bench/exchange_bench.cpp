// Measures exchange files: writing and reading against plain loops, XML against the parser alone,
// and files in falling and in random order against sorted ones.

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "bench/child.h"
#include "bench/exchangefiles.h"
#include "bench/plainexchange.h"
#include "bench/ratios.h"

namespace {

using Work = std::function<bool(const char* szPath)>;

constexpr struct
{
    EntryOrder order;
    const char* szName;
} aOrders[] = {
    {EntryOrder::Sorted, ""},
    {EntryOrder::NewestFirst, "NewestFirst"},
    {EntryOrder::Shuffled, "Shuffled"},
};

const struct
{
    QMExchangeKind kind;
    const char* szName;
    Work read; // what the import is measured against
    const char* szRead;
} aKinds[] = {
    {QMExchangeKind::Qif, "Qif", [](const char* sz) { return PlainReadQif(sz) > 0; }, "PlainRead"},
    {QMExchangeKind::Csv, "Csv", [](const char* sz) { return PlainReadCsv(sz) > 0; }, "PlainRead"},
    {QMExchangeKind::Xml, "Xml", ParseOnly, "ParseOnly"},
};

// Adds a measurement in a child process. The child finds the memory of this process as it is, so
// the work must not use more of it here.
std::string Add(const std::string& sName, int32_t lCount, Work work, QMExchangeKind kind,
                const std::string& sText)
{
    auto pFile = std::make_shared<ExchangeFile>(kind, sText);
    return AddMeasured(sName, lCount, [pFile, work = std::move(work)] {
        return MeasureInChild([&](const std::function<void()>& stopClock) {
            const bool bDone = work(pFile->GetPath());
            stopClock();
            return bDone;
        });
    });
}

bool Import(const char* szPath)
{
    // It lives until the process ends: freeing it is not part of the work.
    static QMTransactionStore store;
    return QMImportFile(szPath, store) && !store.IsEmpty();
}

template <class Kind>
void RegisterExport(const Kind& kind, int32_t lCount, QMTransactionStore& store,
                    const std::string& sText)
{
    const std::string sName = kind.szName;
    const std::string sExport = Add(
        sName + "Export", lCount,
        [&store](const char* szPath) { return QMExportFile(szPath, store); }, kind.kind, "");
    const std::string sPlain = Add(
        sName + "PlainWrite", lCount,
        [sText](const char* szPath) { return PlainWrite(szPath, sText); }, kind.kind, "");
    CompareWith(sExport, sPlain, 2.5);
}

template <class Kind>
void RegisterImport(const Kind& kind, int32_t lCount, const std::string& sText)
{
    const std::string sName = kind.szName;
    const std::string sBase = Add(sName + kind.szRead, lCount, kind.read, kind.kind, sText);
    std::string sSorted;
    for (const auto& order : aOrders) {
        const bool bSorted = order.order == EntryOrder::Sorted;
        const std::string sImport =
            Add(sName + "Import" + order.szName, lCount, Import, kind.kind,
                bSorted ? sText : MakeExchangeText(kind.kind, lCount, order.order));
        if (bSorted) {
            CompareWith(sImport, sBase, 4);
            sSorted = sImport;
        } else {
            CompareWith(sImport, sSorted, 1.3);
        }
    }
}

void Register(int32_t lCount)
{
    static std::map<int32_t, QMTransactionStore> stores;
    QMTransactionStore& store = stores[lCount];
    FillStore(store, lCount);
    for (const auto& kind : aKinds) {
        const std::string sText = MakeExchangeText(kind.kind, lCount, EntryOrder::Sorted);
        RegisterExport(kind, lCount, store, sText);
        RegisterImport(kind, lCount, sText);
    }
}

} // namespace

int main(int argc, char** argv)
{
    Register(100000);
    return RunWithRatios(argc, argv);
}
