// QMReport: a report on an account: which transactions it lists and how it is drawn, the same for
// the screen, the printer and qmktool.
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
    // The account is the report's own copy, which must outlive it: running a report puts its
    // transactions in another order.
    explicit QMReport(QMAccountData& account) : m_account(account) {}

    // Both days belong to the range.
    void SetRange(const QMDate& dtFrom, const QMDate& dtTo);
    const QMDate& GetFrom() const { return m_dateFrom; }
    const QMDate& GetTo() const { return m_dateTo; }

    // The type, or the text, that a report of kinds 1 to 4 is about; QM_REPORT_ALL_GROUPS for all.
    void SetGroup(const char* szGroup) { m_szGroup = szGroup; }

    // Selects the transactions of the range and measures the report. The page comes in with its
    // width and leaves higher by the report's height. False for an unknown kind, for a date with a
    // part of 0, for a report that is higher than 2^31 pixels, and without memory.
    bool Measure(uint32_t uKind, QMReportSurface& surface, VRect& page, const VRect& margins);

    // Draws what Measure measured, on the same surface and with the same page and margins. The
    // surface is left as it was found.
    bool Draw(QMReportSurface& surface, const VRect& page, const VRect& margins);

    const QMReportLayout& GetLayout() const { return m_layout; }
    const QMReportRows& GetSelected() const { return m_selected; }

    // The lines of the report, from below the top margin to its end.
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
