#include <gtest/gtest.h>

#include <chrono>
#include <set>
#include <string>
#include <vector>

#include "account/qmaccountreader.h"
#include "tests/core/allocationwatch.h"
#include "tests/support/account_support.h"
#include "tests/support/support.h"

namespace {

constexpr uint32_t aVersions[] = {4096, 4352, 8192};

// Offsets in SmallAccount(8192).
constexpr size_t uDescriptionLength = 1332;
constexpr size_t uMemoLength = 1344;
constexpr size_t uCategoryLength = 1354;
constexpr size_t uSecondDescriptionLength = 1411;
constexpr size_t uSecondCategoryLength = 1419;
constexpr size_t uFileSize = 1423;

std::string WithNumber(size_t uOffset, uint32_t uNumber)
{
    std::string sFile = SmallAccount(8192);
    PutNumber(sFile, uOffset, uNumber);
    return sFile;
}

// A file whose only transaction has texts of these lengths.
std::string WithTexts(size_t uDescription, size_t uMemo, size_t uCategory)
{
    EntryParts entry = EntryOf(QMTransactionFields());
    entry.sDescription.assign(uDescription, 'd');
    entry.sMemo.assign(uMemo, 'm');
    entry.sCategory.assign(uCategory, 'c');
    return JoinAccount({8192, DefaultHeaderBytes(), {entry}});
}

std::string WithHeaderSize(size_t uSize)
{
    return JoinAccount({8192, std::string(uSize, 'h'), {}});
}

std::string WithBlockSize(size_t uSize)
{
    EntryParts entry = EntryOf(QMTransactionFields());
    entry.sBlock.resize(uSize);
    return JoinAccount({8192, DefaultHeaderBytes(), {entry}});
}

// It must be possible to write what was read, and reading that must give the same again.
void ExpectStable(const QMAccount& account)
{
    const std::string sImage = ImageOf(account);
    QMAccount again("");
    QMReadReport report;
    ASSERT_TRUE(ReadBytes(again, sImage, &report));
    EXPECT_FALSE(report.IsMended());
    EXPECT_TRUE(report.bInOrder);
    EXPECT_EQ(report.uTrailingBytes, 0U);
    EXPECT_EQ(again.store.GetCount(), account.store.GetCount());
    EXPECT_EQ(ImageOf(again), sImage);
}

QMReadFault FaultOf(const std::string& sFile)
{
    QMAccount account("");
    QMReadReport report;
    const bool bRead = ReadBytes(account, sFile, &report);
    EXPECT_EQ(bRead, report.fault == QMReadFault::None);
    if (bRead) {
        ExpectStable(account);
    }
    return report.fault;
}

} // namespace

TEST(HostileAccount, EndsAtAnyLengthAreRefused)
{
    for (const uint32_t uVersion : aVersions) {
        const std::string sFile = SmallAccount(uVersion);
        for (size_t uSize = 0; uSize < sFile.size(); ++uSize) {
            const QMReadFault expected =
                uSize < 4 ? QMReadFault::WrongMagic : QMReadFault::Truncated;
            EXPECT_EQ(FaultOf(sFile.substr(0, uSize)), expected)
                << "version " << uVersion << ", cut at byte " << uSize;
        }
        EXPECT_EQ(FaultOf(sFile), QMReadFault::None) << "version " << uVersion;
    }
}

TEST(HostileAccount, TruncatedFilesOnDiskAreRefusedAndLeft)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a.qmk");
    const std::string sFile = SmallAccount(8192);
    for (const size_t uSize : {0,    1,    4,    8,    12,   15,   16,   17,   1279, 1280,
                               1283, 1284, 1331, 1332, 1335, 1336, 1343, 1362, 1363, 1422}) {
        WriteWholeFile(sPath, sFile.substr(0, uSize));
        QMAccount account(sPath.c_str());
        EXPECT_FALSE(account.Read()) << "size " << uSize;
        EXPECT_TRUE(account.IsOpen()) << "size " << uSize;
        account.Close();
        EXPECT_EQ(ReadWholeFile(sPath), sFile.substr(0, uSize)) << "size " << uSize;
    }
}

