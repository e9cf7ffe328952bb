#include "base/vfilesystem.h"

#include <algorithm>

#include "base/vnewfile.h"

const char* VFileFaultText(VFileFault fault)
{
    switch (fault) {
        case VFileFault::None:
            return "";
        case VFileFault::NameTooLong:
            return "the name is too long";
        case VFileFault::NotFound:
            return "no such file or folder";
        case VFileFault::NotAFile:
            return "not a regular file";
        case VFileFault::Exists:
            return "the file exists already";
        case VFileFault::Locked:
            return "the file is open in another program";
        case VFileFault::NoAccess:
            return "permission denied";
        case VFileFault::NoRoom:
            return "not enough room on the volume";
        case VFileFault::Other:
            break;
    }
    return "the system failed to read or write it";
}

void VSplitPath(const char* szPath, VString& sFolder, VString& sFileName)
{
    const VString sPath(szPath);
    const auto uFolder = static_cast<uint32_t>(sPath.FindLast(VPathSeparator) + 1);
    sFolder = sPath.Left(uFolder);
    sFileName = sPath.Mid(uFolder);
}

VFileFault VWriteWholeFile(const char* szPath, const void* pBytes, size_t uSize, bool bReplace)
{
    VNewFile file;
    VFileFault fault = file.Create(szPath, bReplace);
    if (fault == VFileFault::None) {
        fault = file.Write(pBytes, uSize);
    }
    return fault == VFileFault::None ? file.PutInPlace() : fault;
}

VString VNewNameBeside(const char* szPath, uint32_t uProcess, int nTry)
{
    const VString sPath(szPath);
    // Windows takes "/" as well, and a drive's letter stands before a path without a folder.
    const char cDrive = VPathSeparator == '/' ? '/' : ':';
    const int32_t lEnd =
        std::max({sPath.FindLast(VPathSeparator), sPath.FindLast('/'), sPath.FindLast(cDrive)});
    VString sName = sPath.Left(static_cast<uint32_t>(lEnd + 1));
    sName.Append(".new-");
    sName.AppendNumber(uProcess);
    sName.Append("-");
    sName.AppendNumber(static_cast<uint32_t>(nTry));
    return sName;
}
