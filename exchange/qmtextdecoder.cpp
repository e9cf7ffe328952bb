#include "exchange/qmtextdecoder.h"

#include <iterator>
#include <utility>

namespace {

constexpr uint32_t uInvalid = 0xFFFFFFFF;

// The characters from 128 to 159 of the code page; 0 where it has none.
constexpr uint16_t aHigh[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

unsigned char ByteAt(std::string_view bytes, size_t u)
{
    return static_cast<unsigned char>(bytes[u]);
}

// Takes one character of UTF-8. One wrong byte is taken alone.
uint32_t TakeUtf8(std::string_view bytes, size_t& u)
{
    const uint32_t uLead = ByteAt(bytes, u++);
    if (uLead < 0x80) {
        return uLead;
    }
    const size_t uMore = uLead >= 0xF0 ? 3 : uLead >= 0xE0 ? 2 : 1;
    if (uLead < 0xC2 || uLead > 0xF4 || bytes.size() - u < uMore) {
        return uInvalid;
    }
    uint32_t uCode = uLead & (0x3FU >> uMore);
    for (size_t i = 0; i < uMore; ++i) {
        const uint32_t uNext = ByteAt(bytes, u + i);
        if ((uNext & 0xC0) != 0x80) {
            return uInvalid;
        }
        uCode = uCode << 6 | (uNext & 0x3F);
    }
    constexpr uint32_t aSmallest[] = {0, 0x80, 0x800, 0x10000};
    if (uCode < aSmallest[uMore] || uCode > 0x10FFFF || (uCode >= 0xD800 && uCode <= 0xDFFF)) {
        return uInvalid;
    }
    u += uMore;
    return uCode;
}

// Takes one character of UTF-16. Half a pair is taken alone.
uint32_t TakeUtf16(std::string_view bytes, size_t& u, bool bBig)
{
    const auto Unit = [&](size_t uAt) -> uint32_t {
        const uint32_t a = ByteAt(bytes, uAt);
        const uint32_t b = ByteAt(bytes, uAt + 1);
        return bBig ? a << 8 | b : b << 8 | a;
    };
    if (bytes.size() - u < 2) {
        u = bytes.size();
        return uInvalid;
    }
    const uint32_t uFirst = Unit(u);
    u += 2;
    if (uFirst < 0xD800 || uFirst > 0xDFFF) {
        return uFirst;
    }
    if (uFirst > 0xDBFF || bytes.size() - u < 2 || Unit(u) < 0xDC00 || Unit(u) > 0xDFFF) {
        return uInvalid;
    }
    const uint32_t uSecond = Unit(u);
    u += 2;
    return 0x10000 + ((uFirst - 0xD800) << 10) + (uSecond - 0xDC00);
}

// Gathers characters as bytes of the code page.
class Gatherer
{
public:
    explicit Gatherer(int32_t& lReplaced) : m_lReplaced(lReplaced) {}

    void Add(uint32_t uCode)
    {
        if (uCode < 0x80 || (uCode >= 0xA0 && uCode <= 0xFF)) {
            m_sText += static_cast<char>(uCode);
        } else if (uCode == 0x2212) { // the minus sign, which amounts may have
            m_sText += '-';
        } else if (uCode == 0x202F || uCode == 0x2009) { // narrow blanks between digits
            m_sText += '\xA0';
        } else {
            AddHigh(uCode);
        }
    }

    std::string Take() { return std::move(m_sText); }

private:
    void AddHigh(uint32_t uCode)
    {
        for (size_t u = 0; u < std::size(aHigh); ++u) {
            if (aHigh[u] != 0 && aHigh[u] == uCode) {
                m_sText += static_cast<char>(0x80 + u);
                return;
            }
        }
        m_sText += '?';
        ++m_lReplaced;
    }

    std::string m_sText;
    int32_t& m_lReplaced;
};

bool BeginsWith(std::string_view bytes, std::string_view mark)
{
    return bytes.substr(0, mark.size()) == mark;
}

QMCharacterSet Guess(std::string_view bytes)
{
    if (BeginsWith(bytes, "\xFF\xFE") || BeginsWith(bytes, "\xFE\xFF")) {
        return QMCharacterSet::Utf16;
    }
    for (size_t u = 0; u < bytes.size();) {
        if (TakeUtf8(bytes, u) == uInvalid) {
            return QMCharacterSet::Windows1252;
        }
    }
    return QMCharacterSet::Utf8;
}

} // namespace

std::string QMDecodeText(std::string_view bytes, QMCharacterSet encoding, int32_t& lReplaced)
{
    lReplaced = 0;
    if (encoding == QMCharacterSet::Automatic) {
        encoding = Guess(bytes);
    }
    Gatherer gatherer(lReplaced);
    size_t u = 0;
    if (encoding == QMCharacterSet::Utf16) {
        const bool bBig = BeginsWith(bytes, "\xFE\xFF");
        u = bBig || BeginsWith(bytes, "\xFF\xFE") ? 2 : 0;
        while (u < bytes.size()) {
            gatherer.Add(TakeUtf16(bytes, u, bBig));
        }
        return gatherer.Take();
    }
    if (encoding == QMCharacterSet::Utf8) {
        u = BeginsWith(bytes, "\xEF\xBB\xBF") ? 3 : 0;
        while (u < bytes.size()) {
            gatherer.Add(TakeUtf8(bytes, u));
        }
        return gatherer.Take();
    }
    if (encoding == QMCharacterSet::Latin1) {
        for (; u < bytes.size(); ++u) {
            gatherer.Add(ByteAt(bytes, u));
        }
        return gatherer.Take();
    }
    return std::string(bytes);
}
