// QMTextWriter: what the writers of the exchange formats write through, and where it goes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "account/qmbytesink.h"
#include "account/qmdate.h"

// Into a file that is open for writing bytes, which stays the caller's.
class QMStdioSink : public QMByteSink
{
public:
    explicit QMStdioSink(FILE* pFile) : m_pFile(pFile) {}
    bool Write(const char* pBytes, size_t uSize) override;

private:
    FILE* m_pFile;
};

// Gathers text and hands it to a sink. A line is ended by "\n" here and as the platform ends lines
// in the sink.
class QMTextWriter
{
public:
    explicit QMTextWriter(QMByteSink& sink) : m_sink(sink) {}
    QMTextWriter(const QMTextWriter&) = delete;
    QMTextWriter& operator=(const QMTextWriter&) = delete;

    void Add(std::string_view text);
    void Add(char c)
    {
        if (m_uLength == uBufferSize) {
            Flush();
        }
        m_aBuffer[m_uLength++] = c;
    }
    void AddNumber(int32_t lNumber);

    // Month, day and year with slashes between them; month and day take two characters.
    void AddDate(const QMDate& date, char cFill);

    // Hands over what is left; to be called once at the end. False when the sink refused anything.
    bool Finish();

private:
    static constexpr size_t uBufferSize = 1 << 15;

    void AddTwoDigits(uint16_t wNumber, char cFill);
    void Flush();

    QMByteSink& m_sink;
    bool m_bTaken = true; // the sink took everything so far
    size_t m_uLength = 0;
    char m_aBuffer[uBufferSize];
};
