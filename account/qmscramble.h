// The scrambling of texts in account files. It keeps a text from being read at a glance. It
// protects nothing.
#pragma once

#include <cstddef>

// Both work in place on uSize bytes and do nothing for a null region. QMScramble complements every
// byte but the blank (0x20), and then reverses each whole group of four bytes. QMUnscramble
// reverses the groups first, and then complements.
//
// Kept: the two are not exact opposites. 0xDF scrambles to 0x20, and unscrambling leaves 0x20
// alone. So every 0xDF (a sharp s in Windows-1252) comes back as a blank. Files of this format are
// written and read so everywhere: a "better" pair would misread them.
void QMScramble(void* pRegion, size_t uSize);
void QMUnscramble(void* pRegion, size_t uSize);
