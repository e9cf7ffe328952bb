// A file handle with an owner; for the Windows halves of the file classes only.
#pragma once

#include <windows.h>

#include "base/vfilesystem.h"

VFileFault VFaultFromLastError();

class VWinFile
{
public:
    VWinFile() = default;
    explicit VWinFile(HANDLE hFile) : m_hFile(hFile) {}
    VWinFile(const VWinFile&) = delete;
    VWinFile& operator=(const VWinFile&) = delete;
    ~VWinFile() { Close(); }

    // Opens a disk file with no sharing; on a fault the object stays closed.
    VFileFault Open(const char* szPath, DWORD uAccess, DWORD uDisposition);
    void Close();
    HANDLE Get() const { return m_hFile; }
    // Hands the handle over to the caller.
    HANDLE Release()
    {
        const HANDLE hFile = m_hFile;
        m_hFile = INVALID_HANDLE_VALUE;
        return hFile;
    }

    // Goes on until every byte is written.
    VFileFault WriteAll(const void* pBytes, size_t uSize);

private:
    HANDLE m_hFile = INVALID_HANDLE_VALUE;
};
