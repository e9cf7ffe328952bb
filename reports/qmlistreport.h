// Draws the list reports: by groups, and the transactions with a tag. Their dates are those of the
// transactions, cleared or not.
#pragma once

#include "reports/qmreportgroups.h"
#include "reports/qmreportpage.h"

// Draws the kinds 1 to 4. Always returns true.
bool QMDrawGroupedReport(QMReportPage& page, const QMTransactionStore& store,
                         const QMReportRows& selected, uint32_t uKind, const char* szGroup);

// Draws the kinds 5 to 8. Returns false for any other kind.
bool QMDrawFlagReport(QMReportPage& page, const QMReportRows& selected, uint32_t uKind);
