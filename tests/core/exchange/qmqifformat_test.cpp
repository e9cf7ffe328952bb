#include "exchange/qmqifformat.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/vfilesystem.h"
#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {

// What one record of these lines reads as.
std::string Record(const std::string& sLines)
{
    return FullText(ImportOne("a.qif", "!Type:Bank\n" + sLines + "^\n"));
}

std::string WrittenRecord(const QMTransaction& transaction)
{
    const std::string sHeader = "!Type:Bank\n";
    const std::string sFile = Export("a.qif", {transaction});
    EXPECT_TRUE(sFile.starts_with(sHeader)) << sFile;
    return sFile.substr(sHeader.size());
}

} // namespace

TEST(QifReader, ReadsAFullRecord)
{
    EXPECT_EQ(Record("D3/14/2004\nN1001\nT-12.50\nPRent\nMMarch\nLHome\nCX\n"),
              "3/14/2004 0 #1001 12.50 f0 3/14/2004 'Rent' 'March' 'Home'");
}

TEST(QifReader, ReadsAFileOfTheHeaderAloneAsNoRecords)
{
    EXPECT_EQ(Import("a.qif", "!Type:Bank\n"), Texts{});
    EXPECT_EQ(Import("a.qif", "\n"), Texts{});
    EXPECT_EQ(Import("a.qif", ""), Texts{"(refused)"});
}

TEST(QifReader, CommitsADefaultRecordAtACaretAlone)
{
    EXPECT_EQ(Record(""), "1/1/2000 2 #0 0.00 f16 1/1/2000");
    EXPECT_EQ(Import("a.qif", "^\n^and more\n").size(), 2U);
}

TEST(QifReader, LosesARecordThatNoCaretEnds)
{
    EXPECT_EQ(Import("a.qif", "T5\n^\nT6\n"), Texts{"1/1/2000 1 #0 5.00 f16 1/1/2000"});
}

TEST(QifReader, IgnoresLowerCaseLettersAndFieldsWithoutAPlace)
{
    EXPECT_EQ(Record("d3/14/2004\nt5\npRent\nn7\nmx\nlx\ncX\n!Option:X\nAStreet\nSpart\nEpart\n"
                     "$5\nU5\n 5\n\n"),
              "1/1/2000 2 #0 0.00 f16 1/1/2000");
}

TEST(QifReader, TakesXAloneForCleared)
{
    EXPECT_EQ(Record("CX\n"), "1/1/2000 2 #0 0.00 f0 1/1/2000");
    EXPECT_EQ(Record("Cx\n"), "1/1/2000 2 #0 0.00 f0 1/1/2000");
    EXPECT_EQ(Record("CXy\n"), "1/1/2000 2 #0 0.00 f0 1/1/2000");
    for (const char* szLine : {"C\n", "C*\n", "Cc\n", "CR\n", "C X\n"}) {
        EXPECT_EQ(Record(szLine), "1/1/2000 2 #0 0.00 f16 1/1/2000") << szLine;
    }
    EXPECT_EQ(Record("CX\nC*\n"), "1/1/2000 2 #0 0.00 f0 1/1/2000")
        << "a second C line must not take the mark off again";
}

