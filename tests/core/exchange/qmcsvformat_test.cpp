#include "exchange/qmcsvformat.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {

const char szDefault[] = "1/1/2000 2 #0 0.00 f16 1/1/2000";

// What one row under a header reads as.
std::string Row(const std::string& sHeader, const std::string& sRow)
{
    return FullText(ImportOne("a.csv", sHeader + "\n" + sRow + "\n"));
}

std::string Amount(const std::string& sHeader, const std::string& sRow)
{
    const QMTransaction record = ImportOne("a.csv", sHeader + "\n" + sRow + "\n");
    return TextOf(record).substr(std::string("1/1/2000 ").size());
}

uint32_t Flags(const std::string& sHeader, const std::string& sRow)
{
    return ImportOne("a.csv", sHeader + "\n" + sRow + "\n").lFlags;
}

} // namespace

TEST(CsvReader, ReadsTheColumnsThatItsWriterWrites)
{
    EXPECT_EQ(Row("Date,Number,Payee,Amount,Memo,Category,Cleared,Voided,Tax,Expense",
                  " 3/14/2004,1001,Rent,-12.50,March,Home,True,False,False,True"),
              "3/14/2004 0 #1001 12.50 f2 3/14/2004 'Rent' 'March' 'Home'");
}

TEST(CsvReader, TakesTheFirstLineForTheHeaderEvenWhereItHoldsData)
{
    EXPECT_EQ(Import("a.csv", "3/14/2004,Rent,-12.50\n"), Texts{});
    EXPECT_EQ(Import("a.csv", "Date,Amount\n"), Texts{});
    EXPECT_EQ(Import("a.csv", ""), Texts{"(refused)"});
}

TEST(CsvReader, FindsNoColumnsInABlankFirstLine)
{
    EXPECT_EQ(Import("a.csv", "\nDate,Amount\n1/2/2004,5\n"), (Texts{szDefault, szDefault}));
}

TEST(CsvReader, ReadsABlankLineAsADefaultRecord)
{
    EXPECT_EQ(Import("a.csv", "Date,Amount\n\n1/2/2004,5\n\n"),
              (Texts{szDefault, szDefault, "1/2/2004 1 #0 5.00 f16 1/2/2004"}));
}

TEST(CsvReader, CommitsARowOfFewerCellsAndNeverLooksAtMore)
{
    EXPECT_EQ(Row("Date,Amount,Memo", "1/2/2004"), "1/2/2004 2 #0 0.00 f16 1/2/2004");
    EXPECT_EQ(Row("Amount", "5,6,7"), "1/1/2000 1 #0 5.00 f16 1/1/2000");
    EXPECT_EQ(Row("Memo,Amount", ",5"), "1/1/2000 1 #0 5.00 f16 1/1/2000");
}

TEST(CsvReader, UsesTheFirst32ColumnsOfALongerHeader)
{
    std::string sHeader = "Date";
    std::string sRow = "1/2/2004";
    for (int i = 0; i < 30; ++i) {
        sHeader += ",x";
        sRow += ",y";
    }
    EXPECT_EQ(Row(sHeader + ",Memo,Category", sRow + ",m,c"),
              "1/2/2004 2 #0 0.00 f16 1/2/2004 '' 'm'");
}

TEST(CsvReader, DropsColumnsThatItDoesNotKnowAndTags)
{
    EXPECT_EQ(Row("Balance,Tag,Amount,Account", "9,V,5,x"), "1/1/2000 1 #0 5.00 f16 1/1/2000");
}

TEST(CsvReader, KnowsHeadingsByTheirBeginningIgnoringCase)
{
    EXPECT_EQ(Amount("AMOUNT (USD)", "5"), "1 5.00");
    EXPECT_EQ(Amount("amounts", "-5"), "2 5.00");
    EXPECT_EQ(Amount(" Amount", "5"), "2 0.00")
        << "a heading that begins with a blank is an unknown one";
}

TEST(CsvReader, TakesADateClearedColumnForASecondDate)
{
    EXPECT_EQ(Row("Date,Date Cleared", "1/2/2004,3/4/2005"), "3/4/2005 2 #0 0.00 f16 3/4/2005");
}

TEST(CsvReader, MakesACheckOfANumberAndANegativeAmountOnly)
{
    EXPECT_EQ(Row("Number,Amount", "7,-5"), "1/1/2000 0 #7 5.00 f16 1/1/2000");
    EXPECT_EQ(Row("Num,Amount", "7,5"), "1/1/2000 1 #7 5.00 f16 1/1/2000");
    EXPECT_EQ(Row("Number,Amount", ",-5"), "1/1/2000 2 #0 5.00 f16 1/1/2000");
    EXPECT_EQ(Row("Payee,Number,Amount", "Fee,7,-5"), "1/1/2000 3 #7 5.00 f16 1/1/2000")
        << "a fee must keep the number, although nothing shows it";
}

