// What one run of some work took.
#pragma once

struct Measurement
{
    bool bDone = false;    // false when the work failed; the other fields then mean nothing
    double dSeconds = 0;   // of the processor: other work on the machine does not count
    double dPeakBytes = 0; // the most memory that the work used
};

// The processor time that this process has used so far.
double ProcessorSeconds();
