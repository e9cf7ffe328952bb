// QMLineFile: reads a text file line by line, as eight-bit text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "exchange/qmstdiofile.h"

// The kinds of file. The first three bytes tell which. The last two kinds mean that the file is
// refused.
enum QMTextEncoding : int32_t
{
    QM_TEXT_PLAIN = 0,        // first byte up to 127
    QM_TEXT_EIGHT_BIT = 1,    // first byte above 127
    QM_TEXT_UTF8 = 2,         // UTF-8, which begins with its byte-order mark
    QM_TEXT_UTF16_BIG = 3,    // UTF-16 with mark
    QM_TEXT_UTF16_LITTLE = 4, // UTF-16 with mark
    QM_TEXT_BAD_ARGUMENT = 5,
    QM_TEXT_UNREADABLE = 6,
};

// The kind of a file that begins with these bytes: three, or all that the file has.
QMTextEncoding QMTellEncoding(const char* pBytes, size_t uCount);

class QMLineFile
{
public:
    // The room for a line when Open is given 0.
    static constexpr int32_t lDefaultMaxLine = 16384;
    static constexpr int32_t lLargestMaxLine = 1 << 28;

    // Opens the file and goes past its byte-order mark. Lines are cut at lMaxLine - 2 characters; 0
    // means the default, and below 3 nothing could be read. The last two kinds mean that the file
    // was refused.
    QMTextEncoding Open(const char* szPath, int32_t lMaxLine);

    // Reads the bytes of a source, which must last as long as lines are read.
    QMTextEncoding Open(QMByteSource& source, int32_t lMaxLine);

    // Reads a line. It ends at CR, at LF, at the two together in either order, or where it is cut:
    // the rest of a longer line comes as the next line. Returns null at the end of the file. The
    // text ends with a zero, may be changed by the caller, and is valid until the next call.
    // lLength is the number of its characters. In the kinds 0 and 1 a zero may be among them.
    //
    // UTF-8 is passed on unchanged. A character of UTF-16 above 255 becomes a question mark.
    //
    // Kept: in a file of UTF-16 with an odd number of bytes, a line that reaches into the last
    // block of 128 bytes is lost, and reading ends. Blocks are counted from the beginning of the
    // line.
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

    QMStdioFile m_pFile; // null when the source is the caller's
    std::optional<QMStdioSource> m_fileSource;
    QMByteSource* m_pSource = nullptr;
    QMTextEncoding m_encoding = QM_TEXT_PLAIN;
    size_t m_uMaxLength = 0; // a line is cut at this many characters

    // The bytes between m_uNext and m_uEnd were read and not used yet. The buffer has one byte
    // more, for the terminating zero of the last line.
    std::unique_ptr<char[]> m_pBuffer;
    size_t m_uSize = 0;
    size_t m_uNext = 0;
    size_t m_uEnd = 0;
    bool m_bAtEnd = false;
    bool m_bFailed = false; // the last reading failed, which ends the text

    // When m_bBorrowed is set, the terminating zero of a line that was cut is in the place of the
    // first character of the next line, m_cBorrowed.
    bool m_bBorrowed = false;
    char m_cBorrowed = '\0';
};
