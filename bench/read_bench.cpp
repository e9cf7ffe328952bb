// Measures reading account files: against a plain loop, files in falling and in random order
// against sorted ones, and the memory that the records take.

#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "account/qmaccount.h"
#include "bench/accountfiles.h"
#include "bench/child.h"
#include "bench/plainread.h"
#include "bench/ratios.h"

namespace {

constexpr struct
{
    EntryOrder order;
    const char* szName;
} aOrders[] = {
    {EntryOrder::Sorted, "Sorted"},
    {EntryOrder::NewestFirst, "NewestFirst"},
    {EntryOrder::Shuffled, "Shuffled"},
};

const char* GetFile(int32_t lCount, EntryOrder order)
{
    static std::map<std::pair<int32_t, EntryOrder>, std::unique_ptr<AccountFile>> files;
    auto& pFile = files[{lCount, order}];
    if (pFile == nullptr) {
        pFile = std::make_unique<AccountFile>(lCount, order);
    }
    return pFile->GetPath();
}

ChildResult ReadAccount(const char* szPath)
{
    return MeasureInChild([=](const std::function<void()>& stopClock) {
        QMAccount account(szPath);
        const bool bRead = account.Read();
        stopClock();
        return bRead;
    });
}

ChildResult ReadPlainly(const char* szPath)
{
    return MeasureInChild([=](const std::function<void()>& stopClock) {
        const PlainAccount account = PlainRead(szPath);
        stopClock();
        return account.lCount > 0;
    });
}

void Run(benchmark::State& state, ChildResult (*pRead)(const char*), EntryOrder order,
         double* pPeakBytes)
{
    const char* szPath = GetFile(static_cast<int32_t>(state.range(0)), order);
    for (auto _ : state) {
        const ChildResult result = pRead(szPath);
        if (!result.bDone) {
            state.SkipWithError("cannot read");
        }
        state.SetIterationTime(result.dSeconds);
        *pPeakBytes = std::max(*pPeakBytes, result.dPeakBytes);
    }
}

void Register(int32_t lCount)
{
    static std::map<std::string, double> peaks; // in bytes, by the name of the benchmark
    const std::string sCount = "/" + std::to_string(lCount);
    const auto Add = [&](const char* szName, ChildResult (*pRead)(const char*), EntryOrder order) {
        benchmark::RegisterBenchmark(szName, Run, pRead, order, &peaks[szName + sCount])
            ->Arg(lCount)
            ->UseManualTime()
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    };
    Add("PlainLoop", ReadPlainly, EntryOrder::Sorted);
    const std::string sSorted = std::string(aOrders[0].szName) + sCount;
    for (const auto& order : aOrders) {
        const std::string sName = order.szName + sCount;
        Add(order.szName, ReadAccount, order.order);
        CompareWith(sName, "PlainLoop" + sCount, order.order == EntryOrder::Sorted ? 2.5 : 0);
        if (order.order != EntryOrder::Sorted) {
            CompareWith(sName, sSorted, 1.5);
        }
        const double dRecords = static_cast<double>(lCount) * sizeof(QMTransaction);
        CompareValue(
            sName + ", peak memory to records",
            [&dPeak = peaks[sName], dRecords] { return dPeak / dRecords; }, 1.1);
    }
}

} // namespace

int main(int argc, char** argv)
{
    Register(100000);
    Register(1000000);
    return RunWithRatios(argc, argv);
}
