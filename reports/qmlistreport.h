// The two drawers of lists: group by group, and one list of the transactions that carry a tag.
// They go by the dates of the transactions, cleared or not.
#pragma once

#include "reports/qmreportgroups.h"
#include "reports/qmreportpage.h"

// Kinds 1 to 4. Always true.
bool QMDrawGroupedReport(QMReportPage& page, const QMTransactionStore& store,
                         const QMReportRows& selected, uint32_t uKind, const char* szGroup);

// False for a kind outside 5 to 8.
bool QMDrawFlagReport(QMReportPage& page, const QMReportRows& selected, uint32_t uKind);
