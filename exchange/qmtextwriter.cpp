#include "exchange/qmtextwriter.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "base/vfilesystem.h"

namespace {

// Room for the result must be twice that of the text.
size_t WithLineEnds(const char* pText, size_t uLength, char* pInto)
{
    const size_t uEnd = strlen(VLineEnd);
    char* p = pInto;
    for (const char* pEnd = pText + uLength; pText < pEnd; ++pText) {
        if (*pText == '\n') {
            p = std::copy_n(VLineEnd, uEnd, p);
        } else {
            *p++ = *pText;
        }
    }
    return static_cast<size_t>(p - pInto);
}

} // namespace

bool QMStdioSink::Write(const char* pBytes, size_t uSize)
{
    return fwrite(pBytes, 1, uSize, m_pFile) == uSize;
}

void QMTextWriter::Add(std::string_view text)
{
    while (text.size() > uBufferSize - m_uLength) {
        const size_t uPart = uBufferSize - m_uLength;
        memcpy(m_aBuffer + m_uLength, text.data(), uPart);
        m_uLength += uPart;
        text.remove_prefix(uPart);
        Flush();
    }
    if (!text.empty()) {
        memcpy(m_aBuffer + m_uLength, text.data(), text.size());
        m_uLength += text.size();
    }
}

void QMTextWriter::AddNumber(int32_t lNumber)
{
    char szDigits[16];
    const auto result = std::to_chars(szDigits, szDigits + sizeof szDigits, lNumber);
    Add(std::string_view(szDigits, static_cast<size_t>(result.ptr - szDigits)));
}

void QMTextWriter::AddTwoDigits(uint16_t wNumber, char cFill)
{
    if (wNumber > 99) {
        AddNumber(wNumber);
        return;
    }
    Add(wNumber < 10 ? cFill : static_cast<char>('0' + wNumber / 10));
    Add(static_cast<char>('0' + wNumber % 10));
}

void QMTextWriter::AddDate(const QMDate& date, char cFill)
{
    AddTwoDigits(date.wMonth, cFill);
    Add('/');
    AddTwoDigits(date.wDay, cFill);
    Add('/');
    AddNumber(date.wYear);
}

void QMTextWriter::Flush()
{
    const bool bAsItIs = VLineEnd[1] == '\0';
    if (m_bTaken && m_uLength > 0) {
        if (bAsItIs) {
            m_bTaken = m_sink.Write(m_aBuffer, m_uLength);
        } else {
            char aWithEnds[2 * uBufferSize];
            m_bTaken = m_sink.Write(aWithEnds, WithLineEnds(m_aBuffer, m_uLength, aWithEnds));
        }
    }
    m_uLength = 0;
}

bool QMTextWriter::Finish()
{
    Flush();
    return m_bTaken;
}
