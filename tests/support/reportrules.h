// The rules of reports written a second time, step by step and without any cleverness: every
// section and every group walks all the transactions, texts are printed by the library.
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

// What a report draws on a ReportRecorder. The account's transactions get the report's order.
ReportDrawing DrawByRules(QMAccountData& account, const ReportOrder& order);

// The same by the program.
ReportDrawing DrawByProgram(QMAccountData& account, const ReportOrder& order);
