#include "base/vfileselection.h"

#include <cstring>

namespace {

// Takes one text of the buffer and moves p after its zero byte, or to the end when there is none.
VString TakeText(const char*& p, const char* pEnd)
{
    const auto uRest = static_cast<size_t>(pEnd - p);
    const void* pZero = uRest == 0 ? nullptr : memchr(p, '\0', uRest);
    const char* pTextEnd = pZero == nullptr ? pEnd : static_cast<const char*>(pZero);
    VString sText(p, static_cast<uint32_t>(pTextEnd - p));
    p = pZero == nullptr ? pEnd : pTextEnd + 1;
    return sText;
}

void SplitAtBackslash(const VString& sPath, VString& sDirectory, VString& sName)
{
    const int32_t lBackslash = sPath.FindLast('\\');
    sDirectory = sPath.Left(lBackslash < 0 ? 0 : static_cast<uint32_t>(lBackslash));
    sName = sPath.Mid(static_cast<uint32_t>(lBackslash + 1));
}

} // namespace

bool VFileSelection::Read(const char* pBuffer, size_t uSize, bool (*pIsFile)(const char* szPath))
{
    *this = VFileSelection();
    const char* p = pBuffer;
    const char* pEnd = pBuffer + uSize;
    const VString sFirst = TakeText(p, pEnd);
    if (pIsFile(sFirst.GetText())) {
        sPath = sFirst;
        SplitAtBackslash(sFirst, sDirectory, sNames);
        return true;
    }
    const uint32_t uLength = sFirst.GetLength();
    const bool bBackslash = uLength > 0 && sFirst.GetAt(uLength - 1) == '\\';
    sDirectory = sFirst.Left(bBackslash ? uLength - 1 : uLength);
    for (VString sName = TakeText(p, pEnd); !sName.IsEmpty(); sName = TakeText(p, pEnd)) {
        if (!sNames.IsEmpty()) {
            sNames.AppendCharacter('\t');
        }
        sNames.Append(sName);
    }
    return !sNames.IsEmpty();
}

VString VFileSelection::Join(const VString& sDirectory, const char* szName)
{
    if (strchr(szName, '\\') != nullptr) {
        return VString(szName);
    }
    VString sPath(sDirectory);
    sPath.AppendCharacter('\\');
    sPath.Append(szName);
    return sPath;
}
