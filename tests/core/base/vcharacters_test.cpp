// Characters, their columns, and what a terminal gets of a text.
#include "base/vcharacters.h"

#include <gtest/gtest.h>

#include <random>

namespace {

struct Shown
{
    const char* szText;
    VEncoding encoding;
    const char* szShown;
    size_t uColumns;
};

std::string ShownOf(std::string_view text, VEncoding encoding)
{
    std::string sShown;
    VAppendShown(text, encoding, sShown);
    return sShown;
}

TEST(VCharacters, ATextIsShownAsCharacters)
{
    constexpr auto cp1252 = VEncoding::Windows1252;
    constexpr auto utf8 = VEncoding::Utf8;
    const Shown aShown[] = {
        {"", cp1252, "", 0},
        {"plain text", cp1252, "plain text", 10},
        {"caf\xE9", cp1252, "caf\u00e9", 4},
        {"caf\u00e9", utf8, "caf\u00e9", 4},
        {"\x80 5", cp1252, "\u20ac 5", 3},
        {"\u6f22\u5b57", utf8, "\u6f22\u5b57", 4},
        {"e\u0301", utf8, "e\u0301", 1},
        {"\U0001F600", utf8, "\U0001F600", 2},
        {"\u2126\uff21", utf8, "\u2126\uff21", 3},
        // Control characters by their pictures.
        {"a\n\t\x1b[0m\x7f", cp1252, "a\u240a\u2409\u241b[0m\u2421", 8},
        // Bytes that are no character by their number.
        {"a\x81", cp1252, "a\\x81", 5},
        {"caf\xE9", utf8, "caf\\xE9", 7},
        {"\xC0\xAF", utf8, "\\xC0\\xAF", 8},
        {"\xED\xA0\x80", utf8, "\\xED\\xA0\\x80", 12},
        {"\xF4\x90\x80\x80", utf8, "\\xF4\\x90\\x80\\x80", 16},
        {"\xE6\xBC", utf8, "\\xE6\\xBC", 8},
        // Characters that would turn the text around, or control the terminal.
        {"\u202egnp", utf8, "\\u202Egnp", 9},
        {"\u009b31m", utf8, "\\u009B31m", 9},
        {"\u2028\ufeff", utf8, "\\u2028\\uFEFF", 12},
    };
    for (const Shown& shown : aShown) {
        EXPECT_EQ(ShownOf(shown.szText, shown.encoding), shown.szShown);
        EXPECT_EQ(VShownColumns(shown.szText, shown.encoding), shown.uColumns) << shown.szShown;
    }
}

TEST(VCharacters, ColumnsOfCharacters)
{
    for (const uint32_t uWide : {0x1100U, 0x3042U, 0x4E00U, 0xAC00U, 0xFF01U, 0x1F4B6U, 0x20000U}) {
        EXPECT_EQ(VColumnsOf(uWide), 2U) << "character " << std::hex << uWide;
    }
    for (const uint32_t uMark : {0x0300U, 0x0483U, 0x0591U, 0x200BU, 0x20D0U, 0xFE0FU, 0xE0100U}) {
        EXPECT_EQ(VColumnsOf(uMark), 0U) << "character " << std::hex << uMark;
    }
    for (const uint32_t uOne : {0x20U, 0xADU, 0xE9U, 0x2FFU, 0x416U, 0x20ACU, 0xFF61U, 0x10FFFDU}) {
        EXPECT_EQ(VColumnsOf(uOne), 1U) << "character " << std::hex << uOne;
    }
}

TEST(VCharacters, EveryCharacterComesBackFromUtf8)
{
    for (uint32_t uCharacter = 0; uCharacter < 0x110000; ++uCharacter) {
        if (uCharacter >= 0xD800 && uCharacter <= 0xDFFF) {
            continue;
        }
        std::string sText;
        VAppendUtf8(uCharacter, sText);
        size_t uNext = 0;
        ASSERT_EQ(VTakeCharacter(sText, uNext, VEncoding::Utf8), uCharacter);
        ASSERT_EQ(uNext, sText.size());
    }
}

TEST(VCharacters, TheCodePageGoesBothWays)
{
    int nNone = 0;
    for (int nByte = 0; nByte < 256; ++nByte) {
        const std::string sByte(1, static_cast<char>(nByte));
        size_t uNext = 0;
        const uint32_t uCharacter = VTakeCharacter(sByte, uNext, VEncoding::Windows1252);
        EXPECT_EQ(uNext, 1U);
        nNone += uCharacter == VNoCharacter ? 1 : 0;
        EXPECT_EQ(VByteOf1252(uCharacter), uCharacter == VNoCharacter ? -1 : nByte);
    }
    EXPECT_EQ(nNone, 5);
    EXPECT_EQ(VByteOf1252(0x81), -1);
    EXPECT_EQ(VByteOf1252(0x416), -1);
    EXPECT_EQ(VByteOf1252(0), 0);
}

// Whatever the bytes are, a terminal gets UTF-8 without a control character.
TEST(VCharacters, AnyBytesAreShownWithoutACommand)
{
    std::mt19937 random(15);
    for (int i = 0; i < 20000; ++i) {
        std::string sBytes(random() % 24, '\0');
        for (char& c : sBytes) {
            c = static_cast<char>(random());
        }
        for (const VEncoding encoding : {VEncoding::Windows1252, VEncoding::Utf8}) {
            const std::string sShown = ShownOf(sBytes, encoding);
            ASSERT_TRUE(VIsUtf8(sShown));
            for (size_t u = 0; u < sShown.size();) {
                const uint32_t uCharacter = VTakeCharacter(sShown, u, VEncoding::Utf8);
                ASSERT_FALSE(uCharacter < 0x20 || (uCharacter >= 0x7F && uCharacter < 0xA0));
            }
        }
    }
}

} // namespace
