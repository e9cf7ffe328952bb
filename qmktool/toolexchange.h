// Exchange files for the commands: reads one into a store, and writes one from a store.
#pragma once

#include "account/qmaccount.h"
#include "exchange/qmbankreader.h"
#include "qmktool/output.h"
#include "qmktool/toolfile.h"
#include "qmktool/tooloptions.h"

// Reads a QIF, CSV or XML file, by the dialect of the options where they name one, else as the
// program does. Returns false, with the store as it was, after a line on standard error: also when
// the file has records, but none with a date or an amount.
bool ReadExchangeFile(const char* szFile, const ToolOptions& options, QMTransactionStore& store,
                      QMBankReport& report);

// How many of the new transactions the account seems to have already: with the same date, side,
// amount, description and, of checks, number. Each of the account's counts once, so that of twins
// one may be known. With bLeaveOut the known ones are taken out of the store.
int32_t FindKnown(const QMTransactionStore& account, QMTransactionStore& store, bool bLeaveOut);

// ", 2 without a date, 1 without an amount, ..." of what is not 0.
void TellReport(Output& output, const QMBankReport& report);

// Writes the store as an exchange file, whole or not at all. Its cursor moves, and QMExportObstacle
// must have no reason against it. An existing file is replaced only with bReplace. Returns false
// after a line on standard error.
bool WriteExchangeFile(QMTransactionStore& store, const char* szFile, bool bReplace);