TEST(HostileAccount, WhatStandsBeforeAnEarlyEndIsKept)
{
    const std::string sFile = SmallAccount(8192);
    for (const size_t uSize : {size_t{1363}, size_t{1400}, uFileSize - 1}) {
        QMAccount account("");
        QMReadReport report;
        EXPECT_FALSE(ReadBytes(account, sFile.substr(0, uSize), &report));
        EXPECT_EQ(report.lFaultEntry, 1) << "size " << uSize;
        EXPECT_EQ(ContentsOf(account.store),
                  std::vector<std::string>{"3/14/2004 0 48.60 Hardware"});
    }
}

TEST(HostileAccount, EveryFlippedBitReadsOrIsRefused)
{
    for (const uint32_t uVersion : aVersions) {
        const std::string sFile = SmallAccount(uVersion);
        QMAccount account("");
        int nRead = 0;
        for (size_t uBit = 0; uBit < sFile.size() * 8; ++uBit) {
            std::string sFlipped = sFile;
            sFlipped[uBit / 8] = static_cast<char>(sFlipped[uBit / 8] ^ 1 << uBit % 8);
            SCOPED_TRACE(testing::Message() << "version " << uVersion << ", bit " << uBit);
            account.header = QMDefaultHeader();
            if (ReadBytes(account, sFlipped)) {
                ++nRead;
                ExpectStable(account);
            }
        }
        // Most bits of the header, of a block and of a text are content: any value reads.
        EXPECT_GT(nRead, static_cast<int>(sFile.size() * 8 * 9 / 10));
        EXPECT_LT(nRead, static_cast<int>(sFile.size() * 8));
    }
}

TEST(HostileAccount, NumbersAreHeldAgainstTheirBounds)
{
    ASSERT_EQ(SmallAccount(8192).size(), uFileSize);
    const struct
    {
        const char* szWhat;
        std::string sFile;
        QMReadFault fault;
    } aCases[] = {
        {"header of 1264", WithHeaderSize(1264), QMReadFault::None},
        {"header of 1263", WithHeaderSize(1263), QMReadFault::None},
        {"header of 0", WithHeaderSize(0), QMReadFault::None},
        {"header of 1265", WithHeaderSize(1265), QMReadFault::HeaderTooLong},
        {"header of 70000", WithHeaderSize(70000), QMReadFault::HeaderTooLong},
        {"header of 2^31", WithNumber(uHeaderSizeOffset, 0x80000000), QMReadFault::HeaderTooLong},
        {"header of 2^32 - 1", WithNumber(uHeaderSizeOffset, UINT32_MAX),
         QMReadFault::HeaderTooLong},
        {"block of 48", WithBlockSize(48), QMReadFault::None},
        {"block of 47", WithBlockSize(47), QMReadFault::None},
        {"block of 0", WithBlockSize(0), QMReadFault::None},
        {"block of 49", WithBlockSize(49), QMReadFault::BlockTooLong},
        {"block of 736", WithBlockSize(736), QMReadFault::BlockTooLong},
        {"block of 2^31", WithNumber(uBlockSizeOffset, 0x80000000), QMReadFault::BlockTooLong},
        {"block of 2^32 - 1", WithNumber(uBlockSizeOffset, UINT32_MAX), QMReadFault::BlockTooLong},
        {"texts as long as can be", WithTexts(255, 255, 127), QMReadFault::None},
        {"texts of 0", WithTexts(0, 0, 0), QMReadFault::None},
        {"description of 256", WithTexts(256, 0, 0), QMReadFault::TextTooLong},
        {"memo of 256", WithTexts(0, 256, 0), QMReadFault::TextTooLong},
        {"category of 128", WithTexts(0, 0, 128), QMReadFault::TextTooLong},
        {"category of 255", WithTexts(0, 0, 255), QMReadFault::TextTooLong},
        {"description of 2^31", WithNumber(uDescriptionLength, 0x80000000),
         QMReadFault::TextTooLong},
        {"memo of 2^31", WithNumber(uMemoLength, 0x80000000), QMReadFault::TextTooLong},
        {"category of 2^31", WithNumber(uCategoryLength, 0x80000000), QMReadFault::TextTooLong},
        {"memo of 2^32 - 1", WithNumber(uMemoLength, UINT32_MAX), QMReadFault::TextTooLong},
        {"description beyond the end", WithNumber(uSecondDescriptionLength, 255),
         QMReadFault::Truncated},
        {"category one beyond the end", WithNumber(uSecondCategoryLength, 1),
         QMReadFault::Truncated},
        {"count of one more", WithNumber(uCountOffset, 3), QMReadFault::Truncated},
        {"count of one less", WithNumber(uCountOffset, 1), QMReadFault::None},
    };
    for (const auto& hostile : aCases) {
        EXPECT_EQ(FaultOf(hostile.sFile), hostile.fault) << hostile.szWhat;
    }
}

