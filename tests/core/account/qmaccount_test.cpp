#include "account/qmaccount.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "base/vtext.h"
#include "tests/core/allocationfault.h"
#include "tests/support/account_support.h"
#include "tests/support/support.h"

namespace {

constexpr int32_t aVersions[] = {4096, 4352, 5000, 8192};

class AccountTest : public testing::Test
{
protected:
    std::string PathOf(const char* szName) const { return m_folder.PathOf(szName); }

    // Writes the account's contents into the file of that name.
    void Write(const QMAccount& contents, const char* szName) const
    {
        QMAccount account(PathOf(szName).c_str());
        ASSERT_TRUE(account.CopyFrom(contents));
        ASSERT_TRUE(account.Create());
        EXPECT_TRUE(account.Write());
        EXPECT_TRUE(account.IsOpen());
    }

    TemporaryFolder m_folder;
};

// A header in which no byte is zero, except the reserved one, which is always written as 0, and the
// ends of the texts. Each text fills its field.
QMAccountHeader FullHeader()
{
    std::string sBytes(sizeof(QMAccountHeader), '\0');
    for (size_t u = 0; u < sBytes.size(); ++u) {
        const auto c = static_cast<char>(u * 37 % 251 + 1);
        sBytes[u] = c == '\xDF' ? 'D' : c;
    }
    for (const HeaderField& field : HeaderFields()) {
        if (strncmp(field.szName, "sz", 2) == 0) {
            sBytes[field.uOffset + field.uSize - 1] = '\0';
        }
    }
    auto header = FromBytes<QMAccountHeader>(sBytes);
    header.bReserved = 0;
    return header;
}

QMTransaction FullTransaction(const std::string& sDate, const std::string& sMark)
{
    QMTransaction transaction = MakeTransaction(QM_TRANS_ATM_WITHDRAWAL, sDate, 12.34F, 2, sMark);
    transaction.dtDate.wDayOfWeek = 3;
    transaction.dtDate.wMilliseconds = 999;
    transaction.lNumber = 4000000000;
    transaction.dtCleared = MakeDate("12/31/2013");
    VCopyText(transaction.szMemo, ("memo of " + sMark).c_str());
    VCopyText(transaction.szCategory, ("category of " + sMark).c_str());
    return transaction;
}

void Fill(QMAccount& account, int32_t lVersion)
{
    account.lVersion = lVersion;
    account.header = FullHeader();
    AddTo(account.store, FullTransaction("2/3/2004", "first"));
    AddTo(account.store, FullTransaction("2/4/2004", "x"));
    QMTransaction longest = FullTransaction("2/5/2004", std::string(255, 'd'));
    VCopyText(longest.szMemo, std::string(255, 'm').c_str());
    VCopyText(longest.szCategory, std::string(127, 'c').c_str());
    AddTo(account.store, longest);
    QMTransaction bare = MakeTransaction(QM_TRANS_CHECK, "2/6/2004", 0);
    AddTo(account.store, bare);
}

AccountParts PartsOf(const QMAccount& account)
{
    AccountParts parts{static_cast<uint32_t>(account.lVersion), BytesOf(account.header), {}};
    account.store.ForEach(
        [&](const QMTransaction& transaction) { parts.entries.push_back(EntryOf(transaction)); });
    return parts;
}

// All bytes of all transactions, in their order.
std::string RecordsOf(const QMAccount& account)
{
    std::string sRecords;
    account.store.ForEach([&](const QMTransaction& transaction) {
        sRecords += BytesOf(static_cast<const QMTransactionFields&>(transaction));
    });
    return sRecords;
}

void ClearCategories(QMAccount& account)
{
    account.store.First();
    do {
        VCopyText(account.store.GetCurrentNode()->szCategory, "");
    } while (account.store.Next());
}

// The only transaction, after it was written in that version and read again.
QMTransaction ThereAndBack(const QMTransaction& transaction, int32_t lVersion)
{
    QMAccount account("");
    account.lVersion = lVersion;
    AddTo(account.store, transaction);
    QMAccount again("");
    EXPECT_TRUE(ReadBytes(again, ImageOf(account)));
    QMTransaction back;
    EXPECT_EQ(again.store.GetCurrent(back), 0);
    return back;
}

} // namespace

TEST_F(AccountTest, NewOneIsOfFormat20AndClosed)
{
    const QMAccount account(PathOf("a.qmk").c_str());
    EXPECT_EQ(account.lMagic, 0x35763685U);
    EXPECT_EQ(account.lVersion, 8192);
    EXPECT_FALSE(account.IsOpen());
    EXPECT_TRUE(account.store.IsEmpty());
    EXPECT_TRUE(m_folder.GetNames().empty());
}

