#include "account/qmtransaction.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/vtext.h"
#include "tests/support/support.h"

namespace {

// With something in every field.
QMTransaction FullTransaction(int32_t lType)
{
    QMTransaction transaction = MakeTransaction(lType, "3/14/2004", 1234.5F, 17, "Rent");
    transaction.lNumber = 1042;
    transaction.dtCleared = MakeDate("12/1/1999");
    VCopyText(transaction.szMemo, "for March");
    VCopyText(transaction.szCategory, "Housing");
    return transaction;
}

std::string FieldOf(const QMTransaction& transaction, uint32_t uKind, bool bAppendVoided = false,
                    double dBalance = 0)
{
    char szText[QM_FIELD_TEXT_SIZE] = {};
    const char* szResult = transaction.GetFieldText(uKind, szText, bAppendVoided, dBalance);
    EXPECT_EQ(szResult, szText);
    EXPECT_EQ(transaction.FormatField(uKind, szText, bAppendVoided, dBalance),
              static_cast<int32_t>(std::string(szText).size()));
    return szText;
}

std::string DescriptionOf(int32_t lType, const std::string& sDescription, uint32_t uFlags = 0,
                          bool bAppendVoided = false)
{
    const QMTransaction transaction = MakeTransaction(lType, "3/14/2004", 1, uFlags, sDescription);
    return FieldOf(transaction, QM_FIELD_DESCRIPTION, bAppendVoided);
}

std::string NumberOf(uint32_t uNumber)
{
    QMTransaction transaction;
    transaction.lNumber = uNumber;
    return FieldOf(transaction, QM_FIELD_NUMBER);
}

std::string TagOf(uint32_t uFlags)
{
    return FieldOf(MakeTransaction(QM_TRANS_FEE, "3/14/2004", 1, uFlags), QM_FIELD_TAG);
}

} // namespace

TEST(QMTransaction, StartsAsAnEmptyCheckOf1January2000ThatIsNotCleared)
{
    const QMTransaction transaction;
    EXPECT_EQ(transaction.lType, QM_TRANS_CHECK);
    EXPECT_EQ(DateText(transaction.dtDate), "1/1/2000");
    EXPECT_EQ(DateText(transaction.dtCleared), "1/1/2000");
    EXPECT_EQ(transaction.lNumber, 1000u);
    EXPECT_EQ(transaction.fAmount, 0);
    EXPECT_EQ(transaction.lFlags, 16u);
    EXPECT_STREQ(transaction.szDescription, "");
    EXPECT_STREQ(transaction.szMemo, "");
    EXPECT_STREQ(transaction.szCategory, "");
}

TEST(QMTransaction, SetDefaultsGoesBackToTheStartInEveryByte)
{
    QMTransaction transaction = FullTransaction(QM_TRANS_FEE);
    transaction.dtDate.wHour = 7;
    EXPECT_FALSE(IsSame(transaction, QMTransaction()));
    transaction.SetDefaults();
    EXPECT_TRUE(IsSame(transaction, QMTransaction()));
}

TEST(QMTransaction, CopiesThePayloadAndKeepsItsLinks)
{
    QMTransactionStore store;
    for (const char* szDate : {"1/1/2001", "1/2/2001", "1/3/2001"}) {
        AddTo(store, MakeTransaction(QM_TRANS_DEPOSIT, szDate, 1));
    }
    store.Previous();
    QMTransaction* pMiddle = store.GetCurrentNode();
    const QMListNode* pPrevious = pMiddle->GetPrevious();
    const QMListNode* pNext = pMiddle->GetNext();
    const QMTransaction source = FullTransaction(QM_TRANS_CHECK);
    pMiddle->CopyFrom(source);
    EXPECT_TRUE(IsSame(*pMiddle, source));
    EXPECT_EQ(pMiddle->GetPrevious(), pPrevious);
    EXPECT_EQ(pMiddle->GetNext(), pNext);
    ASSERT_NE(pPrevious, nullptr);
    ASSERT_NE(pNext, nullptr);
}

TEST(QMTransaction, CopyingItTakesNoLinks)
{
    QMTransactionStore store;
    AddTo(store, MakeTransaction(QM_TRANS_DEPOSIT, "1/1/2001", 1));
    AddTo(store, MakeTransaction(QM_TRANS_DEPOSIT, "1/2/2001", 1));
    const QMTransaction copy(*store.GetCurrentNode());
    EXPECT_TRUE(IsSame(copy, *store.GetCurrentNode()));
    EXPECT_EQ(copy.GetPrevious(), nullptr);
    EXPECT_EQ(copy.GetNext(), nullptr);
}

