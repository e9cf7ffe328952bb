// Opening and writing an account for a command, and the sentences for what goes wrong.
#pragma once

#include <memory>

#include "account/qmaccount.h"
#include "account/qmaccountreader.h"
#include "qmktool/toolerror.h"
#include "qmktool/tooloptions.h"

// Reads the account, which is locked meanwhile and never written, and compares the password if it
// has one. Null after a line on standard error. The file is closed again.
std::unique_ptr<QMAccount> OpenToolAccount(const char* szFile, const ToolOptions& options,
                                           QMReadReport& report);

// Writes the account, in its format version, as a whole file or not at all; an existing one is
// replaced with bReplace only. False after a line on standard error.
bool WriteToolAccount(const QMAccount& account, const char* szFile, bool bReplace);

// "1.0", "1.1" or "2.0" for the words of these; others read as 1.1.
const char* FormatName(int32_t lVersion);
