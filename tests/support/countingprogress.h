// A progress that counts what it is told, and gives the work up on demand.
#pragma once

#include "account/qmprogress.h"

struct CountingProgress : QMProgress
{
    static constexpr int nForever = 1 << 30;

    // Goes on for so many steps.
    explicit CountingProgress(int n = nForever) : nSteps(n) {}

    bool OnStep(uint64_t uDone, uint64_t uTotal) override
    {
        const double dDone =
            uTotal == 0 ? 0 : static_cast<double>(uDone) / static_cast<double>(uTotal);
        bOrdered = bOrdered && dDone >= dLast && uDone <= uTotal;
        bComplete = uDone == uTotal;
        dLast = dDone;
        return nCalls++ < nSteps;
    }
    void OnNoReturn() override { ++nNoReturns; }

    int nSteps;
    int nCalls = 0;
    int nNoReturns = 0;
    double dLast = 0;       // what part of the whole was done
    bool bOrdered = true;   // never back, never beyond the total
    bool bComplete = false; // the last step was the end
};
