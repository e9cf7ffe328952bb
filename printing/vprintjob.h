// The print job: from pictures of pages to paper.
#pragma once

#include <windows.h>

class VWindow;
struct VPrintContext;

// Sends the pages from nFromPage to nToPage to the printer's surface, each stretched to the
// printer's area, and shows a dialog with a Cancel button over the owner's window, which is
// disabled meanwhile. The owner must outlive the call; its window need not.
//
// True when the spooler took all, and when the user cancelled. False in every other case, with the
// document aborted; only a printer that cannot scale pictures is told of in a box.
//
// Messages are handled meanwhile, by the abort procedure alone, and there must be no other job.
bool PrintJob(VPrintContext& context, VWindow& owner);

// The abort procedure: handles what messages are waiting. 0 when the job is to stop.
BOOL CALLBACK AbortPump(HDC hDC, int nCode);
