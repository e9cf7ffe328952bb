// The streams of the process: whether a person looks at them, and which bytes pass.
#pragma once

#include <cstdio>

// Whether the stream leads to a terminal, which shows it at once.
bool IsTerminal(FILE* pStream);

// Whether the stream leads to a file, so that nobody waits for what is written to it.
bool IsFile(FILE* pStream);

// Whether colours may be sent to the stream: to a terminal that knows them, unless the user asks
// for none by the variable NO_COLOR of the environment.
bool TakesColours(FILE* pStream);

// Lets the bytes of the stream pass as they are, line ends too.
void UseBytes(FILE* pStream);
