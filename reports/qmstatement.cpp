#include "reports/qmstatement.h"

#include <algorithm>

#include "reports/qmreporttext.h"

namespace {

constexpr struct
{
    const char* szLabel;
    const char* szSign;
} aSummary[] = {
    {"Beginning Balance", " "}, {"Deposits", "+"}, {"Withdrawals", "-"},
    {"Interest Paid", "+"},     {"Fees", "-"},     {"Ending Balance", " "},
};

constexpr QMStatementGroup aGroupOfType[QM_TRANS_TYPE_COUNT] = {
    QMStatementGroup::Checks,           // Check
    QMStatementGroup::Deposits,         // Deposit
    QMStatementGroup::OtherWithdrawals, // Withdrawal
    QMStatementGroup::Fees,             // Fee
    QMStatementGroup::Deposits,         // Direct Deposit
    QMStatementGroup::OtherWithdrawals, // Direct Debit
    QMStatementGroup::Deposits,         // ATM Deposit
    QMStatementGroup::OtherWithdrawals, // ATM Withdrawal
    QMStatementGroup::OtherWithdrawals, // Automatic Payment
    QMStatementGroup::Deposits,         // Transfer - Credit
    QMStatementGroup::OtherWithdrawals, // Transfer - Debit
    QMStatementGroup::Interest,         // Interest Paid
};

constexpr QMSummaryRow aSummaryRowOfGroup[QM_STATEMENT_GROUP_COUNT] = {
    QM_SUMMARY_DEPOSITS, QM_SUMMARY_WITHDRAWALS, QM_SUMMARY_WITHDRAWALS,
    QM_SUMMARY_INTEREST, QM_SUMMARY_FEES,
};

} // namespace

QMStatementGroup QMStatementGroupOf(int32_t lType)
{
    return lType >= 0 && lType < QM_TRANS_TYPE_COUNT ? aGroupOfType[lType] : QMStatementGroup::None;
}

QMStatement::QMStatement(const QMTransactionStore& store, const QMReportRows& selected,
                         const QMDate& dtFrom, const QMDate& dtTo)
    : m_selected(selected)
{
    AddUpBeginning(store, dtFrom, dtTo);
    for (const QMTransaction* pTransaction : selected) {
        AddUp(*pTransaction);
    }
    m_aValue[QM_SUMMARY_ENDING] = m_aValue[QM_SUMMARY_BEGINNING] + m_aValue[QM_SUMMARY_DEPOSITS] -
                                  m_aValue[QM_SUMMARY_WITHDRAWALS] + m_aValue[QM_SUMMARY_INTEREST] -
                                  m_aValue[QM_SUMMARY_FEES];
}

void QMStatement::AddUpBeginning(const QMTransactionStore& store, const QMDate& dtFrom,
                                 const QMDate& dtTo)
{
    // Kept: the walk ends at the first transaction inside the range, cleared or not. Where there is
    // none it runs to the end, and what was cleared after the range counts as well.
    double dCleared = 0;
    double dAll = 0;
    store.ForEachWhile([&](const QMTransaction& transaction) {
        transaction.ApplyToBalances(dCleared, dAll);
        if (QMDateIsInRange(transaction.dtCleared, dtFrom, dtTo)) {
            return false;
        }
        m_aValue[QM_SUMMARY_BEGINNING] = dCleared;
        return true;
    });
}

void QMStatement::AddUp(const QMTransaction& transaction)
{
    const QMStatementGroup group = QMStatementGroupOf(transaction.lType);
    if (group == QMStatementGroup::None) {
        return;
    }
    const auto i = static_cast<int32_t>(group);
    // Kept: one that is voided and yet cleared has a row, but counts neither in the summary nor in
    // its section. A check of that kind stands nowhere.
    const bool bVoided = transaction.HasFlag(QM_TRANS_FLAG_VOIDED);
    if (!bVoided || group != QMStatementGroup::Checks) {
        m_aRows[i].push_back(&transaction);
    }
    if (!bVoided) {
        m_aValue[aSummaryRowOfGroup[i]] += transaction.GetRoundedAmount();
        ++m_aCount[i];
    }
}

int32_t QMStatement::GetCount(QMStatementGroup group) const
{
    return m_aCount[static_cast<int32_t>(group)];
}

bool QMStatement::Draw(QMReportPage& page) const
{
    const QMReportFontScope font(page.GetSurface(), QMReportFont::Normal);
    const QMReportPenScope pen(page.GetSurface(), QMReportPen::Rule);
    WidenAmounts(page);
    page.MoveDown(2);
    DrawTitle(page, "Statement Summary");
    DrawSummary(page);
    page.MoveDown(2);
    DrawTitle(page, "Statement Details");
    DrawDetails(page);
    page.MoveDown(2);
    return true;
}

void QMStatement::WidenAmounts(QMReportPage& page) const
{
    int32_t& lWidth = page.GetLayout().lAmountWidth;
    for (const double dValue : m_aValue) {
        QMReportText text;
        text.AddAmount(dValue);
        lWidth = std::max(lWidth, page.GetSurface().TextExtent(text.Get()).lWidth);
    }
}

