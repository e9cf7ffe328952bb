// The light scrambling of texts in account files: it keeps them from being read by chance, no more.
#pragma once

#include <cstddef>

// Both work in place on uSize bytes; a null region does nothing. Scrambling complements every byte
// but the blank (0x20) and then reverses each whole group of four bytes; unscrambling does the
// reverse, in the reverse order.
//
// The two are no exact pair, and must not be made one: 0xDF scrambles to 0x20, which unscrambling
// leaves alone, so every 0xDF comes back as a blank. Files of this format are written and read
// that way everywhere.
void QMScramble(void* pRegion, size_t uSize);
void QMUnscramble(void* pRegion, size_t uSize);
