#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "base/vfile_posix.h"
#include "base/vfilesystem.h"

const char VPathSeparator = '/';
const char VLineEnd[3] = "\n";

VFileFault VFaultFromErrno(int nError)
{
    switch (nError) {
        case ENOENT:
        case ENOTDIR:
            return VFileFault::NotFound;
        case EISDIR:
        case ENXIO:
            return VFileFault::NotAFile;
        case EEXIST:
            return VFileFault::Exists;
        case EWOULDBLOCK:
            return VFileFault::Locked;
        case EACCES:
        case EPERM:
        case EROFS:
            return VFileFault::NoAccess;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return VFileFault::NoRoom;
        case ENAMETOOLONG:
            return VFileFault::NameTooLong;
        default:
            return VFileFault::Other;
    }
}

VFileFault VPosixFile::Open(const char* szPath, int nFlags, mode_t uMode)
{
    // Opening a pipe whose other end nobody has open would wait for ever. O_NONBLOCK makes it fail.
    m_nFile = open(szPath, nFlags | O_CLOEXEC | O_NONBLOCK, uMode);
    return m_nFile < 0 ? VFaultFromErrno(errno) : VFileFault::None;
}

VFileFault VPosixFile::OpenLocked(const char* szPath, int nFlags, mode_t uMode)
{
    VFileFault fault = Open(szPath, nFlags, uMode);
    struct stat status;
    if (fault == VFileFault::None && fstat(m_nFile, &status) != 0) {
        fault = VFileFault::Other;
    } else if (fault == VFileFault::None && !S_ISREG(status.st_mode)) {
        fault = VFileFault::NotAFile;
    } else if (fault == VFileFault::None && flock(m_nFile, LOCK_EX | LOCK_NB) != 0) {
        fault = VFaultFromErrno(errno);
    }
    if (fault != VFileFault::None) {
        Close();
    }
    return fault;
}

void VPosixFile::Close()
{
    if (m_nFile >= 0) {
        close(m_nFile);
        m_nFile = -1;
    }
}

VFileFault VPosixFile::WriteAll(const void* pBytes, size_t uSize)
{
    const char* p = static_cast<const char*>(pBytes);
    while (uSize > 0) {
        const ssize_t nWritten = write(m_nFile, p, uSize);
        if (nWritten < 0 && errno != EINTR) {
            return VFaultFromErrno(errno);
        }
        if (nWritten > 0) {
            p += nWritten;
            uSize -= static_cast<size_t>(nWritten);
        }
    }
    return VFileFault::None;
}

namespace {

VString FolderOf(const char* szPath)
{
    VString sFolder;
    VString sFileName;
    VSplitPath(szPath, sFolder, sFileName);
    return sFolder.IsEmpty() ? VString(".") : sFolder;
}

} // namespace

bool FileExists(const char* szPath)
{
    struct stat status;
    return szPath != nullptr && stat(szPath, &status) == 0 && S_ISREG(status.st_mode);
}

VFileFault VCanReplaceFile(const char* szPath, uint64_t uSize)
{
    const VString sFolder = FolderOf(szPath);
    struct statvfs volume;
    if (statvfs(sFolder.GetText(), &volume) != 0) {
        return VFaultFromErrno(errno);
    }
    uint64_t uRoom = uint64_t{volume.f_bavail} * volume.f_frsize;
    struct stat status;
    if (stat(szPath, &status) == 0) {
        if (!S_ISREG(status.st_mode)) {
            return VFileFault::NotAFile;
        }
        uRoom += static_cast<uint64_t>(status.st_blocks) * 512;
        if (access(szPath, W_OK) != 0) {
            return VFaultFromErrno(errno);
        }
    } else if (access(sFolder.GetText(), W_OK | X_OK) != 0) {
        return VFaultFromErrno(errno);
    }
    return uRoom < uSize ? VFileFault::NoRoom : VFileFault::None;
}
