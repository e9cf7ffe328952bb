// QMTextWriter: through which the exchange formats write their text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "account/qmbytesink.h"
#include "account/qmdate.h"

// Writes to a file that is open for writing bytes. The caller owns the file.
class QMStdioSink : public QMByteSink
{
public:
    explicit QMStdioSink(FILE* pFile) : m_pFile(pFile) {}
    bool Write(const char* pBytes, size_t uSize) override;

private:
    FILE* m_pFile;
};

// Collects text and passes it to a sink in large pieces. "\n" becomes the line end of the system.
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

    // Adds month, day and year with slashes between them. Month and day take two characters; cFill
    // fills the first.
    void AddDate(const QMDate& date, char cFill);

    // Passes on what is left. Call it once at the end. Returns false when the sink did not take
    // everything.
    bool Finish();

private:
    static constexpr size_t uBufferSize = 1 << 15;

    void AddTwoDigits(uint16_t wNumber, char cFill);
    void Flush();

    QMByteSink& m_sink;
    bool m_bTaken = true; // the sink has taken everything so far
    size_t m_uLength = 0;
    char m_aBuffer[uBufferSize];
};
