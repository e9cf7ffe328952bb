// What the core tests share: makers of records, temporary folders, whole files as texts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "account/qmdate.h"
#include "account/qmtransaction.h"
#include "account/qmtransactionstore.h"

// From a text such as "3/14/2004", read by a rule of its own: month, day and year, nothing tested.
QMDate MakeDate(const std::string& sText);

// "3/14/2004"; no leading zeroes, and the year as it is.
std::string DateText(const QMDate& date);

// A new transaction's contents with these in their places; the date cleared is the date.
QMTransaction MakeTransaction(int32_t lType, const std::string& sDate, float fAmount,
                              uint32_t uFlags = QM_TRANS_FLAG_NOT_CLEARED,
                              const std::string& sDescription = "");

// Adds a copy by the store's rule; returns what Add returns.
int32_t AddTo(QMTransactionStore& store, const QMTransaction& transaction);

// True when every byte but the list's links is the same.
bool IsSame(const QMTransactionFields& a, const QMTransactionFields& b);

// Date, type, amount and description, such as "3/14/2004 0 12.50 Rent"; the blank before an empty
// description is left out.
std::string TextOf(const QMTransactionFields& fields);

// TextOf each transaction from the first to the last; the cursor stays.
std::vector<std::string> ContentsOf(const QMTransactionStore& store);

// A new empty folder that goes with everything in it at the end of the scope.
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
    std::vector<std::string> GetNames() const;

private:
    std::string m_sPath;
};

// All bytes of a file; the running test fails when there is none.
std::string ReadWholeFile(const std::string& sPath);

// Makes or replaces a file; the running test fails when it cannot.
void WriteWholeFile(const std::string& sPath, const std::string& sBytes);
