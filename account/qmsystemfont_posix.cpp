#include "account/qmsystemfont.h"

#include "base/vtext.h"

QMSystemFont QMQuerySystemFont()
{
    // That of the program on most systems, so that an account made here looks as one made there.
    QMSystemFont font;
    font.bKnown = true;
    VCopyText(font.szFace, "MS Shell Dlg");
    font.nHeight = -11;
    font.nWeight = 400;
    font.nDotsPerInch = 96;
    return font;
}
