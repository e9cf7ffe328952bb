#include "tests/support/exchange_support.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "base/vtext.h"
#include "exchange/qmexchange.h"
#include "tests/support/support.h"

namespace {

bool ImportInto(QMTransactionStore& store, const std::string& sName, const std::string& sBytes)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf(sName), sBytes);
    return QMImportFile(folder.PathOf(sName).c_str(), store);
}

std::string WithSingleLineEnds(const std::string& sBytes)
{
    std::string sText;
    for (const char c : sBytes) {
        if (c != '\r') {
            sText += c;
        }
    }
    return sText;
}

} // namespace

std::string FullText(const QMTransaction& transaction)
{
    char szNumbers[128];
    snprintf(szNumbers, sizeof szNumbers, " %d #%u %.2f f%u ", static_cast<int>(transaction.lType),
             static_cast<unsigned>(transaction.lNumber), static_cast<double>(transaction.fAmount),
             static_cast<unsigned>(transaction.lFlags));
    std::string sText = DateText(transaction.dtDate) + szNumbers + DateText(transaction.dtCleared) +
                        " '" + transaction.szDescription + "' '" + transaction.szMemo + "' '" +
                        transaction.szCategory + "'";
    while (sText.ends_with(" ''")) {
        sText.resize(sText.size() - 3);
    }
    return sText;
}

std::vector<QMTransaction> RecordsOf(const QMTransactionStore& store)
{
    std::vector<QMTransaction> records;
    store.ForEach([&](const QMTransaction& transaction) { records.push_back(transaction); });
    return records;
}

std::vector<std::string> Import(const std::string& sName, const std::string& sBytes)
{
    QMTransactionStore store;
    if (!ImportInto(store, sName, sBytes)) {
        return {"(refused)"};
    }
    std::vector<std::string> texts;
    store.ForEach(
        [&](const QMTransaction& transaction) { texts.push_back(FullText(transaction)); });
    return texts;
}

std::vector<QMTransaction> ImportRecords(const std::string& sName, const std::string& sBytes)
{
    QMTransactionStore store;
    EXPECT_TRUE(ImportInto(store, sName, sBytes));
    return RecordsOf(store);
}

QMTransaction ImportOne(const std::string& sName, const std::string& sBytes)
{
    const std::vector<QMTransaction> records = ImportRecords(sName, sBytes);
    EXPECT_EQ(records.size(), 1U);
    return records.empty() ? QMTransaction() : records.front();
}

std::string Export(const std::string& sName, const std::vector<QMTransaction>& records)
{
    QMTransactionStore store;
    for (const QMTransaction& record : records) {
        AddTo(store, record);
    }
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf(sName);
    const char* szObstacle = QMExportObstacle(QMKindOfPath(sPath.c_str()), store);
    EXPECT_EQ(szObstacle, nullptr) << szObstacle;
    if (szObstacle != nullptr || !QMExportFile(sPath.c_str(), store)) {
        ADD_FAILURE() << sName << " could not be written";
        return "(refused)";
    }
    return WithSingleLineEnds(ReadWholeFile(sPath));
}

QMTransaction MakeFull(int32_t lType, const std::string& sDate, float fAmount,
                       const std::string& sDescription, const std::string& sMemo,
                       const std::string& sCategory, uint32_t uFlags)
{
    QMTransaction transaction = MakeTransaction(lType, sDate, fAmount, uFlags, sDescription);
    VCopyText(transaction.szMemo, sMemo.c_str());
    VCopyText(transaction.szCategory, sCategory.c_str());
    return transaction;
}
