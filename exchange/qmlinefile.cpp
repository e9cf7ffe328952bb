#include "exchange/qmlinefile.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr size_t uBlockSize = 128;
constexpr size_t uReadSize = 1 << 16;

bool IsLineEnd(unsigned uCharacter)
{
    return uCharacter == '\n' || uCharacter == '\r';
}

bool IsMaxLine(int32_t lMaxLine)
{
    return lMaxLine == 0 || (lMaxLine >= 3 && lMaxLine <= QMLineFile::lLargestMaxLine);
}

// Whether any of eight bytes is zero: only from such a one does the subtraction carry into a high
// bit that was not set before.
bool HasZero(uint64_t uBytes)
{
    constexpr uint64_t uOnes = 0x0101010101010101;
    return ((uBytes - uOnes) & ~uBytes & (uOnes << 7)) != 0;
}

// Of the eight bytes from there on.
bool HasLineEnd(const char* pBytes)
{
    constexpr uint64_t uOnes = 0x0101010101010101;
    uint64_t uBytes;
    memcpy(&uBytes, pBytes, sizeof uBytes);
    return HasZero(uBytes ^ (uOnes * '\n')) || HasZero(uBytes ^ (uOnes * '\r'));
}

bool IsWide(QMTextEncoding encoding)
{
    return encoding == QM_TEXT_UTF16_BIG || encoding == QM_TEXT_UTF16_LITTLE;
}

size_t MarkSize(QMTextEncoding encoding)
{
    return encoding == QM_TEXT_UTF8 ? 3 : IsWide(encoding) ? 2 : 0;
}

bool BeginsWith(const char* pBytes, size_t uCount, const char* szMark)
{
    const size_t uLength = strlen(szMark);
    return uCount >= uLength && memcmp(pBytes, szMark, uLength) == 0;
}

} // namespace

QMTextEncoding QMTellEncoding(const char* pBytes, size_t uCount)
{
    if (BeginsWith(pBytes, uCount, "\xFE\xFF")) {
        return QM_TEXT_UTF16_BIG;
    }
    if (BeginsWith(pBytes, uCount, "\xFF\xFE")) {
        return QM_TEXT_UTF16_LITTLE;
    }
    if (BeginsWith(pBytes, uCount, "\xEF\xBB\xBF")) {
        return QM_TEXT_UTF8;
    }
    const bool bAbove127 = uCount > 0 && static_cast<unsigned char>(pBytes[0]) > 127;
    return bAbove127 ? QM_TEXT_EIGHT_BIT : QM_TEXT_PLAIN;
}

QMTextEncoding QMLineFile::Open(const char* szPath, int32_t lMaxLine)
{
    if (szPath == nullptr || !IsMaxLine(lMaxLine)) {
        return QM_TEXT_BAD_ARGUMENT;
    }
    m_pFile = QMOpenForReading(szPath);
    if (m_pFile == nullptr) {
        return QM_TEXT_UNREADABLE;
    }
    // This class has a buffer of its own, so the C library needs none.
    setvbuf(m_pFile.get(), nullptr, _IONBF, 0);
    return Open(m_fileSource.emplace(m_pFile.get()), lMaxLine);
}

QMTextEncoding QMLineFile::Open(QMByteSource& source, int32_t lMaxLine)
{
    if (!IsMaxLine(lMaxLine)) {
        return QM_TEXT_BAD_ARGUMENT;
    }
    m_pSource = &source;
    if (!Reserve(lMaxLine == 0 ? lDefaultMaxLine : lMaxLine)) {
        return QM_TEXT_UNREADABLE;
    }
    const size_t uCount = Provide(3);
    if (m_bFailed) {
        return QM_TEXT_UNREADABLE;
    }
    m_encoding = QMTellEncoding(m_pBuffer.get(), uCount);
    m_uNext = MarkSize(m_encoding);
    return m_encoding;
}

bool QMLineFile::Reserve(int32_t lMaxLine)
{
    m_uMaxLength = static_cast<size_t>(lMaxLine) - 2;
    // Room for the longest line in units of two bytes, for the block in which it ends, and for one
    // more reading. So little has to be moved to the front.
    m_uSize = 2 * static_cast<size_t>(lMaxLine) + uBlockSize + uReadSize;
    m_pBuffer.reset(new (std::nothrow) char[m_uSize + 1]);
    return m_pBuffer != nullptr;
}

// Reads until uWanted bytes are in the buffer, or the file ends. Returns how many there are.
size_t QMLineFile::Provide(size_t uWanted)
{
    if (m_bBorrowed) {
        m_pBuffer[m_uNext] = m_cBorrowed;
        m_bBorrowed = false;
    }
    if (m_uEnd - m_uNext >= uWanted || m_bAtEnd) {
        return m_uEnd - m_uNext;
    }
    memmove(m_pBuffer.get(), m_pBuffer.get() + m_uNext, m_uEnd - m_uNext);
    m_uEnd -= m_uNext;
    m_uNext = 0;
    const int64_t nRead = m_pSource->ReadSome(m_pBuffer.get() + m_uEnd, m_uSize - m_uEnd);
    m_bFailed = nRead < 0;
    m_uEnd += static_cast<size_t>(std::max<int64_t>(nRead, 0));
    m_bAtEnd = m_uEnd < m_uSize;
    return m_uEnd;
}

