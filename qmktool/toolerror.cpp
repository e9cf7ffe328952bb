#include "qmktool/toolerror.h"

#include <cstdarg>
#include <cstdio>
#include <string>

#include "base/vcharacters.h"
#include "qmktool/toolstream.h"

void WriteError(const char* szFormat, ...)
{
    va_list arguments;
    va_start(arguments, szFormat);
    va_list measured;
    va_copy(measured, arguments);
    const int nLength = vsnprintf(nullptr, 0, szFormat, measured);
    va_end(measured);
    // vsnprintf ends the text with a zero byte of its own.
    std::string sText(static_cast<size_t>(nLength < 0 ? 0 : nLength), '\0');
    vsnprintf(sText.data(), sText.size() + 1, szFormat, arguments);
    va_end(arguments);
    std::string sLine = "qmktool: ";
    VAppendShown(sText, VIsUtf8(sText) ? VEncoding::Utf8 : VEncoding::Windows1252, sLine);
    WriteToStream(stderr, sLine + "\n");
}

int RefuseFile(const char* szWhat, const char* szFile, const char* szWhy)
{
    WriteError("cannot %s '%s': %s", szWhat, szFile, szWhy);
    return QM_EXIT_REFUSED;
}
