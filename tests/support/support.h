// What all tests share: makers of records, temporary folders, whole files as texts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "account/qmdate.h"
#include "account/qmtransaction.h"
#include "account/qmtransactionstore.h"

using Texts = std::vector<std::string>;

// What the register calls each type of transaction, by the number of the type. Written down a
// second time, so that a test notices when the product's own table changes.
extern const Texts g_typeLabels;

// Reads a date such as "3/14/2004" without the product's reader and without validation.
QMDate MakeDate(const std::string& sText);

// "3/14/2004"; no leading zeroes, and the year as it is.
std::string DateText(const QMDate& date);

// A new transaction with these values. The date cleared is the date.
QMTransaction MakeTransaction(int32_t lType, const std::string& sDate, float fAmount,
                              uint32_t uFlags = QM_TRANS_FLAG_NOT_CLEARED,
                              const std::string& sDescription = "");

// Adds a copy to the store. Returns what Add returns.
int32_t AddTo(QMTransactionStore& store, const QMTransaction& transaction);

// Whether all fields have the same bytes.
bool IsSame(const QMTransactionFields& a, const QMTransactionFields& b);

// Date, type, amount and description, such as "3/14/2004 0 12.50 Rent". Without a description there
// is no blank at the end.
std::string TextOf(const QMTransactionFields& fields);

// TextOf of all transactions, from the first to the last. The cursor stays.
Texts ContentsOf(const QMTransactionStore& store);

// A new empty folder. At the end of the scope it is removed with everything in it.
class TemporaryFolder
{
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::string& GetPath() const { return m_sPath; }
    // The path of a name in the folder.
    std::string PathOf(const std::string& sName) const;
    // The names in the folder, sorted.
    Texts GetNames() const;

private:
    std::string m_sPath;
};

// All bytes of a file. The running test fails when there is no such file.
std::string ReadWholeFile(const std::string& sPath);

// Creates or replaces a file. The running test fails when that is not possible.
void WriteWholeFile(const std::string& sPath, const std::string& sBytes);
