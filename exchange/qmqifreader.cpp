#include "base/vtext.h"
#include "exchange/qmqifformat.h"
#include "exchange/qmreplace.h"

namespace {

// Brackets mark the account to which a transfer goes. The register has no such accounts.
const char* WithoutBrackets(char* szLine)
{
    QMStrip(szLine, '[');
    QMStrip(szLine, ']');
    return szLine + 1;
}

template <size_t uSize>
void TakeText(char (&szField)[uSize], const char* szText)
{
    if (*szText != '\0') {
        VCopyText(szField, szText);
    }
}

} // namespace

bool QMQifFormat::ParseLine(char* szText, int32_t /*lLine*/, int32_t /*lLength*/)
{
    if (szText != nullptr) {
        ParseField(szText);
    }
    return true;
}

// A line that begins with another character is ignored: headers, and fields for which the register
// has no place.
void QMQifFormat::ParseField(char* szLine)
{
    switch (*szLine) {
        case 'C':
            // Any other mark means not cleared. That includes "*", which other programs write in an
            // unfinished reconciliation.
            if (VToLower(szLine[1]) == 'x') {
                txPending.lFlags &= ~QM_TRANS_FLAG_NOT_CLEARED;
            }
            break;
        case 'D':
            txPending.ParseDate(szLine + 1);
            break;
        case 'L':
            TakeText(txPending.szCategory, WithoutBrackets(szLine));
            break;
        case 'M':
            TakeText(txPending.szMemo, WithoutBrackets(szLine));
            break;
        case 'N':
            txPending.ParseNumber(szLine + 1);
            txPending.lType = QM_TRANS_CHECK;
            break;
        case 'P':
            ParsePayee(WithoutBrackets(szLine));
            break;
        case 'T':
            txPending.ParseAmount(szLine + 1);
            break;
        case '^':
            Commit();
            break;
        default:
            break;
    }
}
