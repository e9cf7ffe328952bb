#include "base/vnewfile.h"

#include "base/vfile_win.h"

namespace {

// Finds out whether the name may be taken.
VFileFault TestPresent(const char* szPath, bool bReplace)
{
    const DWORD uAttributes = GetFileAttributesA(szPath);
    if (uAttributes == INVALID_FILE_ATTRIBUTES) {
        return VFileFault::None;
    }
    if ((uAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return VFileFault::NotAFile;
    }
    if (!bReplace) {
        return VFileFault::Exists;
    }
    // MoveFileEx would replace a read-only file or fail late on an open one. Opening the file first
    // finds both out before anything is written.
    VWinFile present;
    return present.Open(szPath, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
}

} // namespace

struct VNewFile::Parts
{
    VWinFile file;
    VString sPath;
    VString sNew; // empty while there is no new file
    bool bReplace = false;
};

VNewFile::VNewFile() : m_pParts(std::make_unique<Parts>()) {}

VNewFile::~VNewFile()
{
    m_pParts->file.Close();
    if (!m_pParts->sNew.IsEmpty()) {
        DeleteFileA(m_pParts->sNew.GetText());
    }
}

VFileFault VNewFile::Create(const char* szPath, bool bReplace)
{
    Parts& parts = *m_pParts;
    VFileFault fault = TestPresent(szPath, bReplace);
    if (fault != VFileFault::None) {
        return fault;
    }
    parts.bReplace = bReplace;
    parts.sPath = szPath;
    fault = VFileFault::Exists;
    for (int nTry = 1; nTry <= VNewNameTries && fault == VFileFault::Exists; ++nTry) {
        const VString sNew = VNewNameBeside(szPath, GetCurrentProcessId(), nTry);
        fault = parts.file.Open(sNew.GetText(), GENERIC_WRITE, CREATE_NEW);
        if (fault == VFileFault::None) {
            parts.sNew = sNew;
        }
    }
    return fault == VFileFault::Exists ? VFileFault::Other : fault;
}

VFileFault VNewFile::Write(const void* pBytes, size_t uSize)
{
    return m_pParts->file.WriteAll(pBytes, uSize);
}

VFileFault VNewFile::PutInPlace()
{
    Parts& parts = *m_pParts;
    if (!FlushFileBuffers(parts.file.Get())) {
        return VFaultFromLastError();
    }
    parts.file.Close();
    if (!MoveFileExA(parts.sNew.GetText(), parts.sPath.GetText(),
                     parts.bReplace ? MOVEFILE_REPLACE_EXISTING : 0)) {
        return VFaultFromLastError();
    }
    parts.sNew.Clear();
    return VFileFault::None;
}
