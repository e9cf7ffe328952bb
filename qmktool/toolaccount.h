// Opens and writes accounts for the commands, and says what went wrong.
#pragma once

#include <memory>

#include "account/qmaccount.h"
#include "account/qmaccountreader.h"
#include "account/qmpackedtransactions.h"
#include "qmktool/toolerror.h"
#include "qmktool/tooloptions.h"

// Reads an account, and compares the password if it has one. The file is locked while it is read,
// and is never written. When reading fails, writes a line to standard error and returns null.
std::unique_ptr<QMAccount> OpenToolAccount(const char* szFile, const ToolOptions& options,
                                           QMReadReport& report);

// Writes the account in its format version, completely or not at all. Replaces an existing file
// only with bReplace. When writing fails, writes a line to standard error and returns false.
bool WriteToolAccount(const QMAccount& account, const char* szFile, bool bReplace);

// The same, with packed transactions in place of the account's own.
bool WriteToolAccount(const QMAccount& account, QMPackedTransactions& packed, const char* szFile,
                      bool bReplace);

// Keeps an object until the process ends. The system then frees its memory at once. To delete a
// million transactions one by one takes as long as to read them.
template <class T>
T& KeepUntilExit(std::unique_ptr<T> pKept)
{
    // Without volatile the compiler would drop the pointer, because nothing reads it. The leak
    // checker would then report the object.
    static T* volatile pLast;
    pLast = pKept.release();
    return *pLast;
}

// The name of a format version: "1.0", "1.1" or "2.0". An unknown one acts as 1.1 and is named so.
const char* FormatName(int32_t lVersion);
