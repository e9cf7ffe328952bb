// VNewFile: writes a file so that no program ever sees it incomplete.
#pragma once

#include <cstddef>
#include <memory>

#include "base/vfilesystem.h"

// The bytes go to a new file beside the named one. PutInPlace renames it to the name. Without
// PutInPlace, the destructor removes the new file, and an existing file of that name stays as it
// was.
class VNewFile
{
public:
    VNewFile();
    VNewFile(const VNewFile&) = delete;
    VNewFile& operator=(const VNewFile&) = delete;
    ~VNewFile();

    // Call it once. It refuses a file that exists, unless bReplace is set. It always refuses a file
    // that a program has open.
    VFileFault Create(const char* szPath, bool bReplace);

    // Writes more bytes. After a fault, call nothing more.
    VFileFault Write(const void* pBytes, size_t uSize);

    // Writes everything to the disk and gives the file its name.
    VFileFault PutInPlace();

private:
    struct Parts;
    std::unique_ptr<Parts> m_pParts;
};
