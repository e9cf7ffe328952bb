// Characters in the bytes of texts, and the room that they take on a terminal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// How the bytes of a text stand for characters.
enum class VEncoding
{
    Windows1252,
    Utf8
};

// What VTakeCharacter gives for bytes that are no character.
inline constexpr uint32_t VNoCharacter = 0xFFFFFFFF;

// What stands for bytes that are no character.
inline constexpr uint32_t VReplacementCharacter = 0xFFFD;

// Takes the character at uNext, which must be within the text, and moves uNext behind it. One byte
// that is no character is taken alone.
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

// Appends a text as UTF-8 in one line for a terminal, and returns how many columns it takes. What
// would command the terminal is shown instead of sent: a control character as its picture, an
// invisible one that changes the direction or the line as "\u202E", and a byte that is no character
// as "\xE9".
size_t VAppendShown(std::string_view text, VEncoding encoding, std::string& sInto);

// The columns that VAppendShown returns.
size_t VShownColumns(std::string_view text, VEncoding encoding);
