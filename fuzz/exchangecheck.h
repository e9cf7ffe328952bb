// What the fuzzers of the exchange formats share.
#pragma once

#include <cstddef>
#include <cstdint>

// Imports the bytes as a file with that extension, such as ".qif". What was read must be whole, in
// order, and give the same when it is written and read again. Otherwise it prints what is wrong and
// aborts.
void CheckExchangeFile(const char* szExtension, const uint8_t* pBytes, size_t uSize);

// Reads the bytes line by line, with room for nMaxLine characters. Aborts when a line is too long
// or a character is lost.
void CheckLines(int32_t nMaxLine, const uint8_t* pBytes, size_t uSize);
