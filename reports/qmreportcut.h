// Cuts the picture of a report into pages, between lines. Nothing is repeated on a page.
#pragma once

#include <cstdint>

struct QMReportCut
{
    int32_t lStep = 0;  // pixels of the report on a page: a number of whole lines
    int32_t lPages = 0; // the last one may be empty
};

// Returns false when not even one line fits on a page of lPrintable pixels.
inline bool QMCutReport(int32_t lHeight, int32_t lPrintable, int32_t lLineHeight, QMReportCut& cut)
{
    if (lLineHeight <= 0 || lPrintable < lLineHeight) {
        return false;
    }
    cut.lStep = lPrintable / lLineHeight * lLineHeight;
    // Kept: a report that fills its pages exactly gets one more, with nothing on it.
    cut.lPages = lHeight / cut.lStep + 1;
    return true;
}
