// QMPageSetup: the page setup as it is stored between runs.
#pragma once

#include <cstdint>

#include "base/vrect.h"
#include "base/vstring.h"

// A value of -1 is the same as one that is missing. Nothing is checked: a wrong number is for the
// printer's driver to decide on.
struct QMPageSetup
{
    static constexpr int32_t lMissing = -1;

    VString sMargins; // empty when missing; see QMReadMargins
    int32_t lOrientation = lMissing;
    int32_t lPaperSize = lMissing;
    int32_t lPaperSource = lMissing;
};

// Reads up to four decimal numbers with blanks between, in thousandths of an inch: left, top, right
// and bottom. From the first that is no number on, the sides stay as they were. Numbers that no
// integer holds become the nearest one.
void QMReadMargins(const char* szText, VRect& rcMargins);
// As four numbers of at least four digits.
VString QMWriteMargins(const VRect& rcMargins);
