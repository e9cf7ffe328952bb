// Compares benchmarks in pairs: both run in turn in one run, and the ratio of their least times is
// printed beside its limit.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <string>

#include "bench/measurement.h"

// Adds a benchmark of the processor time that measure reports. A repetition calls measure once; a
// measurement that is not done is shown as an error. Returns the name with the argument, such as
// "Sorted/100000", which is what CompareWith and GetPeakBytes take.
std::string AddMeasured(const std::string& sName, int32_t lCount,
                        std::function<Measurement()> measure);

// The most memory that a benchmark of AddMeasured used in any of its runs; 0 when it did not run.
double GetPeakBytes(const std::string& sName);

// Demands that the benchmark sName takes at most dLimit times as long as sBase. With a limit of 0
// the ratio is only printed. Both names include their argument, such as "Sorted/100000".
void CompareWith(const std::string& sName, const std::string& sBase, double dLimit);

// Adds another ratio, which is asked for when everything has run. A ratio of 0 is not printed.
void CompareValue(const std::string& sName, std::function<double()> ratio, double dLimit);

// Runs the benchmarks and prints their times and then the ratios. main returns its result.
int RunWithRatios(int argc, char** argv);