TEST_F(AccountTest, SetVersionTakesTheThreeFormatsOnly)
{
    constexpr struct
    {
        int32_t lSet;
        int32_t lThen;
    } aSteps[] = {{0, 8192},    {4096, 4096}, {0, 4096},     {4352, 4352},     {5000, 4352},
                  {8192, 8192}, {5000, 8192}, {4095, 8192},  {8193, 8192},     {4097, 8192},
                  {-1, 8192},   {4096, 4096}, {16384, 4096}, {INT32_MIN, 4096}};
    QMAccount account("");
    for (const auto& step : aSteps) {
        EXPECT_EQ(account.SetVersion(step.lSet), step.lThen) << "version " << step.lSet;
        EXPECT_EQ(account.lVersion, step.lThen) << "version " << step.lSet;
    }
}

TEST_F(AccountTest, FileIsLaidOutAsDescribed)
{
    for (const int32_t lVersion : aVersions) {
        QMAccount account("");
        Fill(account, lVersion);
        Write(account, "a.qmk");
        EXPECT_EQ(ReadWholeFile(PathOf("a.qmk")), JoinAccount(PartsOf(account)))
            << "version " << lVersion;
    }
}

TEST_F(AccountTest, WhatIsWrittenReadsBack)
{
    for (const int32_t lVersion : aVersions) {
        QMAccount account("");
        Fill(account, lVersion);
        Write(account, "a.qmk");
        QMAccount again(PathOf("a.qmk").c_str());
        ASSERT_TRUE(again.Read());
        EXPECT_TRUE(again.IsOpen());
        if (lVersion < 8192) {
            ClearCategories(account);
        }
        EXPECT_EQ(again.lMagic, account.lMagic);
        EXPECT_EQ(again.lVersion, lVersion);
        EXPECT_EQ(BytesOf(again.header), BytesOf(account.header)) << "version " << lVersion;
        EXPECT_EQ(again.store.GetCount(), 4);
        EXPECT_EQ(RecordsOf(again), RecordsOf(account)) << "version " << lVersion;
    }
}

TEST_F(AccountTest, FileLargerThanTheBufferReadsBack)
{
    QMAccount account("");
    for (int n = 0; n < 1000; ++n) {
        const std::string sMark(static_cast<size_t>(n % 200), static_cast<char>('a' + n % 26));
        AddTo(account.store, FullTransaction("2/3/2004", sMark));
    }
    Write(account, "a.qmk");
    QMAccount again(PathOf("a.qmk").c_str());
    ASSERT_TRUE(again.Read());
    EXPECT_GT(again.GetSize(), 4 * 65536);
    EXPECT_EQ(RecordsOf(again), RecordsOf(account));
}

TEST_F(AccountTest, EmptyAccountHas1284Bytes)
{
    for (const int32_t lVersion : aVersions) {
        QMAccount account("");
        account.lVersion = lVersion;
        Write(account, "a.qmk");
        const std::string sFile = ReadWholeFile(PathOf("a.qmk"));
        EXPECT_EQ(sFile.size(), 1284U);
        EXPECT_EQ(NumberAt(sFile, uCountOffset), 0U);
        EXPECT_EQ(NumberAt(sFile, uHeaderSizeOffset), 1264U);
        EXPECT_EQ(NumberAt(sFile, uBlockSizeOffset), 48U);
        QMAccount again(PathOf("a.qmk").c_str());
        EXPECT_TRUE(again.Read());
        EXPECT_TRUE(again.store.IsEmpty());
    }
}

TEST_F(AccountTest, NoTextOfTheHeaderStandsPlainInTheFile)
{
    QMAccount account("");
    VCopyText(account.header.szPassword, "Secret!");
    VCopyText(account.header.szBankName, "Bank");
    AddTo(account.store, MakeTransaction(QM_TRANS_CHECK, "2/3/2004", 1, 0, "Description"));
    const std::string sFile = ImageOf(account);
    for (const char* szText : {"Secret", "cret", "Bank", "Desc", "ption"}) {
        EXPECT_EQ(sFile.find(szText), std::string::npos) << szText;
    }
}

