// QMByteSink: where the writers of files put their bytes.
#pragma once

#include <cstddef>

class QMByteSink
{
public:
    virtual ~QMByteSink() = default;

    // Takes the next bytes. Returns false when it could not take all of them; the writer then
    // writes no more.
    virtual bool Write(const char* pBytes, size_t uSize) = 0;
};
