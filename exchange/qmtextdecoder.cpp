#include "exchange/qmtextdecoder.h"

#include <utility>

#include "base/vcharacters.h"

namespace {

unsigned char ByteAt(std::string_view bytes, size_t u)
{
    return static_cast<unsigned char>(bytes[u]);
}

// Takes one character of UTF-16. Half of a surrogate pair counts as a character of its own.
uint32_t TakeUtf16(std::string_view bytes, size_t& u, bool bBig)
{
    const auto Unit = [&](size_t uAt) -> uint32_t {
        const uint32_t a = ByteAt(bytes, uAt);
        const uint32_t b = ByteAt(bytes, uAt + 1);
        return bBig ? a << 8 | b : b << 8 | a;
    };
    if (bytes.size() - u < 2) {
        u = bytes.size();
        return VNoCharacter;
    }
    const uint32_t uFirst = Unit(u);
    u += 2;
    if (uFirst < 0xD800 || uFirst > 0xDFFF) {
        return uFirst;
    }
    if (uFirst > 0xDBFF || bytes.size() - u < 2 || Unit(u) < 0xDC00 || Unit(u) > 0xDFFF) {
        return VNoCharacter;
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
        if (uCode == 0x2212) { // the minus sign, which amounts may have
            m_sText += '-';
        } else if (uCode == 0x202F || uCode == 0x2009) { // narrow blanks between digits
            m_sText += '\xA0';
        } else {
            const int nByte = VByteOf1252(uCode);
            m_sText += nByte < 0 ? '?' : static_cast<char>(nByte);
            m_lReplaced += nByte < 0 ? 1 : 0;
        }
    }

    std::string Take() { return std::move(m_sText); }

private:
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
    return VIsUtf8(bytes) ? QMCharacterSet::Utf8 : QMCharacterSet::Windows1252;
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
            gatherer.Add(VTakeCharacter(bytes, u, VEncoding::Utf8));
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