TEST(HostileAccount, MagicAndVersionAreHeldAgainstTheirBounds)
{
    for (const uint32_t uMagic : {0U, 0x35763684U, 0x85367635U, 0xB5763685U, UINT32_MAX}) {
        EXPECT_EQ(FaultOf(WithNumber(0, uMagic)), QMReadFault::WrongMagic) << "magic " << uMagic;
    }
    for (const uint32_t uVersion : {0U, 1U, 4095U, 8193U, 16384U, 0x80001000U, UINT32_MAX}) {
        EXPECT_EQ(FaultOf(WithNumber(4, uVersion)), QMReadFault::WrongVersion)
            << "version " << uVersion;
    }
    for (const uint32_t uVersion : {4096U, 4097U, 4352U, 5000U, 8191U, 8192U}) {
        EXPECT_EQ(FaultOf(SmallAccount(uVersion)), QMReadFault::None) << "version " << uVersion;
    }
}

TEST(HostileAccount, RefusedMagicAndVersionAreKept)
{
    QMAccount account("");
    EXPECT_FALSE(ReadBytes(account, WithNumber(0, 7)));
    EXPECT_EQ(account.lMagic, 7U);
    EXPECT_FALSE(ReadBytes(account, WithNumber(4, 8193)));
    EXPECT_EQ(account.lMagic, 0x35763685U);
    EXPECT_EQ(account.lVersion, 8193);
}

TEST(HostileAccount, RefusedHeaderLeavesTheAccounts)
{
    QMAccount account("");
    account.header.lWidthDate = 77;
    const std::string sBefore = BytesOf(account.header);
    EXPECT_FALSE(ReadBytes(account, WithHeaderSize(1265)));
    EXPECT_FALSE(ReadBytes(account, SmallAccount(8192).substr(0, 1000)));
    EXPECT_EQ(BytesOf(account.header), sBefore);
}

TEST(HostileAccount, AbsurdNumbersTakeNoMemoryAndNoTime)
{
    const std::string aFiles[] = {
        WithNumber(uCountOffset, INT32_MAX),
        WithNumber(uHeaderSizeOffset, UINT32_MAX),
        WithNumber(uBlockSizeOffset, UINT32_MAX),
        WithNumber(uDescriptionLength, INT32_MAX),
    };
    for (const std::string& sFile : aFiles) {
        QMMemorySource source(sFile.data(), sFile.size());
        QMAccount account("");
        QMAccountReader reader(account);
        const auto began = std::chrono::steady_clock::now();
        const AllocationWatch watch;
        const bool bRead = reader.ReadFrom(source);
        const size_t uLargest = watch.GetLargest();
        EXPECT_FALSE(bRead);
        EXPECT_GT(uLargest, 0U);
        EXPECT_LE(uLargest, 65536U); // the reader's buffer
        EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(1));
    }
}

TEST(HostileAccount, EntriesBeforeAnAbsurdCountRunsOutAreKept)
{
    QMAccount account("");
    QMReadReport report;
    EXPECT_FALSE(ReadBytes(account, WithNumber(uCountOffset, INT32_MAX), &report));
    EXPECT_EQ(report.fault, QMReadFault::Truncated);
    EXPECT_EQ(report.lCount, INT32_MAX);
    EXPECT_EQ(report.lFaultEntry, 2);
    EXPECT_EQ(account.store.GetCount(), 2);
}

