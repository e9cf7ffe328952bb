// What a refresh writes into the rows of a register.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <string>

#include "base/vtext.h"
#include "register/qmregistermodel.h"
#include "tests/support/register_support.h"

namespace {

constexpr uint32_t uVoided = QM_TRANS_FLAG_VOIDED;
constexpr uint32_t uExpense = QM_TRANS_FLAG_EXPENSE;
constexpr uint32_t uTax = QM_TRANS_FLAG_TAX;
constexpr uint32_t uNotCleared = QM_TRANS_FLAG_NOT_CLEARED;

// A check, a deposit and a withdrawal with the balances -10, 15 and 14. The check is not cleared.
// Every column is shown.
struct MixedRegister : TestRegister
{
    MixedRegister()
    {
        Header().bShowCategory = 1;
        Add(QM_TRANS_CHECK, "1/1/2004", 10, uTax | uNotCleared, "Rent");
        Add(QM_TRANS_DEPOSIT, "1/2/2004", 25, uExpense, "Wages");
        Add(QM_TRANS_WITHDRAWAL, "1/3/2004", 1, 0, "Cash");
        Show();
    }
};

// The calls of a refresh, sorted: the order of the columns within a row does not matter.
Texts SortedLog(TestRegister& reg, int32_t lFrom, uint32_t uMask)
{
    EXPECT_TRUE(reg.model.RefreshRows(lFrom, uMask, false));
    Texts log = reg.rows.TakeLog();
    std::sort(log.begin(), log.end());
    return log;
}

// The only row of a register after a refresh, as a text.
std::string OnlyRow(TestRegister& reg)
{
    EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
    return DescribeRows(reg.rows.GetRows()).at(0);
}

} // namespace

TEST(QMRegisterRefresh, WritesEveryTextOfACheck)
{
    TestRegister reg;
    reg.Header().bShowCategory = 1;
    reg.Add(QM_TRANS_CHECK, "3/14/2004", 1234.5F, uNotCleared, "R");
    QMTransaction& check = reg.At(0);
    check.lNumber = 207;
    VCopyText(check.szMemo, "March");
    VCopyText(check.szCategory, "Housing");
    reg.Show();
    EXPECT_EQ(OnlyRow(reg),
              "Balance='-1234.50' Category='Housing' Credit='' Date=' 3/14/04' "
              "Debit='   1234.50' Description='R' Memo='March' Number='  207' 2");
}

TEST(QMRegisterRefresh, WritesEveryTextOfADeposit)
{
    TestRegister reg;
    reg.Header().bShowCategory = 1;
    reg.Add(QM_TRANS_INTEREST_PAID, "12/1/1999", 0.5F, uNotCleared, "Savings");
    reg.Show();
    EXPECT_EQ(OnlyRow(reg),
              "Balance='0.50' Category='' Credit='      0.50' Date='12/ 1/99' Debit='' "
              "Description='Interest Paid - Savings' Memo='' Number='     ' 1");
}

TEST(QMRegisterRefresh, SaysThatATransactionIsVoided)
{
    TestRegister reg;
    reg.Add(QM_TRANS_CHECK, "1/1/2004", 1, uVoided | uNotCleared, "Rent");
    reg.Add(QM_TRANS_FEE, "1/2/2004", 1, uVoided | uNotCleared, "x");
    reg.Add(QM_TRANS_CHECK, "1/3/2004", 1, uVoided | uNotCleared, std::string(255, 'y'));
    reg.Show();
    EXPECT_EQ(reg.rows.GetColumn("Description"),
              (Texts{"Rent   (voided)", "Fee   (voided)", std::string(255, 'y')}));
}

TEST(QMRegisterRefresh, TypeOutsideTheTableHasEmptyTextsAndNoAmountCells)
{
    TestRegister reg;
    reg.Header().bShowCategory = 1;
    reg.Add(99, "1/1/2004", 30, uTax, "Rent");
    reg.Show();
    EXPECT_EQ(OnlyRow(reg), "Balance='' Category='' Date='' Description='' Memo='' Number='' 37");
}

// When a type becomes invalid, the two amount cells keep their texts.
TEST(QMRegisterRefresh, AmountCellsFollowTheTypeAsLongAsItIsKnown)
{
    TestRegister reg;
    reg.Add(QM_TRANS_CHECK, "1/1/2004", 30, 0);
    reg.Show();
    reg.At(0).lType = QM_TRANS_DEPOSIT;
    EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
    EXPECT_EQ(reg.rows.GetColumn("Debit"), Texts{""});
    EXPECT_EQ(reg.rows.GetColumn("Credit"), Texts{"     30.00"});
    reg.At(0).lType = 12;
    EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
    EXPECT_EQ(reg.rows.GetColumn("Debit"), Texts{""});
    EXPECT_EQ(reg.rows.GetColumn("Credit"), Texts{"     30.00"});
    EXPECT_EQ(reg.rows.GetColumn("Balance"), Texts{""});
}

