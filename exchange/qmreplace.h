// Replacing a character in a text, as the exchange formats strip and escape.
#pragma once

#include "base/vstring.h"

// Replaces the character by a text wherever it stands. A replacement that itself holds the
// character takes the place of the first one only, since replacing would find no end otherwise.
// False when memory ran out; the text is then as it was.
bool QMReplace(VString& sText, char cFind, const char* szReplacement);

// Takes a character out of a text, in place.
void QMStrip(char* szText, char cFind);
