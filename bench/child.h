// Measures in a child process. So every measurement starts with fresh memory, as a program does
// that has just been started, whatever was measured before.
#pragma once

#include <functional>

struct ChildResult
{
    bool bDone = false;    // false when the work failed; the other fields then mean nothing
    double dSeconds = 0;   // of the processor: other work on the machine does not count
    double dPeakBytes = 0; // the most memory that the work used
};

// Runs work in a forked process. The work must call stopClock when it is done, before it frees what
// it made, and return whether it succeeded.
ChildResult MeasureInChild(const std::function<bool(const std::function<void()>& stopClock)>& work);
