// VNewFile: a file that nobody ever sees half written.
#pragma once

#include <cstddef>
#include <memory>

#include "base/vfilesystem.h"

// The bytes go to a new file beside the named one. PutInPlace gives that file the name; without it
// the new file is removed with the object, and what stood there stays as it was.
class VNewFile
{
public:
    VNewFile();
    VNewFile(const VNewFile&) = delete;
    VNewFile& operator=(const VNewFile&) = delete;
    ~VNewFile();

    // To be called once. A file that exists is refused unless bReplace is set. A file that somebody
    // has open is always refused.
    VFileFault Create(const char* szPath, bool bReplace);

    // Writes more bytes after those that were written. After a fault nothing more may be called.
    VFileFault Write(const void* pBytes, size_t uSize);

    // Brings everything to the disk and gives the file its name.
    VFileFault PutInPlace();

private:
    struct Parts;
    std::unique_ptr<Parts> m_pParts;
};
