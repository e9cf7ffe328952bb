// What the tests of the exchange formats share: files made of texts, records told as texts.
#pragma once

#include <string>
#include <vector>

#include "account/qmtransaction.h"
#include "account/qmtransactionstore.h"

// Date, type, number, amount, flags, date cleared and the texts, such as
// "3/14/2004 0 #1001 12.50 f16 3/14/2004 'Rent' 'March' 'Home'"; empty texts at the end are left
// out.
std::string FullText(const QMTransaction& transaction);

// Copies of all, from the first to the last.
std::vector<QMTransaction> RecordsOf(const QMTransactionStore& store);

// What a file of that name and contents reads as; a single text "(refused)" when it does not.
std::vector<std::string> Import(const std::string& sName, const std::string& sBytes);

// The same as records. The running test fails when the file does not read.
std::vector<QMTransaction> ImportRecords(const std::string& sName, const std::string& sBytes);

// The only record of a file. The running test fails when there are none or several.
QMTransaction ImportOne(const std::string& sName, const std::string& sBytes);

// Adds these records in turn, exports them to a file of that name, and returns its bytes, with
// single line ends. The running test fails when the formats refuse. An export that would never
// return is not started.
std::string Export(const std::string& sName, const std::vector<QMTransaction>& records);

// A transaction with its texts.
QMTransaction MakeFull(int32_t lType, const std::string& sDate, float fAmount,
                       const std::string& sDescription, const std::string& sMemo,
                       const std::string& sCategory, uint32_t uFlags = QM_TRANS_FLAG_NOT_CLEARED);
