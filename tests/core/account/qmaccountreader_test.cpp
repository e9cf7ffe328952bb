#include "account/qmaccountreader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/vtext.h"
#include "tests/core/allocationfault.h"
#include "tests/support/account_support.h"
#include "tests/support/support.h"

namespace {

// A file with these transactions, in the order given.
std::string FileOf(const std::vector<QMTransaction>& transactions)
{
    AccountParts parts{8192, DefaultHeaderBytes(), {}};
    for (const QMTransaction& transaction : transactions) {
        parts.entries.push_back(EntryOf(transaction));
    }
    return JoinAccount(parts);
}

QMTransaction Deposit(const std::string& sDate, float fAmount)
{
    return MakeTransaction(QM_TRANS_DEPOSIT, sDate, fAmount);
}

// What the only transaction reads as.
QMTransaction ReadOne(const QMTransaction& transaction, QMReadReport* pReport = nullptr)
{
    QMAccount account("");
    EXPECT_TRUE(ReadBytes(account, FileOf({transaction}), pReport));
    QMTransaction read;
    EXPECT_EQ(account.store.GetCurrent(read), 0);
    return read;
}

} // namespace

TEST(AccountReader, ReadsAllThreeTextsAndBothDates)
{
    for (const uint32_t uVersion : {4096U, 4097U, 4352U, 5000U, 8191U, 8192U}) {
        QMAccount account("");
        QMReadReport report;
        ASSERT_TRUE(ReadBytes(account, SmallAccount(uVersion), &report)) << "version " << uVersion;
        EXPECT_EQ(account.lVersion, static_cast<int32_t>(uVersion));
        EXPECT_EQ(BytesOf(account.header), DefaultHeaderBytes());
        EXPECT_EQ(ContentsOf(account.store),
                  (std::vector<std::string>{"3/14/2004 0 48.60 Hardware", "3/15/2004 1 250.00"}));
        account.store.First();
        const QMTransaction* p = account.store.GetCurrentNode();
        EXPECT_STREQ(p->szMemo, "hinges");
        EXPECT_STREQ(p->szCategory, uVersion == 8192 ? "House" : "");
        EXPECT_EQ(DateText(p->dtCleared), "3/14/2004");
        EXPECT_EQ(report.fault, QMReadFault::None);
        EXPECT_EQ(report.lCount, 2);
        EXPECT_FALSE(report.IsMended());
        EXPECT_TRUE(report.bInOrder);
        EXPECT_EQ(report.uTrailingBytes, 0U);
    }
}

TEST(AccountReader, PutsEntriesInOrderOfTheirDates)
{
    const std::vector<QMTransaction> transactions = {
        Deposit("3/2/2004", 1), Deposit("12/31/2003", 2), Deposit("3/1/2004", 3),
        Deposit("1/1/2005", 4), Deposit("2/29/2004", 5)};
    QMAccount account("");
    QMReadReport report;
    ASSERT_TRUE(ReadBytes(account, FileOf(transactions), &report));
    EXPECT_EQ(ContentsOf(account.store),
              (std::vector<std::string>{"12/31/2003 1 2.00", "2/29/2004 1 5.00", "3/1/2004 1 3.00",
                                        "3/2/2004 1 1.00", "1/1/2005 1 4.00"}));
    EXPECT_FALSE(report.bInOrder);
    EXPECT_FALSE(report.IsMended());
}

TEST(AccountReader, KeepsEntriesOfOneDayAsTheyStandInTheFile)
{
    const std::vector<QMTransaction> transactions = {Deposit("3/2/2004", 1), Deposit("3/1/2004", 2),
                                                     Deposit("3/2/2004", 3), Deposit("3/1/2004", 4),
                                                     Deposit("3/2/2004", 5)};
    QMAccount account("");
    ASSERT_TRUE(ReadBytes(account, FileOf(transactions)));
    EXPECT_EQ(ContentsOf(account.store),
              (std::vector<std::string>{"3/1/2004 1 2.00", "3/1/2004 1 4.00", "3/2/2004 1 1.00",
                                        "3/2/2004 1 3.00", "3/2/2004 1 5.00"}));
}

