// Decodes the bytes of texts into characters, and tells how wide a terminal shows them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The encoding of a text.
enum class VEncoding
{
    Windows1252,
    Utf8
};

// The value that VTakeCharacter returns for bytes that are no character.
inline constexpr uint32_t VNoCharacter = 0xFFFFFFFF;

// The character that is shown in place of bytes that are no character.
inline constexpr uint32_t VReplacementCharacter = 0xFFFD;

// Returns the character at uNext, which must be within the text, and moves uNext behind it. When
// the bytes are no character, moves uNext by one byte.
uint32_t VTakeCharacter(std::string_view text, size_t& uNext, VEncoding encoding);

// The byte of a character in the code page 1252; -1 when it has none.
int VByteOf1252(uint32_t uCharacter);

// True when the whole text is UTF-8.
bool VIsUtf8(std::string_view text);

// Appends a character, below 0x110000, as UTF-8.
void VAppendUtf8(uint32_t uCharacter, std::string& sInto);

// How many columns of a terminal a character takes: 2 for the wide ones of East Asia and for
// pictures, 0 for a mark on the character before it, and 1 for any other.
size_t VColumnsOf(uint32_t uCharacter);

// Appends a text as UTF-8 in one line for a terminal, and returns how many columns it takes. The
// terminal gets no character that it would obey: a control character becomes its picture, an
// invisible one that changes the direction or the line becomes "\u202E", and a byte that is no
// character becomes "\xE9".
size_t VAppendShown(std::string_view text, VEncoding encoding, std::string& sInto);

// The columns that VAppendShown returns.
size_t VShownColumns(std::string_view text, VEncoding encoding);
