#include "base/vcharacters.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "base/vcharacterwidths.h"

namespace {

// The characters from 128 to 159 of the code page; 0 where it has none.
constexpr uint16_t aHigh[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

unsigned char ByteAt(std::string_view text, size_t u)
{
    return static_cast<unsigned char>(text[u]);
}

uint32_t TakeUtf8(std::string_view text, size_t& uNext)
{
    const uint32_t uLead = ByteAt(text, uNext++);
    if (uLead < 0x80) {
        return uLead;
    }
    const size_t uMore = uLead >= 0xF0 ? 3 : uLead >= 0xE0 ? 2 : 1;
    if (uLead < 0xC2 || uLead > 0xF4 || text.size() - uNext < uMore) {
        return VNoCharacter;
    }
    uint32_t uCode = uLead & (0x3FU >> uMore);
    for (size_t i = 0; i < uMore; ++i) {
        const uint32_t uByte = ByteAt(text, uNext + i);
        if ((uByte & 0xC0) != 0x80) {
            return VNoCharacter;
        }
        uCode = uCode << 6 | (uByte & 0x3F);
    }
    constexpr uint32_t aSmallest[] = {0, 0x80, 0x800, 0x10000};
    if (uCode < aSmallest[uMore] || uCode > 0x10FFFF || (uCode >= 0xD800 && uCode <= 0xDFFF)) {
        return VNoCharacter;
    }
    uNext += uMore;
    return uCode;
}

template <size_t n>
bool IsIn(const VCharacterRange (&aRanges)[n], uint32_t uCharacter)
{
    const auto* const pRange =
        std::ranges::lower_bound(aRanges, uCharacter, {}, &VCharacterRange::uLast);
    return pRange != std::end(aRanges) && pRange->uFirst <= uCharacter;
}

bool IsPlain(char c)
{
    return c >= ' ' && c <= '~';
}

// Invisible characters that change the text around them: they turn its direction, or end a line or
// a paragraph. The characters from 128 to 159 are control characters too.
bool IsHiddenCommand(uint32_t uCharacter)
{
    constexpr VCharacterRange aCommands[] = {
        {0x80, 0x9F},     {0x061C, 0x061C}, {0x200E, 0x200F}, {0x2028, 0x202E},
        {0x2060, 0x206F}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xE0001, 0xE007F},
    };
    return IsIn(aCommands, uCharacter);
}

size_t AppendEscape(const char* szFormat, uint32_t uValue, std::string& sInto)
{
    char szText[16];
    const int nLength = snprintf(szText, sizeof szText, szFormat, uValue);
    sInto += szText;
    return static_cast<size_t>(nLength);
}

size_t AppendCharacter(uint32_t uCharacter, unsigned char cByte, std::string& sInto)
{
    if (uCharacter == VNoCharacter) {
        return AppendEscape("\\x%02X", cByte, sInto);
    }
    if (uCharacter < ' ' || uCharacter == 0x7F) {
        // The pictures of the control characters.
        VAppendUtf8(uCharacter == 0x7F ? 0x2421 : 0x2400 + uCharacter, sInto);
        return 1;
    }
    if (IsHiddenCommand(uCharacter)) {
        return AppendEscape("\\u%04X", uCharacter, sInto);
    }
    VAppendUtf8(uCharacter, sInto);
    return VColumnsOf(uCharacter);
}

} // namespace

uint32_t VTakeCharacter(std::string_view text, size_t& uNext, VEncoding encoding)
{
    if (encoding == VEncoding::Utf8) {
        return TakeUtf8(text, uNext);
    }
    const uint32_t uByte = ByteAt(text, uNext++);
    if (uByte < 0x80 || uByte > 0x9F) {
        return uByte;
    }
    const uint32_t uCharacter = aHigh[uByte - 0x80];
    return uCharacter == 0 ? VNoCharacter : uCharacter;
}

int VByteOf1252(uint32_t uCharacter)
{
    if (uCharacter < 0x80 || (uCharacter >= 0xA0 && uCharacter <= 0xFF)) {
        return static_cast<int>(uCharacter);
    }
    const auto* const pFound = std::ranges::find(aHigh, uCharacter);
    return pFound == std::end(aHigh) ? -1 : static_cast<int>(0x80 + (pFound - aHigh));
}

bool VIsUtf8(std::string_view text)
{
    for (size_t u = 0; u < text.size();) {
        if (TakeUtf8(text, u) == VNoCharacter) {
            return false;
        }
    }
    return true;
}

void VAppendUtf8(uint32_t uCharacter, std::string& sInto)
{
    if (uCharacter < 0x80) {
        sInto += static_cast<char>(uCharacter);
        return;
    }
    const int nMore = uCharacter < 0x800 ? 1 : uCharacter < 0x10000 ? 2 : 3;
    constexpr unsigned char aLead[] = {0, 0xC0, 0xE0, 0xF0};
    sInto += static_cast<char>(aLead[nMore] | uCharacter >> (6 * nMore));
    for (int i = nMore - 1; i >= 0; --i) {
        sInto += static_cast<char>(0x80 | (uCharacter >> (6 * i) & 0x3F));
    }
}

size_t VColumnsOf(uint32_t uCharacter)
{
    if (uCharacter < 0x300 || IsIn(aMarks, uCharacter)) {
        return uCharacter < 0x300 ? 1 : 0;
    }
    return IsIn(aWide, uCharacter) ? 2 : 1;
}

size_t VAppendShown(std::string_view text, VEncoding encoding, std::string& sInto)
{
    if (std::ranges::all_of(text, IsPlain)) {
        sInto += text;
        return text.size();
    }
    size_t uColumns = 0;
    for (size_t u = 0; u < text.size();) {
        const unsigned char cByte = ByteAt(text, u);
        uColumns += AppendCharacter(VTakeCharacter(text, u, encoding), cByte, sInto);
    }
    return uColumns;
}

size_t VShownColumns(std::string_view text, VEncoding encoding)
{
    if (std::ranges::all_of(text, IsPlain)) {
        return text.size();
    }
    std::string sShown;
    return VAppendShown(text, encoding, sShown);
}
