// Exchange files for the commands: reads one into a store, and writes one from a store.
#pragma once

#include "account/qmaccount.h"
#include "exchange/qmbankreader.h"
#include "qmktool/output.h"
#include "qmktool/toolfile.h"
#include "qmktool/tooloptions.h"

// The formats of IN and OUT: by the options for a standard stream, by the name for a file.
QMExchangeKind InKindOf(const ToolOptions& options);
QMExchangeKind OutKindOf(const ToolOptions& options);

// Whether the options tell the dialect of a bank.
bool UsesDialect(const ToolOptions& options);

// The encoding of texts that were read from a file of this kind.
VEncoding EncodingOf(QMExchangeKind kind);

// Reads all bytes of a file, or of standard input for "-". When that fails, writes a line to
// standard error, by which it is not possible to do szWhat with the file, and returns false.
bool ReadToolFile(const char* szFile, const char* szWhat, std::string& sBytes);

// Makes the dialect from the profile and from the command line, which counts where they differ.
// Adds the names that the command line sets to pNames, which may be null. On a fault, writes a line
// to standard error and returns false.
bool MakeDialect(const ToolOptions& options, QMDialect& dialect,
                 std::vector<std::string>* pNames = nullptr);

// Reads IN as a QIF, CSV or XML file: by the dialect of the options if they name one, else as the
// program does. When that fails, or when no record has a date or an amount, writes a line to
// standard error, leaves the store as it was, and returns false.
bool ReadExchangeFile(const ToolOptions& options, QMTransactionStore& store, QMBankReport& report);

// The same for a file without a dialect. Gives the records to a taker as it reads them; on false
// the taker may have got some of them.
bool TakeExchangeFile(const ToolOptions& options, QMRecordTaker& taker, QMBankReport& report);

// Counts the new transactions that the account seems to have already: those with the same date,
// side, amount, description and, for checks, number. One transaction of the account answers for one
// new transaction, so of two equal new ones only one may be known. With bLeaveOut, removes the
// known ones from the store.
int32_t FindKnown(const QMTransactionStore& account, QMTransactionStore& store, bool bLeaveOut);

// Adds ", 2 without a date, 1 without an amount, ..."; a count of 0 is left out.
void TellReport(Output& output, const QMBankReport& report);

// Writes the store as the exchange file OUT, completely or not at all. QMExportObstacle must have
// no reason against it. The cursor of the store moves. Replaces an existing file only with --force.
// On a failure, writes a line to standard error and returns false.
bool WriteExchangeFile(QMTransactionStore& store, const ToolOptions& options);
