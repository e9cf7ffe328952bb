// Exchange files for the commands: reads one into a store, and writes one from a store.
#pragma once

#include "account/qmaccount.h"
#include "exchange/qmbankreader.h"
#include "qmktool/output.h"
#include "qmktool/toolfile.h"
#include "qmktool/tooloptions.h"

// What IN and OUT are: by the options where they are standard streams, else by their names.
QMExchangeKind InKindOf(const ToolOptions& options);
QMExchangeKind OutKindOf(const ToolOptions& options);

// What the bytes of a text are that was read from a file of the kind.
VEncoding EncodingOf(QMExchangeKind kind);

// Reads all bytes of a file, or of standard input for "-". Returns false after a line on standard
// error.
bool ReadToolFile(const char* szFile, std::string& sBytes);

// Makes the dialect of the options: the profile first, and over it what the command line says,
// whose names are added to pNames, which may be null. Returns false after a line on standard error.
bool MakeDialect(const ToolOptions& options, QMDialect& dialect,
                 std::vector<std::string>* pNames = nullptr);

// Reads IN as a QIF, CSV or XML file, by the dialect of the options where they name one, else as
// the program does. Returns false, with the store as it was, after a line on standard error: also
// when nothing of use came from it, no record or none with a date or an amount.
bool ReadExchangeFile(const ToolOptions& options, QMTransactionStore& store, QMBankReport& report);

// How many of the new transactions the account seems to have already: with the same date, side,
// amount, description and, of checks, number. Each of the account's counts once, so that of twins
// one may be known. With bLeaveOut the known ones are taken out of the store.
int32_t FindKnown(const QMTransactionStore& account, QMTransactionStore& store, bool bLeaveOut);

// ", 2 without a date, 1 without an amount, ..." of what is not 0.
void TellReport(Output& output, const QMBankReport& report);

// Writes the store as OUT, an exchange file, whole or not at all. Its cursor moves, and
// QMExportObstacle must have no reason against it. An existing file is replaced with --force only.
// Returns false after a line on standard error.
bool WriteExchangeFile(QMTransactionStore& store, const ToolOptions& options);
