// The frame's print document and what is stored of its page setup.
#pragma once

#include "printing/vprintdocument.h"
#include "settings/qmpagesetup.h"

// Puts what is stored over the defaults of the printer, at the program's start. Without a printer
// the margins alone are taken.
void QMApplyPageSetup(VPrintDocument& document, const QMPageSetup& stored);
// What is to be stored. Without a printer that is the margins alone.
QMPageSetup QMDescribePageSetup(const VPrintDocument& document);
