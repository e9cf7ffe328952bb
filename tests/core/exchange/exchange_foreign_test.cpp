// Files as other programs write them: what is read of them, and what is ignored.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {} // namespace

TEST(ForeignQif, SplitsAreLeftOutAndTheTotalStays)
{
    EXPECT_EQ(Import("a.qif",
                     "!Type:Bank\r\n"
                     "D03/14/2004\r\n"
                     "U-100.00\r\n"
                     "T-100.00\r\n"
                     "N1024\r\n"
                     "PGrocer\r\n"
                     "LFood\r\n"
                     "SFood\r\n"
                     "$-60.00\r\n"
                     "SHousehold\r\n"
                     "ECleaning\r\n"
                     "$-40.00\r\n"
                     "^\r\n"),
              Texts{"3/14/2004 0 #1024 100.00 f16 3/14/2004 'Grocer' '' 'Food'"});
}

TEST(ForeignQif, AnInvestmentRecordKeepsItsDateAndTotalAndTakesItsActionForACheckNumber)
{
    EXPECT_EQ(Import("a.qif",
                     "!Type:Invst\n"
                     "D03/14/2004\n"
                     "NBuy\n"
                     "YSome Stock\n"
                     "I10.50\n"
                     "Q100\n"
                     "O9.95\n"
                     "T1,059.95\n"
                     "^\n"),
              Texts{"3/14/2004 1 #0 1059.95 f16 3/14/2004"});
}

TEST(ForeignQif, ATransfersBracketsComeOffItsCategory)
{
    EXPECT_EQ(Import("a.qif", "!Type:Bank\nD03/14/2004\nT-50.00\nPTransfer\nL[Savings]\n^\n"),
              Texts{"3/14/2004 2 #0 50.00 f16 3/14/2004 'Transfer' '' 'Savings'"});
}

TEST(ForeignQif, AnApostropheInADateMakesTheDayOfWhatFollowsTheOnlySlash)
{
    EXPECT_EQ(Import("a.qif", "D3/14'04\nT5\n^\n"), Texts{"3/14/14 1 #0 5.00 f16 1/1/2000"});
    EXPECT_EQ(Import("a.qif", "D 3/ 4/04\nT5\n^\n"), Texts{"3/4/4 1 #0 5.00 f16 1/1/2000"});
}

TEST(ForeignQif, ListsOfAccountsAndCategoriesComeAsRecordsWithoutAnAmount)
{
    EXPECT_EQ(Import("a.qif",
                     "!Account\nNMy Bank\nDChecking\nTBank\n^\n"
                     "!Type:Cat\nNFood\nDGroceries\nE\n^\n"
                     "!Type:Bank\nD3/14/2004\nT-5\n^\n"),
              (Texts{"1/1/2000 2 #0 0.00 f16 1/1/2000", "1/1/2000 2 #0 0.00 f16 1/1/2000",
                     "3/14/2004 2 #0 5.00 f16 3/14/2004"}));
}

TEST(ForeignQif, AReconciledMarkOtherThanXLeavesARecordNotCleared)
{
    EXPECT_EQ(Import("a.qif", "T-5\nC*\n^\nT-6\nCX\n^\nT-7\nCR\n^\n"),
              (Texts{"1/1/2000 2 #0 5.00 f16 1/1/2000", "1/1/2000 2 #0 6.00 f0 1/1/2000",
                     "1/1/2000 2 #0 7.00 f16 1/1/2000"}));
}

TEST(ForeignQif, ADayInFrontIsReadAsTheMonth)
{
    EXPECT_EQ(Import("a.qif", "D31/12/2004\nT5\n^\n"),
              Texts{"31/12/2004 1 #0 5.00 f16 31/12/2004"});
    EXPECT_EQ(Import("a.qif", "D2004-12-31\nT5\n^\n"), Texts{"2004/12/31 1 #0 5.00 f16 1/1/2000"});
}