char* QMLineFile::ReadLine(int32_t& lLength)
{
    size_t uLength = 0;
    char* szText = nullptr;
    if (IsWide(m_encoding)) {
        const size_t uAvailable = Provide(2 * m_uMaxLength + uBlockSize);
        if (uAvailable == 0 || !FindWideEnd(uAvailable, uLength)) {
            return nullptr;
        }
        szText = TakeWideLine(uLength);
    } else {
        const size_t uAvailable = Provide(m_uMaxLength + 2);
        if (uAvailable == 0) {
            return nullptr;
        }
        uLength = FindEnd(uAvailable);
        szText = TakeLine(uLength);
    }
    // A file with a byte-order mark goes through a conversion of zero-terminated text, so its lines
    // end at a zero.
    const bool bConverted = MarkSize(m_encoding) > 0;
    lLength = static_cast<int32_t>(bConverted ? strlen(szText) : uLength);
    return szText;
}

// The number of characters up to the end of the line, the cut or the end of the file.
size_t QMLineFile::FindEnd(size_t uAvailable) const
{
    const char* pBegin = m_pBuffer.get() + m_uNext;
    const char* pEnd = pBegin + std::min(uAvailable, m_uMaxLength);
    const char* p = pBegin;
    while (pEnd - p >= 8 && !HasLineEnd(p)) {
        p += 8;
    }
    while (p < pEnd && *p != '\n' && *p != '\r') {
        ++p;
    }
    return static_cast<size_t>(p - pBegin);
}

// The same for UTF-16, block by block. Returns false when the line reaches into an odd block.
bool QMLineFile::FindWideEnd(size_t uAvailable, size_t& uLength) const
{
    uLength = 0;
    for (size_t uBlock = 0; uBlock < uAvailable && uLength < m_uMaxLength; uBlock += uBlockSize) {
        const size_t uBytes = std::min(uBlockSize, uAvailable - uBlock);
        if (uBytes % 2 != 0) {
            return false;
        }
        const size_t uEnd = std::min((uBlock + uBytes) / 2, m_uMaxLength);
        for (; uLength < uEnd; ++uLength) {
            if (IsLineEnd(CharacterAt(uLength))) {
                return true;
            }
        }
    }
    return true;
}

// The character at uIndex, counted from the beginning of the line.
unsigned QMLineFile::CharacterAt(size_t uIndex) const
{
    const auto* p = reinterpret_cast<const unsigned char*>(m_pBuffer.get() + m_uNext);
    switch (m_encoding) {
        case QM_TEXT_UTF16_BIG:
            return static_cast<unsigned>(p[2 * uIndex] << 8 | p[2 * uIndex + 1]);
        case QM_TEXT_UTF16_LITTLE:
            return static_cast<unsigned>(p[2 * uIndex + 1] << 8 | p[2 * uIndex]);
        default:
            return p[uIndex];
    }
}

// Moves past a line of that length and past its line end. A line that was cut has no line end.
void QMLineFile::GoBehind(size_t uLength)
{
    const size_t uCharacterSize = IsWide(m_encoding) ? 2 : 1;
    const size_t uAvailable = (m_uEnd - m_uNext) / uCharacterSize;
    size_t uTaken = uLength;
    if (uLength < m_uMaxLength && uLength < uAvailable) {
        ++uTaken;
        const unsigned uEnd = CharacterAt(uLength);
        const unsigned uOther = uTaken < uAvailable ? CharacterAt(uTaken) : uEnd;
        uTaken += IsLineEnd(uOther) && uOther != uEnd ? 1 : 0;
    }
    m_uNext += uTaken * uCharacterSize;
}

char* QMLineFile::TakeLine(size_t uLength)
{
    const size_t uBegin = m_uNext;
    GoBehind(uLength);
    m_bBorrowed = uBegin + uLength == m_uNext;
    m_cBorrowed = m_pBuffer[uBegin + uLength];
    m_pBuffer[uBegin + uLength] = '\0';
    return m_pBuffer.get() + uBegin;
}

char* QMLineFile::TakeWideLine(size_t uLength)
{
    char* szText = m_pBuffer.get() + m_uNext;
    for (size_t u = 0; u < uLength; ++u) {
        const unsigned uCharacter = CharacterAt(u);
        szText[u] = uCharacter <= 255 ? static_cast<char>(uCharacter) : '?';
    }
    GoBehind(uLength);
    szText[uLength] = '\0';
    return szText;
}
