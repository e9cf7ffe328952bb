// Measures reading account files: against a plain loop, files in falling and in random order
// against sorted ones, and the memory that the records take.

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

Measurement ReadAccount(const char* szPath)
{
    return MeasureInChild([=](const std::function<void()>& stopClock) {
        QMAccount account(szPath);
        const bool bRead = account.Read();
        stopClock();
        return bRead;
    });
}

Measurement ReadPlainly(const char* szPath)
{
    return MeasureInChild([=](const std::function<void()>& stopClock) {
        const PlainAccount account = PlainRead(szPath);
        stopClock();
        return account.lCount > 0;
    });
}

std::string Add(const std::string& sName, int32_t lCount, Measurement (*pRead)(const char*),
                EntryOrder order)
{
    return AddMeasured(sName, lCount, [=] { return pRead(GetFile(lCount, order)); });
}

void Register(int32_t lCount)
{
    const std::string sLoop = Add("PlainLoop", lCount, ReadPlainly, EntryOrder::Sorted);
    std::string sSorted;
    for (const auto& order : aOrders) {
        const std::string sName = Add(order.szName, lCount, ReadAccount, order.order);
        if (order.order == EntryOrder::Sorted) {
            CompareWith(sName, sLoop, 2.5);
            sSorted = sName;
        } else {
            CompareWith(sName, sLoop, 0);
            CompareWith(sName, sSorted, 1.5);
        }
        const double dRecords = static_cast<double>(lCount) * sizeof(QMTransaction);
        CompareValue(
            sName + ", peak memory to records",
            [sName, dRecords] { return GetPeakBytes(sName) / dRecords; }, 1.1);
    }
}

} // namespace

int main(int argc, char** argv)
{
    Register(100000);
    Register(1000000);
    return RunWithRatios(argc, argv);
}