TEST(QMRegisterRefresh, HugeBalanceIsCutTo31Characters)
{
    TestRegister reg;
    reg.Add(QM_TRANS_DEPOSIT, "1/1/2004", FLT_MAX, 0);
    reg.Show();
    EXPECT_EQ(reg.rows.GetColumn("Balance"), Texts{"3402823466385288598117041834845"});
}

TEST(QMRegisterRefresh, WritesTheRowsFromItsStartOn)
{
    MixedRegister reg;
    const uint32_t uMask = QM_COLUMN_DATE | QM_COLUMN_MEMO;
    EXPECT_EQ(SortedLog(reg, 0, uMask),
              (Texts{"decoration 0", "decoration 1", "decoration 2", "text 0 Date", "text 0 Memo",
                     "text 1 Date", "text 1 Memo", "text 2 Date", "text 2 Memo"}));
    EXPECT_EQ(SortedLog(reg, 1, uMask), (Texts{"decoration 1", "decoration 2", "text 1 Date",
                                               "text 1 Memo", "text 2 Date", "text 2 Memo"}));
    EXPECT_EQ(SortedLog(reg, 2, uMask), (Texts{"decoration 2", "text 2 Date", "text 2 Memo"}));
}

TEST(QMRegisterRefresh, LaterRowsCountWhatStandsBeforeTheStart)
{
    MixedRegister reg;
    reg.At(0).fAmount = 20;
    EXPECT_TRUE(reg.model.RefreshRows(1, QM_COLUMN_ALL, false));
    EXPECT_EQ(reg.rows.GetColumn("Balance"), (Texts{"-10.00", "5.00", "4.00"}));
    EXPECT_EQ(reg.model.GetBalance(true), 4);
}

TEST(QMRegisterRefresh, EachBitOfTheMaskWritesItsColumnAlone)
{
    const struct
    {
        uint32_t uBit;
        Texts columns; // those written in each row
    } aBits[] = {{1, {"Date"}},    {2, {"Number"}},   {4, {"Description"}}, {8, {"Debit"}},
                 {16, {"Credit"}}, {32, {"Balance"}}, {64, {"Memo"}},       {128, {"Category"}},
                 {256, {}},        {512, {}}};
    MixedRegister reg;
    for (const auto& bit : aBits) {
        Texts expected;
        for (const std::string sRow : {"0", "1", "2"}) {
            expected.push_back("decoration " + sRow);
            for (const std::string& sColumn : bit.columns) {
                expected.push_back("text " + sRow + " " + sColumn);
            }
        }
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(SortedLog(reg, 0, bit.uBit), expected) << "bit " << bit.uBit;
    }
}

TEST(QMRegisterRefresh, BitsBeyondTheColumnsMeanNothing)
{
    MixedRegister reg;
    EXPECT_EQ(SortedLog(reg, 2, ~QM_COLUMN_ALL), Texts{"decoration 2"});
    EXPECT_EQ(reg.rows.GetDecorations()[2], 0U);
}

TEST(QMRegisterRefresh, FullMaskWritesEightTextsAndTheDecoration)
{
    MixedRegister reg;
    EXPECT_EQ(
        SortedLog(reg, 2, QM_COLUMN_ALL),
        (Texts{"decoration 2", "text 2 Balance", "text 2 Category", "text 2 Credit", "text 2 Date",
               "text 2 Debit", "text 2 Description", "text 2 Memo", "text 2 Number"}));
}

TEST(QMRegisterRefresh, TagToggleRewritesBalanceAndMarks)
{
    MixedRegister reg;
    EXPECT_EQ(SortedLog(reg, 1, 800),
              (Texts{"decoration 1", "decoration 2", "text 1 Balance", "text 2 Balance"}));
    EXPECT_EQ(reg.rows.GetDecorations(), (Words{2 + 4, 1 + 8 + 32, 1 + 32}));
}