// No entry can be there without bytes: even an entry with an empty block has its lengths.
TEST(HostileAccount, CountCannotGrowWithoutBytes)
{
    std::string sFile = WithBlockSize(0);
    PutNumber(sFile, uCountOffset, INT32_MAX);
    QMAccount account("");
    QMReadReport report;
    EXPECT_FALSE(ReadBytes(account, sFile, &report));
    EXPECT_EQ(report.lFaultEntry, 1);
}

TEST(HostileAccount, HeaderTextsWithoutEndAreCutAndReported)
{
    QMAccount account("");
    QMReadReport report;
    EXPECT_TRUE(ReadBytes(account, WithHeaderSize(1264), &report));
    EXPECT_EQ(report.lHeaderTexts, 16);
    EXPECT_TRUE(report.IsMended());
    EXPECT_EQ(account.header.szBankZip, std::string(15, 'h'));
    EXPECT_EQ(account.header.szFontFace, std::string(127, 'h'));
    EXPECT_EQ(account.header.szPassword, std::string(15, 'h'));
}

TEST(HostileAccount, ZeroBytesWithinTextsAreReported)
{
    EntryParts entry = EntryOf(QMTransactionFields());
    entry.sDescription = std::string("ab\0cd", 5);
    entry.sMemo = std::string("\0", 1);
    entry.sCategory = "whole";
    QMAccount account("");
    QMReadReport report;
    EXPECT_TRUE(ReadBytes(account, JoinAccount({8192, DefaultHeaderBytes(), {entry}}), &report));
    EXPECT_EQ(report.lTexts, 2);
    EXPECT_TRUE(report.IsMended());
    const QMTransaction* p = account.store.GetCurrentNode();
    EXPECT_STREQ(p->szDescription, "ab");
    EXPECT_STREQ(p->szMemo, "");
    EXPECT_STREQ(p->szCategory, "whole");
    ExpectStable(account);
}

namespace {

// Promises more bytes than it has, like a file that shrinks while it is read, or fails at that
// point.
class BrokenSource : public QMByteSource
{
public:
    BrokenSource(const std::string& sBytes, bool bFails)
        : m_bytes(sBytes.data(), sBytes.size()), m_bFails(bFails)
    {}

    int64_t GetSize() override { return INT64_MAX; }

    int64_t ReadSome(void* pBuffer, size_t uSize) override
    {
        const int64_t nRead = m_bytes.ReadSome(pBuffer, uSize);
        return nRead == 0 && m_bFails ? -1 : nRead;
    }

private:
    QMMemorySource m_bytes;
    bool m_bFails;
};

} // namespace

TEST(HostileAccount, SourceThatBreaksOffIsRefused)
{
    const std::string sFile = SmallAccount(8192);
    for (const bool bFails : {false, true}) {
        for (size_t uSize = 4; uSize < sFile.size(); uSize += 3) {
            const std::string sPart = sFile.substr(0, uSize);
            BrokenSource source(sPart, bFails);
            QMAccount account("");
            QMAccountReader reader(account);
            EXPECT_FALSE(reader.ReadFrom(source)) << "size " << uSize;
            EXPECT_EQ(reader.GetReport().fault, QMReadFault::Truncated) << "size " << uSize;
        }
    }
}

TEST(ReadFault, EveryFaultHasAPhraseOfItsOwn)
{
    // Of a failure the file itself knows the reason.
    EXPECT_STREQ(QMReadFaultText(QMReadFault::None), "");
    EXPECT_STREQ(QMReadFaultText(QMReadFault::CannotOpen), "");
    std::set<std::string> phrases;
    for (const QMReadFault fault :
         {QMReadFault::WrongMagic, QMReadFault::WrongVersion, QMReadFault::HeaderTooLong,
          QMReadFault::BlockTooLong, QMReadFault::TextTooLong, QMReadFault::Truncated,
          QMReadFault::OutOfMemory}) {
        EXPECT_STRNE(QMReadFaultText(fault), "");
        phrases.insert(QMReadFaultText(fault));
    }
    EXPECT_EQ(phrases.size(), 7U);
}
