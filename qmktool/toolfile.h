// The files that the commands read and write: the kind by the name, and writing.
#pragma once

#include <functional>

#include "account/qmbytesink.h"
#include "base/vfilesystem.h"
#include "exchange/qmexchange.h"

// Whether the name ends in ".qmk", ignoring case. A dot in the name of a folder does not count.
bool IsAccountName(const char* szFile);

// The kind of an exchange file by its name. None for .txt too, because there is no such format.
QMExchangeKind ExchangeKindOf(const char* szFile);

// Whether the name is "-", which stands for standard input or standard output.
bool IsStandardStream(const char* szFile);

// Makes the file from what write(sink) writes, completely or not at all. Replaces an existing file
// only with bReplace. On a failure, writes a line to standard error and returns false.
bool WriteToolFile(const char* szFile, bool bReplace,
                   const std::function<bool(QMByteSink& sink)>& write);