TEST(QMRegisterRefresh, NarrowMaskTakesTheOtherDecorationsAway)
{
    MixedRegister reg;
    const Texts before = reg.rows.GetColumn("Description");
    const struct
    {
        uint32_t uMask;
        Words words;
    } aSteps[] = {
        {1023, {2 + 4, 1 + 8 + 32, 1 + 32}},
        {32, {2, 1, 1}},
        {800, {2 + 4, 1 + 8 + 32, 1 + 32}},
        {256, {4, 8, 0}},
        {512, {0, 32, 32}},
        {1, {0, 0, 0}},
        {1023 - 32, {4, 8 + 32, 32}},
        {0, {0, 0, 0}},
    };
    for (const auto& step : aSteps) {
        EXPECT_TRUE(reg.model.RefreshRows(0, step.uMask, false));
        EXPECT_EQ(reg.rows.GetDecorations(), step.words) << "mask " << step.uMask;
        EXPECT_EQ(reg.rows.GetColumn("Description"), before) << "mask " << step.uMask;
    }
}

TEST(QMRegisterRefresh, EarlierRowsKeepTheirDecorations)
{
    MixedRegister reg;
    EXPECT_TRUE(reg.model.RefreshRows(2, QM_COLUMN_BALANCE, false));
    EXPECT_EQ(reg.rows.GetDecorations(), (Words{2 + 4, 1 + 8 + 32, 1}));
}

TEST(QMRegisterRefresh, DecorationFollowsTheFlags)
{
    TestRegister reg;
    reg.Add(QM_TRANS_DEPOSIT, "1/1/2004", 1, 0);
    reg.Show();
    const struct
    {
        uint32_t uFlags;
        uint32_t uWord;
    } aFlags[] = {
        {0, 32},
        {uNotCleared, 0},
        {uVoided, 16},
        {uVoided | uNotCleared, 16},
        {uTax, 32 + 4},
        {uExpense, 32 + 8},
        {uTax | uExpense, 32 + 4},
        {uTax | uExpense | uVoided | uNotCleared, 16 + 4},
        {uExpense | uNotCleared, 8},
        {QM_TRANS_FLAG_IMPORT | uNotCleared, 0},
    };
    for (const auto& flags : aFlags) {
        reg.At(0).lFlags = flags.uFlags;
        EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
        EXPECT_EQ(reg.rows.GetDecorations(), Words{flags.uWord + 1}) << "flags " << flags.uFlags;
    }
}

TEST(QMRegisterRefresh, BalanceOfZeroIsNotNegative)
{
    TestRegister reg;
    reg.Add(QM_TRANS_DEPOSIT, "1/1/2004", 1, 0);
    reg.Add(QM_TRANS_CHECK, "1/2/2004", 1, 0);
    reg.Add(QM_TRANS_CHECK, "1/3/2004", 0.01F, 0);
    reg.Show();
    EXPECT_EQ(reg.rows.GetDecorations(), (Words{33, 33, 34}));
}

TEST(QMRegisterRefresh, HiddenColumnsGetNeitherTextsNorMarks)
{
    for (int32_t i = 0; i < QM_ENTRY_FILLER; ++i) {
        const QMColumnInfo& info = QMGetColumnInfo(static_cast<QMColumn>(i));
        MixedRegister reg;
        const Words shown = reg.rows.GetDecorations();
        reg.Header().*info.pShown = 0;
        reg.Show();
        EXPECT_EQ(reg.rows.GetColumn(info.szName), Texts(3, "(none)")) << info.szName;
        const uint32_t uGone = info.uMask == QM_COLUMN_BALANCE   ? 1 + 2
                               : info.uMask == QM_COLUMN_TAG     ? 4 + 8
                               : info.uMask == QM_COLUMN_CLEARED ? 16 + 32
                                                                 : 0;
        Words expected;
        std::transform(shown.begin(), shown.end(), std::back_inserter(expected),
                       [&](uint32_t uWord) { return uWord & ~uGone; });
        EXPECT_EQ(reg.rows.GetDecorations(), expected) << info.szName;
        EXPECT_EQ(reg.model.GetBalance(true), 14) << info.szName;
    }
}

TEST(QMRegisterRefresh, HidingAColumnInTheHeaderWaitsForNewColumns)
{
    MixedRegister reg;
    reg.Header().bShowMemo = 0;
    reg.Header().bShowBalance = 0;
    EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
    const Texts log = reg.rows.TakeLog();
    EXPECT_EQ(std::count(log.begin(), log.end(), "text 0 Memo"), 1);
    EXPECT_EQ(reg.rows.GetDecorations(), (Words{2 + 4, 1 + 8 + 32, 1 + 32}));
}

