#include "qmktool/output.h"

#include <cstdarg>
#include <cstdio>

#include "qmktool/toolerror.h"

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

void Output::Flush()
{
    const size_t uWritten = fwrite(m_sBuffer.data(), 1, m_sBuffer.size(), stdout);
    m_bFailed = m_bFailed || uWritten < m_sBuffer.size();
    m_sBuffer.clear();
}

int Output::Finish()
{
    Flush();
    if (fflush(stdout) != 0 || m_bFailed) {
        WriteError("cannot write to standard output");
        return QM_EXIT_REFUSED;
    }
    return QM_EXIT_DONE;
}
