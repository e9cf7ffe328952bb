// What survives an export and the import after it, for random accounts.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "base/vtext.h"
#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {

constexpr int nAccounts = 60;

std::string RandomText(std::mt19937& random, const std::string& sCharacters, size_t uMax)
{
    std::string sText;
    for (size_t uLength = random() % (uMax + 1); uLength > 0; --uLength) {
        sText += sCharacters[random() % sCharacters.size()];
    }
    return sText;
}

// Valid entries in the order of their dates, none before 2000, with texts of these characters.
std::vector<QMTransaction> RandomAccount(std::mt19937& random, const std::string& sCharacters)
{
    constexpr uint32_t aTags[] = {0, 1, 2, 4};
    std::vector<QMTransaction> records;
    uint16_t wYear = 2000;
    for (size_t uCount = 1 + random() % 20; uCount > 0; --uCount, ++wYear) {
        QMTransaction record;
        record.lType = static_cast<int32_t>(random() % 12);
        record.dtDate = QMMakeDate(wYear, static_cast<uint16_t>(1 + random() % 12),
                                   static_cast<uint16_t>(1 + random() % 28));
        record.dtCleared = record.dtDate;
        record.lNumber = static_cast<uint32_t>(1 + random() % 9999999);
        record.fAmount = static_cast<float>(1 + random() % 10000000) / 100;
        const uint32_t uTag = aTags[random() % 4];
        record.lFlags = uTag | (uTag == 1 || random() % 2 == 0 ? QM_TRANS_FLAG_NOT_CLEARED : 0);
        VCopyText(record.szDescription, RandomText(random, sCharacters, 60).c_str());
        VCopyText(record.szMemo, RandomText(random, sCharacters, 255).c_str());
        VCopyText(record.szCategory, RandomText(random, sCharacters, 127).c_str());
        records.push_back(record);
    }
    // With a voided transaction at the end, QIF cannot be written.
    if (records.back().HasFlag(QM_TRANS_FLAG_VOIDED)) {
        records.back().lFlags = QM_TRANS_FLAG_NOT_CLEARED;
    }
    return records;
}

// Only checks have a number that is shown and written.
uint32_t ReadNumber(const QMTransaction& record)
{
    return record.lType == QM_TRANS_CHECK ? record.lNumber : 0;
}

// The description that the payee column of a text format gives back.
std::string ReadDescription(const QMTransaction& record)
{
    const std::string sText = record.szDescription;
    if (record.lType == QM_TRANS_CHECK) {
        return sText;
    }
    return sText.size() < 2 ? "" : " - " + sText;
}

std::vector<std::string> TextsOf(const std::vector<QMTransaction>& records)
{
    std::vector<std::string> texts;
    texts.reserve(records.size());
    for (const QMTransaction& record : records) {
        texts.push_back(FullText(record));
    }
    return texts;
}

// No name of a type begins with these letters, so the payee of a check is never taken for a type.
const char szPlain[] = "bghjkmnoqsuvxyz 0123456789.-/\xE9";

} // namespace

TEST(RoundTrip, QifKeepsAllButVoidedTransactionsTagsBracketsAndTheDateCleared)
{
    std::mt19937 random(1);
    for (int i = 0; i < nAccounts; ++i) {
        const auto account = RandomAccount(random, szPlain);
        std::vector<QMTransaction> expected;
        for (QMTransaction record : account) {
            if (record.HasFlag(QM_TRANS_FLAG_VOIDED)) {
                continue;
            }
            record.lFlags &= QM_TRANS_FLAG_NOT_CLEARED;
            record.lNumber = ReadNumber(record);
            VCopyText(record.szDescription, ReadDescription(record).c_str());
            expected.push_back(record);
        }
        ASSERT_EQ(Import("a.qif", Export("a.qif", account)), TextsOf(expected));
    }
}

TEST(RoundTrip, CsvKeepsAllButTheDateClearedWhereNoTextHoldsAComma)
{
    std::mt19937 random(2);
    for (int i = 0; i < nAccounts; ++i) {
        const auto account = RandomAccount(random, std::string(szPlain) + "[]\"");
        std::vector<QMTransaction> expected = account;
        for (QMTransaction& record : expected) {
            record.lNumber = ReadNumber(record);
            VCopyText(record.szDescription, ReadDescription(record).c_str());
        }
        ASSERT_EQ(Import("a.csv", Export("a.csv", account)), TextsOf(expected));
    }
}

TEST(RoundTrip, XmlKeepsAllButTheDescriptionsOfOthersThanChecksWhereNoTextHoldsTwoAmpersands)
{
    std::mt19937 random(3);
    for (int i = 0; i < nAccounts; ++i) {
        const auto account = RandomAccount(random, "abc<>'\"/;-[]");
        std::vector<QMTransaction> expected = account;
        for (QMTransaction& record : expected) {
            if (record.lType != QM_TRANS_CHECK) {
                record.lNumber = 1000;
                VCopyText(record.szDescription, "");
            }
            if (record.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)) {
                record.dtCleared = MakeDate("1/1/2000");
            }
        }
        ASSERT_EQ(Import("a.xml", Export("a.xml", account)), TextsOf(expected));
    }
}

TEST(RoundTrip, ADescriptionGetsOneMoreDashEachTime)
{
    for (const char* szName : {"a.qif", "a.csv"}) {
        std::vector<QMTransaction> account = {MakeFull(1, "1/1/2004", 5, "rent", "", "")};
        for (const char* szExpected : {" - rent", " -  - rent", " -  -  - rent"}) {
            account = ImportRecords(szName, Export(szName, account));
            ASSERT_EQ(account.size(), 1U);
            EXPECT_STREQ(account[0].szDescription, szExpected);
        }
    }
}

TEST(RoundTrip, QifTakesBracketsOff)
{
    const auto back =
        ImportRecords("a.qif", Export("a.qif", {MakeFull(0, "1/1/2004", 5, "[a]", "[b]", "[c]")}));
    ASSERT_EQ(back.size(), 1U);
    EXPECT_EQ(FullText(back[0]), "1/1/2004 0 #1000 5.00 f16 1/1/2004 'a' 'b' 'c'");
}

TEST(RoundTrip, ADateBefore2000ComesBackClearedIn2000)
{
    const std::vector<QMTransaction> account = {MakeFull(1, "12/31/1999", 5, "", "", "", 0)};
    for (const char* szName : {"a.qif", "a.csv"}) {
        EXPECT_EQ(Import(szName, Export(szName, account)),
                  std::vector<std::string>{"12/31/1999 1 #0 5.00 f0 1/1/2000"})
            << szName;
    }
    EXPECT_EQ(Import("a.xml", Export("a.xml", account)),
              std::vector<std::string>{"12/31/1999 1 #1000 5.00 f0 12/31/1999"});
}

TEST(RoundTrip, RecordsOfAnyOrderComeOutAsAddingThemOneByOneWouldLeaveThem)
{
    std::mt19937 random(4);
    std::string sFile;
    QMTransactionStore expected;
    for (int i = 0; i < 500; ++i) {
        const std::string sDate =
            std::to_string(1 + random() % 12) + "/" + std::to_string(1 + random() % 3) + "/2004";
        sFile += "D" + sDate + "\nT" + std::to_string(i + 1) + "\n^\n";
        AddTo(expected, MakeTransaction(1, sDate, static_cast<float>(i + 1)));
    }
    std::vector<std::string> found;
    for (const QMTransaction& record : ImportRecords("a.qif", sFile)) {
        found.push_back(TextOf(record));
    }
    EXPECT_EQ(found, ContentsOf(expected));
}
