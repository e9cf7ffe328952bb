// QMReport: a report on an account: which transactions it lists and how it is drawn. The screen,
// the printer and qmktool all use it.
#pragma once

#include <cstdint>

#include "account/qmaccountdata.h"
#include "base/vstring.h"
#include "reports/qmreportgroups.h"
#include "reports/qmreportkind.h"
#include "reports/qmreportpage.h"

class QMReport
{
public:
    // The account must be the report's own copy and live longer than the report: running a report
    // reorders its transactions.
    explicit QMReport(QMAccountData& account) : m_account(account) {}

    // Sets the range of dates. Both days belong to it.
    void SetRange(const QMDate& dtFrom, const QMDate& dtTo);
    const QMDate& GetFrom() const { return m_dateFrom; }
    const QMDate& GetTo() const { return m_dateTo; }

    // The type, or the text, for a report of the kinds 1 to 4; QM_REPORT_ALL_GROUPS for all.
    void SetGroup(const char* szGroup) { m_szGroup = szGroup; }

    // Selects the transactions of the range and measures the report. page gives the width; its
    // height grows by that of the report. Returns false for an unknown kind, for a date with a part
    // of 0, for a report higher than 2^31 pixels, and when memory ran out.
    bool Measure(uint32_t uKind, QMReportSurface& surface, VRect& page, const VRect& margins);

    // Draws what Measure has measured. Surface, page and margins must be the same. The surface is
    // left as it was.
    bool Draw(QMReportSurface& surface, const VRect& page, const VRect& margins);

    const QMReportLayout& GetLayout() const { return m_layout; }
    const QMReportRows& GetSelected() const { return m_selected; }

    // The number of lines of the report, from below the top margin to its end.
    int32_t GetLineCount() const { return m_lLines; }

private:
    bool SortFor(const QMReportInfo& info);
    bool BuildSelection(const QMReportInfo& info, QMReportSurface& surface);
    bool IsSelected(const QMTransaction& transaction, bool bStatement) const;
    void MeasureColumns(QMReportSurface& surface);
    bool Run(QMReportPage& page);
    void DrawHeader(QMReportPage& page, const char* szName) const;

    QMAccountData& m_account;
    uint32_t m_uKind = QM_REPORT_NONE;
    VString m_szGroup;
    QMDate m_dateFrom;
    QMDate m_dateTo;
    QMReportLayout m_layout;
    QMReportRows m_selected; // transactions of m_account, in the order of its store
    int32_t m_lLines = 0;
};