TEST(CsvReader, TakesATypeFromThePayeeUnlessTheSignDisagrees)
{
    EXPECT_EQ(Row("Payee,Amount", "Deposit - rent,5"), "1/1/2000 1 #0 5.00 f16 1/1/2000 ' - rent'");
    EXPECT_EQ(Row("Description,Amount", "Deposit - rent,-5"),
              "1/1/2000 2 #0 5.00 f16 1/1/2000 ' - rent'");
    EXPECT_EQ(Row("Payee,Amount", "Interest Paid,-5"), "1/1/2000 11 #0 5.00 f16 1/1/2000");
}

TEST(CsvReader, TakesTheSignFromADebitColumn)
{
    for (const char* szName : {"Debit", "Withdrawal", "Withdraw"}) {
        const std::string sName = szName;
        EXPECT_EQ(Amount(sName + ",Credit", "5,"), "2 5.00") << sName;
        EXPECT_EQ(Amount(sName + ",Credit", "-5,"), "2 5.00") << sName;
        EXPECT_EQ(Amount(sName + ",Deposit", ",5"), "1 5.00") << sName;
    }
    EXPECT_EQ(Amount("Debit,Credit", "5,6"), "1 6.00") << "of two amounts the later one must count";
    EXPECT_EQ(Amount("Credit,Debit", "6,5"), "2 5.00");
    EXPECT_EQ(Amount("Credit,Debit", "6,0.00"), "2 0.00");
}

TEST(CsvReader, ReadsTagsByThreeWords)
{
    for (const char* szYes : {"true", "True", "YES", "y"}) {
        EXPECT_EQ(Flags("Voided", szYes), 17U);
        EXPECT_EQ(Flags("Cancelled", szYes), 17U);
        EXPECT_EQ(Flags("Tax", szYes), 20U);
        EXPECT_EQ(Flags("Expense", szYes), 18U);
    }
    for (const char* szNo : {"false", "1", "yes ", "t", "x"}) {
        EXPECT_EQ(Flags("Voided", szNo), 16U);
        EXPECT_EQ(Flags("Tax Deductible", szNo), 16U);
        EXPECT_EQ(Flags("Expense", szNo), 16U);
    }
    EXPECT_EQ(Flags("Tax,Expense", "y,y"), 18U)
        << "the later of two tags that exclude each other must stay";
    EXPECT_EQ(Flags("Tax,Expense", "y,n"), 20U) << "\"n\" must take off its own tag only";
    EXPECT_EQ(Flags("Tax,Tax", "y,n"), 16U);
}

TEST(CsvReader, TakesAllButThreeWordsForCleared)
{
    for (const char* szNo : {"false", "NO", "n"}) {
        EXPECT_EQ(Flags("Cleared", szNo), 16U);
    }
    for (const char* szYes : {"true", "x", "0", " no"}) {
        EXPECT_EQ(Flags("Cleared", szYes), 0U);
    }
    EXPECT_EQ(Flags("Cleared,Memo", ",m"), 16U) << "an empty cell must change nothing";
}

TEST(CsvReader, ClearsAVoidedTransactionWhereClearedStandsBehindVoided)
{
    EXPECT_EQ(Flags("Voided,Cleared", "y,y"), 1U);
    EXPECT_EQ(Flags("Cleared,Voided", "y,y"), 17U);
    EXPECT_EQ(Flags("Cleared,Voided", "y,n"), 0U);
}

TEST(CsvReader, TakesQuotesOffAndJoinsCellsWithoutTheirComma)
{
    EXPECT_EQ(Row("\"Date\",\"Payee\",\"Amount\"", "\"1/2/2004\",\"Smith, John\",\"1,234.56\""),
              "1/2/2004 1 #0 1234.56 f16 1/2/2004 'Smith John'");
    EXPECT_EQ(Row("\"Memo\",Amount", "\"a,,b,c\",5"), "1/1/2000 1 #0 5.00 f16 1/1/2000 '' 'abc'");
    EXPECT_EQ(Row("\"Memo\",Amount", "\"a \"\"b\"\" c\",5"),
              "1/1/2000 1 #0 5.00 f16 1/1/2000 '' 'a b c'");
    EXPECT_EQ(Row("\"Memo\",Amount", "a\"b,5"), "1/1/2000 1 #0 5.00 f16 1/1/2000 '' 'ab'");
    EXPECT_EQ(Row("\"Memo\",Amount", "\"never closed,5,6"),
              "1/1/2000 2 #0 0.00 f16 1/1/2000 '' 'never closed56'");
    EXPECT_EQ(Row("\"Memo\",Amount", "\",5"), "1/1/2000 1 #0 5.00 f16 1/1/2000")
        << "a cell of one quote must end at its comma";
    EXPECT_EQ(Row("\"Memo\",\"Amount, USD\"", "m,5"), "1/1/2000 1 #0 5.00 f16 1/1/2000 '' 'm'");
}

