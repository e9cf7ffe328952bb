// Measures qmktool list as a whole process with its output in a file, against a loop that prints
// the same lines.

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "bench/accountfiles.h"
#include "bench/ratios.h"

namespace {

// How many seconds the program takes, with its output in a file that is removed; negative when it
// fails.
double TimeProgram(const std::vector<const char*>& aszWords)
{
    using Clock = std::chrono::steady_clock;
    char szOutput[] = "/tmp/listing-XXXXXX";
    const int nOutput = mkstemp(szOutput);
    std::vector<char*> aszArguments;
    for (const char* szWord : aszWords) {
        aszArguments.push_back(const_cast<char*>(szWord));
    }
    aszArguments.push_back(nullptr);
    const auto start = Clock::now();
    const pid_t nChild = vfork();
    if (nChild == 0) {
        dup2(nOutput, STDOUT_FILENO);
        execv(aszArguments[0], aszArguments.data());
        _exit(127);
    }
    int nStatus = 0;
    waitpid(nChild, &nStatus, 0);
    const double dSeconds = std::chrono::duration<double>(Clock::now() - start).count();
    close(nOutput);
    unlink(szOutput);
    return nStatus == 0 ? dSeconds : -1;
}

void List(benchmark::State& state, std::vector<const char*> aszWords)
{
    static AccountFile small(100000, EntryOrder::Sorted);
    static AccountFile large(1000000, EntryOrder::Sorted);
    aszWords.push_back((state.range(0) == 100000 ? small : large).GetPath());
    for (auto _ : state) {
        const double dSeconds = TimeProgram(aszWords);
        if (dSeconds < 0) {
            state.SkipWithError("the program failed");
        }
        state.SetIterationTime(dSeconds);
    }
}

void Register(const char* szName, const std::vector<const char*>& aszWords)
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
