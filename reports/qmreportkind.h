// QMReportKind: the nine reports, and what each of them lists.
#pragma once

#include <cstdint>

enum QMReportKind : uint32_t
{
    QM_REPORT_STATEMENT = 0,
    QM_REPORT_TYPE = 1,
    QM_REPORT_DESCRIPTION = 2,
    QM_REPORT_MEMO = 3,
    QM_REPORT_CATEGORY = 4,
    QM_REPORT_TAX = 5,
    QM_REPORT_EXPENSES = 6,
    QM_REPORT_VOIDED = 7,
    QM_REPORT_NOT_CLEARED = 8,
    QM_REPORT_KIND_COUNT = 9,
};
// No report is selected.
inline constexpr uint32_t QM_REPORT_NONE = 0xFFFFFFFF;

// The choice of all groups.
inline constexpr char QM_REPORT_ALL_GROUPS[] = "All";

// The most texts that a report takes for groups, and the most that the dialog offers.
inline constexpr int32_t QM_REPORT_GROUP_LIMIT = 1000;
inline constexpr int32_t QM_REPORT_CHOICE_LIMIT = 50;

enum class QMReportDrawer
{
    Statement,
    Grouped,
    Flag,
};

struct QMReportInfo
{
    const char* szName;
    QMReportDrawer drawer;
    bool bDebitCredit;      // two columns for amounts instead of one
    uint32_t uFlag;         // the flag of the transactions that a flag report lists
    uint32_t uField;        // the QMFieldKind of the texts that make groups
    uint32_t uCompareLimit; // how many characters of a group's text count
};

// The description of a report; null for an unknown kind.
const QMReportInfo* QMGetReportInfo(uint32_t uKind);

// Whether the groups of a report are texts of a field. Those of the type report are not.
bool QMReportHasTextGroups(uint32_t uKind);
