// Reads an exchange file into an account, and writes one from a store.
#pragma once

#include "account/qmaccount.h"
#include "qmktool/toolfile.h"

// Adds every transaction of a QIF, CSV or XML file to the account, like the program when all rows
// of its review are ticked. Returns how many; -1, with the account as it was, after a line on
// standard error.
int32_t ImportInto(QMAccount& account, const char* szFile);

// Writes the store as an exchange file, as a whole file or not at all. There must be no
// QMExportObstacle. The store's cursor moves. An existing file is replaced only with bReplace.
// Returns false after a line on standard error.
bool WriteExchangeFile(QMTransactionStore& store, const char* szFile, bool bReplace);
