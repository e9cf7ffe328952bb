#include <cstdio>
#include <cstring>

#include "base/vtext.h"
#include "qmktool/commands.h"
#include "qmktool/reportpdf.h"
#include "qmktool/reporttext.h"
#include "qmktool/toolaccount.h"
#include "reports/qmreportdates.h"

namespace {

// In the order of QMReportKind.
constexpr const char* aszKinds[QM_REPORT_KIND_COUNT] = {
    "statement", "type",     "description", "memo",        "category",
    "tax",       "expenses", "voided",      "not-cleared",
};

// The report that the command line asks for.
struct ReportOrder
{
    uint32_t uKind = QM_REPORT_NONE;
    const char* szGroup = QM_REPORT_ALL_GROUPS;
    QMReportDateChoice dates;
};

bool RefuseUse(const char* szFault)
{
    WriteError("%s (see qmktool --help)", szFault);
    return false;
}

bool ReadKind(const ToolOptions& options, uint32_t& uKind)
{
    if (options.szKind == nullptr) {
        return RefuseUse("--kind is missing behind 'report'");
    }
    for (uint32_t u = 0; u < QM_REPORT_KIND_COUNT; ++u) {
        if (strcmp(options.szKind, aszKinds[u]) == 0) {
            uKind = u;
            return true;
        }
    }
    WriteError("unknown kind of report '%s' (see qmktool --help)", options.szKind);
    return false;
}

bool ReadTypeGroup(const ToolOptions& options, ReportOrder& order)
{
    if (options.szGroup == nullptr) {
        return RefuseUse("the kind 'type' needs --group with the name of a type");
    }
    for (int32_t lType = 0; lType < QM_TRANS_TYPE_COUNT; ++lType) {
        if (VCompareNoCase(options.szGroup, QMTypeLabel(lType)) == 0) {
            order.szGroup = QMTypeLabel(lType);
            return true;
        }
    }
    WriteError("unknown type of transactions '%s' (see qmktool --help)", options.szGroup);
    return false;
}

bool ReadGroup(const ToolOptions& options, ReportOrder& order)
{
    if (order.uKind == QM_REPORT_TYPE) {
        return ReadTypeGroup(options, order);
    }
    if (options.szGroup == nullptr) {
        return true;
    }
    order.szGroup = options.szGroup;
    return QMReportHasTextGroups(order.uKind) ||
           RefuseUse("--group is for the kinds type, description, memo and category");
}

bool ReadMonth(const char* szText, QMReportDateChoice& choice)
{
    int nMonth = 0;
    int nYear = 0;
    char cMore = 0;
    const bool bDigits = strspn(szText, "0123456789/") == strlen(szText);
    if (!bDigits || sscanf(szText, "%2d/%4d%c", &nMonth, &nYear, &cMore) != 2 ||
        QMCheckDate(QMMakeDate(static_cast<uint16_t>(nYear), static_cast<uint16_t>(nMonth), 1)) !=
            0) {
        WriteError("not a month in the form M/YYYY: '%s' (see qmktool --help)", szText);
        return false;
    }
    choice.lYear = nYear;
    choice.lMonthIndex = nMonth - 1;
    return true;
}

bool ReadDates(const ToolOptions& options, QMReportDateChoice& choice)
{
    choice.bMonth = options.szMonth != nullptr;
    if (choice.bMonth == (options.bFrom || options.bTo)) {
        return RefuseUse("a report needs either --month or a period: --from, --to or both");
    }
    choice.dtFrom = options.dtFrom;
    choice.dtTo = options.dtTo;
    return !choice.bMonth || ReadMonth(options.szMonth, choice);
}

bool CheckOutput(const ToolOptions& options)
{
    if (options.szPdf != nullptr && options.bJson) {
        return RefuseUse("--json and --pdf shut each other out");
    }
    if (options.szPdf != nullptr && options.bEncoding) {
        return RefuseUse("--encoding is for text and JSON");
    }
    if (options.szPdf == nullptr && (options.bForce || options.szPaper != nullptr)) {
        return RefuseUse("--paper and --force are for --pdf");
    }
    return options.szPaper == nullptr || FindReportPaper(options.szPaper) != nullptr ||
           RefuseUse("--paper is either letter or a4");
}

bool ReadOrder(const ToolOptions& options, ReportOrder& order)
{
    return ReadKind(options, order.uKind) && ReadGroup(options, order) &&
           ReadDates(options, order.dates) && CheckOutput(options);
}

int WriteLines(const ToolOptions& options, QMReport& report, uint32_t uKind)
{
    ReportLines lines;
    if (!lines.Take(report, uKind)) {
        return RefuseFile("report on", options.aFiles[0], "there is not enough memory");
    }
    Output output(options.encoding);
    if (options.bJson) {
        WriteReportJson(output, lines, report, uKind, options.bEncoding);
    } else {
        WriteReportText(output, lines);
    }
    return output.Finish();
}

} // namespace

int RunReport(const ToolOptions& options)
{
    ReportOrder order;
    if (!ReadOrder(options, order)) {
        return QM_EXIT_USAGE;
    }
    QMDate dtFrom;
    QMDate dtTo;
    if (!QMReadDateRange(order.dates, dtFrom, dtTo)) {
        WriteError(
            "The 'From' date does not proceed the 'To' date. "
            "Please select a valid date range.");
        return QM_EXIT_USAGE;
    }
    QMReadReport readReport;
    const auto pAccount = OpenToolAccount(options.aFiles[0], options, readReport);
    if (pAccount == nullptr) {
        return QM_EXIT_REFUSED;
    }
    if (options.szMonth == nullptr) {
        QMCloseRange(pAccount->store, order.uKind, !options.bFrom, !options.bTo, dtFrom, dtTo);
    }
    QMReport report(*pAccount);
    report.SetRange(dtFrom, dtTo);
    report.SetGroup(order.szGroup);
    if (options.szPdf == nullptr) {
        return WriteLines(options, report, order.uKind);
    }
    return WriteReportPdf(*pAccount, report, order.uKind, options);
}
