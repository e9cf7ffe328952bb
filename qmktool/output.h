// Output: writes to standard output in large pieces, and notices once, at the end, whether that
// failed.
#pragma once

#include <string>
#include <string_view>

inline bool IsControl(char c)
{
    return (c >= 0 && c < ' ') || c == '\x7F';
}

class Output
{
public:
    Output() { m_sBuffer.reserve(uFlushSize + 4096); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Add(std::string_view text)
    {
        m_sBuffer.append(text);
        FlushWhenFull();
    }
    void Add(char c) { m_sBuffer.push_back(c); }
    void Fill(size_t uCount, char c) { m_sBuffer.append(uCount, c); }
    // Adds a text with question marks for its control characters, so that they cannot break the
    // lines of a listing.
    void AddPrintable(std::string_view text);
    void Format(const char* szFormat, ...) __attribute__((format(printf, 2, 3)));

    // Writes what is left. Returns the exit code: 1, after a line on standard error, when any write
    // failed.
    int Finish();

private:
    static constexpr size_t uFlushSize = 1 << 16;

    void FlushWhenFull()
    {
        if (m_sBuffer.size() >= uFlushSize) {
            // A stream gets whole lines, as long as there are any.
            const size_t uLines = m_sBuffer.rfind('\n') + 1;
            Flush(uLines > 0 ? uLines : m_sBuffer.size());
        }
    }
    void Flush(size_t uSize);

    std::string m_sBuffer;
    bool m_bFailed = false;
};