TEST(QifReader, ReadsDatesAsTheyAreWritten)
{
    EXPECT_EQ(Record("D03/14/2004\n"), "3/14/2004 2 #0 0.00 f16 3/14/2004");
    EXPECT_EQ(Record("D3-14-2004\n"), "3/14/2004 2 #0 0.00 f16 3/14/2004");
    EXPECT_EQ(Record("D3.14.2004\n"), "3/14/2004 2 #0 0.00 f16 3/14/2004");
    EXPECT_EQ(Record("D3/14/03\n"), "3/14/3 2 #0 0.00 f16 1/1/2000") << "03 is the year 3";
    EXPECT_EQ(Record("D3/14\n"), "3/14/14 2 #0 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("D20040314\n"), "1/1/2000 2 #0 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("D\n"), "1/1/2000 2 #0 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("D99/99/99999\n"), "99/99/65535 2 #0 0.00 f16 99/99/65535");
}

TEST(QifReader, LetsTheLastOfTwoDatesWin)
{
    EXPECT_EQ(Record("D3/14/2004\nD4/15/2005\n"), "4/15/2005 2 #0 0.00 f16 4/15/2005");
}

TEST(QifReader, LeavesTheDateClearedOfADateBefore2000At2000)
{
    EXPECT_EQ(Record("D12/31/1999\nCX\n"), "12/31/1999 2 #0 0.00 f0 1/1/2000");
}

TEST(QifReader, TakesTheSideFromTheSignOfTheAmount)
{
    EXPECT_EQ(Record("T-1,234.56\n"), "1/1/2000 2 #0 1234.56 f16 1/1/2000");
    EXPECT_EQ(Record("T1,234.56\n"), "1/1/2000 1 #0 1234.56 f16 1/1/2000");
    EXPECT_EQ(Record("T-5\nN7\n"), "1/1/2000 0 #7 5.00 f16 1/1/2000");
    EXPECT_EQ(Record("T5\nN7\n"), "1/1/2000 1 #7 5.00 f16 1/1/2000")
        << "a deposit must keep the number, although nothing shows it";
    EXPECT_EQ(Record("T-5\nPDeposit\n"), "1/1/2000 2 #0 5.00 f16 1/1/2000");
    EXPECT_EQ(Record("T-5\nPInterest Paid\n"), "1/1/2000 11 #0 5.00 f16 1/1/2000");
    EXPECT_EQ(Record("T$5\n"), "1/1/2000 2 #0 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("T\n"), "1/1/2000 2 #0 0.00 f16 1/1/2000");
}

TEST(QifReader, MakesACheckOfEveryNumberLineWhateverItHolds)
{
    EXPECT_EQ(Record("PFee\nN7\n"), "1/1/2000 0 #7 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("PFee\nNDEP\n"), "1/1/2000 2 #0 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("PFee\nN\n"), "1/1/2000 2 #0 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("N7\nPFee\n"), "1/1/2000 3 #7 0.00 f16 1/1/2000")
        << "the later line must decide the type";
}

TEST(QifReader, TakesBracketsOffTextsAndLeavesAnEmptyOneAlone)
{
    EXPECT_EQ(Record("P[Shop]\nM[a]b[\nL[Savings]\n"),
              "1/1/2000 2 #0 0.00 f16 1/1/2000 'Shop' 'ab' 'Savings'");
    EXPECT_EQ(Record("P[]\nM[]\nL[]\n"), "1/1/2000 2 #0 0.00 f16 1/1/2000");
    EXPECT_EQ(Record("Pa\nMb\nLc\nP\nM[\nL\n"), "1/1/2000 2 #0 0.00 f16 1/1/2000 'a' 'b' 'c'");
    EXPECT_EQ(Record("P[Fee]ding\n"), "1/1/2000 3 #0 0.00 f16 1/1/2000 'ding'");
}

TEST(QifReader, CutsTextsAtTheirFields)
{
    const QMTransaction record =
        ImportOne("a.qif", "P" + std::string(300, 'p') + "\nM" + std::string(300, 'm') + "\nL" +
                               std::string(300, 'l') + "\n^");
    EXPECT_EQ(record.szDescription, std::string(255, 'p'));
    EXPECT_EQ(record.szMemo, std::string(255, 'm'));
    EXPECT_EQ(record.szCategory, std::string(127, 'l'));
}

TEST(QifReader, StartsEachRecordAnew)
{
    EXPECT_EQ(
        Import("a.qif", "D3/14/2004\nN7\nT-5\nPa\nMb\nLc\nCX\n^\n^\n"),
        (Texts{"1/1/2000 2 #0 0.00 f16 1/1/2000", "3/14/2004 0 #7 5.00 f0 3/14/2004 'a' 'b' 'c'"}));
}

TEST(QifReader, SurvivesWhateverComes)
{
    using namespace std::string_literals;
    const std::string aFiles[] = {
        std::string(100000, '^'),
        std::string(100000, '['),
        "P" + std::string(50000, ']') + "\n^",
        "L["s + std::string(20000, '[') + "\n^\n",
        "\0\0\0\n^\n"s,
        "D\0//\n^\n"s,
        "T" + std::string(20000, '9') + "\n^\n",
        "T1e999\n^\nT-1e999\n^\n",
        "N99999999999999999999\n^\nN-5\n^\n",
        "\xFE\xFF\0^\0\n"s,
        "\xFF\xFE^\0"s,
    };
    for (const std::string& sFile : aFiles) {
        EXPECT_NE(Import("a.qif", sFile), Texts{"(refused)"}) << sFile.substr(0, 20);
    }
}

TEST(QifWriter, WritesTheFieldsOfACheckInTheirOrder)
{
    QMTransaction check = MakeFull(0, "3/4/2004", 1234.5F, "Rent", "March", "Home", 0);
    check.lNumber = 1001;
    EXPECT_EQ(WrittenRecord(check), "D03/04/2004\nN1001\nT-1234.50\nPRent\nMMarch\nLHome\nCX\n^\n");
}

TEST(QifWriter, LeavesEmptyTextsOut)
{
    EXPECT_EQ(WrittenRecord(MakeFull(0, "3/4/2004", 5, "", "", "")),
              "D03/04/2004\nN1000\nT-5.00\n^\n");
}

TEST(QifWriter, WritesEveryOtherTypeByItsLabelAndSign)
{
    const struct
    {
        int32_t lType;
        const char* szText;
    } aCases[] = {
        {1, "T5.00\nPDeposit - x y\n"},
        {2, "T-5.00\nPWithdrawal - x y\n"},
        {3, "T-5.00\nPFee - x y\n"},
        {4, "T5.00\nPDirect Deposit - x y\n"},
        {5, "T-5.00\nPDirect Debit - x y\n"},
        {6, "T5.00\nPATM Deposit - x y\n"},
        {7, "T-5.00\nPATM Withdrawal - x y\n"},
        {8, "T-5.00\nPAutomatic Payment - x y\n"},
        {9, "T5.00\nPTransfer - Credit - x y\n"},
        {10, "T-5.00\nPTransfer - Debit - x y\n"},
        {11, "T5.00\nPInterest Paid - x y\n"},
    };
    for (const auto& c : aCases) {
        EXPECT_EQ(WrittenRecord(MakeFull(c.lType, "12/31/1999", 5, "x y", "", "")),
                  std::string("D12/31/1999\n") + c.szText + "^\n");
    }
    EXPECT_EQ(WrittenRecord(MakeFull(1, "12/31/1999", 5, "x", "", "")),
              "D12/31/1999\nT5.00\nPDeposit\n^\n")
        << "the writer must leave out a description of one character";
}

TEST(QifWriter, LeavesVoidedTransactionsOut)
{
    const std::vector<QMTransaction> records = {
        MakeFull(1, "1/1/2004", 5, "", "", "", QM_TRANS_FLAG_VOIDED | QM_TRANS_FLAG_NOT_CLEARED),
        MakeFull(1, "1/2/2004", 6, "", "", ""),
        MakeFull(1, "1/3/2004", 7, "", "", "", QM_TRANS_FLAG_VOIDED),
        MakeFull(1, "1/4/2004", 8, "", "", ""),
    };
    EXPECT_EQ(Export("a.qif", records),
              "!Type:Bank\n"
              "D01/02/2004\nT6.00\nPDeposit\n^\n"
              "D01/04/2004\nT8.00\nPDeposit\n^\n");
}

TEST(QifWriter, WritesTextsAsTheyStand)
{
    EXPECT_EQ(WrittenRecord(MakeFull(0, "1/1/2004", 5, "[a]\xE9", "^", "b,\"c")),
              "D01/01/2004\nN1000\nT-5.00\nP[a]\xE9\nM^\nLb,\"c\n^\n");
}

TEST(QifWriter, FailsWhereTheFileCannotBeMade)
{
    const TemporaryFolder folder;
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "1/1/2004", 5));
    EXPECT_FALSE(QMQifFormat().Export(folder.PathOf("no/a.qif").c_str(), store));
    EXPECT_FALSE(QMQifFormat().Export(folder.GetPath().c_str(), store));
    EXPECT_FALSE(QMQifFormat().Export(nullptr, store));
}

TEST(QifWriter, EndsItsLinesAsThePlatformDoes)
{
    const TemporaryFolder folder;
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "1/1/2004", 5));
    ASSERT_TRUE(QMQifFormat().Export(folder.PathOf("a.qif").c_str(), store));
    const std::string sEnd = VPathSeparator == '\\' ? "\r\n" : "\n";
    EXPECT_TRUE(ReadWholeFile(folder.PathOf("a.qif")).starts_with("!Type:Bank" + sEnd + "D"));
}