TEST_F(AccountTest, CharacterDfInATextComesBackAsABlank)
{
    QMTransaction transaction = MakeTransaction(QM_TRANS_CHECK, "2/3/2004", 1, 0,
                                                "Stra\xDF"
                                                "e");
    VCopyText(transaction.szMemo, "\xDF");
    VCopyText(transaction.szCategory, "a\xDF\xDF\xDF\xDF");
    const QMTransaction back = ThereAndBack(transaction, 8192);
    EXPECT_STREQ(back.szDescription, "Stra e");
    EXPECT_STREQ(back.szMemo, " ");
    EXPECT_STREQ(back.szCategory, "a    ");
}

TEST_F(AccountTest, WritingLeavesTheTransactionsInMemory)
{
    QMAccount account(PathOf("a.qmk").c_str());
    ASSERT_TRUE(account.Create());
    account.lVersion = 4096;
    AddTo(account.store, MakeTransaction(QM_TRANS_CHECK, "2/3/2015", 1, 0,
                                         "Stra\xDF"
                                         "e"));
    const std::string sBefore = RecordsOf(account);
    EXPECT_TRUE(account.Write());
    EXPECT_EQ(RecordsOf(account), sBefore);
}

// The header is scrambled and unscrambled in place, and the transactions are not. So what the
// format does to a byte 0xDF shows in the header in memory.
TEST_F(AccountTest, HeaderShowsAfterWritingWhatReadingWillGive)
{
    QMAccount account(PathOf("a.qmk").c_str());
    ASSERT_TRUE(account.Create());
    account.header.dtOpened = MakeDate("6/1/2015");
    account.header.dtPeriodFrom = MakeDate("6/1/2014");
    account.header.dtPeriodTo = MakeDate("6/1/2015");
    account.header.lWidthMemo = 223;
    account.header.lFontColor = 0x00DFDF00;
    VCopyText(account.header.szBankCity,
              "Gie\xDF"
              "en");
    EXPECT_TRUE(account.Write());
    const QMAccountHeader written = account.header;
    EXPECT_EQ(DateText(written.dtOpened), "6/1/1824");
    EXPECT_EQ(DateText(written.dtPeriodFrom), "6/1/2014");
    EXPECT_EQ(DateText(written.dtPeriodTo), "6/1/1824");
    EXPECT_EQ(written.lWidthMemo, 32);
    EXPECT_EQ(written.lFontColor, 0x00202000U);
    EXPECT_STREQ(written.szBankCity, "Gie en");
    account.header = QMDefaultHeader();
    EXPECT_TRUE(account.Read());
    EXPECT_EQ(BytesOf(account.header), BytesOf(written));
}

TEST_F(AccountTest, ReservedByteIsWrittenAsZero)
{
    QMAccount account(PathOf("a.qmk").c_str());
    ASSERT_TRUE(account.Create());
    account.header.bReserved = 9;
    account.header.bReserved2 = 9;
    EXPECT_TRUE(account.Write());
    const std::string sHeader = Unscrambled(BytesOfFile(account).substr(16, 1264));
    EXPECT_EQ(sHeader[53], 0);
    EXPECT_EQ(sHeader[1039], 9);
    EXPECT_EQ(account.header.bReserved, 0); // as reading will give it
}

TEST_F(AccountTest, MakingTheBytesLeavesTheHeader)
{
    QMAccount account("");
    account.header.lWidthMemo = 223;
    EXPECT_EQ(NumberAt(Unscrambled(ImageOf(account).substr(16, 1264)), 1064), 32U);
    EXPECT_EQ(account.header.lWidthMemo, 223);
}

TEST_F(AccountTest, BlockOfFormat10LosesByteDf)
{
    QMTransaction transaction = MakeTransaction(QM_TRANS_CHECK, "6/1/2015", 1, 16);
    transaction.lNumber = 223;
    for (const int32_t lVersion : {4352, 5000, 8192}) {
        EXPECT_TRUE(IsSame(ThereAndBack(transaction, lVersion), transaction))
            << "version " << lVersion;
    }
    const QMTransaction back = ThereAndBack(transaction, 4096);
    EXPECT_EQ(DateText(back.dtDate), "6/1/1824");
    EXPECT_EQ(DateText(back.dtCleared), "6/1/1824");
    EXPECT_EQ(back.lNumber, 32U);
}

