// The commands of qmktool. Each returns the exit code.
#pragma once

#include "qmktool/tooloptions.h"

int RunInfo(const ToolOptions& options);
int RunList(const ToolOptions& options);
int RunCheck(const ToolOptions& options);
int RunConvert(const ToolOptions& options);
int RunImport(const ToolOptions& options);
// For import and convert with --detect.
int RunDetect(const ToolOptions& options);
int RunReport(const ToolOptions& options);
