// VPosixFile: owns a file descriptor and closes it. Only the POSIX halves of the file classes use
// it.
#pragma once

#include <sys/types.h>

#include <cstddef>

#include "base/vfilesystem.h"

// The fault that an error number of errno stands for; Other for an unknown one.
VFileFault VFaultFromErrno(int nError);

class VPosixFile
{
public:
    VPosixFile() = default;
    explicit VPosixFile(int nFile) : m_nFile(nFile) {}
    VPosixFile(const VPosixFile&) = delete;
    VPosixFile& operator=(const VPosixFile&) = delete;
    ~VPosixFile() { Close(); }

    // Opens the file as open does, with nFlags and uMode of open. On a fault the object stays
    // closed.
    VFileFault Open(const char* szPath, int nFlags, mode_t uMode);
    // Opens the file and locks it. Refuses anything but a regular file, and a file that somebody
    // else holds locked.
    VFileFault OpenLocked(const char* szPath, int nFlags, mode_t uMode);
    void Close();
    int Get() const { return m_nFile; }
    // Gives the descriptor to the caller, who closes it. The object is closed then.
    int Release()
    {
        const int nFile = m_nFile;
        m_nFile = -1;
        return nFile;
    }

    // Writes all uSize bytes, in as many steps as the system needs. On a fault some of them may be
    // written.
    VFileFault WriteAll(const void* pBytes, size_t uSize);

private:
    int m_nFile = -1;
};
