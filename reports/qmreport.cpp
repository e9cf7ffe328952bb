#include "reports/qmreport.h"

#include <algorithm>
#include <new>

#include "reports/qmlistreport.h"
#include "reports/qmreporttext.h"
#include "reports/qmstatement.h"

namespace {

bool IsUnset(const QMDate& date)
{
    return date.wYear == 0 || date.wMonth == 0 || date.wDay == 0;
}

void Widen(int32_t& lWidth, QMReportSurface& surface, std::string_view text)
{
    lWidth = std::max(lWidth, surface.TextExtent(text).lWidth);
}

} // namespace

void QMReport::SetRange(const QMDate& dtFrom, const QMDate& dtTo)
{
    m_dateFrom = dtFrom;
    m_dateTo = dtTo;
}

bool QMReport::Measure(uint32_t uKind, QMReportSurface& surface, VRect& page, const VRect& margins)
try {
    m_uKind = uKind;
    const QMReportInfo* pInfo = QMGetReportInfo(uKind);
    if (pInfo == nullptr || !SortFor(*pInfo) || !BuildSelection(*pInfo, surface)) {
        return false;
    }
    QMReportPage pass(surface, m_layout, page, margins, false);
    if (!Run(pass) || pass.GetY() > INT32_MAX - page.bottom) {
        return false;
    }
    page.bottom += static_cast<int32_t>(pass.GetY());
    m_lLines = static_cast<int32_t>((pass.GetY() - margins.top) / m_layout.lLineHeight);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

bool QMReport::Draw(QMReportSurface& surface, const VRect& page, const VRect& margins)
try {
    QMReportPage pass(surface, m_layout, page, margins, true);
    return Run(pass);
} catch (const std::bad_alloc&) {
    return false;
}

bool QMReport::SortFor(const QMReportInfo& info)
{
    const bool bStatement = info.drawer == QMReportDrawer::Statement;
    const int32_t lMode = bStatement ? QM_SORT_CLEARED : QM_SORT_DATE;
    return m_account.store.Resort(lMode) >= 0 || m_account.store.IsEmpty();
}

bool QMReport::Run(QMReportPage& page)
{
    const QMReportInfo* pInfo = QMGetReportInfo(m_uKind);
    if (pInfo == nullptr) {
        return false;
    }
    DrawHeader(page, pInfo->szName);
    switch (pInfo->drawer) {
        case QMReportDrawer::Statement:
            return QMStatement(m_account.store, m_selected, m_dateFrom, m_dateTo).Draw(page);
        case QMReportDrawer::Grouped:
            return QMDrawGroupedReport(page, m_account.store, m_selected, m_uKind,
                                       m_szGroup.GetText());
        default:
            return QMDrawFlagReport(page, m_selected, m_uKind);
    }
}

bool QMReport::IsSelected(const QMTransaction& transaction, bool bStatement) const
{
    if (bStatement) {
        return !transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED) &&
               QMDateIsInRange(transaction.dtCleared, m_dateFrom, m_dateTo);
    }
    return QMDateIsInRange(transaction.dtDate, m_dateFrom, m_dateTo);
}

bool QMReport::BuildSelection(const QMReportInfo& info, QMReportSurface& surface)
{
    if (IsUnset(m_dateFrom) || IsUnset(m_dateTo)) {
        return false;
    }
    m_layout = {};
    m_selected.clear();
    const bool bStatement = info.drawer == QMReportDrawer::Statement;
    m_account.store.ForEach([&](const QMTransaction& transaction) {
        if (IsSelected(transaction, bStatement)) {
            m_selected.push_back(&transaction);
        }
    });
    MeasureColumns(surface);
    return true;
}

void QMReport::MeasureColumns(QMReportSurface& surface)
{
    const QMReportFontScope font(surface, QMReportFont::Normal);
    const QMReportExtent number = surface.TextExtent("Number");
    m_layout.lLineHeight = number.lHeight + 1;
    m_layout.lNumberWidth = number.lWidth;
    Widen(m_layout.lDateWidth, surface, "Date Cleared");
    Widen(m_layout.lAmountWidth, surface, "$9999999.99");
    Widen(m_layout.lAmountWidth, surface, "Amount");
    m_layout.lDebitWidth = m_layout.lCreditWidth = m_layout.lAmountWidth;
    Widen(m_layout.lDebitWidth, surface, "Debit");
    Widen(m_layout.lCreditWidth, surface, "Credit");
    for (const QMTransaction* pTransaction : m_selected) {
        // Kept: a wide amount widens the Amount column only. Debit and Credit keep their widths,
        // and such an amount runs over to the left there.
        QMReportText amount;
        amount.AddAmount(pTransaction->GetRoundedAmount());
        Widen(m_layout.lAmountWidth, surface, amount.Get());
        if (pTransaction->lType == QM_TRANS_CHECK) {
            QMReportText text;
            text.AddInteger(static_cast<int32_t>(pTransaction->lNumber));
            Widen(m_layout.lNumberWidth, surface, text.Get());
        }
    }
}

void QMReport::DrawHeader(QMReportPage& page, const char* szName) const
{
    page.StartBelowTop();
    if (page.IsDrawing()) {
        QMReportText title;
        title.Add(m_account.header.szBankName).Add(" ").Add(szName);
        {
            const QMReportFontScope font(page.GetSurface(), QMReportFont::Bold);
            page.Title(title.Get());
        }
        QMReportText range;
        range.AddInteger(m_dateFrom.wMonth).Add("/").AddInteger(m_dateFrom.wDay).Add("/");
        range.AddNumber(m_dateFrom.wYear, 4).Add(" - ").AddInteger(m_dateTo.wMonth).Add("/");
        range.AddInteger(m_dateTo.wDay).Add("/").AddInteger(m_dateTo.wYear);
        const QMReportFontScope font(page.GetSurface(), QMReportFont::Normal);
        page.HeadRule(page.Total(range.Get()).lHeight);
    }
    page.MoveDown(1);
}
