#include "shell/qmstatuslayout.h"

namespace {

constexpr int nMargin = 15;
constexpr int nGap = 10;

} // namespace

bool QMLayOutPanes(int nBarWidth, const int (&anTextWidths)[QM_TEXT_PANES],
                   int (&anRight)[QM_TEXT_PANES + 1])
{
    int nEdge = nBarWidth - nMargin;
    for (int nPane = QM_TEXT_PANES; nPane > 0; --nPane) {
        anRight[nPane] = nEdge;
        const int nText = anTextWidths[nPane - 1];
        nEdge -= nText > 0 ? nText + nGap : 0;
    }
    anRight[0] = nEdge;
    return nEdge >= 1;
}
