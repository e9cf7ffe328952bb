#include "account/qmfile.h"

#include <windows.h>

#include "base/vfile_win.h"

namespace {

HANDLE AsHandle(intptr_t hFile)
{
    return reinterpret_cast<HANDLE>(hFile);
}

VFileFault OpenHandle(const char* szFileName, DWORD uAccess, DWORD uDisposition, intptr_t& hFile)
{
    VWinFile file;
    const VFileFault fault = file.Open(szFileName, uAccess, uDisposition);
    hFile = reinterpret_cast<intptr_t>(file.Release());
    return fault;
}

} // namespace

bool QMFile::Open()
{
    return OpenWith([](const char* szFileName, intptr_t& hFile) {
        return OpenHandle(szFileName, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, hFile);
    });
}

bool QMFile::OpenForReading()
{
    return OpenWith([](const char* szFileName, intptr_t& hFile) {
        return OpenHandle(szFileName, GENERIC_READ, OPEN_EXISTING, hFile);
    });
}

bool QMFile::Create()
{
    return OpenWith([](const char* szFileName, intptr_t& hFile) {
        return OpenHandle(szFileName, GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS, hFile);
    });
}

void QMFile::Close()
{
    if (m_bOpen) {
        CloseHandle(AsHandle(m_hFile));
        m_bOpen = false;
    }
}

bool QMFile::Seek(uint64_t uOffset)
{
    LARGE_INTEGER offset;
    offset.QuadPart = static_cast<LONGLONG>(uOffset);
    return m_bOpen && SetFilePointerEx(AsHandle(m_hFile), offset, nullptr, FILE_BEGIN);
}

int64_t QMFile::ReadSome(void* pBuffer, size_t uSize)
{
    constexpr size_t uStep = 1 << 24;
    if (!m_bOpen) {
        return -1;
    }
    size_t uDone = 0;
    while (uDone < uSize) {
        const size_t uLeft = uSize - uDone;
        const auto uCount = static_cast<DWORD>(uLeft < uStep ? uLeft : uStep);
        DWORD uRead = 0;
        if (!ReadFile(AsHandle(m_hFile), static_cast<char*>(pBuffer) + uDone, uCount, &uRead,
                      nullptr)) {
            m_fault = VFaultFromLastError();
            return -1;
        }
        if (uRead == 0) {
            break;
        }
        uDone += uRead;
    }
    return static_cast<int64_t>(uDone);
}

bool QMFile::Write(const void* pBytes, size_t uSize)
{
    if (!m_bOpen) {
        return false;
    }
    VWinFile file(AsHandle(m_hFile));
    m_fault = file.WriteAll(pBytes, uSize);
    m_hFile = reinterpret_cast<intptr_t>(file.Release());
    return m_fault == VFileFault::None;
}

int64_t QMFile::GetSize()
{
    LARGE_INTEGER size;
    return m_bOpen && GetFileSizeEx(AsHandle(m_hFile), &size) ? size.QuadPart : -1;
}
