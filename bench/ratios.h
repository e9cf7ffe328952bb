// Compares benchmarks in pairs: both run in turn in one run, and the ratio of their least times is
// printed beside its limit.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

// Demands that the benchmark sName takes at most dLimit times as long as sBase. With a limit of 0
// the ratio is only printed. Both names include their argument, such as "Sorted/100000".
void CompareWith(const std::string& sName, const std::string& sBase, double dLimit);

// Adds another ratio, which is asked for when everything has run. A ratio of 0 is not printed.
void CompareValue(const std::string& sName, std::function<double()> ratio, double dLimit);

// Runs the benchmarks and prints their times and then the ratios. main returns its result.
int RunWithRatios(int argc, char** argv);