void QMStatement::DrawTitle(QMReportPage& page, const char* szTitle) const
{
    constexpr int32_t lTitleIndent = 10;
    const QMReportFontScope font(page.GetSurface(), QMReportFont::Bold);
    page.FrameTitle(page.Title(szTitle, lTitleIndent).lHeight);
}

void QMStatement::DrawSummary(QMReportPage& page) const
{
    page.MoveDown(1);
    for (int32_t i = 0; i < QM_SUMMARY_ROW_COUNT; ++i) {
        page.MoveDown(1);
        if (!page.IsDrawing()) {
            continue;
        }
        if (i == QM_SUMMARY_ENDING) {
            page.TotalRule(false);
        }
        QMReportText value;
        value.AddAmount(m_aValue[i]);
        page.Label(aSummary[i].szLabel);
        page.Sign(aSummary[i].szSign);
        page.Amount(value.Get());
    }
}

void QMStatement::DrawDetails(QMReportPage& page) const
{
    constexpr int32_t lNoteIndent = 20;
    if (m_selected.empty()) {
        page.MoveDown(2);
        page.Label("No statement details available.", lNoteIndent);
        return;
    }
    DrawSection(page, {"Deposits", QMStatementGroup::Deposits, QM_SUMMARY_DEPOSITS});
    DrawWithdrawals(page);
    DrawSection(page, {"Interest Paid", QMStatementGroup::Interest, QM_SUMMARY_INTEREST});
    DrawSection(page, {"Fees", QMStatementGroup::Fees, QM_SUMMARY_FEES});
}

void QMStatement::DrawSection(QMReportPage& page, const Section& section) const
{
    if (GetCount(section.group) == 0) {
        return;
    }
    page.MoveDown(2);
    {
        const QMReportFontScope font(page.GetSurface(), QMReportFont::Bold);
        DrawCountTitle(page, section.szName, GetCount(section.group));
    }
    page.MoveDown(2);
    page.ColumnHeads("Date Cleared", false, false);
    DrawRows(page, section.group);
    page.MoveDown(1);
    // Kept: the total repeats the summary, so a voided row is not in it.
    DrawTotal(page, section.szName, m_aValue[section.total]);
}

void QMStatement::DrawWithdrawals(QMReportPage& page) const
{
    const int32_t lCount =
        GetCount(QMStatementGroup::Checks) + GetCount(QMStatementGroup::OtherWithdrawals);
    if (lCount == 0) {
        return;
    }
    page.MoveDown(2);
    {
        const QMReportFontScope font(page.GetSurface(), QMReportFont::Bold);
        DrawCountTitle(page, "Withdrawals", lCount);
    }
    DrawSubsection(page, QMStatementGroup::Checks, "Checks");
    DrawSubsection(page, QMStatementGroup::OtherWithdrawals, "Other Withdrawals");
    page.MoveDown(2);
    DrawTotal(page, "Withdrawals", m_aValue[QM_SUMMARY_WITHDRAWALS]);
}

void QMStatement::DrawSubsection(QMReportPage& page, QMStatementGroup group,
                                 const char* szName) const
{
    page.MoveDown(2);
    DrawCountTitle(page, szName, GetCount(group));
    page.MoveDown(1);
    page.ColumnHeads("Date Cleared", group == QMStatementGroup::Checks, false);
    // Kept: this total is that of the rows, voided ones included.
    const double dSum = DrawRows(page, group);
    if (RowsOf(group).empty()) {
        page.MoveDown(1);
        page.EmptyRow();
    }
    page.MoveDown(1);
    DrawTotal(page, szName, dSum);
}

double QMStatement::DrawRows(QMReportPage& page, QMStatementGroup group) const
{
    const bool bChecks = group == QMStatementGroup::Checks;
    double dSum = 0;
    int64_t nRow = 0;
    for (const QMTransaction* pTransaction : RowsOf(group)) {
        page.MoveDown(1);
        if (!page.IsDrawing()) {
            continue;
        }
        page.ShadeRow(nRow++);
        page.Date(pTransaction->dtCleared);
        if (bChecks) {
            QMReportText number;
            number.AddInteger(static_cast<int32_t>(pTransaction->lNumber));
            page.Number(number.Get());
        }
        QMReportText text;
        QMAddRowText(text, *pTransaction, !bChecks);
        page.Description(text.Get(), bChecks);
        const double dAmount = pTransaction->GetRoundedAmount();
        QMReportText amount;
        amount.AddAmount(dAmount);
        page.Amount(amount.Get());
        page.EndRow();
        dSum += dAmount;
    }
    return dSum;
}

void QMStatement::DrawCountTitle(QMReportPage& page, const char* szName, int32_t lCount) const
{
    if (page.IsDrawing()) {
        QMReportText text;
        text.Add(szName).Add(":  ").AddInteger(lCount).Add(" Transaction").AddPlural(lCount);
        page.Label(text.Get());
    }
}

void QMStatement::DrawTotal(QMReportPage& page, const char* szName, double dValue) const
{
    if (page.IsDrawing()) {
        page.TotalRule(false);
        QMReportText text;
        text.Add("Total ").Add(szName);
        page.Label(text.Get());
        QMReportText value;
        value.AddAmount(dValue);
        page.Total(value.Get());
    }
}