TEST(QMTransaction, TheCopyHookOfTheListDoesNothing)
{
    QMTransaction transaction;
    transaction.CopyNode(FullTransaction(QM_TRANS_FEE));
    EXPECT_TRUE(IsSame(transaction, QMTransaction()));
}

TEST(QMTransaction, EveryTypeIsOnItsSideAndAnyOtherOnNone)
{
    const std::string sSides = "DCDDCDCDDCDC";
    for (int32_t lType = -3; lType < 20; ++lType) {
        QMTransaction transaction;
        transaction.lType = lType;
        const bool bValid = lType >= 0 && lType <= 11;
        const char cSide = bValid ? sSides[static_cast<size_t>(lType)] : '-';
        EXPECT_EQ(transaction.IsTypeValid(), bValid) << "type " << lType;
        EXPECT_EQ(transaction.IsDebitType(), cSide == 'D') << "type " << lType;
        EXPECT_EQ(transaction.IsCreditType(), cSide == 'C') << "type " << lType;
    }
}

TEST(QMTransaction, RoundsItsAmountToCents)
{
    QMTransaction transaction;
    transaction.fAmount = 0.004F;
    EXPECT_EQ(transaction.GetRoundedAmount(), 0);
    transaction.fAmount = 19.99F;
    EXPECT_EQ(transaction.GetRoundedAmount(), 19.99);
    transaction.fAmount = 0.125F;
    EXPECT_EQ(transaction.GetRoundedAmount(), 0.12);
}

TEST(QMTransactionBalances, EveryTypeAndFlagWordGoesByTheBalanceRule)
{
    const std::string sSides = "DCDDCDCDDCDC";
    for (int32_t lType = 0; lType <= 11; ++lType) {
        const double dSign = sSides[static_cast<size_t>(lType)] == 'D' ? -1 : 1;
        for (uint32_t uFlags = 0; uFlags < 32; ++uFlags) {
            const QMTransaction transaction = MakeTransaction(lType, "1/1/2001", 2.5F, uFlags);
            double dBalance = 100;
            double dAvailable = 200;
            const double dResult = transaction.ApplyToBalances(dBalance, dAvailable);
            const bool bVoided = (uFlags & 1) != 0;
            const bool bCleared = (uFlags & 16) == 0;
            EXPECT_EQ(dBalance, bVoided || !bCleared ? 100 : 100 + dSign * 2.5);
            EXPECT_EQ(dAvailable, bVoided ? 200 : 200 + dSign * 2.5);
            EXPECT_EQ(dResult, dBalance);
        }
    }
}

TEST(QMTransactionBalances, SumsTakeTheRoundedAmount)
{
    double dBalance = 0;
    double dAvailable = 0;
    MakeTransaction(QM_TRANS_DEPOSIT, "1/1/2001", 0.004F, 0).ApplyToBalances(dBalance, dAvailable);
    EXPECT_EQ(dBalance, 0);
    MakeTransaction(QM_TRANS_DEPOSIT, "1/1/2001", 19.99F, 0).ApplyToBalances(dBalance, dAvailable);
    EXPECT_EQ(dBalance, 19.99);
    EXPECT_EQ(dAvailable, 19.99);
}

TEST(QMTransactionBalances, AnUnknownTypeIsOnNeitherSide)
{
    double dBalance = 1;
    double dAvailable = 2;
    for (const int32_t lType : {-1, 12}) {
        EXPECT_EQ(MakeTransaction(lType, "1/1/2001", 5, 0).ApplyToBalances(dBalance, dAvailable),
                  1);
    }
    EXPECT_EQ(dBalance, 1);
    EXPECT_EQ(dAvailable, 2);
}

TEST(QMFieldText, ShowsEveryFieldOfACheck)
{
    const QMTransaction check = FullTransaction(QM_TRANS_CHECK);
    const Texts expected = {" 3/14/04", " 1042",     "Rent",    "Rent",  "   1234.50",
                            "-7.25",    "for March", "Housing", "V, NC", "12/ 1/99"};
    for (uint32_t uKind = 0; uKind < QM_FIELD_COUNT; ++uKind) {
        EXPECT_EQ(FieldOf(check, uKind, false, -7.25), expected[uKind]) << "kind " << uKind;
    }
}

