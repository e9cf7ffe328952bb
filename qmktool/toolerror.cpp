#include "qmktool/toolerror.h"

#include <cstdarg>
#include <cstdio>
#include <vector>

#include "qmktool/output.h"

void WriteError(const char* szFormat, ...)
{
    va_list arguments;
    va_start(arguments, szFormat);
    va_list measured;
    va_copy(measured, arguments);
    const int nLength = vsnprintf(nullptr, 0, szFormat, measured);
    va_end(measured);
    std::vector<char> text(static_cast<size_t>(nLength < 0 ? 0 : nLength) + 1);
    vsnprintf(text.data(), text.size(), szFormat, arguments);
    va_end(arguments);
    for (char& c : text) {
        c = IsControl(c) && c != '\0' ? '?' : c;
    }
    fprintf(stderr, "qmktool: %s\n", text.data());
}

int RefuseFile(const char* szWhat, const char* szFile, const char* szWhy)
{
    WriteError("cannot %s '%s': %s", szWhat, szFile, szWhy);
    return QM_EXIT_REFUSED;
}
