// Measures qmktool list as a whole process with its output in a file, against a loop that prints
// the same lines.

#include <string>
#include <vector>

#include "bench/accountfiles.h"
#include "bench/programrun.h"
#include "bench/ratios.h"

namespace {

void Register(const std::string& sName, std::vector<std::string> aszWords)
{
    static const AccountFile small(100000, EntryOrder::Sorted);
    static const AccountFile large(1000000, EntryOrder::Sorted);
    aszWords.emplace_back(small.GetPath());
    AddMeasured(sName, 100000, [aszWords] { return RunProgram(aszWords); });
    aszWords.back() = large.GetPath();
    AddMeasured(sName, 1000000, [aszWords] { return RunProgram(aszWords); });
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
