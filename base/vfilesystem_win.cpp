#include "base/vfilesystem.h"

#include <windows.h>

#include "base/vfile_win.h"

const char VPathSeparator = '\\';
const char VLineEnd[3] = "\r\n";

VFileFault VFaultFromLastError()
{
    switch (GetLastError()) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_NETPATH:
            return VFileFault::NotFound;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return VFileFault::Exists;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return VFileFault::Locked;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
            return VFileFault::NoAccess;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return VFileFault::NoRoom;
        case ERROR_FILENAME_EXCED_RANGE:
            return VFileFault::NameTooLong;
        default:
            return VFileFault::Other;
    }
}

VFileFault VWinFile::Open(const char* szPath, DWORD uAccess, DWORD uDisposition)
{
    m_hFile =
        CreateFileA(szPath, uAccess, 0, nullptr, uDisposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (m_hFile == INVALID_HANDLE_VALUE) {
        const VFileFault fault = VFaultFromLastError();
        const DWORD uAttributes = GetFileAttributesA(szPath);
        const bool bFolder =
            uAttributes != INVALID_FILE_ATTRIBUTES && (uAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        return bFolder ? VFileFault::NotAFile : fault;
    }
    if (GetFileType(m_hFile) != FILE_TYPE_DISK) {
        Close();
        return VFileFault::NotAFile;
    }
    return VFileFault::None;
}

void VWinFile::Close()
{
    if (m_hFile != INVALID_HANDLE_VALUE) {
        CloseHandle(m_hFile);
        m_hFile = INVALID_HANDLE_VALUE;
    }
}

VFileFault VWinFile::WriteAll(const void* pBytes, size_t uSize)
{
    constexpr size_t uStep = 1 << 24;
    const char* p = static_cast<const char*>(pBytes);
    while (uSize > 0) {
        DWORD uWritten = 0;
        const auto uCount = static_cast<DWORD>(uSize < uStep ? uSize : uStep);
        if (!WriteFile(m_hFile, p, uCount, &uWritten, nullptr)) {
            return VFaultFromLastError();
        }
        if (uWritten == 0) {
            return VFileFault::NoRoom;
        }
        p += uWritten;
        uSize -= uWritten;
    }
    return VFileFault::None;
}

namespace {

// The folder of szPath with its drive and all its folders. Empty when Windows cannot tell it, or
// when it is longer than MAX_PATH.
VString FolderOf(const char* szPath)
{
    char szFull[MAX_PATH];
    const DWORD uLength = GetFullPathNameA(szPath, MAX_PATH, szFull, nullptr);
    VString sFolder;
    VString sFileName;
    if (uLength > 0 && uLength < MAX_PATH) {
        VSplitPath(szFull, sFolder, sFileName);
    }
    return sFolder;
}

} // namespace

bool FileExists(const char* szPath)
{
    if (szPath == nullptr || *szPath == '\0') {
        return false;
    }
    const DWORD uAttributes = GetFileAttributesA(szPath);
    return uAttributes != INVALID_FILE_ATTRIBUTES && (uAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

VFileFault VCanReplaceFile(const char* szPath, uint64_t uSize)
{
    const VString sFolder = FolderOf(szPath);
    ULARGE_INTEGER uFree;
    if (sFolder.IsEmpty() || !GetDiskFreeSpaceExA(sFolder.GetText(), &uFree, nullptr, nullptr)) {
        return VFaultFromLastError();
    }
    uint64_t uRoom = uFree.QuadPart;
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (GetFileAttributesExA(szPath, GetFileExInfoStandard, &data)) {
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            return VFileFault::NotAFile;
        }
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
            return VFileFault::NoAccess;
        }
        uRoom += (uint64_t{data.nFileSizeHigh} << 32) + data.nFileSizeLow;
    }
    return uRoom < uSize ? VFileFault::NoRoom : VFileFault::None;
}
