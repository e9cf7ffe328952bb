// The streams that qmktool writes to.
#pragma once

#include <cstdio>
#include <string_view>

// Writes a text that consists of whole lines; only the last text may end within a line. A Windows
// console gets characters: a line that is valid UTF-8 counts as UTF-8, because names of files are,
// and any other line as text of the system's code page, because accounts hold that. Other streams
// get the bytes. Returns false when not all of it could be written.
bool WriteToStream(FILE* pStream, std::string_view text);
