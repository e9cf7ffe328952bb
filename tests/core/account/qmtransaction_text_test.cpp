// Reading fields from texts, and validating the result.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "account/qmtransaction.h"
#include "tests/support/support.h"

namespace {

constexpr float fInfinity = std::numeric_limits<float>::infinity();

QMTransaction ProperTransaction()
{
    return MakeTransaction(QM_TRANS_CHECK, "3/14/2004", 12.5F);
}

// What Validate finds wrong with this date, as the date and as the date cleared.
void ExpectDateFaults(const std::string& sDate, uint32_t uFaults)
{
    QMTransaction transaction = ProperTransaction();
    transaction.dtDate = MakeDate(sDate);
    EXPECT_EQ(transaction.Validate(), uFaults) << sDate;
    transaction = ProperTransaction();
    transaction.dtCleared = MakeDate(sDate);
    EXPECT_EQ(transaction.Validate(), uFaults) << sDate << " as the date cleared";
}

uint32_t FaultsOfAmount(float fAmount, uint32_t uFlags)
{
    return MakeTransaction(QM_TRANS_FEE, "3/14/2004", fAmount, uFlags).Validate();
}

float AmountOf(const char* szText)
{
    QMTransaction transaction;
    transaction.fAmount = 77;
    transaction.ParseAmount(szText);
    return transaction.fAmount;
}

uint32_t NumberOf(const char* szText)
{
    QMTransaction transaction;
    transaction.lNumber = 77;
    transaction.ParseNumber(szText);
    return transaction.lNumber;
}

} // namespace

TEST(QMValidate, FindsNothingWrongWithAProperEntryOfAnyType)
{
    for (int32_t lType = 0; lType <= 11; ++lType) {
        EXPECT_EQ(MakeTransaction(lType, "3/14/2004", 12.5F).Validate(), 0u) << "type " << lType;
    }
}

TEST(QMValidate, ANewTransactionLacksItsAmountOnly)
{
    EXPECT_EQ(QMTransaction().Validate(), QM_FAULT_AMOUNT);
}

TEST(QMValidate, Bit1IsAnUnknownType)
{
    for (const int32_t lType : {-1, 12, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(MakeTransaction(lType, "3/14/2004", 12.5F).Validate(), 1u) << "type " << lType;
    }
}

TEST(QMValidate, Bit2IsADayTooLargeForItsMonthInEitherDate)
{
    const int aDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int nMonth = 1; nMonth <= 12; ++nMonth) {
        const int nLast = aDays[nMonth - 1];
        const auto DateOf = [&](int nDay) {
            return std::to_string(nMonth) + "/" + std::to_string(nDay) + "/2003";
        };
        ExpectDateFaults(DateOf(0), 2);
        ExpectDateFaults(DateOf(1), 0);
        ExpectDateFaults(DateOf(nLast), 0);
        ExpectDateFaults(DateOf(nLast + 1), 2);
    }
}

TEST(QMValidate, Allows29FebruaryInEveryYearLeapOrNot)
{
    for (const char* szDate : {"2/29/2003", "2/29/2004", "2/29/1900", "2/29/2000"}) {
        ExpectDateFaults(szDate, 0);
    }
}

TEST(QMValidate, Bit4IsAWrongMonthInEitherDateWhoseDayIsThenNotTested)
{
    for (const char* szDate : {"0/1/2004", "13/1/2004", "0/0/2004", "13/32/2004"}) {
        ExpectDateFaults(szDate, 4);
    }
}

TEST(QMValidate, Bit8IsAYearOutside1752To3000InEitherDate)
{
    ExpectDateFaults("1/1/1751", 8);
    ExpectDateFaults("1/1/1752", 0);
    ExpectDateFaults("1/1/3000", 0);
    ExpectDateFaults("1/1/3001", 8);
    ExpectDateFaults("1/1/4", 8);
    ExpectDateFaults("0/0/0", 12);
}

TEST(QMValidate, JoinsWhatItFindsInTheTwoDates)
{
    QMTransaction transaction = ProperTransaction();
    transaction.dtDate = MakeDate("4/31/2004");
    transaction.dtCleared = MakeDate("13/1/1000");
    EXPECT_EQ(transaction.Validate(), 2u | 4u | 8u);
}

TEST(QMValidate, Bit16IsANumberOutside1To9999999OfACheck)
{
    for (int32_t lType = 0; lType <= 11; ++lType) {
        QMTransaction transaction = MakeTransaction(lType, "3/14/2004", 12.5F);
        const uint32_t uFault = lType == QM_TRANS_CHECK ? 16 : 0;
        transaction.lNumber = 0;
        EXPECT_EQ(transaction.Validate(), uFault) << "type " << lType;
        transaction.lNumber = 10000000;
        EXPECT_EQ(transaction.Validate(), uFault) << "type " << lType;
        transaction.lNumber = 0xFFFFFFFF;
        EXPECT_EQ(transaction.Validate(), uFault) << "type " << lType;
        transaction.lNumber = 1;
        EXPECT_EQ(transaction.Validate(), 0u) << "type " << lType;
        transaction.lNumber = 9999999;
        EXPECT_EQ(transaction.Validate(), 0u) << "type " << lType;
    }
}

