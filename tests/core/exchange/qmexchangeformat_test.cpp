#include "exchange/qmexchangeformat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/core/allocationfault.h"
#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {

constexpr int32_t aTypes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};

int32_t SettledType(int32_t lType, float fAmount, uint32_t lNumber)
{
    QMTransaction transaction = MakeTransaction(lType, "3/14/2004", fAmount);
    transaction.lNumber = lNumber;
    QMSettleRecord(transaction);
    EXPECT_EQ(transaction.fAmount, std::fabs(fAmount));
    EXPECT_FALSE(std::signbit(transaction.fAmount));
    EXPECT_EQ(transaction.lNumber, lNumber);
    return transaction.lType;
}

std::vector<int32_t> SettledTypes(float fAmount, uint32_t lNumber)
{
    std::vector<int32_t> types;
    for (const int32_t lType : aTypes) {
        types.push_back(SettledType(lType, fAmount, lNumber));
    }
    return types;
}

std::string SettledDates(const std::string& sDate, const std::string& sCleared)
{
    QMTransaction transaction = MakeTransaction(1, sDate, 1);
    transaction.dtCleared = MakeDate(sCleared);
    QMSettleRecord(transaction);
    EXPECT_TRUE(QMDateIsEqual(transaction.dtDate, MakeDate(sDate)));
    return DateText(transaction.dtCleared);
}

// Makes a record of each line, and makes protected members public.
class Format : public QMExchangeFormat
{
public:
    bool ParseLine(char* szText, int32_t /*lLine*/, int32_t /*lLength*/) override
    {
        ++nLines;
        ParsePayee(szText == nullptr ? "" : szText);
        Commit();
        return true;
    }

    QMTransaction& GetPending() { return txPending; }
    int32_t CountTemporary() const { return storeTemp.GetCount(); }

    // The type and the description of the record after it was given this payee.
    std::string Payee(const std::string& sPayee)
    {
        ParsePayee(sPayee.c_str());
        return std::to_string(txPending.lType) + ":" + txPending.szDescription;
    }

    int nLines = 0;
};

std::string Payee(const std::string& sPayee)
{
    return Format().Payee(sPayee);
}

} // namespace

TEST(SettleRecord, MakesADepositOfEveryDebitTypeWithAPositiveAmount)
{
    const std::vector<int32_t> expected = {1, 1, 1, 1, 4, 1, 6, 1, 1, 9, 1, 11};
    EXPECT_EQ(SettledTypes(0.01F, 0), expected);
    EXPECT_EQ(SettledTypes(5, 1001), expected);
}

TEST(SettleRecord, MakesAWithdrawalOfEveryCreditTypeButInterestWithoutAPositiveAmount)
{
    const std::vector<int32_t> numbered = {0, 2, 2, 3, 2, 5, 2, 7, 8, 2, 10, 11};
    const std::vector<int32_t> unnumbered = {2, 2, 2, 3, 2, 5, 2, 7, 8, 2, 10, 11};
    for (const float fAmount : {-5.0F, -0.01F, 0.0F, -0.0F}) {
        EXPECT_EQ(SettledTypes(fAmount, 1001), numbered) << "amount " << fAmount;
        EXPECT_EQ(SettledTypes(fAmount, 0), unnumbered) << "amount " << fAmount;
    }
}

TEST(SettleRecord, PutsAnUnknownTypeOnTheSideOfTheSign)
{
    EXPECT_EQ(SettledType(12, 5, 7), 1);
    EXPECT_EQ(SettledType(-1, 5, 7), 1);
    EXPECT_EQ(SettledType(12, -5, 7), 2);
    EXPECT_EQ(SettledType(-1, 0, 7), 2);
}

TEST(SettleRecord, MovesTheDateClearedUpToTheDateAndNeverDown)
{
    EXPECT_EQ(SettledDates("3/14/2004", "1/1/2000"), "3/14/2004");
    EXPECT_EQ(SettledDates("3/14/2004", "3/14/2004"), "3/14/2004");
    EXPECT_EQ(SettledDates("3/14/2004", "3/15/2004"), "3/15/2004");
    EXPECT_EQ(SettledDates("12/31/1999", "1/1/2000"), "1/1/2000");
}

TEST(SignedAmount, TakesItsSignFromTheType)
{
    for (const int32_t lType : aTypes) {
        const QMTransaction transaction = MakeTransaction(lType, "3/14/2004", 1234.5F);
        EXPECT_STREQ(QMSignedAmount(transaction).szText,
                     transaction.IsDebitType() ? "-1234.50" : "1234.50");
    }
    EXPECT_STREQ(QMSignedAmount(MakeTransaction(12, "3/14/2004", 5)).szText, "5.00");
    EXPECT_STREQ(QMSignedAmount(MakeTransaction(2, "3/14/2004", 0)).szText, "-0.00");
    EXPECT_STREQ(QMSignedAmount(MakeTransaction(2, "3/14/2004", -5)).szText, "--5.00");
    EXPECT_STREQ(QMSignedAmount(MakeTransaction(2, "3/14/2004", 3e38F)).szText,
                 "-300000000549775575777803994281145270272.00")
        << "the buffer must hold the largest amount";
}

