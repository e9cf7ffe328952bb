// The streams that qmktool writes to.
#pragma once

#include <cstdio>
#include <string_view>

// Writes all of the text, which ends at the end of a line or of all that is written. A Windows
// console gets characters: a line that is UTF-8 is taken as such, as the names of files are, and
// any other as text of the system's code page, as accounts hold it. Everything else gets the bytes.
// Returns false when not all of it could be written.
bool WriteToStream(FILE* pStream, std::string_view text);
