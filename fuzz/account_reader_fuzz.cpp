// Feeds arbitrary bytes to the reader of account files. What is read must be sound and in date
// order, and writing it and reading it again must give the same.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include "account/qmaccountreader.h"
#include "account/qmaccountwriter.h"
#include "account/qmscramble.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize);

namespace {

void Check(bool bHolds, const char* szWhat)
{
    if (!bHolds) {
        fprintf(stderr, "account reader: %s\n", szWhat);
        abort();
    }
}

std::vector<QMTransactionFields> RecordsOf(const QMAccount& account)
{
    std::vector<QMTransactionFields> records;
    account.store.ForEach(
        [&](const QMTransaction& transaction) { records.push_back(transaction); });
    return records;
}

void CheckStore(const std::vector<QMTransactionFields>& records, const QMAccount& account)
{
    Check(records.size() == static_cast<size_t>(account.store.GetCount()),
          "the store miscounts its transactions");
    for (size_t u = 0; u < records.size(); ++u) {
        const QMTransactionFields& fields = records[u];
        Check(u == 0 || !QMDateIsBefore(fields.dtDate, records[u - 1].dtDate),
              "the store is out of order");
        Check(!QMDateIsBefore(fields.dtCleared, fields.dtDate), "a date cleared is too early");
        Check((fields.lFlags & QM_TRANS_FLAG_VOIDED) == 0 ||
                  (fields.lFlags & QM_TRANS_FLAG_NOT_CLEARED) != 0,
              "a voided transaction counts as cleared");
    }
}

void CheckTexts(const std::vector<QMTransactionFields>& records, const QMAccount& account)
{
    for (const QMTransactionFields& fields : records) {
        Check(fields.szDescription[sizeof fields.szDescription - 1] == '\0' &&
                  fields.szMemo[sizeof fields.szMemo - 1] == '\0' &&
                  fields.szCategory[sizeof fields.szCategory - 1] == '\0',
              "a text has no end");
        Check(QMVersionHasCategory(account.lVersion) || fields.szCategory[0] == '\0',
              "a format without categories gave one");
    }
    QMAccountHeader header = account.header;
    Check(QMTerminateHeaderTexts(header) == 0, "a text of the header has no end");
}

std::string_view BytesOf(const QMAccountHeader& header)
{
    return {reinterpret_cast<const char*>(&header), sizeof header};
}

// What the transaction becomes when it is written and read. A byte 0xDF in a block of format 1.0
// comes back as a blank. Only the mending of flags can make such a byte.
QMTransactionFields AfterWriting(QMTransactionFields fields, int32_t lVersion)
{
    if (QMVersionScramblesBlock(lVersion)) {
        QMScramble(&fields, QM_TRANS_BLOCK_SIZE);
        QMUnscramble(&fields, QM_TRANS_BLOCK_SIZE);
    }
    return fields;
}

bool IsSameRecord(const QMTransactionFields& a, const QMTransactionFields& b)
{
    return memcmp(&a, &b, QM_TRANS_BLOCK_SIZE) == 0 &&
           strcmp(a.szDescription, b.szDescription) == 0 && strcmp(a.szMemo, b.szMemo) == 0 &&
           strcmp(a.szCategory, b.szCategory) == 0;
}

void CheckReport(const QMReadReport& report, const QMAccount& account, bool bRead, size_t uSize)
{
    Check(bRead == (report.fault == QMReadFault::None), "the fault is not what was returned");
    const int32_t lCount = account.store.GetCount();
    if (bRead) {
        Check(lCount == report.lCount, "the count is not the file's");
        Check(report.lFaultEntry == -1, "an entry without a fault is blamed");
        Check(report.uTrailingBytes < uSize, "more bytes are left than there were");
    } else {
        Check(report.lFaultEntry == -1 ? lCount == 0 : lCount == report.lFaultEntry,
              "what came before the fault was not kept");
    }
}

// Reading the image must give the same account, and writing that the same image.
void CheckSecondReading(const QMAccount& account, const std::vector<QMTransactionFields>& records)
{
    const QMFileImage image = QMMakeAccountImage(account);
    QMMemorySource source(image.pBytes.get(), image.uSize);
    QMAccount again("");
    QMAccountReader reader(again);
    Check(reader.ReadFrom(source), "what was written does not read");
    const QMReadReport& report = reader.GetReport();
    Check(!report.IsMended() && report.bInOrder && report.uTrailingBytes == 0,
          "what was written is not sound");
    // Unscrambling never yields a byte 0xDF. So the header has none that could be lost.
    QMAccountHeader header = account.header;
    header.bReserved = 0; // always written so
    Check(BytesOf(again.header) == BytesOf(header), "the header has changed");
    const std::vector<QMTransactionFields> recordsAgain = RecordsOf(again);
    Check(recordsAgain.size() == records.size(), "the count has changed");
    for (size_t u = 0; u < records.size(); ++u) {
        Check(IsSameRecord(recordsAgain[u], AfterWriting(records[u], account.lVersion)),
              "a transaction has changed");
    }
    const QMFileImage imageAgain = QMMakeAccountImage(again);
    Check(imageAgain.uSize == image.uSize &&
              memcmp(imageAgain.pBytes.get(), image.pBytes.get(), image.uSize) == 0,
          "the image has changed");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t uSize)
{
    QMMemorySource source(pBytes, uSize);
    QMAccount account("");
    QMAccountReader reader(account);
    const bool bRead = reader.ReadFrom(source);
    const std::vector<QMTransactionFields> records = RecordsOf(account);
    CheckReport(reader.GetReport(), account, bRead, uSize);
    CheckStore(records, account);
    CheckTexts(records, account);
    if (bRead) {
        CheckSecondReading(account, records);
    }
    return 0;
}
