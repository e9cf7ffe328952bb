// Works out where the panes of the status bar end.
#pragma once

#include <cstdint>

inline constexpr int QM_TEXT_PANES = 4; // those of the register, which come after the free pane

// All numbers are pixels. anTextWidths holds the widths of the four texts, 0 for an empty one.
// anRight gets the right edges of the five panes. A pane is 10 wider than its text; the pane of an
// empty text has no width. The last pane ends 15 before the end of the bar. Returns false when
// nothing is left for the free pane: the bar then shows that pane alone.
bool QMLayOutPanes(int nBarWidth, const int (&anTextWidths)[QM_TEXT_PANES],
                   int (&anRight)[QM_TEXT_PANES + 1]);
