// The files that commands read and write: which kind a name means, and why one was not written.
#pragma once

#include "base/vfilesystem.h"
#include "exchange/qmexchange.h"

// Whether the name ends in ".qmk", ignoring case. A dot in a folder's name does not count.
bool IsAccountName(const char* szFile);

// The kind of an exchange file by its name; None for text files too, for which there is no format.
QMExchangeKind ExchangeKindOf(const char* szFile);

// What came of writing the file: true without a fault, otherwise false after a line on standard
// error.
bool ReportWriting(const char* szFile, VFileFault fault);
