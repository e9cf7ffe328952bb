// Where the panes of the status bar end, by the widths of their texts.
#pragma once

#include <cstdint>

inline constexpr int QM_TEXT_PANES = 4; // those of the register, behind the free one

// anTextWidths holds the widths in pixels of the four texts, 0 for an empty one; anRight gets the
// right edges of all five panes. A pane is as wide as its text and 10 more, an empty one has no
// width at all, and the last ends 15 short of the bar. False when that leaves nothing to the free
// pane: the bar then shows that one alone.
bool QMLayOutPanes(int nBarWidth, const int (&anTextWidths)[QM_TEXT_PANES],
                   int (&anRight)[QM_TEXT_PANES + 1]);
