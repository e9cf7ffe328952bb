// Replacing and removing a character, as the exchange formats do to escape and to clean texts.
#pragma once

#include "base/vstring.h"

// Replaces every occurrence of the character by a text. Returns false when memory ran out; the text
// is then as before.
//
// Kept: when the replacement holds the character itself, only the first occurrence is replaced.
bool QMReplace(VString& sText, char cFind, const char* szReplacement);

// Removes every occurrence of a character, in place.
void QMStrip(char* szText, char cFind);
