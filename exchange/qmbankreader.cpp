#include "exchange/qmbankreader.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include "base/vtext.h"
#include "exchange/qmcsvrows.h"
#include "exchange/qmexchangeformat.h"
#include "exchange/qmtextdecoder.h"

namespace {

// Words by which banks mark a payment from the account.
constexpr const char* aDebitWords[] = {"-", "d", "dr", "db", "debit", "s", "soll", "af", "out"};
constexpr const char* aCreditWords[] = {"+", "c", "cr", "credit", "h", "haben", "bij", "in"};

// A register shows a text in one line, without blanks around it.
std::string OneLine(std::string_view text)
{
    std::string sText;
    for (const char c : text) {
        const bool bControl = (c >= 0 && c < ' ') || c == '\x7F';
        sText += bControl ? ' ' : c;
    }
    const size_t uFirst = sText.find_first_not_of(' ');
    return uFirst == std::string::npos
               ? std::string()
               : sText.substr(uFirst, sText.find_last_not_of(' ') - uFirst + 1);
}

template <size_t n>
bool IsOneOf(const std::string& sWord, const char* const (&aWords)[n])
{
    return std::ranges::any_of(
        aWords, [&](const char* szWord) { return VCompareNoCase(sWord.c_str(), szWord) == 0; });
}

// The type by its whole label; -1 for any other text.
int32_t TypeOf(const std::string& sLabel)
{
    for (int32_t lType = 0; lType < QM_TRANS_TYPE_COUNT; ++lType) {
        if (VCompareNoCase(sLabel.c_str(), QMTypeLabel(lType)) == 0) {
            return lType;
        }
    }
    return -1;
}

QMBankColumn ColumnOfHeading(const std::string& sHeading)
{
    switch (LookupFieldName(sHeading.c_str())) {
        case QM_ROLE_DATE:
            return QMBankColumn::Date;
        case QM_ROLE_NUMBER:
            return QMBankColumn::Number;
        case QM_ROLE_DESCRIPTION:
            return QMBankColumn::Description;
        case QM_ROLE_AMOUNT:
            return QMBankColumn::Amount;
        case QM_ROLE_DEBIT:
            return QMBankColumn::Debit;
        case QM_ROLE_CREDIT:
            return QMBankColumn::Credit;
        case QM_ROLE_MEMO:
            return QMBankColumn::Memo;
        case QM_ROLE_CATEGORY:
            return QMBankColumn::Category;
        default:
            return VCompareNoCase(sHeading.c_str(), "Type") == 0 ? QMBankColumn::Type
                                                                 : QMBankColumn::Ignored;
    }
}

// A row while its cells are read.
class Row
{
public:
    explicit Row(const QMDialect& dialect)
        : m_dialect(dialect), m_pTransaction(std::make_unique<QMTransaction>())
    {
        m_pTransaction->lNumber = 0;
    }

    void Take(QMBankColumn column, const std::string& sCell)
    {
        const std::string sText = OneLine(sCell);
        if (sText.empty()) {
            return;
        }
        switch (column) {
            case QMBankColumn::Date:
                m_bDate = QMParseBankDate(sText, m_dialect.dates, m_pTransaction->dtDate);
                m_hint = m_bDate ? QMTellDateOrder(sText) : QMDateHint::None;
                break;
            case QMBankColumn::Number:
                TakeNumber(sText);
                break;
            case QMBankColumn::Description:
                VCopyText(m_pTransaction->szDescription, sText.c_str());
                break;
            case QMBankColumn::Memo:
                VCopyText(m_pTransaction->szMemo, sText.c_str());
                break;
            case QMBankColumn::Category:
                VCopyText(m_pTransaction->szCategory, sText.c_str());
                break;
            case QMBankColumn::Type:
                m_lType = TypeOf(sText);
                break;
            case QMBankColumn::Sign:
                TakeSign(sText);
                break;
            case QMBankColumn::Ignored:
                break;
            default:
                TakeAmount(column, sText);
                break;
        }
    }

    bool HasDate() const { return m_bDate; }
    QMDateHint GetHint() const { return m_hint; }
    bool HasAmount() const { return m_bAmount && !m_bUnknownSign; }

    // Returns the record, complete for an account.
    std::unique_ptr<QMTransaction> Finish()
    {
        double dAmount = HasAmount() ? m_dAmount : 0;
        dAmount = m_bDebit ? -std::fabs(dAmount) : dAmount;
        m_pTransaction->fAmount = static_cast<float>(m_dialect.bInvert ? -dAmount : dAmount);
        m_pTransaction->dtCleared = m_pTransaction->dtDate;
        m_pTransaction->lType = m_lType < 0 ? QM_TRANS_CHECK : m_lType;
        QMSettleRecord(*m_pTransaction);
        return std::move(m_pTransaction);
    }

private:
    void TakeNumber(const std::string& sText)
    {
        const bool bDigits = sText.find_first_not_of("0123456789") == std::string::npos;
        const int32_t lNumber = bDigits ? VParseInteger(sText.c_str()) : 0;
        // A reference of the bank is no check number.
        if (lNumber > 0 && static_cast<uint32_t>(lNumber) <= QM_MAX_CHECK_NUMBER) {
            m_pTransaction->lNumber = static_cast<uint32_t>(lNumber);
        }
    }

    void TakeSign(const std::string& sText)
    {
        m_bDebit = IsOneOf(sText, aDebitWords);
        m_bUnknownSign = !m_bDebit && !IsOneOf(sText, aCreditWords);
    }

