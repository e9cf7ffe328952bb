// The standard streams of the process: whether a person reads them, and whether their bytes change.
#pragma once

#include <cstdio>

// Whether the stream is a terminal.
bool IsTerminal(FILE* pStream);

// Whether the stream is a file, so that no reader waits for the output.
bool IsFile(FILE* pStream);

// Whether colours may be sent to the stream. It must be a terminal that knows them, and the
// environment variable NO_COLOR, by which the user asks for none, must be unset or empty.
bool TakesColours(FILE* pStream);

// Keeps the C library from changing line ends in the stream.
void UseBytes(FILE* pStream);
