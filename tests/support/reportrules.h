// The rules of reports written a second time, step by step and as simply as possible: every section
// and every group walks all transactions, and the C library prints the texts.
#pragma once

#include <string>
#include <vector>

#include "account/qmaccountdata.h"
#include "tests/support/reportrecorder.h"

struct ReportOrder
{
    uint32_t uKind = 0;
    QMDate dtFrom;
    QMDate dtTo;
    std::string sGroup = "All";
    int32_t lWidth = 651;
    VRect margins = {15, 15, 15, 15};
};

struct ReportDrawing
{
    std::vector<std::string> acts;
    int32_t lHeight = 0;
    int32_t lLineHeight = 0;
    bool bDrawn = false;
};

// What these rules draw on a ReportRecorder. Puts the account's transactions into the order of the
// report.
ReportDrawing DrawByRules(QMAccountData& account, const ReportOrder& order);

// What the program draws.
ReportDrawing DrawByProgram(QMAccountData& account, const ReportOrder& order);
