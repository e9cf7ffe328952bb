#include "tools/qmbrowserrules.h"

#include <cstring>

#include "base/vtext.h"

namespace {

// Whether a character is white space, or a control character, which prints nothing.
bool IsBlank(char c)
{
    const auto uCharacter = static_cast<unsigned char>(c);
    return uCharacter <= ' ' || uCharacter == 0x7F;
}

VString BetweenQuotes(const VString& sCommand)
{
    const VString sRest = sCommand.Mid(1);
    const int32_t lEnd = sRest.Find('"');
    return lEnd < 0 ? sRest : sRest.Left(static_cast<uint32_t>(lEnd));
}

// The text up to the character before the first "%", or all of it when there is no "%".
VString BeforeArguments(const VString& sCommand)
{
    const int32_t lPercent = sCommand.Find('%');
    return lPercent < 0 ? sCommand : sCommand.Left(static_cast<uint32_t>(lPercent));
}

VString LongestFile(const VString& sText, QMFileTest pExists)
{
    uint32_t uLength = sText.GetLength();
    while (uLength > 0 && !pExists(sText.Left(uLength).GetText())) {
        --uLength;
    }
    // Windows ignores blanks at the end of a file's name.
    while (uLength > 0 && IsBlank(sText.GetAt(uLength - 1))) {
        --uLength;
    }
    return sText.Left(uLength);
}

} // namespace

const char* QMServiceOfBrowser(const char* szPath)
{
    for (const char* pName = szPath; *pName != '\0'; ++pName) {
        if (VBeginsWithNoCase(pName, QM_BROWSER_SERVICE_SECOND)) {
            return QM_BROWSER_SERVICE_SECOND;
        }
    }
    return QM_BROWSER_SERVICE_FIRST;
}

const char* QMOtherBrowserService(const char* szService)
{
    if (VCompareNoCase(szService, QM_BROWSER_SERVICE_FIRST) == 0) {
        return QM_BROWSER_SERVICE_SECOND;
    }
    return VCompareNoCase(szService, QM_BROWSER_SERVICE_SECOND) == 0 ? QM_BROWSER_SERVICE_FIRST
                                                                     : nullptr;
}

VString QMBrowserItem(const char* szUrl)
{
    VString sItem("\"");
    sItem.Append(szUrl);
    sItem.Append("\",,-1,,,,");
    return sItem;
}

VString QMProgramOfCommand(const char* szCommand, QMFileTest pExists)
{
    VString sCommand(szCommand);
    sCommand.ToLower();
    return sCommand.GetAt(0) == '"' ? BetweenQuotes(sCommand)
                                    : LongestFile(BeforeArguments(sCommand), pExists);
}

bool QMNeedsInterpreter(const char* szProgram)
{
    VString sProgram(szProgram);
    uint32_t uLength = sProgram.GetLength();
    // Windows ignores dots and blanks at the end of a file's name.
    while (uLength > 0 &&
           (IsBlank(sProgram.GetAt(uLength - 1)) || sProgram.GetAt(uLength - 1) == '.')) {
        --uLength;
    }
    const VString sEnd = sProgram.Left(uLength).Right(4);
    return sEnd.CompareNoCase(".bat") == 0 || sEnd.CompareNoCase(".cmd") == 0;
}

VString QMBrowserCommandLine(const char* szProgram, const char* szUrl)
{
    VString sLine(szProgram);
    sLine.AppendCharacter(' ');
    sLine.Append(szUrl);
    return sLine;
}
