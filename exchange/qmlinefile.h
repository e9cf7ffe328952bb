// QMLineFile: a text file from elsewhere, taken apart into lines of eight-bit text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "exchange/qmstdiofile.h"

// The kinds of file, told apart by the first three bytes. The last two are refusals.
enum QMTextEncoding : int32_t
{
    QM_TEXT_PLAIN = 0,        // first byte up to 127
    QM_TEXT_EIGHT_BIT = 1,    // first byte above 127
    QM_TEXT_UTF8 = 2,         // UTF-8 with mark
    QM_TEXT_UTF16_BIG = 3,    // UTF-16 with mark
    QM_TEXT_UTF16_LITTLE = 4, // UTF-16 with mark
    QM_TEXT_BAD_ARGUMENT = 5,
    QM_TEXT_UNREADABLE = 6,
};

// Of the first bytes of a file, three or all that there are.
QMTextEncoding QMTellEncoding(const char* pBytes, size_t uCount);

class QMLineFile
{
public:
    // The room for a line that serves when none is named.
    static constexpr int32_t lDefaultMaxLine = 16384;
    static constexpr int32_t lLargestMaxLine = 1 << 28;

    // Opens the file and goes behind its mark. Lines are cut at lMaxLine - 2 characters; 0 stands
    // for the default, below 3 nothing could be read. The last two kinds tell a refusal.
    QMTextEncoding Open(const char* szPath, int32_t lMaxLine);

    // Reads up to CR, LF, or the two together in either order, or up to the cut: the rest of a
    // longer line comes as the next one. Null at the end. The text ends with a zero, may be written
    // over, and lasts until the next call; lLength counts its characters, and a zero may be among
    // them in the kinds 0 and 1.
    //
    // UTF-8 comes as it stands. A character of UTF-16 above 255 comes as a question mark. A file of
    // UTF-16 with an odd number of bytes is cut short: a line that reaches into the last block of
    // 128 bytes, counted from where the line begins, is lost, and reading ends.
    char* ReadLine(int32_t& lLength);

private:
    bool Reserve(int32_t lMaxLine);
    size_t Provide(size_t uWanted);
    size_t FindEnd(size_t uAvailable) const;
    bool FindWideEnd(size_t uAvailable, size_t& uLength) const;
    unsigned CharacterAt(size_t uIndex) const;
    void GoBehind(size_t uLength);
    char* TakeLine(size_t uLength);
    char* TakeWideLine(size_t uLength);

    QMStdioFile m_pFile;
    QMTextEncoding m_encoding = QM_TEXT_PLAIN;
    size_t m_uMaxLength = 0; // characters at which a line is cut

    // What was read and not yet taken lies between m_uNext and m_uEnd. One byte more has room, for
    // the terminator of a last line.
    std::unique_ptr<char[]> m_pBuffer;
    size_t m_uSize = 0;
    size_t m_uNext = 0;
    size_t m_uEnd = 0;
    bool m_bAtEnd = false;

    // A terminator stands on the first character of the next line, which goes back in its place.
    bool m_bBorrowed = false;
    char m_cBorrowed = '\0';
};
