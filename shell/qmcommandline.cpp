#include "shell/qmcommandline.h"

#include <windows.h>

#include "base/vfilesystem.h"
#include "base/vstringlist.h"

namespace {

constexpr char cOrder = 'I';
constexpr char cPart = '|';

// Whether a name says its drive or server and its way from there.
bool IsFull(const VString& sName)
{
    const char* sz = sName.GetText();
    const auto IsSlash = [](char c) { return c == '\\' || c == '/'; };
    const bool bOnDrive = sName.GetLength() > 2 && sz[1] == ':' && IsSlash(sz[2]);
    const bool bOnServer = IsSlash(sz[0]) && IsSlash(sz[1]);
    return bOnDrive || bOnServer;
}

VString HandedName(const char* szName)
{
    VString sName(szName);
    sName.Trim();
    const VString sFull = QMFullName(sName);
    const bool bFits = FileExists(sName.GetText()) && sFull.Find(QM_ARGUMENT_SEPARATOR) < 0;
    return bFits ? sFull : VString(szName);
}

VString HandedOrder(const char* szOrder)
{
    VString sText(szOrder, 2);
    VStringList parts(szOrder + 2, cPart);
    bool bFirst = true;
    while (const char* szPart = parts.Next()) {
        if (!bFirst) {
            sText.AppendCharacter(cPart);
        }
        bFirst = false;
        sText.Append(HandedName(szPart));
    }
    return sText;
}

} // namespace

bool QMIsOption(const char* szArgument)
{
    return *szArgument == '-' || *szArgument == '/';
}

VString QMJoinArguments(int nCount, const char* const* aszArguments)
{
    VString sText;
    for (int i = 1; i < nCount; ++i) {
        sText.Append(aszArguments[i]);
        sText.AppendCharacter(QM_ARGUMENT_SEPARATOR);
    }
    return sText;
}

VString QMFullName(const VString& sName)
{
    char szFull[MAX_PATH];
    // Windows would change a full name too: it takes a dot away from the end.
    const DWORD uLength = !IsFull(sName) && FileExists(sName.GetText())
                              ? GetFullPathNameA(sName.GetText(), sizeof szFull, szFull, nullptr)
                              : 0;
    return uLength > 0 && uLength < sizeof szFull ? VString(szFull) : sName;
}

VString QMWithFullNames(const VString& sText)
{
    VString sFull;
    VStringList arguments(sText.GetText(), QM_ARGUMENT_SEPARATOR);
    while (const char* szArgument = arguments.Next()) {
        if (!QMIsOption(szArgument)) {
            sFull.Append(HandedName(szArgument));
        } else if (szArgument[1] == cOrder) {
            sFull.Append(HandedOrder(szArgument));
        } else {
            sFull.Append(szArgument);
        }
        sFull.AppendCharacter(QM_ARGUMENT_SEPARATOR);
    }
    return sFull;
}