TEST(Payee, IsTheDescriptionWhereItBeginsWithNoTypesName)
{
    EXPECT_EQ(Payee("Corner Shop"), "0:Corner Shop");
    EXPECT_EQ(Payee("The Check"), "0:The Check");
    EXPECT_EQ(Payee(""), "0:");
    EXPECT_EQ(Payee(std::string(300, 'x')), "0:" + std::string(255, 'x'));
}

TEST(Payee, KeepsTheDashInFrontOfWhatStandsBehindATypesName)
{
    EXPECT_EQ(Payee("Deposit - rent"), "1: - rent");
    EXPECT_EQ(Payee("Direct Deposit - pay"), "4: - pay");
    EXPECT_EQ(Payee("Interest Paid"), "11:");
    EXPECT_EQ(Payee("fee"), "3:");
}

TEST(Payee, TakesAWordThatMerelyBeginsWithATypesNameForThatType)
{
    EXPECT_EQ(Payee("Feeding Program"), "3:ding Program");
    EXPECT_EQ(Payee("Check Cashing"), "0:")
        << "the rest of the text must not become the description of a check";
    EXPECT_EQ(Payee("Depositary"), "1:ary");
}

TEST(Payee, MeasuresAnAliasByTheLabelThatTheRegisterShows)
{
    EXPECT_EQ(Payee("auto-payment - rent"), "8:nt");
    EXPECT_EQ(Payee("interest from bank"), "11: bank");
    EXPECT_EQ(Payee("atm-deposit - x"), "6: - x");
}

TEST(Payee, MeasuresByTheVoidedTextTooOnceTheRecordIsVoided)
{
    Format format;
    format.GetPending().SetTag(QM_TRANS_FLAG_VOIDED);
    EXPECT_EQ(format.Payee("Deposit - rent"), "1:")
        << "\"Deposit   (voided)\" is longer than this payee";
    EXPECT_EQ(format.Payee("Deposit - rent for March"), "1: March")
        << "the description begins after 18 characters, as many as \"Deposit   (voided)\" has";
}

TEST(Payee, MeasuresByTheDescriptionThatTheRecordHasAlready)
{
    Format format;
    EXPECT_EQ(format.Payee("Shop"), "0:Shop");
    EXPECT_EQ(format.Payee("Deposit - rent"), "1:Shop")
        << "\"Deposit - Shop\" is as long as this payee";
    EXPECT_EQ(format.Payee("Deposit - rent 4"), "1: 4");
}

TEST(ExchangeFormat, MakesARecordReadyWithoutACheckNumber)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("f"), "one\n\ntwo\n");
    Format format;
    EXPECT_EQ(format.GetPending().lNumber, 1000U);
    QMTransactionStore store;
    ASSERT_TRUE(format.Import(folder.PathOf("f").c_str(), store));
    EXPECT_EQ(format.nLines, 3) << "the reader must deliver the blank line too";
    EXPECT_EQ(format.GetPending().lNumber, 0U);
    EXPECT_EQ(format.CountTemporary(), 0);
    std::vector<std::string> texts;
    store.ForEach([&](const QMTransaction& record) { texts.push_back(FullText(record)); });
    EXPECT_EQ(texts, (std::vector<std::string>{"1/1/2000 2 #0 0.00 f16 1/1/2000 'one'",
                                               "1/1/2000 2 #0 0.00 f16 1/1/2000",
                                               "1/1/2000 2 #0 0.00 f16 1/1/2000 'two'"}));
}

TEST(ExchangeFormat, ReplacesWhatTheStoreHeldAndOnlyOnSuccess)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("f"), "one\n");
    WriteWholeFile(folder.PathOf("empty"), "");
    Format format;
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "3/14/2004", 5, 16, "before"));
    EXPECT_FALSE(format.Import(folder.PathOf("absent").c_str(), store));
    EXPECT_FALSE(format.Import(folder.PathOf("empty").c_str(), store));
    EXPECT_EQ(ContentsOf(store), std::vector<std::string>{"3/14/2004 1 5.00 before"});
    EXPECT_TRUE(format.Import(folder.PathOf("f").c_str(), store));
    EXPECT_EQ(ContentsOf(store), std::vector<std::string>{"1/1/2000 2 0.00 one"});
    EXPECT_TRUE(format.Import(folder.PathOf("f").c_str(), store))
        << "the second import of the same file";
    EXPECT_EQ(store.GetCount(), 1);
}

TEST(ExchangeFormat, LeavesTheStoreWhereMemoryRunsOut)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("f");
    WriteWholeFile(sPath, "one\ntwo\n");
    Format format;
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "3/14/2004", 5));
    int nBefore = 0;
    for (bool bDone = false; !bDone; ++nBefore) {
        ASSERT_LT(nBefore, 20);
        {
            const AllocationFault fault(nBefore);
            bDone = format.Import(sPath.c_str(), store);
        }
        ASSERT_EQ(store.GetCount(), bDone ? 2 : 1);
    }
    EXPECT_GT(nBefore, 3) << "the line and each of two records take an allocation";
}

TEST(ExchangeFormat, WritesNothingByItself)
{
    const TemporaryFolder folder;
    QMTransactionStore store;
    EXPECT_TRUE(QMExchangeFormat().Export(folder.PathOf("f").c_str(), store));
    EXPECT_TRUE(folder.GetNames().empty());
}
