#include "base/vnewfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "base/vfile_posix.h"
#include "base/vnewname.h"

namespace {

// When szPath is a symbolic link, returns the path to which it leads. So the file is replaced, and
// the link stays.
VString FinalPath(const char* szPath)
{
    const std::unique_ptr<char, decltype(&free)> szFinal(realpath(szPath, nullptr), &free);
    return VString(szFinal == nullptr ? szPath : szFinal.get());
}

} // namespace

struct VNewFile::Parts
{
    VPosixFile present; // locked until the new file has taken its name
    VPosixFile file;
    VString sPath;
    VString sNew; // empty while there is no new file
    mode_t uMode = 0;
    bool bReplace = false;

    // Finds out whether the name may be taken.
    VFileFault TestPresent(const char* szPath)
    {
        struct stat status = {};
        if (stat(szPath, &status) != 0) {
            return VFileFault::None;
        }
        if (!S_ISREG(status.st_mode)) {
            return VFileFault::NotAFile;
        }
        if (!bReplace) {
            return VFileFault::Exists;
        }
        uMode = status.st_mode & 07777;
        return present.OpenLocked(szPath, O_RDWR, 0);
    }
};

VNewFile::VNewFile() : m_pParts(std::make_unique<Parts>()) {}

VNewFile::~VNewFile()
{
    if (!m_pParts->sNew.IsEmpty()) {
        unlink(m_pParts->sNew.GetText());
    }
}

VFileFault VNewFile::Create(const char* szPath, bool bReplace)
{
    Parts& parts = *m_pParts;
    parts.bReplace = bReplace;
    const VFileFault fault = parts.TestPresent(szPath);
    if (fault != VFileFault::None) {
        return fault;
    }
    parts.sPath = FinalPath(szPath);
    return VOpenNewBeside(parts.sPath.GetText(), static_cast<uint32_t>(getpid()), parts.sNew,
                          [&](const char* szName) {
                              return parts.file.Open(szName, O_WRONLY | O_CREAT | O_EXCL, 0666);
                          });
}

VFileFault VNewFile::Write(const void* pBytes, size_t uSize)
{
    return m_pParts->file.WriteAll(pBytes, uSize);
}

VFileFault VNewFile::PutInPlace()
{
    Parts& parts = *m_pParts;
    const int nFile = parts.file.Get();
    if ((parts.uMode != 0 && fchmod(nFile, parts.uMode) != 0) || fsync(nFile) != 0) {
        return VFaultFromErrno(errno);
    }
    // Without bReplace it uses link: unlike rename, link fails when a file of that name has
    // appeared since it was tested.
    const char* szNew = parts.sNew.GetText();
    const char* szPath = parts.sPath.GetText();
    if ((parts.bReplace ? rename(szNew, szPath) : link(szNew, szPath)) != 0) {
        return VFaultFromErrno(errno);
    }
    if (!parts.bReplace) {
        unlink(szNew);
    }
    parts.sNew.Clear();
    return VFileFault::None;
}
