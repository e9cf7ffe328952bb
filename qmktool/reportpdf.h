// A report as a PDF file. Its texts are text, and its pages are those that the program prints.
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

// Writes the file that options.szPdf names, completely or not at all. The same report gives the
// same bytes. Returns the exit code. When it is 1, a line on standard error has told the reason.
int WriteReportPdf(const QMAccountData& account, QMReport& report, uint32_t uKind,
                   const ToolOptions& options);