TEST(CsvReader, DecidesAboutQuotesByTheFirstHeaderCellAlone)
{
    EXPECT_EQ(Row("Memo,Category", "\"a, b\",c"),
              "1/1/2000 2 #0 0.00 f16 1/1/2000 '' '\"a' ' b\"'");
    EXPECT_EQ(Row("Memo,\"Category\"", "\"a\",c"), "1/1/2000 2 #0 0.00 f16 1/1/2000 '' '\"a\"'")
        << "a heading in quotes is unknown when the first one has none";
    EXPECT_EQ(Row("\"Memo,Category\"", "a,b"), "1/1/2000 2 #0 0.00 f16 1/1/2000 '' '' 'b'")
        << "the first heading has no quote at its end, so its comma separates two columns";
}

TEST(CsvReader, ReadsARowTheSameWhereTheFileHasAMark)
{
    EXPECT_EQ(Row("\xEF\xBB\xBF"
                  "Amount",
                  "5"),
              "1/1/2000 1 #0 5.00 f16 1/1/2000");
}

TEST(CsvReader, CutsTextsAtTheirFields)
{
    const QMTransaction record =
        ImportOne("a.csv", "Payee,Memo,Category\n" + std::string(300, 'p') + "," +
                               std::string(300, 'm') + "," + std::string(300, 'c'));
    EXPECT_EQ(record.szDescription, std::string(255, 'p'));
    EXPECT_EQ(record.szMemo, std::string(255, 'm'));
    EXPECT_EQ(record.szCategory, std::string(127, 'c'));
}

TEST(CsvReader, SurvivesWhateverComes)
{
    using namespace std::string_literals;
    const std::string aFiles[] = {
        std::string(100000, ','),
        "\"Memo\"\n\"" + std::string(100000, ','),
        "\"Memo\"\n" + std::string(100000, '"'),
        "\"\n\"\n\",\"\n",
        "\0,\0\n\0\n"s,
        "Date\n////\n--\n.\n/\n",
        "Amount\n1e999\n-1e999\n-\n.\n,\n",
        "\xFF\xFE\"\0\n\0,\0"s,
    };
    for (const std::string& sFile : aFiles) {
        EXPECT_NE(Import("a.csv", sFile), Texts{"(refused)"}) << sFile.substr(0, 20);
    }
}

TEST(CsvWriter, WritesOneFixedLayout)
{
    QMTransaction check = MakeFull(0, "3/4/2004", 1234.5F, "Rent", "March", "Home", 0);
    check.lNumber = 1001;
    const QMTransaction deposit = MakeFull(1, "12/31/2004", 5, "pay", "", "", 20);
    const QMTransaction voided = MakeFull(3, "12/31/2004", 5, "", "", "", 17);
    const QMTransaction expense = MakeFull(2, "12/31/2004", 5, "", "", "", 18);
    EXPECT_EQ(Export("a.csv", {check, deposit, voided, expense}),
              "Date,Number,Payee,Amount,Memo,Category,Cleared,Voided,Tax,Expense\n"
              " 3/ 4/2004,1001,Rent,-1234.50,March,Home,True,False,False,False\n"
              "12/31/2004,,Deposit - pay,5.00,,,False,False,True,False\n"
              "12/31/2004,,Fee,-5.00,,,False,True,False,False\n"
              "12/31/2004,,Withdrawal,-5.00,,,False,False,False,True\n");
}

TEST(CsvWriter, QuotesNothingSoThatACommaAddsAColumn)
{
    const std::string sFile =
        Export("a.csv", {MakeFull(0, "3/4/2004", 5, "Smith, John", "say \"x\"", "")});
    EXPECT_NE(sFile.find(",Smith, John,-5.00,say \"x\",,"), std::string::npos) << sFile;
    EXPECT_EQ(Import("a.csv", sFile),
              Texts{"3/4/2004 0 #1000 0.00 f16 3/4/2004 'Smith' '-5.00' 'say \"x\"'"})
        << "each cell after the comma must move by one column";
}

TEST(CsvWriter, FailsWhereTheFileCannotBeMade)
{
    const TemporaryFolder folder;
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "1/1/2004", 5));
    EXPECT_FALSE(QMCsvFormat().Export(folder.PathOf("no/a.csv").c_str(), store));
    EXPECT_FALSE(QMCsvFormat().Export(folder.GetPath().c_str(), store));
    EXPECT_FALSE(QMCsvFormat().Export(nullptr, store));
}
