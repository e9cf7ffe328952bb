// What the fuzzers of the exchange formats share.
#pragma once

#include <cstddef>
#include <cstdint>

// Imports the bytes as a file with that extension, such as ".qif", and aborts, after a line that
// says what, unless what comes of it is whole, in order and fit to be written and read again.
void CheckExchangeFile(const char* szExtension, const uint8_t* pBytes, size_t uSize);

// Reads the bytes line by line, with room for nMaxLine characters, and aborts when a line is too
// long or a character got lost.
void CheckLines(int32_t nMaxLine, const uint8_t* pBytes, size_t uSize);
