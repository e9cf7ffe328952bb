// Runs a program to its end and tells what it took.
#pragma once

#include <string>
#include <vector>

struct ProgramResult
{
    bool bDone = false;  // false when the program failed; the other fields then mean nothing
    double dSeconds = 0; // of processor time, which other programs of the machine do not lengthen
    double dPeakBytes = 0;
};

// Runs the program words[0] with the other words as its arguments. What it prints goes to a file
// that is removed. This process should be small: a child's peak is never told as less than that.
ProgramResult RunProgram(const std::vector<std::string>& words);
