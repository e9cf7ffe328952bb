// Converts the font records of Windows into a QMSystemFont. For Windows files only.
#pragma once

#include <windows.h>

#include "account/qmsystemfont.h"

// nDotsPerInch has the meaning that it has in QMSystemFont.
QMSystemFont QMDescribeFont(const LOGFONTA& record, int nDotsPerInch);
