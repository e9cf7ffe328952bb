// Benchmarks in pairs: what is measured beside what it is measured against, both in one run and in
// turn, and the ratio of their medians beside the limit that the design sets.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

// Says that the benchmark sName may take at most dLimit times as long as sBase; a limit of 0 says
// that the ratio is shown only. Both are names with their argument, such as "Sorted/100000".
void CompareWith(const std::string& sName, const std::string& sBase, double dLimit);

// Adds a ratio of another kind, which is asked for when all has run; one of 0 is left out.
void CompareValue(const std::string& sName, std::function<double()> ratio, double dLimit);

// Runs what is registered and prints times, then ratios. To be returned from main.
int RunWithRatios(int argc, char** argv);