// A date in the file has a time of day, which has no influence on the order.
TEST(AccountReader, TimeOfDayDoesNotCount)
{
    QMTransaction late = Deposit("3/1/2004", 1);
    late.dtDate.wHour = 23;
    QMAccount account("");
    QMReadReport report;
    ASSERT_TRUE(ReadBytes(account, FileOf({late, Deposit("3/1/2004", 2)}), &report));
    EXPECT_TRUE(report.bInOrder);
    EXPECT_EQ(report.lClearedDates, 0);
    account.store.First();
    EXPECT_EQ(account.store.GetCurrentNode()->dtDate.wHour, 23);
}

TEST(AccountReader, LeavesTheCursorOnTheEntryAtTheEndOfTheFile)
{
    QMAccount account("");
    const std::vector<QMTransaction> transactions = {Deposit("3/3/2004", 1), Deposit("3/1/2004", 2),
                                                     Deposit("3/2/2004", 3)};
    ASSERT_TRUE(ReadBytes(account, FileOf(transactions)));
    EXPECT_EQ(account.store.GetPosition(), 1);
    EXPECT_EQ(account.store.GetCurrentNode()->fAmount, 3);
}

TEST(AccountReader, ReadingTwiceGivesTheSame)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("a.qmk"), SmallAccount(8192));
    QMAccount account(folder.PathOf("a.qmk").c_str());
    AddTo(account.store, Deposit("1/1/2001", 9));
    EXPECT_TRUE(account.Read());
    EXPECT_EQ(account.store.GetCount(), 2);
    EXPECT_TRUE(account.Read());
    EXPECT_EQ(ContentsOf(account.store),
              (std::vector<std::string>{"3/14/2004 0 48.60 Hardware", "3/15/2004 1 250.00"}));
}

TEST(AccountReader, FileThatCannotBeOpenedLeavesTheStore)
{
    const TemporaryFolder folder;
    QMAccount account(folder.PathOf("a.qmk").c_str());
    AddTo(account.store, Deposit("1/1/2001", 9));
    QMAccountReader reader(account);
    EXPECT_FALSE(reader.Read());
    EXPECT_EQ(reader.GetReport().fault, QMReadFault::CannotOpen);
    EXPECT_EQ(account.GetFault(), VFileFault::NotFound);
    EXPECT_EQ(account.store.GetCount(), 1);
    EXPECT_TRUE(folder.GetNames().empty());
}

TEST(AccountReader, RefusesAFolderAndALockedFile)
{
    const TemporaryFolder folder;
    QMAccount none(folder.GetPath().c_str());
    EXPECT_FALSE(none.Read());
    EXPECT_EQ(none.GetFault(), VFileFault::NotAFile);
    WriteWholeFile(folder.PathOf("a.qmk"), SmallAccount(8192));
    QMAccount holder(folder.PathOf("a.qmk").c_str());
    ASSERT_TRUE(holder.Read());
    QMAccount other(folder.PathOf("a.qmk").c_str());
    EXPECT_FALSE(other.Read());
    EXPECT_EQ(other.GetFault(), VFileFault::Locked);
}

TEST(AccountReader, FileStaysOpenWhereReadingFails)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("a.qmk"), "no account at all");
    QMAccount account(folder.PathOf("a.qmk").c_str());
    AddTo(account.store, Deposit("1/1/2001", 9));
    EXPECT_FALSE(account.Read());
    EXPECT_TRUE(account.IsOpen());
    EXPECT_TRUE(account.store.IsEmpty());
    EXPECT_EQ(BytesOfFile(account), "no account at all");
}

TEST(AccountReader, ReadsAFileThatIsOpenForReadingAlone)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("a.qmk"), SmallAccount(4352));
    QMAccount account(folder.PathOf("a.qmk").c_str());
    ASSERT_TRUE(account.OpenForReading());
    EXPECT_TRUE(account.Read());
    EXPECT_EQ(account.store.GetCount(), 2);
}

