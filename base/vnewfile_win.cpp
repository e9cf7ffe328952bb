#include "base/vnewfile.h"

#include "base/vfile_win.h"
#include "base/vnewname.h"

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
    // MoveFileEx would replace a read-only file, and would fail only at the end for an open one. So
    // the file is opened first, which fails in both cases before anything is written.
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
    const VFileFault fault = TestPresent(szPath, bReplace);
    if (fault != VFileFault::None) {
        return fault;
    }
    parts.bReplace = bReplace;
    parts.sPath = szPath;
    return VOpenNewBeside(szPath, GetCurrentProcessId(), parts.sNew, [&](const char* szName) {
        return parts.file.Open(szName, GENERIC_WRITE, CREATE_NEW);
    });
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