TEST(QMRegisterRefresh, EmptyStoreKeepsSumsAndStillRepaints)
{
    MixedRegister reg;
    reg.SetHeaderPeriod(QM_ACCNT_DISPLAY_DATE_RANGE, "1/2/2004", "1/3/2004");
    reg.model.SetPeriodFilter(true, true);
    reg.rows.TakeLog();
    reg.Store().Clear();
    for (const int32_t lFrom : {0, 1, 1000}) {
        EXPECT_TRUE(reg.model.RefreshRows(lFrom, QM_COLUMN_ALL, false));
        EXPECT_EQ(reg.rows.TakeLog(), Texts());
        EXPECT_TRUE(reg.model.RefreshRows(lFrom, QM_COLUMN_ALL, true));
        EXPECT_EQ(reg.rows.TakeLog(), Texts{"repaint"});
        EXPECT_EQ(reg.model.GetBalance(false), 24);
        EXPECT_EQ(reg.model.GetBalance(true), 14);
        EXPECT_EQ(reg.model.GetFirstShown(), 1);
    }
}

TEST(QMRegisterRefresh, EmptyAccountRefreshesToNothing)
{
    TestRegister reg;
    EXPECT_TRUE(reg.model.RebuildRows(true));
    EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
    EXPECT_EQ(reg.model.GetFirstShown(), 0);
    EXPECT_EQ(reg.model.GetBalance(false), 0);
    EXPECT_EQ(reg.model.GetBalance(true), 0);
}

TEST(QMRegisterRefresh, StartAtOrPastTheEndIsRefused)
{
    MixedRegister reg;
    reg.At(0).fAmount = 20;
    for (const int32_t lFrom : {3, 4, INT_MAX}) {
        EXPECT_FALSE(reg.model.RefreshRows(lFrom, QM_COLUMN_ALL, true)) << "from " << lFrom;
        EXPECT_EQ(reg.rows.TakeLog(), Texts()) << "from " << lFrom;
        EXPECT_EQ(reg.model.GetBalance(true), 14) << "from " << lFrom;
    }
}

TEST(QMRegisterRefresh, RepaintsAtTheEndWhenAsked)
{
    MixedRegister reg;
    EXPECT_TRUE(reg.model.RefreshRows(2, 0, true));
    EXPECT_EQ(reg.rows.TakeLog(), (Texts{"decoration 2", "repaint"}));
}

TEST(QMRegisterRefresh, StopsWhereTheRowsRunOutAndKeepsTheSumsUpToThere)
{
    MixedRegister reg;
    reg.Add(QM_TRANS_DEPOSIT, "1/4/2004", 100, 0);
    reg.Add(QM_TRANS_DEPOSIT, "1/5/2004", 1000, 0);
    EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_BALANCE, true));
    EXPECT_EQ(reg.rows.GetColumn("Balance"), (Texts{"-10.00", "15.00", "14.00"}));
    EXPECT_EQ(reg.rows.TakeLog().back(), "repaint");
    EXPECT_EQ(reg.model.GetBalance(false), 124);
    EXPECT_EQ(reg.model.GetBalance(true), 114);
    EXPECT_TRUE(reg.model.RefreshRows(4, QM_COLUMN_BALANCE, false));
    EXPECT_EQ(reg.rows.TakeLog(), Texts());
    EXPECT_EQ(reg.model.GetBalance(true), 1114);
}

TEST(QMRegisterRefresh, WithoutRowsItStopsAtTheFirstTransaction)
{
    TestRegister reg;
    reg.Add(QM_TRANS_DEPOSIT, "1/1/2004", 1, 0);
    reg.Add(QM_TRANS_DEPOSIT, "1/2/2004", 2, 0);
    EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
    EXPECT_EQ(reg.rows.TakeLog(), Texts());
    EXPECT_EQ(reg.model.GetBalance(true), 1);
    EXPECT_TRUE(reg.model.RefreshRows(1, QM_COLUMN_ALL, false));
    EXPECT_EQ(reg.model.GetBalance(true), 3);
}

TEST(QMRegisterRefresh, RowsBeyondTheStoreStayAsTheyWere)
{
    MixedRegister reg;
    reg.Store().Last();
    reg.Store().Remove();
    const Texts before = DescribeRows(reg.rows.GetRows());
    EXPECT_TRUE(reg.model.RefreshRows(0, QM_COLUMN_ALL, false));
    EXPECT_EQ(DescribeRows(reg.rows.GetRows()), before);
    EXPECT_EQ(reg.model.GetRowCount(), 3);
    EXPECT_EQ(reg.model.GetBalance(true), 15);
}
