// A file descriptor with an owner; for the POSIX halves of the file classes only.
#pragma once

#include <sys/types.h>

#include <cstddef>

#include "base/vfilesystem.h"

VFileFault VFaultFromErrno(int nError);

class VPosixFile
{
public:
    VPosixFile() = default;
    explicit VPosixFile(int nFile) : m_nFile(nFile) {}
    VPosixFile(const VPosixFile&) = delete;
    VPosixFile& operator=(const VPosixFile&) = delete;
    ~VPosixFile() { Close(); }

    // On a fault the object stays closed.
    VFileFault Open(const char* szPath, int nFlags, mode_t uMode);
    // As Open, and refuses anything but a regular file that nobody else holds locked.
    VFileFault OpenLocked(const char* szPath, int nFlags, mode_t uMode);
    void Close();
    int Get() const { return m_nFile; }
    // Hands the descriptor over to the caller.
    int Release()
    {
        const int nFile = m_nFile;
        m_nFile = -1;
        return nFile;
    }

    // Goes on until every byte is written.
    VFileFault WriteAll(const void* pBytes, size_t uSize);

private:
    int m_nFile = -1;
};
