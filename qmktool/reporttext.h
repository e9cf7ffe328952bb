// A report as text for a terminal and as JSON.
#pragma once

#include "qmktool/output.h"
#include "qmktool/reportlines.h"

// Writes the report with the columns of the printed one. Each is as wide as its widest text.
void WriteReportText(Output& output, const ReportLines& lines);

// Writes the report as JSON. With bCharacters, texts are decoded by the encoding of the output.
void WriteReportJson(Output& output, const ReportLines& lines, const QMReport& report,
                     uint32_t uKind, bool bCharacters);