TEST(AccountReader, ClearedBeforeTheDateBecomesTheDateWhole)
{
    QMTransaction transaction = Deposit("3/14/2004", 1);
    transaction.dtDate.wDayOfWeek = 5;
    transaction.dtDate.wSecond = 59;
    transaction.dtCleared = MakeDate("3/13/2004");
    transaction.dtCleared.wHour = 7;
    QMReadReport report;
    const QMTransaction read = ReadOne(transaction, &report);
    EXPECT_EQ(BytesOf(read.dtCleared), BytesOf(transaction.dtDate));
    EXPECT_EQ(report.lClearedDates, 1);
    EXPECT_TRUE(report.IsMended());
}

TEST(AccountReader, ClearedOnTheDayOrLaterIsLeft)
{
    for (const char* szCleared : {"3/14/2004", "3/15/2004", "1/1/2005"}) {
        QMTransaction transaction = Deposit("3/14/2004", 1);
        transaction.dtDate.wHour = 9;
        transaction.dtCleared = MakeDate(szCleared);
        QMReadReport report;
        EXPECT_TRUE(IsSame(ReadOne(transaction, &report), transaction)) << szCleared;
        EXPECT_FALSE(report.IsMended()) << szCleared;
    }
}

TEST(AccountReader, VoidedIsAlwaysNotCleared)
{
    constexpr struct
    {
        uint32_t uFiled;
        uint32_t uRead;
    } aFlags[] = {{1, 17},
                  {17, 17},
                  {0, 0},
                  {16, 16},
                  {2, 2},
                  {4, 4},
                  {7, 23},
                  {18, 18},
                  {0xFFFFFFEF, 0xFFFFFFFF},
                  {0x10000000, 0x10000000}};
    for (const auto& flags : aFlags) {
        QMTransaction transaction = Deposit("3/14/2004", 1);
        transaction.lFlags = flags.uFiled;
        QMReadReport report;
        EXPECT_EQ(ReadOne(transaction, &report).lFlags, flags.uRead)
            << "flags in the file " << flags.uFiled;
        EXPECT_EQ(report.lVoided, flags.uFiled == flags.uRead ? 0 : 1)
            << "flags in the file " << flags.uFiled;
    }
}

TEST(AccountReader, NothingElseIsMended)
{
    QMTransaction transaction = Deposit("0/99/65535", -5);
    transaction.lType = -7;
    transaction.lNumber = 0xFFFFFFFF;
    transaction.lFlags = 0xFFFFFFFE;
    QMReadReport report;
    EXPECT_TRUE(IsSame(ReadOne(transaction, &report), transaction));
    EXPECT_FALSE(report.IsMended());
}

TEST(AccountReader, MendsAreCountedByEntries)
{
    QMTransaction both = MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 1, QM_TRANS_FLAG_VOIDED);
    both.dtCleared = MakeDate("3/1/2004");
    QMTransaction voided = MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 1, QM_TRANS_FLAG_VOIDED);
    QMAccount account("");
    QMReadReport report;
    ASSERT_TRUE(ReadBytes(account, FileOf({both, voided, Deposit("3/14/2004", 1)}), &report));
    EXPECT_EQ(report.lClearedDates, 1);
    EXPECT_EQ(report.lVoided, 2);
    EXPECT_EQ(report.lHeaderTexts, 0);
    EXPECT_EQ(report.lTexts, 0);
}

