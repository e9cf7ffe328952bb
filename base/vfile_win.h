// VWinFile: owns a file handle and closes it. Only the Windows halves of the file classes use it.
#pragma once

#include <windows.h>

#include <utility>

#include "base/vfilesystem.h"

// The fault that GetLastError stands for; Other for an unknown one.
VFileFault VFaultFromLastError();

class VWinFile
{
public:
    VWinFile() = default;
    explicit VWinFile(HANDLE hFile) : m_hFile(hFile) {}
    VWinFile(const VWinFile&) = delete;
    VWinFile& operator=(const VWinFile&) = delete;
    ~VWinFile() { Close(); }

    // Opens a file on a disk with no sharing, by CreateFile with uAccess and uDisposition. On a
    // fault the object stays closed.
    VFileFault Open(const char* szPath, DWORD uAccess, DWORD uDisposition);
    void Close();
    HANDLE Get() const { return m_hFile; }
    // Gives the handle to the caller, who closes it. The object is closed then.
    HANDLE Release() { return std::exchange(m_hFile, INVALID_HANDLE_VALUE); }

    // Writes all uSize bytes, in as many steps as Windows needs. On a fault some of them may be
    // written.
    VFileFault WriteAll(const void* pBytes, size_t uSize);

private:
    HANDLE m_hFile = INVALID_HANDLE_VALUE;
};
