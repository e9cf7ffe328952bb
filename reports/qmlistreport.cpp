#include "reports/qmlistreport.h"

#include "reports/qmreportkind.h"
#include "reports/qmreporttext.h"

namespace {

// List: one list with its headings, rows and totals.
class List
{
public:
    List(QMReportPage& page, bool bDebitCredit) : m_page(page), m_bDebitCredit(bDebitCredit) {}

    void DrawHeads() { m_page.ColumnHeads("Date", true, m_bDebitCredit); }
    void DrawRow(const QMTransaction& transaction);
    // szPrefix is "Total " or "Total - ", the name that of the group or of the report.
    void Close(std::string_view prefix, std::string_view name);

private:
    void DrawNumberAndText(const QMTransaction& transaction);
    void DrawAmount(const QMTransaction& transaction);
    void DrawSubtotals();
    void DrawTotal(std::string_view prefix, std::string_view name);

    QMReportPage& m_page;
    bool m_bDebitCredit;
    int64_t m_nRows = 0;
    double m_dTotal = 0;
    double m_dDebits = 0;
    double m_dCredits = 0;
};

void List::DrawRow(const QMTransaction& transaction)
{
    m_page.MoveDown(1);
    if (m_page.IsDrawing()) {
        m_page.ShadeRow(m_nRows);
        m_page.Date(transaction.dtDate);
        DrawNumberAndText(transaction);
        DrawAmount(transaction);
        m_page.EndRow();
    }
    ++m_nRows;
}

void List::DrawNumberAndText(const QMTransaction& transaction)
{
    const bool bCheck = transaction.lType == QM_TRANS_CHECK;
    if (bCheck) {
        QMReportText number;
        number.AddInteger(static_cast<int32_t>(transaction.lNumber));
        m_page.Number(number.Get());
    }
    QMReportText text;
    QMAddRowText(text, transaction, !bCheck);
    m_page.Description(text.Get(), true);
}

void List::DrawAmount(const QMTransaction& transaction)
{
    const double dAmount = transaction.GetRoundedAmount();
    QMReportText text;
    text.AddAmount(dAmount);
    if (!m_bDebitCredit) {
        // Kept: amounts are added regardless of their side.
        m_dTotal += dAmount;
        m_page.Amount(text.Get());
    } else if (transaction.IsDebitType()) {
        m_dDebits += dAmount;
        m_page.Debit(text.Get());
    } else {
        m_dCredits += dAmount;
        m_page.Credit(text.Get());
    }
}

void List::Close(std::string_view prefix, std::string_view name)
{
    if (m_nRows == 0) {
        m_page.MoveDown(1);
        m_page.EmptyRow();
    }
    m_page.MoveDown(1);
    m_page.TotalRule(m_bDebitCredit);
    if (m_bDebitCredit) {
        DrawSubtotals();
        m_dTotal = m_dCredits - m_dDebits;
        m_page.MoveDown(1);
    }
    DrawTotal(prefix, name);
}

void List::DrawSubtotals()
{
    if (m_page.IsDrawing()) {
        m_page.Label("Subtotals");
        QMReportText debits;
        debits.Add("(").AddAmount(m_dDebits).Add(")");
        m_page.Total(debits.Get(), m_page.GetLayout().lCreditWidth);
        QMReportText credits;
        credits.AddAmount(m_dCredits);
        m_page.Total(credits.Get());
    }
}

void List::DrawTotal(std::string_view prefix, std::string_view name)
{
    if (m_page.IsDrawing()) {
        QMReportText text;
        text.Add(prefix).Add(name).Add(":  ").AddInteger(m_nRows);
        m_page.Label(text.Add(" Transaction").AddPlural(m_nRows).Get());
        QMReportText total;
        QMAddTotal(total, m_dTotal);
        m_page.Total(total.Get());
    }
}

void DrawName(QMReportPage& page, const char* szName)
{
    page.MoveDown(2);
    const QMReportFontScope font(page.GetSurface(), QMReportFont::Bold);
    page.Label(szName);
}

} // namespace

bool QMDrawGroupedReport(QMReportPage& page, const QMTransactionStore& store,
                         const QMReportRows& selected, uint32_t uKind, const char* szGroup)
{
    QMReportGroups groups(store, uKind, szGroup);
    groups.Distribute(selected);
    const QMReportInfo& info = *QMGetReportInfo(uKind);
    DrawName(page, info.szName);
    const QMReportFontScope font(page.GetSurface(), QMReportFont::Normal);
    const QMReportPenScope pen(page.GetSurface(), QMReportPen::Rule);
    for (size_t u = 0; u < groups.GetCount(); ++u) {
        page.MoveDown(2);
        page.Label(groups.GetName(u));
        page.MoveDown(1);
        List list(page, info.bDebitCredit);
        list.DrawHeads();
        for (const QMTransaction* pTransaction : groups.GetRows(u)) {
            list.DrawRow(*pTransaction);
        }
        list.Close("Total - ", groups.GetName(u));
    }
    page.MoveDown(2);
    return true;
}

bool QMDrawFlagReport(QMReportPage& page, const QMReportRows& selected, uint32_t uKind)
{
    const QMReportInfo* pInfo = QMGetReportInfo(uKind);
    if (pInfo == nullptr || pInfo->drawer != QMReportDrawer::Flag) {
        return false;
    }
    DrawName(page, pInfo->szName);
    const QMReportFontScope font(page.GetSurface(), QMReportFont::Normal);
    const QMReportPenScope pen(page.GetSurface(), QMReportPen::Rule);
    page.MoveDown(2);
    List list(page, pInfo->bDebitCredit);
    list.DrawHeads();
    for (const QMTransaction* pTransaction : selected) {
        // A voided transaction is listed only among the voided ones, whatever other tag it has.
        const bool bHidden =
            uKind != QM_REPORT_VOIDED && pTransaction->HasFlag(QM_TRANS_FLAG_VOIDED);
        if (pTransaction->HasFlag(pInfo->uFlag) && !bHidden) {
            list.DrawRow(*pTransaction);
        }
    }
    list.Close("Total ", pInfo->szName);
    page.MoveDown(2);
    return true;
}
