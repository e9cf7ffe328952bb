// The running balances of a register.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "register/qmregistermodel.h"
#include "tests/support/register_support.h"

namespace {

constexpr uint32_t uVoided = QM_TRANS_FLAG_VOIDED;
constexpr uint32_t uNotCleared = QM_TRANS_FLAG_NOT_CLEARED;

// A check that is not cleared, then a deposit and a withdrawal that are.
struct MixedRegister : TestRegister
{
    MixedRegister()
    {
        Add(QM_TRANS_CHECK, "1/1/2004", 10, uNotCleared);
        Add(QM_TRANS_DEPOSIT, "1/2/2004", 25, 0);
        Add(QM_TRANS_WITHDRAWAL, "1/3/2004", 1, 0);
        Show();
    }
};

} // namespace

TEST(QMRegisterBalance, ClearedDebitAndUnclearedDeposit)
{
    TestRegister reg;
    reg.Add(QM_TRANS_CHECK, "1/1/2004", 10, 0);
    reg.Add(QM_TRANS_DEPOSIT, "1/2/2004", 25, uNotCleared);
    reg.Show();
    EXPECT_EQ(reg.model.GetBalance(false), -10);
    EXPECT_EQ(reg.model.GetBalance(true), 15);
    for (const bool bInclude : {true, false, true}) {
        reg.model.SetIncludeUncleared(bInclude);
        EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
        EXPECT_EQ(reg.rows.GetColumn("Balance"), (Texts{"-10.00", bInclude ? "15.00" : "-10.00"}));
        EXPECT_EQ(reg.rows.GetDecorations(), (Words{2 + 32, bInclude ? 1U : 2U}));
    }
}

TEST(QMRegisterBalance, OptionChangesNeitherSum)
{
    MixedRegister reg;
    for (const bool bInclude : {true, false}) {
        reg.model.SetIncludeUncleared(bInclude);
        EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_BALANCE, false));
        EXPECT_EQ(reg.model.GetBalance(false), 24);
        EXPECT_EQ(reg.model.GetBalance(true), 14);
    }
}

TEST(QMRegisterBalance, VoidedTransactionRepeatsTheBalanceAbove)
{
    for (const uint32_t uFlags : {uVoided, uVoided | uNotCleared}) {
        TestRegister reg;
        reg.Add(QM_TRANS_DEPOSIT, "1/1/2004", 100, 0);
        reg.Add(QM_TRANS_CHECK, "1/2/2004", 30, uFlags);
        reg.Add(QM_TRANS_DEPOSIT, "1/3/2004", 5, 0);
        reg.Show();
        EXPECT_EQ(reg.rows.GetColumn("Balance"), (Texts{"100.00", "100.00", "105.00"}));
        EXPECT_EQ(reg.model.GetBalance(false), 105);
        EXPECT_EQ(reg.model.GetBalance(true), 105);
    }
}

TEST(QMRegisterBalance, VoidedFirstTransactionShowsZero)
{
    TestRegister reg;
    reg.Add(QM_TRANS_CHECK, "1/1/2004", 30, uVoided | uNotCleared);
    reg.Show();
    EXPECT_EQ(reg.rows.GetColumn("Balance"), Texts{"0.00"});
    EXPECT_EQ(reg.rows.GetDecorations(), (Words{16 + 1}));
}

TEST(QMRegisterBalance, EveryTypeFallsOnItsSide)
{
    const std::string sSides = "DCDDCDCDDCDC"; // by type
    for (int32_t lType = 0; lType < QM_TRANS_TYPE_COUNT; ++lType) {
        const bool bDebit = sSides[static_cast<size_t>(lType)] == 'D';
        TestRegister reg;
        reg.Add(lType, "1/1/2004", 7.5F, 0);
        reg.Show();
        EXPECT_EQ(reg.model.GetBalance(false), bDebit ? -7.5 : 7.5) << "type " << lType;
        EXPECT_EQ(reg.model.GetBalance(true), bDebit ? -7.5 : 7.5) << "type " << lType;
        EXPECT_EQ(reg.rows.GetColumn("Debit"), Texts{bDebit ? "      7.50" : ""})
            << "type " << lType;
        EXPECT_EQ(reg.rows.GetColumn("Credit"), Texts{bDebit ? "" : "      7.50"})
            << "type " << lType;
        EXPECT_EQ(reg.rows.GetDecorations(), (Words{bDebit ? 34U : 33U})) << "type " << lType;
    }
}

TEST(QMRegisterBalance, TypeOutsideTheTableChangesNothing)
{
    for (const int32_t lType : {INT_MIN, -1, 12, 13, INT_MAX}) {
        TestRegister reg;
        reg.Add(QM_TRANS_DEPOSIT, "1/1/2004", 100, 0);
        reg.Add(lType, "1/2/2004", 30, 0);
        reg.Add(QM_TRANS_CHECK, "1/3/2004", 1, uNotCleared);
        reg.Show();
        EXPECT_EQ(reg.model.GetBalance(false), 100) << "type " << lType;
        EXPECT_EQ(reg.model.GetBalance(true), 99) << "type " << lType;
        EXPECT_EQ(reg.rows.GetColumn("Balance"), (Texts{"100.00", "", "99.00"}))
            << "type " << lType;
    }
}

TEST(QMRegisterBalance, AmountsAreRoundedBeforeTheyAreSummed)
{
    TestRegister reg;
    for (int n = 0; n < 1000; ++n) {
        reg.Add(QM_TRANS_DEPOSIT, "1/1/2004", 1.005F, 0); // prints as 1.00
        reg.Add(QM_TRANS_CHECK, "1/1/2004", 0.004F, 0);
    }
    reg.Show();
    EXPECT_EQ(reg.model.GetBalance(false), 1000);
    EXPECT_EQ(reg.model.GetBalance(true), 1000);
    EXPECT_EQ(reg.rows.GetColumn("Balance")[1], "1.00");
}

TEST(QMRegisterBalance, MinimumBalanceHasNoPartInIt)
{
    MixedRegister reg;
    reg.Header().fMinimumBalance = 500;
    EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
    EXPECT_EQ(reg.model.GetBalance(false), 24);
    EXPECT_EQ(reg.model.GetBalance(true), 14);
}

TEST(QMRegisterBalance, StartsAnewWithEveryRefresh)
{
    MixedRegister reg;
    reg.At(1).fAmount = 26;
    for (int n = 0; n < 3; ++n) {
        EXPECT_TRUE(reg.model.RefreshRows(2, 0, false));
        EXPECT_EQ(reg.model.GetBalance(false), 25);
        EXPECT_EQ(reg.model.GetBalance(true), 15);
    }
}
