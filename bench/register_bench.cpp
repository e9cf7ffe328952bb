// Measures the register: rounding an amount, and a whole refresh into a table of rows.

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "account/qmdocument.h"
#include "bench/accountfiles.h"
#include "bench/ratios.h"
#include "register/qmregistermodel.h"
#include "register/qmrowtable.h"

namespace {

constexpr int32_t lCount = 1000000;

QMDocument& GetDocument()
{
    static QMDocument document;
    if (document.GetAccount() == nullptr) {
        const AccountFile file(lCount, EntryOrder::Sorted);
        auto pAccount = std::make_unique<QMAccount>(file.GetPath());
        if (!pAccount->Read()) {
            exit(1);
        }
        document.SetAccount(std::move(pAccount));
    }
    return document;
}

std::vector<QMTransaction>& GetAmounts()
{
    static std::vector<QMTransaction> aTransactions;
    if (aTransactions.empty()) {
        aTransactions.resize(1000);
        for (size_t u = 0; u < aTransactions.size(); ++u) {
            aTransactions[u].fAmount = static_cast<float>(u * u) / 37;
        }
    }
    return aTransactions;
}

double PrintAndParse(const QMTransaction& transaction)
{
    char szText[64];
    snprintf(szText, sizeof szText, "%.2f", static_cast<double>(transaction.fAmount));
    return strtod(szText, nullptr);
}

void Round(benchmark::State& state, double (*pRound)(const QMTransaction&))
{
    for (auto _ : state) {
        for (const QMTransaction& transaction : GetAmounts()) {
            benchmark::DoNotOptimize(pRound(transaction));
        }
    }
}

// The least that a refresh must do, by the C library: both sums, and the texts of each row one
// after another.
void PlainRefresh(benchmark::State& state)
{
    QMDocument& document = GetDocument();
    std::vector<char> aTexts(static_cast<size_t>(lCount) * 300);
    for (auto _ : state) {
        double dBalance = 0;
        double dAvailable = 0;
        char* p = aTexts.data();
        document.GetAccount()->store.ForEach([&](const QMTransaction& transaction) {
            transaction.ApplyToBalances(dBalance, dAvailable);
            p += snprintf(p, 300, "%2d/%2d/%02d%5d%s%s%10.2f%.2f%s%s", transaction.dtDate.wMonth,
                          transaction.dtDate.wDay, transaction.dtDate.wYear % 100,
                          static_cast<int>(transaction.lNumber), QMTypeLabel(transaction.lType),
                          transaction.szDescription, static_cast<double>(transaction.fAmount),
                          dAvailable, transaction.szMemo, transaction.szCategory);
        });
        benchmark::DoNotOptimize(aTexts.data());
    }
}

void RefreshRows(benchmark::State& state, uint32_t uColumnMask)
{
    QMRowTable rows;
    QMRegisterModel model(GetDocument(), rows);
    if (!model.ShowAll()) {
        state.SkipWithError("no rows");
    }
    for (auto _ : state) {
        model.RefreshRows(0, uColumnMask, false);
    }
}

void ShowAll(benchmark::State& state)
{
    for (auto _ : state) {
        QMRowTable rows;
        QMRegisterModel model(GetDocument(), rows);
        benchmark::DoNotOptimize(model.ShowAll());
    }
}

template <class... A>
void Register(const char* szName, A... arguments)
{
    benchmark::RegisterBenchmark(szName, arguments...)->Unit(benchmark::kMillisecond)->MinTime(0.2);
}

} // namespace

int main(int argc, char** argv)
{
    Register("PrintAndParse", Round, PrintAndParse);
    Register(
        "GetRoundedAmount", Round,
        +[](const QMTransaction& transaction) { return transaction.GetRoundedAmount(); });
    Register("PlainRefresh", PlainRefresh);
    Register("RefreshRows", RefreshRows, QM_COLUMN_ALL);
    Register("RefreshTags", RefreshRows, QM_COLUMN_BALANCE | QM_COLUMN_TAG | QM_COLUMN_CLEARED);
    Register("ShowAll", ShowAll);
    CompareWith("GetRoundedAmount/", "PrintAndParse/", 1);
    CompareWith("RefreshRows/", "PlainRefresh/", 1);
    CompareWith("RefreshTags/", "PlainRefresh/", 1);
    CompareWith("ShowAll/", "PlainRefresh/", 0);
    return RunWithRatios(argc, argv);
}
