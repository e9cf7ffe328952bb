#include "account/qmaccountdata.h"

#include <cmath>
#include <cstring>

#include "account/qmheaderfields.h"
#include "base/vtext.h"

namespace {

constexpr int nPointsPerInch = 72;
constexpr int nBoldWeight = 700;

uint32_t FontStyle(const QMSystemFont& font)
{
    if (font.nWeight == nBoldWeight) {
        return QM_FONT_BOLD;
    }
    if (font.bItalic) {
        return QM_FONT_ITALIC;
    }
    if (font.bUnderline) {
        return QM_FONT_UNDERLINE;
    }
    return font.bStrikeOut ? QM_FONT_STRIKE_OUT : 0;
}

} // namespace

QMAccountHeader QMDefaultHeader()
{
    QMAccountHeader header = {};
    header.bGridLines = header.bShadedLines = 1;
    header.bShowCleared = header.bShowDate = header.bShowNumber = header.bShowDescription = 1;
    header.bShowDebit = header.bShowCredit = header.bShowBalance = header.bShowTag = 1;
    header.bShowMemo = 1;
    header.lWidthCleared = 30;
    header.lWidthDate = 55;
    header.lWidthNumber = 50;
    header.lWidthDescription = 250;
    header.lWidthDebit = header.lWidthCredit = 60;
    header.lWidthBalance = 75;
    header.lWidthTag = 30;
    header.lWidthMemo = header.lWidthCategory = 240;
    return header;
}

void QMSetHeaderFont(QMAccountHeader& header, const QMSystemFont& font)
{
    if (!font.bKnown) {
        return;
    }
    VCopyText(header.szFontFace, font.szFace);
    header.lFontStyle = FontStyle(font);
    if (font.nDotsPerInch > 0) {
        // The height that Windows gives is negative: the height of the characters, without the
        // space above. lround rounds halves away from zero.
        header.lFontSize = static_cast<int32_t>(
            -std::lround(static_cast<double>(font.nHeight) * nPointsPerInch / font.nDotsPerInch));
    }
}

int32_t QMTerminateHeaderTexts(QMAccountHeader& header)
{
    char* pHeader = reinterpret_cast<char*>(&header);
    int32_t lCut = 0;
    for (const QMHeaderField& field : QMHeaderFields()) {
        char* szText = pHeader + field.uOffset;
        if (field.kind == QMHeaderKind::Text && strnlen(szText, field.uSize) == field.uSize) {
            szText[field.uSize - 1] = '\0';
            ++lCut;
        }
    }
    return lCut;
}

QMAccountData::QMAccountData() : header(QMDefaultHeader())
{
    QMSetHeaderFont(header, QMQuerySystemFont());
}

bool QMAccountData::AssignFrom(const QMAccountData& other)
{
    header = other.header;
    return store.AssignFrom(other.store);
}
