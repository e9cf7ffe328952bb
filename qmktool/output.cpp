#include "qmktool/output.h"

#include <cstdarg>
#include <cstdio>

#include "qmktool/toolerror.h"
#include "qmktool/toolstream.h"

void Output::AddPrintable(std::string_view text)
{
    for (const char c : text) {
        m_sBuffer.push_back(IsControl(c) ? '?' : c);
    }
    FlushWhenFull();
}

void Output::Format(const char* szFormat, ...)
{
    char szText[1024];
    va_list arguments;
    va_start(arguments, szFormat);
    vsnprintf(szText, sizeof szText, szFormat, arguments);
    va_end(arguments);
    Add(szText);
}

void Output::Flush(size_t uSize)
{
    const bool bWritten = WriteToStream(stdout, std::string_view(m_sBuffer).substr(0, uSize));
    m_bFailed = m_bFailed || !bWritten;
    m_sBuffer.erase(0, uSize);
}

int Output::Finish()
{
    Flush(m_sBuffer.size());
    if (fflush(stdout) != 0 || m_bFailed) {
        WriteError("cannot write to standard output");
        return QM_EXIT_REFUSED;
    }
    return QM_EXIT_DONE;
}