TEST(QMFieldText, ShowsEveryFieldOfEveryOtherType)
{
    for (int32_t lType = 1; lType <= 11; ++lType) {
        const QMTransaction transaction = FullTransaction(lType);
        const std::string sDescription = g_typeLabels[static_cast<size_t>(lType)] + " - Rent";
        const Texts expected = {" 3/14/04", "     ",     "",        sDescription, "   1234.50",
                                "-7.25",    "for March", "Housing", "V, NC",      "12/ 1/99"};
        for (uint32_t uKind = 0; uKind < QM_FIELD_COUNT; ++uKind) {
            EXPECT_EQ(FieldOf(transaction, uKind, false, -7.25), expected[uKind])
                << "type " << lType << ", field " << uKind;
        }
        EXPECT_EQ(FieldOf(transaction, QM_FIELD_DESCRIPTION, true), sDescription + "   (voided)");
    }
}

TEST(QMFieldText, AnUnknownTypeOrKindGivesNothingAndAnEmptyBuffer)
{
    for (const int32_t lType : {-1, 12, 1000}) {
        for (uint32_t uKind = 0; uKind <= QM_FIELD_COUNT; ++uKind) {
            char szText[QM_FIELD_TEXT_SIZE] = "before";
            EXPECT_EQ(FullTransaction(lType).GetFieldText(uKind, szText, true, 1), nullptr);
            EXPECT_STREQ(szText, "");
            EXPECT_EQ(FullTransaction(lType).FormatField(uKind, szText, true, 1), -1);
        }
    }
    for (const uint32_t uKind : {10u, 11u, 0xFFFFFFFFu}) {
        char szText[QM_FIELD_TEXT_SIZE] = "before";
        EXPECT_EQ(FullTransaction(0).GetFieldText(uKind, szText, true, 1), nullptr);
        EXPECT_STREQ(szText, "");
    }
}

TEST(QMFieldText, DatesShowTheYearModulo100)
{
    struct
    {
        const char* szDate;
        const char* szText;
    } const aCases[] = {
        {"3/14/2004", " 3/14/04"},  {"12/31/1999", "12/31/99"},
        {"1/2/2000", " 1/ 2/00"},   {"10/10/2110", "10/10/10"},
        {"0/0/0", " 0/ 0/00"},      {"1/1/7", " 1/ 1/07"},
        {"99/99/9999", "99/99/99"}, {"65535/65535/65535", "65535/65535/35"},
    };
    for (const auto& test : aCases) {
        QMTransaction transaction;
        transaction.dtDate = MakeDate(test.szDate);
        EXPECT_EQ(FieldOf(transaction, QM_FIELD_DATE), test.szText);
        EXPECT_EQ(FieldOf(transaction, QM_FIELD_DATE_CLEARED), " 1/ 1/00");
        std::swap(transaction.dtDate, transaction.dtCleared);
        EXPECT_EQ(FieldOf(transaction, QM_FIELD_DATE_CLEARED), test.szText);
        EXPECT_EQ(FieldOf(transaction, QM_FIELD_DATE), " 1/ 1/00");
    }
}

TEST(QMFieldText, NumbersOfChecksAreRightAlignedAndSigned)
{
    EXPECT_EQ(NumberOf(0), "    0");
    EXPECT_EQ(NumberOf(7), "    7");
    EXPECT_EQ(NumberOf(1000), " 1000");
    EXPECT_EQ(NumberOf(99999), "99999");
    EXPECT_EQ(NumberOf(123456), "123456");
    EXPECT_EQ(NumberOf(9999999), "9999999");
    EXPECT_EQ(NumberOf(2147483647), "2147483647");
    EXPECT_EQ(NumberOf(2147483648u), "-2147483648");
    EXPECT_EQ(NumberOf(4294967295u), "   -1");
}

TEST(QMFieldText, ThePayeeIsShownForChecksOnly)
{
    EXPECT_EQ(FieldOf(MakeTransaction(QM_TRANS_CHECK, "1/1/2001", 1, 0, "x"), QM_FIELD_PAYEE), "x");
    EXPECT_EQ(FieldOf(MakeTransaction(QM_TRANS_CHECK, "1/1/2001", 1, 0, ""), QM_FIELD_PAYEE), "");
    EXPECT_EQ(FieldOf(MakeTransaction(QM_TRANS_FEE, "1/1/2001", 1, 0, "xy"), QM_FIELD_PAYEE), "");
}