TEST(ForeignCsv, ABanksFileWithQuotedCellsIsReadByItsHeadings)
{
    EXPECT_EQ(Import("a.csv",
                     "\"Date\",\"Description\",\"Check Number\",\"Debit\",\"Credit\"\r\n"
                     "\"03/14/2004\",\"GROCER, MAIN ST\",\"\",\"1,060.25\",\"\"\r\n"
                     "\"03/15/2004\",\"CHECK 1024\",\"1024\",\"50.00\",\"\"\r\n"
                     "\"03/16/2004\",\"PAYROLL \"\"ACME\"\"\",\"\",\"\",\"2000.00\"\r\n"),
              (Texts{"3/14/2004 2 #0 1060.25 f16 3/14/2004 'GROCER MAIN ST'",
                     "3/15/2004 0 #1024 50.00 f16 3/15/2004",
                     "3/16/2004 1 #0 2000.00 f16 3/16/2004 'PAYROLL ACME'"}));
}

TEST(ForeignCsv, OneAmountColumnWithASignIsEnough)
{
    EXPECT_EQ(Import("a.csv",
                     "\xEF\xBB\xBF"
                     "Date,Payee,Amount,Balance\n"
                     "03/14/2004,Caf\xC3\xA9,-4.50,995.50\n"
                     "03/15/2004,Refund,+20.00,1015.50\n"),
              (Texts{"3/14/2004 2 #0 4.50 f16 3/14/2004 'Caf\xC3\xA9'",
                     "3/15/2004 1 #0 20.00 f16 3/15/2004 'Refund'"}));
}

TEST(ForeignCsv, ADollarSignReadsAsNothing)
{
    EXPECT_EQ(Import("a.csv", "Date,Amount\n03/14/2004,$4.50\n03/14/2004,-$4.50\n"),
              (Texts{"3/14/2004 2 #0 0.00 f16 3/14/2004", "3/14/2004 2 #0 0.00 f16 3/14/2004"}));
}

TEST(ForeignCsv, SemicolonsMakeOneColumnOfAllUnderTheFirstHeading)
{
    EXPECT_EQ(Import("a.csv", "Date;Payee;Amount\n3/14/2004;Shop;-4,50\n"),
              Texts{"3/14/2004 2 #0 0.00 f16 3/14/2004"});
}

TEST(ForeignCsv, TitleLinesInFrontOfTheHeadingsHideThem)
{
    EXPECT_EQ(Import("a.csv", "Account 123\nDate,Amount\n3/14/2004,5\n"),
              (Texts{"1/1/2000 2 #0 0.00 f16 1/1/2000", "1/1/2000 2 #0 0.00 f16 1/1/2000"}));
}

TEST(ForeignCsv, ASpreadsheetsUnicodeTextIsReadWhereCommasSeparate)
{
    const std::string sText = "Date,Amount\r\n3/14/2004,5\r\n";
    std::string sFile = "\xFF\xFE";
    for (const char c : sText) {
        sFile += c;
        sFile += '\0';
    }
    EXPECT_EQ(Import("a.csv", sFile), Texts{"3/14/2004 1 #0 5.00 f16 3/14/2004"});
}

TEST(ForeignXml, CommentsInstructionsAndOtherElementsArePassedOver)
{
    EXPECT_EQ(Import("a.xml",
                     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                     "<!-- made elsewhere -->\n"
                     "<export xmlns=\"urn:x\"><account name=\"a\"/>\n"
                     "<transaction id=\"1\" type=\"withdrawal\">\n"
                     "<?x y?><payee>Shop &#38; Co</payee><!-- c -->\n"
                     "<amount currency=\"USD\">4.50</amount>\n"
                     "<date>3/14/2004</date><status>open</status>\n"
                     "</transaction></export>"),
              Texts{"3/14/2004 2 #1000 4.50 f16 1/1/2000 'Shop & Co'"});
}

TEST(ForeignXml, PrefixedNamesAreOtherNames)
{
    EXPECT_EQ(Import("a.xml", "<q:x xmlns:q=\"u\"><q:transaction type=\"fee\"/></q:x>"), Texts{});
}
