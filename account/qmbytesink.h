// Where the writers of files put their bytes.
#pragma once

#include <cstddef>

class QMByteSink
{
public:
    virtual ~QMByteSink() = default;

    // Takes the next bytes of the file. Returns false when not all of them found their place; the
    // writer then hands over no more.
    virtual bool Write(const char* pBytes, size_t uSize) = 0;
};
