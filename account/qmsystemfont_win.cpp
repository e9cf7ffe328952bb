#include "account/qmsystemfont_win.h"

#include "base/vtext.h"

QMSystemFont QMDescribeFont(const LOGFONTA& record, int nDotsPerInch)
{
    QMSystemFont font;
    font.bKnown = true;
    VCopyText(font.szFace, record.lfFaceName);
    font.nHeight = record.lfHeight;
    font.nWeight = record.lfWeight;
    font.bItalic = record.lfItalic != 0;
    font.bUnderline = record.lfUnderline != 0;
    font.bStrikeOut = record.lfStrikeOut != 0;
    font.nDotsPerInch = nDotsPerInch;
    return font;
}

QMSystemFont QMQuerySystemFont()
{
    LOGFONTA record;
    if (GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof record, &record) == 0) {
        return {};
    }
    int nDotsPerInch = 0;
    if (HDC hScreen = GetDC(nullptr)) {
        nDotsPerInch = GetDeviceCaps(hScreen, LOGPIXELSY);
        ReleaseDC(nullptr, hScreen);
    }
    return QMDescribeFont(record, nDotsPerInch);
}
