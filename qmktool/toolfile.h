// The files that the commands read and write: the kind that a name stands for, and why a file was
// not written.
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

// Makes the file of what write(sink) writes: the whole file or nothing. An existing file is
// replaced with bReplace only. Returns false after a line on standard error.
bool WriteToolFile(const char* szFile, bool bReplace,
                   const std::function<bool(QMByteSink& sink)>& write);