    // Of two amounts in a row the one that is not 0 counts.
    void TakeAmount(QMBankColumn column, const std::string& sText)
    {
        double dAmount = 0;
        if (!QMParseBankAmount(sText, m_dialect.cDecimal, dAmount) || (m_bAmount && dAmount == 0)) {
            return;
        }
        m_bAmount = true;
        m_dAmount = column == QMBankColumn::Debit ? -std::fabs(dAmount) : dAmount;
    }

    const QMDialect& m_dialect;
    std::unique_ptr<QMTransaction> m_pTransaction;
    int32_t m_lType = -1;
    double m_dAmount = 0;
    bool m_bDate = false;
    QMDateHint m_hint = QMDateHint::None;
    bool m_bAmount = false;
    bool m_bDebit = false;
    bool m_bUnknownSign = false;
};

bool IsBlank(const std::vector<std::string>& cells)
{
    return cells.size() == 1 && OneLine(cells[0]).empty();
}

// Reads the rows after the headings.
class RowReader
{
public:
    RowReader(const QMDialect& dialect, QMTransactionStore& store, QMBankReport& report)
        : m_dialect(dialect), m_filler(store), m_report(report), m_columns(dialect.columns)
    {}

    // The columns by the names in a row; false when these do not make a record.
    bool TakeHeadings(const std::vector<std::string>& cells)
    {
        bool bDate = false;
        bool bAmount = false;
        for (const std::string& sCell : cells) {
            const QMBankColumn column = ColumnOfHeading(OneLine(sCell));
            m_columns.push_back(column);
            bDate = bDate || column == QMBankColumn::Date;
            bAmount = bAmount || column == QMBankColumn::Amount || column == QMBankColumn::Debit ||
                      column == QMBankColumn::Credit;
        }
        return bDate && bAmount;
    }

    void TakeRow(const std::vector<std::string>& cells)
    {
        Row row(m_dialect);
        for (size_t u = 0; u < cells.size() && u < m_columns.size(); ++u) {
            row.Take(m_columns[u], cells[u]);
        }
        if (!row.HasDate() && !row.HasAmount()) {
            m_report.lPassedOver += IsBlank(cells) ? 0 : 1;
            return;
        }
        m_report.CountDate(row.GetHint());
        m_report.lWithoutDate += row.HasDate() ? 0 : 1;
        m_report.lWithoutAmount += row.HasAmount() ? 0 : 1;
        m_filler.Add(row.Finish());
    }

    bool Finish() { return m_filler.Finish(); }

private:
    const QMDialect& m_dialect;
    QMStoreFiller m_filler;
    QMBankReport& m_report;
    std::vector<QMBankColumn> m_columns;
};

std::string TranslateLine(const std::string& sLine, const QMDialect& dialect, QMBankReport& report)
{
    const std::string_view rest = std::string_view(sLine).substr(1);
    char szText[64];
    if (sLine[0] == 'D') {
        QMDate date;
        if (!QMParseBankDate(rest, dialect.dates, date)) {
            ++report.lWithoutDate;
            return {};
        }
        report.CountDate(QMTellDateOrder(rest));
        snprintf(szText, sizeof szText, "D%d/%d/%d", date.wMonth, date.wDay, date.wYear);
        return szText;
    }
    double dAmount = 0;
    if (!QMParseBankAmount(rest, dialect.cDecimal, dAmount) || std::fabs(dAmount) > 1e30) {
        ++report.lWithoutAmount;
        return {};
    }
    snprintf(szText, sizeof szText, "T%.4f", dialect.bInvert ? -dAmount : dAmount);
    return szText;
}

} // namespace

bool QMReadBankCsv(std::string_view bytes, const QMDialect& dialect, QMTransactionStore& store,
                   QMBankReport& report, std::string& sFault, QMProgress* pProgress)
{
    report = QMBankReport();
    const std::string sText = QMDecodeText(bytes, dialect.encoding, report.lReplaced);
    QMTransactionStore found;
    RowReader reader(dialect, found, report);
    QMCsvRows rows(sText, dialect.cSeparator, dialect.cQuote);
    rows.SkipLines(dialect.lSkip);
    std::vector<std::string> cells;
    if (dialect.columns.empty() && (!rows.Next(cells) || !reader.TakeHeadings(cells))) {
        sFault = "its first line names no date and amount (give --columns)";
        return false;
    }
    while (rows.Next(cells)) {
        reader.TakeRow(cells);
        if (pProgress != nullptr && !pProgress->OnStep(rows.GetPosition(), sText.size())) {
            sFault = "it was given up";
            return false;
        }
    }
    if (!reader.Finish() || found.IsEmpty()) {
        sFault = "no row of it has a date or an amount in this dialect";
        return false;
    }
    store.TakeFrom(found);
    return true;
}

std::string QMTranslateQif(std::string_view bytes, const QMDialect& dialect, QMBankReport& report)
{
    report = QMBankReport();
    const std::string sText = QMDecodeText(bytes, dialect.encoding, report.lReplaced);
    std::string sNew;
    // Here each row is a line, with one cell.
    QMCsvRows rows(sText, '\n', '\0');
    std::vector<std::string> cells;
    while (rows.Next(cells)) {
        const std::string& sLine = cells[0];
        const bool bValue = !sLine.empty() && (sLine[0] == 'D' || sLine[0] == 'T');
        sNew += bValue ? TranslateLine(sLine, dialect, report) : sLine;
        sNew += '\n';
    }
    return sNew;
}
