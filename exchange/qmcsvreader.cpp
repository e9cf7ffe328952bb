#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>

#include "base/vtext.h"
#include "exchange/qmcsvformat.h"
#include "exchange/qmreplace.h"

namespace {

constexpr char cSeparator = ',';
constexpr char cQuote = '"';

bool EndsWithQuote(const char* szText)
{
    const size_t uLength = strlen(szText);
    return uLength > 0 && szText[uLength - 1] == cQuote;
}

// A single quote counts as both the beginning and the end.
bool IsInQuotes(const char* szText)
{
    return *szText == cQuote && EndsWithQuote(szText);
}

bool IsOneOf(const char* szText, const char* const (&aszWords)[3])
{
    return std::any_of(std::begin(aszWords), std::end(aszWords),
                       [&](const char* szWord) { return VCompareNoCase(szText, szWord) == 0; });
}

bool MeansYes(const char* szText)
{
    return IsOneOf(szText, {"true", "yes", "y"});
}

bool MeansNo(const char* szText)
{
    return IsOneOf(szText, {"false", "no", "n"});
}

} // namespace

QMCsvFormat::QMCsvFormat()
{
    std::fill(std::begin(aColumnRole), std::end(aColumnRole), -1);
    // A cell can be as long as a line, so the text grows in large steps.
    m_sCell.SetBlockSize(4096);
}

bool QMCsvFormat::ParseLine(char* szText, int32_t lLine, int32_t /*lLength*/)
{
    if (lLine == 1) {
        ParseHeader(szText);
    } else {
        ParseRow(szText);
    }
    return true;
}

void QMCsvFormat::ParseHeader(char* szText)
{
    nColumns = 0;
    bQuoted = false;
    QMTokenizer tokenizer(szText, cSeparator);
    while (nColumns < nMaxColumns) {
        char* szToken = tokenizer.Next();
        if (szToken == nullptr) {
            break;
        }
        if (nColumns == 0) {
            // Kept: the first cell decides for the whole file. Where it stands without quotes, a
            // comma within the quotes of another cell separates two cells.
            bQuoted = IsInQuotes(szToken);
        }
        const char* szName = bQuoted ? RepairCell(szToken, tokenizer) : szToken;
        aColumnRole[nColumns++] = LookupFieldName(szName);
    }
}

void QMCsvFormat::ParseRow(char* szText)
{
    QMTokenizer tokenizer(szText, cSeparator);
    for (int32_t i = 0; i < nColumns; ++i) {
        char* szToken = tokenizer.Next();
        if (szToken == nullptr) {
            break;
        }
        const char* szCell = bQuoted ? RepairCell(szToken, tokenizer) : szToken;
        if (*szCell != '\0') {
            ParseCell(aColumnRole[i], szCell);
        }
    }
    Commit();
}

// Puts a cell together again that commas within quotes have split.
//
// Kept: the commas are lost, and quotes are taken off wherever they stand. Imported accounts hold
// such texts, and a second import must give the same ones.
const char* QMCsvFormat::RepairCell(char* szCell, QMTokenizer& tokenizer)
{
    if (*szCell != cQuote || EndsWithQuote(szCell)) {
        QMStrip(szCell, cQuote);
        return szCell;
    }
    bool bStored = m_sCell.Assign(szCell);
    bool bOpen = true;
    while (bOpen) {
        const char* szMore = tokenizer.Next();
        bOpen = szMore != nullptr && !EndsWithQuote(szMore);
        bStored = m_sCell.Append(szMore) && bStored;
    }
    if (!QMReplace(m_sCell, cQuote, "") || !bStored) {
        RunOutOfMemory();
    }
    return m_sCell.GetText();
}

void QMCsvFormat::ParseCell(int32_t lRole, const char* szCell)
{
    switch (lRole) {
        case QM_ROLE_DATE:
            txPending.ParseDate(szCell);
            break;
        case QM_ROLE_NUMBER:
            txPending.ParseNumber(szCell);
            break;
        case QM_ROLE_DESCRIPTION:
            ParsePayee(szCell);
            break;
        case QM_ROLE_DEBIT:
            txPending.ParseAmount(szCell);
            txPending.fAmount = -std::fabs(txPending.fAmount);
            break;
        case QM_ROLE_AMOUNT:
        case QM_ROLE_CREDIT:
            txPending.ParseAmount(szCell);
            break;
        case QM_ROLE_MEMO:
            VCopyText(txPending.szMemo, szCell);
            break;
        case QM_ROLE_CATEGORY:
            VCopyText(txPending.szCategory, szCell);
            break;
        case QM_ROLE_VOIDED:
            ParseTag(QM_TRANS_FLAG_VOIDED, szCell);
            break;
        case QM_ROLE_TAX:
            ParseTag(QM_TRANS_FLAG_TAX, szCell);
            break;
        case QM_ROLE_EXPENSE:
            ParseTag(QM_TRANS_FLAG_EXPENSE, szCell);
            break;
        case QM_ROLE_CLEARED:
            txPending.lFlags &= ~QM_TRANS_FLAG_NOT_CLEARED;
            txPending.lFlags |= MeansNo(szCell) ? QM_TRANS_FLAG_NOT_CLEARED : 0;
            break;
        default: // a column for which the register has no place
            break;
    }
}

// Only the tag that is named changes: a transaction that is not voided may still be not cleared.
void QMCsvFormat::ParseTag(uint32_t uTag, const char* szCell)
{
    if (MeansYes(szCell)) {
        txPending.SetTag(uTag);
    } else {
        txPending.lFlags &= ~uTag;
    }
}