TEST_F(AccountTest, DatesThatFormat10ChangesAreOrderedAndMendedAsTheyRead)
{
    QMAccount account("");
    account.lVersion = 4096;
    QMTransaction cleared = MakeTransaction(QM_TRANS_CHECK, "6/1/2014", 1, 0);
    cleared.dtCleared = MakeDate("6/1/2015");
    AddTo(account.store, cleared);
    AddTo(account.store, MakeTransaction(QM_TRANS_CHECK, "6/1/2015", 2));
    QMAccount again("");
    EXPECT_TRUE(ReadBytes(again, ImageOf(account)));
    EXPECT_EQ(ContentsOf(again.store),
              (std::vector<std::string>{"6/1/1824 0 2.00", "6/1/2014 0 1.00"}));
    again.store.Last();
    EXPECT_EQ(DateText(again.store.GetCurrentNode()->dtCleared), "6/1/2014");
}

TEST_F(AccountTest, CursorIsOnTheLastTransactionAfterWriting)
{
    QMAccount account(PathOf("a.qmk").c_str());
    Fill(account, 8192);
    ASSERT_TRUE(account.Create());
    account.store.First();
    EXPECT_TRUE(account.Write());
    EXPECT_EQ(account.store.GetPosition(), 3);
    EXPECT_TRUE(account.store.IsLast());
}

TEST_F(AccountTest, WritingReplacesALongerFileWhole)
{
    QMAccount account(PathOf("a.qmk").c_str());
    Fill(account, 8192);
    ASSERT_TRUE(account.Create());
    EXPECT_TRUE(account.Write());
    account.store.Clear();
    EXPECT_TRUE(account.Write());
    EXPECT_EQ(BytesOfFile(account), JoinAccount(PartsOf(account)));
}

TEST_F(AccountTest, WritingNeedsAnOpenFile)
{
    QMAccount account(PathOf("a.qmk").c_str());
    EXPECT_FALSE(account.Write());
    EXPECT_TRUE(m_folder.GetNames().empty());
    WriteWholeFile(PathOf("a.qmk"), "old contents");
    EXPECT_FALSE(account.Write());
    EXPECT_EQ(ReadWholeFile(PathOf("a.qmk")), "old contents");
}

TEST_F(AccountTest, WritingRefusesVersionsBelow10AndNoneAbove20)
{
    WriteWholeFile(PathOf("a.qmk"), "old contents");
    QMAccount account(PathOf("a.qmk").c_str());
    ASSERT_TRUE(account.Open());
    for (const int32_t lVersion : {4095, 0, -1, INT32_MIN}) {
        account.lVersion = lVersion;
        EXPECT_FALSE(account.Write()) << "version " << lVersion;
        EXPECT_TRUE(account.IsOpen());
        EXPECT_EQ(BytesOfFile(account), "old contents");
    }
    account.lVersion = 9000;
    EXPECT_TRUE(account.Write());
    EXPECT_EQ(NumberAt(BytesOfFile(account), uVersionOffset), 9000U);
    EXPECT_FALSE(account.Read());
}

TEST_F(AccountTest, WritingWithoutMemoryLeavesTheFile)
{
    WriteWholeFile(PathOf("a.qmk"), "old contents");
    QMAccount account(PathOf("a.qmk").c_str());
    ASSERT_TRUE(account.Open());
    bool bWritten;
    {
        const AllocationFault fault;
        bWritten = account.Write();
    }
    EXPECT_FALSE(bWritten);
    ASSERT_TRUE(account.IsOpen());
    EXPECT_EQ(BytesOfFile(account), "old contents");
}

TEST_F(AccountTest, CopyFromTakesEverythingButTheFile)
{
    QMAccount account(PathOf("a.qmk").c_str());
    Fill(account, 5000);
    account.lMagic = 7;
    ASSERT_TRUE(account.Create());
    QMAccount copy(PathOf("b.qmk").c_str());
    AddTo(copy.store, MakeTransaction(QM_TRANS_FEE, "1/1/2001", 9));
    EXPECT_TRUE(copy.CopyFrom(account));
    EXPECT_EQ(copy.lMagic, 7U);
    EXPECT_EQ(copy.lVersion, 5000);
    EXPECT_EQ(BytesOf(copy.header), BytesOf(account.header));
    EXPECT_EQ(RecordsOf(copy), RecordsOf(account));
    EXPECT_EQ(copy.GetFileName(), PathOf("b.qmk"));
    EXPECT_FALSE(copy.IsOpen());
}

TEST_F(AccountTest, CopyFromTellsWhenThereIsNoMemory)
{
    QMAccount account("");
    Fill(account, 8192);
    for (int nBefore = 0; nBefore < 4; ++nBefore) {
        QMAccount copy("");
        bool bCopied;
        {
            const AllocationFault fault(nBefore);
            bCopied = copy.CopyFrom(account);
        }
        EXPECT_FALSE(bCopied) << "allocations before the failure: " << nBefore;
    }
}
