// Measures qmktool list as a whole process with its output in a file, against a loop that prints
// the same lines.

#include <string>
#include <vector>

#include "bench/accountfiles.h"
#include "bench/programrun.h"
#include "bench/ratios.h"

namespace {

void List(benchmark::State& state, std::vector<std::string> aszWords)
{
    static AccountFile small(100000, EntryOrder::Sorted);
    static AccountFile large(1000000, EntryOrder::Sorted);
    aszWords.push_back((state.range(0) == 100000 ? small : large).GetPath());
    for (auto _ : state) {
        const ProgramResult result = RunProgram(aszWords);
        if (!result.bDone) {
            state.SkipWithError("the program failed");
        }
        state.SetIterationTime(result.dSeconds);
    }
}

void Register(const char* szName, const std::vector<std::string>& aszWords)
{
    benchmark::RegisterBenchmark(szName, List, aszWords)
        ->Arg(100000)
        ->Arg(1000000)
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    Register("BareLoop", {PLAINLIST_PATH});
    Register("List", {QMKTOOL_PATH, "list"});
    Register("ListJson", {QMKTOOL_PATH, "list", "--json"});
    CompareWith("List/100000", "BareLoop/100000", 2);
    CompareWith("List/1000000", "BareLoop/1000000", 2);
    CompareWith("ListJson/100000", "BareLoop/100000", 0);
    // Ten times the entries should take ten times as long.
    CompareWith("List/1000000", "List/100000", 11);
    return RunWithRatios(argc, argv);
}
