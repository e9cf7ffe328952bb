// A report as a PDF file: real text, cut into pages as printing cuts it.
#pragma once

#include "account/qmaccountdata.h"
#include "qmktool/tooloptions.h"
#include "reports/qmreport.h"

struct ReportPaper
{
    const char* szName;
    int32_t lWidth; // pixels of 96 to the inch
    int32_t lHeight;
};

// "letter" or "a4"; null for other names.
const ReportPaper* FindReportPaper(const char* szName);

// Writes the file that options.szPdf names, as a whole or not at all; the same report gives the
// same bytes. Returns the exit code, 1 after a line on standard error.
int WriteReportPdf(const QMAccountData& account, QMReport& report, uint32_t uKind,
                   const ToolOptions& options);
