// QMProgress: watches an import or an export, and may end it.
#pragma once

#include <cstdint>

class QMProgress
{
public:
    virtual ~QMProgress() = default;

    // Told again and again how much is done, in bytes read or transactions written. uTotal is 0
    // when it is not known. Returns false to give the work up. Each call must be cheap.
    virtual bool OnStep(uint64_t uDone, uint64_t uTotal) = 0;
};
