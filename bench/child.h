// Measuring in a process of its own: every measurement meets the same fresh memory, as a program
// that was just started does, whatever was measured before it.
#pragma once

#include <functional>

struct ChildResult
{
    bool bDone = false; // nothing else counts when the work failed
    double dSeconds = 0;
    double dPeakBytes = 0; // the most memory that the work took
};

// Runs work in a forked process. The work calls stopClock when it is done, before it gives back
// what it made, and answers whether it succeeded.
ChildResult MeasureInChild(const std::function<bool(const std::function<void()>& stopClock)>& work);