TEST(QMValidate, Bit64IsAnAmountOfZeroUnlessVoided)
{
    for (const uint32_t uFlags : {0u, 2u, 4u, 16u}) {
        EXPECT_EQ(FaultsOfAmount(0, uFlags), 64u);
        EXPECT_EQ(FaultsOfAmount(-0.0F, uFlags), 64u);
    }
    EXPECT_EQ(FaultsOfAmount(0, 1), 0u);
    EXPECT_EQ(FaultsOfAmount(0, 17), 0u);
}

TEST(QMValidate, Bit64IsANegativeAmountOrOneAbove1e10VoidedOrNot)
{
    for (const uint32_t uFlags : {0u, 16u, 17u}) {
        EXPECT_EQ(FaultsOfAmount(-0.01F, uFlags), 64u);
        EXPECT_EQ(FaultsOfAmount(-fInfinity, uFlags), 64u);
        EXPECT_EQ(FaultsOfAmount(1e10F, uFlags), 0u);
        EXPECT_EQ(FaultsOfAmount(std::nextafterf(1e10F, fInfinity), uFlags), 64u);
        EXPECT_EQ(FaultsOfAmount(fInfinity, uFlags), 64u);
    }
}

TEST(QMValidate, AnAmountBelowHalfACentIsNotZero)
{
    EXPECT_EQ(FaultsOfAmount(0.001F, 0), 0u);
}

TEST(QMValidate, Bit256IsAnUnknownFlagOrTwoOfVoidedExpenseAndTax)
{
    for (uint32_t uFlags = 0; uFlags < 64; ++uFlags) {
        const uint32_t uExclusive = (uFlags & 1) + (uFlags >> 1 & 1) + (uFlags >> 2 & 1);
        const bool bGood = uExclusive <= 1 && (uFlags & (8 | 32)) == 0;
        EXPECT_EQ(FaultsOfAmount(5, uFlags), bGood ? 0u : 256u) << "flags " << uFlags;
    }
    for (uint32_t uBit = 5; uBit < 32; ++uBit) {
        EXPECT_EQ(FaultsOfAmount(5, 1u << uBit), 256u) << "bit " << uBit;
    }
}

TEST(QMValidate, TheThreeTextsAreNeverWrong)
{
    EXPECT_EQ(QM_FAULT_DESCRIPTION, 32u);
    EXPECT_EQ(QM_FAULT_MEMO, 128u);
    EXPECT_EQ(QM_FAULT_CATEGORY, 512u);
    QMTransaction transaction = ProperTransaction();
    std::fill_n(transaction.szDescription, 255, '\xFF');
    std::fill_n(transaction.szMemo, 255, '\x01');
    std::fill_n(transaction.szCategory, 127, '\n');
    EXPECT_EQ(transaction.Validate(), 0u);
}

TEST(QMValidate, AddsUpAllItFinds)
{
    QMTransaction transaction = ProperTransaction();
    transaction.dtDate = MakeDate("4/31/1000");
    transaction.dtCleared = MakeDate("0/0/2004");
    transaction.lNumber = 0;
    transaction.fAmount = -1;
    transaction.lFlags = 7;
    EXPECT_EQ(transaction.Validate(), 2u | 4u | 8u | 16u | 64u | 256u);
    transaction.lType = 12;
    EXPECT_EQ(transaction.Validate(), 1u | 2u | 4u | 8u | 64u | 256u);
}

TEST(QMTransactionParse, TheTwoDatesGoByTheSameRuleEachIntoItsOwnField)
{
    struct
    {
        const char* szText;
        const char* szDate;
    } const aCases[] = {
        {"3/14/2004", "3/14/2004"}, {"3-14-2004", "3/14/2004"}, {"3.14.2004", "3/14/2004"},
        {"3/14", "3/14/14"},        {"3/14/04", "3/14/4"},      {"3-14/2004", "3/2004/2004"},
        {"x/y/z", "0/0/0"},         {"", "1/1/2000"},           {"tomorrow", "1/1/2000"},
    };
    for (const auto& test : aCases) {
        QMTransaction transaction;
        transaction.ParseDate(test.szText);
        EXPECT_EQ(DateText(transaction.dtDate), test.szDate) << test.szText;
        EXPECT_EQ(DateText(transaction.dtCleared), "1/1/2000");
        transaction.SetDefaults();
        transaction.ParseClearedDate(test.szText);
        EXPECT_EQ(DateText(transaction.dtCleared), test.szDate) << test.szText;
        EXPECT_EQ(DateText(transaction.dtDate), "1/1/2000");
    }
}

