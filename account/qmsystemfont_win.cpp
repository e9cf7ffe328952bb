#include "account/qmsystemfont.h"

#include <windows.h>

#include "toolkit/vtext.h"

QMSystemFont QMQuerySystemFont()
{
    QMSystemFont font;
    LOGFONTA logFont;
    if (GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof logFont, &logFont) == 0) {
        return font;
    }
    font.bKnown = true;
    VCopyText(font.szFace, logFont.lfFaceName);
    font.nHeight = logFont.lfHeight;
    font.nWeight = logFont.lfWeight;
    font.bItalic = logFont.lfItalic != 0;
    font.bUnderline = logFont.lfUnderline != 0;
    font.bStrikeOut = logFont.lfStrikeOut != 0;
    if (HDC hScreen = GetDC(nullptr)) {
        font.nDotsPerInch = GetDeviceCaps(hScreen, LOGPIXELSY);
        ReleaseDC(nullptr, hScreen);
    }
    return font;
}
