// Opens and writes accounts for the commands, and says what went wrong.
#pragma once

#include <memory>

#include "account/qmaccount.h"
#include "account/qmaccountreader.h"
#include "qmktool/toolerror.h"
#include "qmktool/tooloptions.h"

// Reads an account and compares the password if it has one. The file is locked while it is read,
// closed afterwards, and never written. Returns null after a line on standard error.
std::unique_ptr<QMAccount> OpenToolAccount(const char* szFile, const ToolOptions& options,
                                           QMReadReport& report);

// Writes the account in its format version, as a whole file or not at all. An existing file is
// replaced only with bReplace. Returns false after a line on standard error.
bool WriteToolAccount(const QMAccount& account, const char* szFile, bool bReplace);

// Leaves what a command has made in memory until the process ends. The system gives it back at
// once; to delete a million transactions one by one takes as long as to read them.
template <class T>
T& KeepUntilExit(std::unique_ptr<T> pKept)
{
    // Volatile, for a compiler drops what nothing reads, and a check for leaks finds nothing then.
    static T* volatile pLast;
    pLast = pKept.release();
    return *pLast;
}

// The name of a format version: "1.0", "1.1" or "2.0". An unknown one acts as 1.1 and is named so.
const char* FormatName(int32_t lVersion);