TEST(QMFieldText, ADescriptionOfOneCharacterIsLeftOutBehindALabel)
{
    EXPECT_EQ(DescriptionOf(QM_TRANS_DEPOSIT, ""), "Deposit");
    EXPECT_EQ(DescriptionOf(QM_TRANS_DEPOSIT, "x"), "Deposit");
    EXPECT_EQ(DescriptionOf(QM_TRANS_DEPOSIT, "xy"), "Deposit - xy");
    EXPECT_EQ(DescriptionOf(QM_TRANS_DEPOSIT, "x", QM_TRANS_FLAG_VOIDED, true),
              "Deposit   (voided)");
    EXPECT_EQ(DescriptionOf(QM_TRANS_CHECK, "x"), "x");
    EXPECT_EQ(DescriptionOf(QM_TRANS_CHECK, ""), "");
}

TEST(QMFieldText, AVoidedDescriptionSaysSoOnRequestOnly)
{
    constexpr uint32_t uVoided = QM_TRANS_FLAG_VOIDED | QM_TRANS_FLAG_NOT_CLEARED;
    EXPECT_EQ(DescriptionOf(QM_TRANS_CHECK, "Rent", uVoided, true), "Rent   (voided)");
    EXPECT_EQ(DescriptionOf(QM_TRANS_CHECK, "Rent", uVoided, false), "Rent");
    EXPECT_EQ(DescriptionOf(QM_TRANS_CHECK, "Rent", QM_TRANS_FLAG_NOT_CLEARED, true), "Rent");
    EXPECT_EQ(DescriptionOf(QM_TRANS_CHECK, "", uVoided, true), "   (voided)");
    EXPECT_EQ(DescriptionOf(QM_TRANS_FEE, "Rent", uVoided, true), "Fee - Rent   (voided)");
}

TEST(QMFieldText, OnlyTheDescriptionSaysThatItIsVoided)
{
    const QMTransaction transaction = FullTransaction(QM_TRANS_CHECK);
    ASSERT_TRUE(transaction.HasFlag(QM_TRANS_FLAG_VOIDED));
    for (uint32_t uKind = 0; uKind < QM_FIELD_COUNT; ++uKind) {
        const bool bSame = FieldOf(transaction, uKind, true) == FieldOf(transaction, uKind, false);
        EXPECT_EQ(bSame, uKind != QM_FIELD_DESCRIPTION) << "kind " << uKind;
    }
}

TEST(QMFieldText, TheVoidedTextIsCutAt256BytesWithTheTerminator)
{
    const std::string sSuffix = "   (voided)";
    for (size_t uLength = 240; uLength <= 255; ++uLength) {
        const std::string sDescription(uLength, 'd');
        EXPECT_EQ(DescriptionOf(QM_TRANS_CHECK, sDescription, QM_TRANS_FLAG_VOIDED, true),
                  (sDescription + sSuffix).substr(0, 255));
    }
}

TEST(QMFieldText, LabelAndDescriptionAreCutAt256BytesWithTheTerminator)
{
    for (size_t uLength = 230; uLength <= 255; ++uLength) {
        const std::string sDescription(uLength, 'd');
        const std::string sWhole = "Deposit - " + sDescription;
        EXPECT_EQ(DescriptionOf(QM_TRANS_DEPOSIT, sDescription), sWhole.substr(0, 255));
        EXPECT_EQ(DescriptionOf(QM_TRANS_DEPOSIT, sDescription, QM_TRANS_FLAG_VOIDED, true),
                  (sWhole + "   (voided)").substr(0, 255));
    }
}

TEST(QMFieldText, LongTextsComeWhole)
{
    QMTransaction transaction;
    VCopyText(transaction.szDescription, std::string(300, 'd').c_str());
    VCopyText(transaction.szMemo, std::string(300, 'm').c_str());
    VCopyText(transaction.szCategory, std::string(300, 'c').c_str());
    EXPECT_EQ(FieldOf(transaction, QM_FIELD_PAYEE), std::string(255, 'd'));
    EXPECT_EQ(FieldOf(transaction, QM_FIELD_DESCRIPTION), std::string(255, 'd'));
    EXPECT_EQ(FieldOf(transaction, QM_FIELD_MEMO), std::string(255, 'm'));
    EXPECT_EQ(FieldOf(transaction, QM_FIELD_CATEGORY), std::string(127, 'c'));
}

