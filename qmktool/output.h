// Output: writes to standard output in large pieces. Finish tells whether all of it could be
// written.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "base/vcharacters.h"

inline bool IsControl(char c)
{
    return (c >= 0 && c < ' ') || c == '\x7F';
}

class Output
{
public:
    // encoding is the encoding of the texts that AddShown gets. pStream is standard output or
    // standard error.
    explicit Output(VEncoding encoding = VEncoding::Windows1252, FILE* pStream = stdout);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Add(std::string_view text)
    {
        m_sBuffer.append(text);
        FlushWhenFull();
    }
    void Add(char c) { m_sBuffer.push_back(c); }
    void Fill(size_t uCount, char c) { m_sBuffer.append(uCount, c); }
    // Adds a text as characters of one line, and returns how many columns they take. A text cannot
    // give the terminal a command; see VAppendShown.
    size_t AddShown(std::string_view text);
    size_t ColumnsOf(std::string_view text) const { return VShownColumns(text, m_encoding); }
    VEncoding GetEncoding() const { return m_encoding; }
    // Adds a text as characters in UTF-8. A terminal gets it as AddShown does; anything else gets
    // control characters as they are.
    void AddText(std::string_view text);
    // Adds the name of a file, whatever the encoding of the texts is.
    void AddName(std::string_view name);
    void Format(const char* szFormat, ...) __attribute__((format(printf, 2, 3)));

    // Writes what is left. Returns the exit code: 1, after a line on standard error, when any write
    // failed.
    int Finish();

private:
    static constexpr size_t uFlushSize = 1 << 16;

    void FlushWhenFull()
    {
        if (m_sBuffer.size() >= uFlushSize) {
            // The stream gets whole lines. Only a line longer than the buffer is written in parts.
            const size_t uLines = m_sBuffer.rfind('\n') + 1;
            Flush(uLines > 0 ? uLines : m_sBuffer.size());
        }
    }
    void Flush(size_t uSize);

    VEncoding m_encoding;
    bool m_bTerminal;
    FILE* m_pStream;
    std::string m_sBuffer;
    bool m_bFailed = false;
};
