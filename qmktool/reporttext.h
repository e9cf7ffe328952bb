// A report as text for a terminal and as JSON.
#pragma once

#include "qmktool/output.h"
#include "qmktool/reportlines.h"

// The columns as on paper, each as wide as its widest text.
void WriteReportText(Output& output, const ReportLines& lines);

// With bCharacters, texts are characters by the encoding of the output.
void WriteReportJson(Output& output, const ReportLines& lines, const QMReport& report,
                     uint32_t uKind, bool bCharacters);
