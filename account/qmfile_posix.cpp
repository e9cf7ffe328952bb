#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "account/qmfile.h"
#include "base/vfile_posix.h"

namespace {

VFileFault OpenDescriptor(const char* szFileName, int nFlags, intptr_t& hFile)
{
    VPosixFile file;
    const VFileFault fault = file.OpenLocked(szFileName, nFlags, 0666);
    hFile = file.Release();
    return fault;
}

VFileFault CreateDescriptor(const char* szFileName, intptr_t& hFile)
{
    // O_TRUNC would empty the file before it is locked. A file that another program holds must stay
    // as it is.
    const VFileFault fault = OpenDescriptor(szFileName, O_RDWR | O_CREAT, hFile);
    if (fault != VFileFault::None) {
        return fault;
    }
    VPosixFile file(static_cast<int>(hFile));
    if (ftruncate(file.Get(), 0) != 0) {
        return VFaultFromErrno(errno);
    }
    hFile = file.Release();
    return VFileFault::None;
}

} // namespace

bool QMFile::Open()
{
    return OpenWith([](const char* szFileName, intptr_t& hFile) {
        return OpenDescriptor(szFileName, O_RDWR, hFile);
    });
}

bool QMFile::OpenForReading()
{
    return OpenWith([](const char* szFileName, intptr_t& hFile) {
        return OpenDescriptor(szFileName, O_RDONLY, hFile);
    });
}

bool QMFile::Create()
{
    return OpenWith(CreateDescriptor);
}

void QMFile::Close()
{
    if (m_bOpen) {
        close(static_cast<int>(m_hFile));
        m_bOpen = false;
    }
}

bool QMFile::Seek(uint64_t uOffset)
{
    return m_bOpen && lseek(static_cast<int>(m_hFile), static_cast<off_t>(uOffset), SEEK_SET) >= 0;
}

int64_t QMFile::ReadSome(void* pBuffer, size_t uSize)
{
    if (!m_bOpen) {
        return -1;
    }
    size_t uDone = 0;
    while (uDone < uSize) {
        const ssize_t nRead =
            read(static_cast<int>(m_hFile), static_cast<char*>(pBuffer) + uDone, uSize - uDone);
        if (nRead < 0 && errno != EINTR) {
            m_fault = VFaultFromErrno(errno);
            return -1;
        }
        if (nRead == 0) {
            break;
        }
        uDone += nRead > 0 ? static_cast<size_t>(nRead) : 0;
    }
    return static_cast<int64_t>(uDone);
}

bool QMFile::Write(const void* pBytes, size_t uSize)
{
    if (!m_bOpen) {
        return false;
    }
    VPosixFile file(static_cast<int>(m_hFile));
    m_fault = file.WriteAll(pBytes, uSize);
    m_hFile = file.Release();
    return m_fault == VFileFault::None;
}

int64_t QMFile::GetSize()
{
    struct stat status;
    const bool bKnown = m_bOpen && fstat(static_cast<int>(m_hFile), &status) == 0;
    return bKnown ? static_cast<int64_t>(status.st_size) : -1;
}