TEST(AccountReader, ShorterHeaderLeavesTheRestAtItsDefaults)
{
    std::string sFull(1264, '\x01');
    for (const size_t uSize : {size_t{0}, size_t{1}, size_t{31}, size_t{48}, size_t{1035},
                               size_t{1042}, size_t{1216}, size_t{1221}, size_t{1263}}) {
        QMAccount account("");
        QMReadReport report;
        const AccountParts parts{8192, sFull.substr(0, uSize), {EntryOf(Deposit("3/1/2004", 1))}};
        ASSERT_TRUE(ReadBytes(account, JoinAccount(parts), &report)) << "size " << uSize;
        QMAccountHeader expected = QMAccountData().header;
        memcpy(static_cast<void*>(&expected), sFull.data(), uSize);
        QMTerminateHeaderTexts(expected);
        EXPECT_EQ(BytesOf(account.header), BytesOf(expected)) << "size " << uSize;
        EXPECT_EQ(account.store.GetCount(), 1) << "size " << uSize;
    }
}

TEST(AccountReader, ShorterBlockLeavesTheRestOfAFreshTransaction)
{
    QMTransaction full = Deposit("3/14/2004", 7);
    full.lNumber = 0x12345678;
    full.lFlags = 6;
    for (const uint32_t uVersion : {4096U, 4352U, 8192U}) {
        for (size_t uSize = 0; uSize <= 48; ++uSize) {
            EntryParts entry = EntryOf(full);
            entry.sBlock.resize(uSize);
            entry.sDescription = "d";
            QMAccount account("");
            ASSERT_TRUE(ReadBytes(account, JoinAccount({uVersion, DefaultHeaderBytes(), {entry}})));
            auto expected = FromBytes<QMTransactionFields>(entry.sBlock);
            VCopyText(expected.szDescription, "d");
            if (QMDateIsBefore(expected.dtCleared, expected.dtDate)) {
                expected.dtCleared = expected.dtDate;
            }
            EXPECT_TRUE(IsSame(*account.store.GetCurrentNode(), expected))
                << "version " << uVersion << ", size " << uSize;
        }
    }
}

TEST(AccountReader, NegativeCountReadsAsNone)
{
    for (const uint32_t uCount : {0xFFFFFFFFU, 0x80000000U}) {
        std::string sFile = SmallAccount(8192);
        const size_t uEntries = sFile.size() - uEntriesOffset;
        PutNumber(sFile, uCountOffset, uCount);
        QMAccount account("");
        QMReadReport report;
        EXPECT_TRUE(ReadBytes(account, sFile, &report));
        EXPECT_TRUE(account.store.IsEmpty());
        EXPECT_EQ(report.lCount, 0);
        EXPECT_EQ(report.uTrailingBytes, uEntries);
    }
}

TEST(AccountReader, BytesBehindTheLastEntryGoWithTheNextWriting)
{
    const TemporaryFolder folder;
    const std::string sFile = JoinAccount({8192, DefaultHeaderBytes(), {}});
    WriteWholeFile(folder.PathOf("a.qmk"), sFile + "trailing");
    QMAccount account(folder.PathOf("a.qmk").c_str());
    QMAccountReader reader(account);
    ASSERT_TRUE(reader.Read());
    EXPECT_EQ(reader.GetReport().uTrailingBytes, 8U);
    EXPECT_FALSE(reader.GetReport().IsMended());
    EXPECT_TRUE(account.store.IsEmpty());
    EXPECT_TRUE(account.Write());
    EXPECT_EQ(BytesOfFile(account), sFile);
}

TEST(AccountReader, TellsWhenThereIsNoMemory)
{
    // The requests for memory: the buffer, both transactions, and the two arrays of the sort.
    const std::string sFile = FileOf({Deposit("3/2/2004", 1), Deposit("3/1/2004", 2)});
    QMMemorySource source(sFile.data(), sFile.size());
    for (int nBefore = 0; nBefore < 5; ++nBefore) {
        QMMemorySource again = source;
        QMAccount account("");
        QMAccountReader reader(account);
        bool bRead;
        {
            const AllocationFault fault(nBefore);
            bRead = reader.ReadFrom(again);
        }
        EXPECT_FALSE(bRead) << "allocations before the failure: " << nBefore;
        EXPECT_EQ(reader.GetReport().fault, QMReadFault::OutOfMemory)
            << "allocations before the failure: " << nBefore;
    }
}
