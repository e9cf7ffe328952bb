#include "bench/ratios.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <utility>
#include <vector>

namespace {

// The times of all runs by the name of the benchmark, and the ratios to print.
class Collector : public benchmark::ConsoleReporter
{
public:
    struct Line
    {
        std::string sName;
        std::function<double()> ratio;
        double dLimit;
    };

    Collector() : ConsoleReporter(OO_Tabular) {}

    void AddLine(Line line) { m_aLines.push_back(std::move(line)); }

    void ReportRuns(const std::vector<Run>& aRuns) override
    {
        for (const Run& run : aRuns) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                m_aTimes[run.run_name.function_name + "/" + run.run_name.args].push_back(
                    run.GetAdjustedRealTime());
            } else if (run.error_occurred || run.aggregate_name == "median") {
                ConsoleReporter::ReportRuns({run});
            }
        }
    }

    // The least of all runs, which other work on the machine has disturbed least; 0 when the
    // benchmark did not run.
    double GetLeast(const std::string& sName)
    {
        const std::vector<double>& aTimes = m_aTimes[sName];
        return aTimes.empty() ? 0 : *std::ranges::min_element(aTimes);
    }

    void PrintRatios() const
    {
        printf("\n%-60s %8s %8s\n", "Ratios", "measured", "limit");
        for (const Line& line : m_aLines) {
            const double dRatio = line.ratio();
            if (dRatio == 0) {
                continue;
            }
            printf("%-60s %8.2f", line.sName.c_str(), dRatio);
            if (line.dLimit > 0) {
                printf(" %8.2f%s", line.dLimit, dRatio > line.dLimit ? "  ABOVE" : "");
            }
            printf("\n");
        }
    }

private:
    std::map<std::string, std::vector<double>> m_aTimes;
    std::vector<Line> m_aLines;
};

Collector& GetCollector()
{
    static Collector collector;
    return collector;
}

std::map<std::string, double>& GetPeaks()
{
    static std::map<std::string, double> peaks; // in bytes, by the name of the benchmark
    return peaks;
}

} // namespace

std::string AddMeasured(const std::string& sName, int32_t lCount,
                        std::function<Measurement()> measure)
{
    const std::string sWithCount = sName + "/" + std::to_string(lCount);
    const auto Run = [measure = std::move(measure),
                      &dPeak = GetPeaks()[sWithCount]](benchmark::State& state) {
        for (auto _ : state) {
            const Measurement result = measure();
            if (!result.bDone) {
                state.SkipWithError("the work failed");
            }
            state.SetIterationTime(result.dSeconds);
            dPeak = std::max(dPeak, result.dPeakBytes);
        }
    };
    benchmark::RegisterBenchmark(sName.c_str(), Run)
        ->Arg(lCount)
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    return sWithCount;
}

double GetPeakBytes(const std::string& sName)
{
    const auto pPeak = GetPeaks().find(sName);
    return pPeak == GetPeaks().end() ? 0 : pPeak->second;
}

void CompareWith(const std::string& sName, const std::string& sBase, double dLimit)
{
    const auto Ratio = [=] {
        const double dBase = GetCollector().GetLeast(sBase);
        return dBase > 0 ? GetCollector().GetLeast(sName) / dBase : 0;
    };
    GetCollector().AddLine({sName + " to " + sBase, Ratio, dLimit});
}

void CompareValue(const std::string& sName, std::function<double()> ratio, double dLimit)
{
    GetCollector().AddLine({sName, std::move(ratio), dLimit});
}

int RunWithRatios(int argc, char** argv)
{
    std::vector<char*> aArguments(argv, argv + argc);
    char szInterleave[] = "--benchmark_enable_random_interleaving=true";
    char szRepeat[] = "--benchmark_repetitions=9";
    // Put before the words of the caller, whose own options then win.
    aArguments.insert(aArguments.begin() + 1, {szInterleave, szRepeat});
    int nArguments = static_cast<int>(aArguments.size());
    benchmark::Initialize(&nArguments, aArguments.data());
    if (benchmark::ReportUnrecognizedArguments(nArguments, aArguments.data())) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks(&GetCollector());
    GetCollector().PrintRatios();
    return 0;
}
