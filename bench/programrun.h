// Runs a program to its end and tells what it took.
#pragma once

#include <string>
#include <vector>

#include "bench/measurement.h"

// Runs the program words[0] with the other words as its arguments. What it prints goes to a file
// that is removed. This process should be small: a child's peak is never told as less than that.
Measurement RunProgram(const std::vector<std::string>& words);
