// The platform's font records as a QMSystemFont; for Windows files only.
#pragma once

#include <windows.h>

#include "account/qmsystemfont.h"

// nDotsPerInch as in QMSystemFont.
QMSystemFont QMDescribeFont(const LOGFONTA& record, int nDotsPerInch);
