#include "qmktool/output.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

#include "qmktool/terminal.h"
#include "qmktool/toolerror.h"
#include "qmktool/toolstream.h"

Output::Output(VEncoding encoding, FILE* pStream)
    : m_encoding(encoding), m_bTerminal(IsTerminal(pStream)), m_pStream(pStream)
{
    m_sBuffer.reserve(uFlushSize + 4096);
}

size_t Output::AddShown(std::string_view text)
{
    const size_t uColumns = VAppendShown(text, m_encoding, m_sBuffer);
    FlushWhenFull();
    return uColumns;
}

void Output::AddText(std::string_view text)
{
    if (m_bTerminal || std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; })) {
        AddShown(text);
        return;
    }
    for (size_t u = 0; u < text.size();) {
        const uint32_t uCharacter = VTakeCharacter(text, u, m_encoding);
        VAppendUtf8(uCharacter == VNoCharacter ? VReplacementCharacter : uCharacter, m_sBuffer);
    }
    FlushWhenFull();
}

void Output::AddName(std::string_view name)
{
    VAppendShown(name, VIsUtf8(name) ? VEncoding::Utf8 : VEncoding::Windows1252, m_sBuffer);
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
    const bool bWritten = WriteToStream(m_pStream, std::string_view(m_sBuffer).substr(0, uSize));
    m_bFailed = m_bFailed || !bWritten;
    m_sBuffer.erase(0, uSize);
}

int Output::Finish()
{
    Flush(m_sBuffer.size());
    if (fflush(m_pStream) != 0 || m_bFailed) {
        WriteError("cannot write to standard output");
        return QM_EXIT_REFUSED;
    }
    return QM_EXIT_DONE;
}