TEST(QMFieldText, AmountsAreRightAlignedInTenCharacters)
{
    const auto AmountOf = [](float fAmount) {
        return FieldOf(MakeTransaction(QM_TRANS_FEE, "1/1/2001", fAmount), QM_FIELD_AMOUNT);
    };
    EXPECT_EQ(AmountOf(0), "      0.00");
    EXPECT_EQ(AmountOf(12.5F), "     12.50");
    EXPECT_EQ(AmountOf(1234567), "1234567.00");
    EXPECT_EQ(AmountOf(1e10F), "10000000000.00");
    EXPECT_EQ(AmountOf(-12.5F), "    -12.50");
    EXPECT_EQ(AmountOf(FLT_MAX), "3402823466385288598117041834845");
}

TEST(QMFieldText, BalancesAreNotAlignedAndCutAt32BytesWithTheTerminator)
{
    const auto BalanceOf = [](double dBalance) {
        return FieldOf(QMTransaction(), QM_FIELD_BALANCE, false, dBalance);
    };
    EXPECT_EQ(BalanceOf(0), "0.00");
    EXPECT_EQ(BalanceOf(12.5), "12.50");
    EXPECT_EQ(BalanceOf(-1234567.891), "-1234567.89");
    EXPECT_EQ(BalanceOf(-0.001), "-0.00");
    EXPECT_EQ(BalanceOf(1e28), "9999999999999999583119736832.00");
    EXPECT_EQ(BalanceOf(-1e30), "-100000000000000001988462483865");
}

TEST(QMFieldText, TagsAreTheLettersOfTheFourBitsInTheirOrder)
{
    EXPECT_EQ(TagOf(0), "");
    EXPECT_EQ(TagOf(1), "V");
    EXPECT_EQ(TagOf(2), "E");
    EXPECT_EQ(TagOf(4), "T");
    EXPECT_EQ(TagOf(16), "NC");
    EXPECT_EQ(TagOf(17), "V, NC");
    EXPECT_EQ(TagOf(18), "E, NC");
    EXPECT_EQ(TagOf(20), "T, NC");
    EXPECT_EQ(TagOf(22), "E, T, NC");
    EXPECT_EQ(TagOf(7), "V, E, T");
    EXPECT_EQ(TagOf(23), "V, E, T, NC");
    EXPECT_EQ(TagOf(8), "");
    EXPECT_EQ(TagOf(QM_TRANS_FLAG_IMPORT), "");
    EXPECT_EQ(TagOf(0xFFFFFFFF), "V, E, T, NC");
}

TEST(QMSetTag, ShutsTheOtherTagsOutFromEveryStart)
{
    for (const uint32_t uMore : {0u, QM_TRANS_FLAG_IMPORT}) {
        for (uint32_t uStart = uMore; uStart < uMore + 32; ++uStart) {
            const auto After = [&](uint32_t uTag) {
                QMTransaction transaction;
                transaction.lFlags = uStart;
                transaction.SetTag(uTag);
                return transaction.lFlags;
            };
            EXPECT_EQ(After(4), (uStart & ~3u) | 4) << "flags before " << uStart;
            EXPECT_EQ(After(2), (uStart & ~5u) | 2) << "flags before " << uStart;
            EXPECT_EQ(After(1), (uStart & ~6u) | 17) << "flags before " << uStart;
            EXPECT_EQ(After(16), uStart | 16) << "flags before " << uStart;
        }
    }
}

TEST(QMSetTag, DoesNothingForAnyOtherTag)
{
    for (const uint32_t uTag : {0u, 3u, 5u, 6u, 7u, 8u, 17u, 20u, 32u, QM_TRANS_FLAG_IMPORT}) {
        for (uint32_t uStart = 0; uStart < 32; ++uStart) {
            QMTransaction transaction;
            transaction.lFlags = uStart;
            transaction.SetTag(uTag);
            EXPECT_EQ(transaction.lFlags, uStart) << "tag " << uTag;
        }
    }
}