TEST(QMTransactionParse, AShortYearIsReadAndThenRefusedByValidate)
{
    QMTransaction transaction = ProperTransaction();
    transaction.ParseDate("3/14/04");
    EXPECT_EQ(transaction.Validate(), QM_FAULT_YEAR);
}

TEST(QMTransactionParse, ANullTextLeavesEveryField)
{
    QMTransaction transaction = ProperTransaction();
    const QMTransaction before = transaction;
    transaction.ParseDate(nullptr);
    transaction.ParseClearedDate(nullptr);
    transaction.ParseNumber(nullptr);
    transaction.ParseAmount(nullptr);
    EXPECT_TRUE(IsSame(transaction, before));
}

TEST(QMTransactionParse, NumbersEndAtTheFirstOtherCharacter)
{
    EXPECT_EQ(NumberOf(""), 77u);
    EXPECT_EQ(NumberOf("1042"), 1042u);
    EXPECT_EQ(NumberOf("  1042"), 1042u);
    EXPECT_EQ(NumberOf("\t+1042"), 1042u);
    EXPECT_EQ(NumberOf("1042a"), 1042u);
    EXPECT_EQ(NumberOf("1,042"), 1u);
    EXPECT_EQ(NumberOf("10.5"), 10u);
    EXPECT_EQ(NumberOf("0x10"), 0u);
    EXPECT_EQ(NumberOf("#1042"), 0u);
    EXPECT_EQ(NumberOf(" "), 0u);
    EXPECT_EQ(NumberOf("none"), 0u);
}

TEST(QMTransactionParse, NumbersBeyondTheSignedRangeStopAtItsEnd)
{
    EXPECT_EQ(NumberOf("2147483647"), 2147483647u);
    EXPECT_EQ(NumberOf("2147483648"), 2147483647u);
    EXPECT_EQ(NumberOf("99999999999999999999"), 2147483647u);
    EXPECT_EQ(NumberOf("-1"), 0xFFFFFFFFu);
    EXPECT_EQ(NumberOf("-99999999999999999999"), 0x80000000u);
}

TEST(QMTransactionParse, AmountsPassOverCommasAndEndWhereTheNumberEnds)
{
    struct
    {
        const char* szText;
        float fAmount;
    } const aCases[] = {
        {"", 77},          {"12.5", 12.5F},     {"1,234.5", 1234.5F},
        {"1,2,3,4", 1234}, {",,5", 5},          {"1,234,567.89", 1234567.89F},
        {" 12", 12},       {"\t12.25", 12.25F}, {"-3.25", -3.25F},
        {"+3.25", 3.25F},  {"12 USD", 12},      {"1 234", 1},
        {"1.2.3", 1.2F},   {".5", 0.5F},        {"5.", 5},
        {"1e3", 1000},     {"-,5", -5},         {"5,", 5},
        {"1e,3", 1000},    {"0.01", 0.01F},
    };
    for (const auto& test : aCases) {
        EXPECT_EQ(AmountOf(test.szText), test.fAmount) << test.szText;
    }
}

TEST(QMTransactionParse, AnAmountWithoutANumberInFrontIsZero)
{
    for (const char* szText : {"$5", "$1,234.50", ",", ",,,", " ", "abc", "(5)", "USD 5", ".", "-",
                               "- 5", "--5", "inf", "nan", "-inf", "infinity", "0x10", "e5"}) {
        EXPECT_EQ(AmountOf(szText), 0) << szText;
    }
}

TEST(QMTransactionParse, AnAmountBeyondSinglePrecisionIsInfiniteAndRefusedByValidate)
{
    EXPECT_EQ(AmountOf("1e39"), fInfinity);
    EXPECT_EQ(AmountOf("1e400"), fInfinity);
    EXPECT_EQ(AmountOf("-1e400"), -fInfinity);
    EXPECT_EQ(AmountOf("1e-400"), 0);
    QMTransaction transaction = ProperTransaction();
    transaction.ParseAmount("1e400");
    EXPECT_EQ(transaction.Validate(), QM_FAULT_AMOUNT);
}

TEST(QMTransactionParse, EachReadsItsOwnFieldOnly)
{
    QMTransaction transaction = ProperTransaction();
    QMTransaction expected = transaction;
    transaction.ParseNumber("5");
    expected.lNumber = 5;
    EXPECT_TRUE(IsSame(transaction, expected));
    transaction.ParseAmount("6");
    expected.fAmount = 6;
    EXPECT_TRUE(IsSame(transaction, expected));
}
