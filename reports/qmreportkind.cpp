#include "reports/qmreportkind.h"

#include <iterator>

#include "account/qmtransaction.h"

namespace {

constexpr uint32_t uNoField = QM_FIELD_COUNT;

// The reports in the order of their kinds.
constexpr QMReportInfo aReports[] = {
    {"Statement of Account", QMReportDrawer::Statement, false, 0, uNoField, 0},
    {"Transaction Type", QMReportDrawer::Grouped, false, 0, uNoField, 0},
    {"Description", QMReportDrawer::Grouped, false, 0, QM_FIELD_PAYEE, 256},
    {"Memo", QMReportDrawer::Grouped, true, 0, QM_FIELD_MEMO, 256},
    {"Category", QMReportDrawer::Grouped, true, 0, QM_FIELD_CATEGORY, 128},
    {"Tax Deductions", QMReportDrawer::Flag, false, QM_TRANS_FLAG_TAX, uNoField, 0},
    {"Expenses", QMReportDrawer::Flag, false, QM_TRANS_FLAG_EXPENSE, uNoField, 0},
    // Kept: this report lists voided transactions of every type, not checks alone. It tests the
    // flag and nothing else, as its readers expect.
    {"Voided Checks", QMReportDrawer::Flag, false, QM_TRANS_FLAG_VOIDED, uNoField, 0},
    {"Not Cleared", QMReportDrawer::Flag, true, QM_TRANS_FLAG_NOT_CLEARED, uNoField, 0},
};
static_assert(std::size(aReports) == QM_REPORT_KIND_COUNT);

} // namespace

const QMReportInfo* QMGetReportInfo(uint32_t uKind)
{
    return uKind < QM_REPORT_KIND_COUNT ? &aReports[uKind] : nullptr;
}

bool QMReportHasTextGroups(uint32_t uKind)
{
    const QMReportInfo* pInfo = QMGetReportInfo(uKind);
    return pInfo != nullptr && pInfo->uField != uNoField;
}
