// Exchange files for commands: reading one into an account, and writing one from a store.
#pragma once

#include "account/qmaccount.h"
#include "qmktool/toolfile.h"

// Adds every transaction of a QIF, CSV or XML file to the account, as the program does when all
// rows of its review are ticked. Returns their count; -1, with the account as it was, after a line
// on standard error.
int32_t ImportInto(QMAccount& account, const char* szFile);

// Writes the store, which must have no QMExportObstacle and whose cursor moves, as one of the
// exchange formats: the whole file or nothing, and an existing one is replaced with bReplace only.
// False after a line on standard error.
bool WriteExchangeFile(QMTransactionStore& store, const char* szFile, bool bReplace);
