// Rows, selection and status bar of a register, and lists that fail.
#include "register/qmregistermodel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <functional>
#include <string>

#include "tests/support/register_support.h"

namespace {

constexpr uint32_t uNotCleared = QM_TRANS_FLAG_NOT_CLEARED;

// Three deposits of 1, 2 and 4 dollars.
struct ThreeDeposits : TestRegister
{
    ThreeDeposits()
    {
        Add(QM_TRANS_DEPOSIT, "1/1/2004", 1, 0, "one");
        Add(QM_TRANS_DEPOSIT, "1/2/2004", 2, 0, "two");
        Add(QM_TRANS_DEPOSIT, "1/3/2004", 4, uNotCleared, "four");
    }
};

// What the panes show for a day.
Texts StatusOf(const QMRegisterModel& model, const QMDate& date = QMMakeDate(2004, 3, 14))
{
    RecordingStatusPanes panes;
    model.UpdateStatusBar(false, date, panes);
    return panes.GetTexts();
}

// Lets each operation of a run on three deposits fail in turn. The run must then return false and
// call nothing more of the list. Returns the number of operations of the run.
int FailEachOperationOf(const std::function<bool(TestRegister&)>& run)
{
    for (int nBefore = 0;; ++nBefore) {
        ThreeDeposits reg;
        reg.Show();
        reg.rows.FailAfter(nBefore);
        const bool bDone = run(reg);
        const Texts log = reg.rows.TakeLog();
        const auto nFailed = std::count_if(
            log.begin(), log.end(), [](const std::string& sCall) { return sCall.back() == '!'; });
        if (nFailed == 0) {
            EXPECT_TRUE(bDone);
            return nBefore;
        }
        EXPECT_FALSE(bDone) << log.back();
        EXPECT_EQ(log.back().back(), '!') << log.back();
    }
}

} // namespace

TEST(QMRegisterModel, ShowsNothingBeforeItsFirstFill)
{
    ThreeDeposits reg;
    EXPECT_EQ(reg.model.GetRowCount(), 0);
    EXPECT_EQ(reg.model.GetFirstShown(), 0);
    EXPECT_EQ(reg.model.GetFocusRow(), -1);
    EXPECT_FALSE(reg.model.HasSelection());
    EXPECT_EQ(reg.model.GetBalance(false), 0);
    EXPECT_EQ(reg.model.GetBalance(true), 0);
    EXPECT_EQ(reg.model.GetColumns().GetVisibleCount(), 0);
}

TEST(QMRegisterModel, WithoutAnAccountNothingIsDone)
{
    RecordingDocument document;
    RecordingRowList rows;
    QMRegisterModel model(document, rows);
    QMDate dtFrom = MakeDate("3/1/2004");
    QMDate dtTo = MakeDate("3/31/2004");
    EXPECT_FALSE(model.RebuildRows(false));
    EXPECT_FALSE(model.RebuildRows(true));
    EXPECT_FALSE(model.RefreshRows(0, QM_COLUMN_ALL, true));
    EXPECT_FALSE(model.SelectRow(0));
    EXPECT_FALSE(model.ShowAll());
    EXPECT_TRUE(model.SetFocusRow(3));
    model.SetPeriod(QM_ACCNT_DISPLAY_ALL, dtFrom, dtTo, true);
    model.SetPeriodFilter(true, true);
    EXPECT_EQ(rows.TakeLog(), Texts());
    EXPECT_EQ(document.TakeTitles(), Texts());
    EXPECT_EQ(DateText(dtFrom) + " " + DateText(dtTo), "3/1/2004 3/31/2004");
}

TEST(QMRegisterModel, RebuildAppendsAnEmptyRowForEachTransaction)
{
    ThreeDeposits reg;
    EXPECT_TRUE(reg.model.RebuildRows(true));
    EXPECT_EQ(reg.rows.TakeLog(),
              (Texts{"columns", "capacity 3", "append", "append", "append", "filler"}));
    EXPECT_EQ(DescribeRows(reg.rows.GetRows()), (Texts{"0", "0", "0"}));
    EXPECT_EQ(reg.model.GetRowCount(), 3);
}

TEST(QMRegisterModel, RebuildTakesOldRowsAwayFirst)
{
    ThreeDeposits reg;
    reg.Show();
    EXPECT_TRUE(reg.model.RebuildRows(false));
    EXPECT_EQ(reg.rows.TakeLog(),
              (Texts{"delete", "capacity 3", "append", "append", "append", "filler"}));
    EXPECT_EQ(DescribeRows(reg.rows.GetRows()), (Texts{"0", "0", "0"}));
    EXPECT_TRUE(reg.model.RebuildRows(true));
    EXPECT_EQ(reg.rows.TakeLog(),
              (Texts{"delete", "columns", "capacity 3", "append", "append", "append", "filler"}));
}

TEST(QMRegisterModel, RebuildOfAnEmptyStoreAsksForNoCapacity)
{
    TestRegister reg;
    EXPECT_TRUE(reg.model.RebuildRows(false));
    EXPECT_EQ(reg.rows.TakeLog(), (Texts{"filler"}));
    EXPECT_TRUE(reg.model.RebuildRows(true));
    EXPECT_EQ(reg.rows.TakeLog(), (Texts{"columns", "filler"}));
}

TEST(QMRegisterModel, RebuildTakesVisibilityAndWidthsFromTheHeaderWhenAsked)
{
    TestRegister reg;
    EXPECT_TRUE(reg.model.RebuildRows(true));
    EXPECT_EQ(reg.rows.GetColumnNames(), (Texts{"Cleared", "Date", "Number", "Description", "Debit",
                                                "Credit", "Balance", "Tag", "Memo", ""}));
    for (const auto pShown : {&QMAccountHeader::bShowNumber, &QMAccountHeader::bShowTag}) {
        reg.Header().*pShown = 0;
    }
    reg.Header().bShowCategory = 1;
    reg.Header().lWidthDate = 77;
    EXPECT_TRUE(reg.model.RebuildRows(false));
    EXPECT_EQ(reg.model.GetColumns().GetVisibleCount(), 10);
    EXPECT_EQ(reg.model.GetColumns().GetWidth(QM_ENTRY_DATE), 55);
    EXPECT_TRUE(reg.model.RebuildRows(true));
    EXPECT_EQ(reg.rows.GetColumnNames(), (Texts{"Cleared", "Date", "Description", "Debit", "Credit",
                                                "Balance", "Memo", "Category", ""}));
    EXPECT_EQ(reg.model.GetColumns().GetVisibleCount(), 9);
    EXPECT_EQ(reg.model.GetColumns().GetListIndex(QM_ENTRY_NUMBER), -1);
    EXPECT_EQ(reg.model.GetColumns().GetListIndex(QM_ENTRY_CATEGORY), 7);
    EXPECT_EQ(reg.model.GetColumns().GetWidth(QM_ENTRY_DATE), 77);
}

TEST(QMRegisterModel, ComesUpWithItsNewestTransactionSelected)
{
    ThreeDeposits reg;
    EXPECT_TRUE(reg.model.ShowAll());
    const Texts log = reg.rows.TakeLog();
    EXPECT_EQ(log.front(), "columns");
    EXPECT_EQ(log.back(), "select 2");
    EXPECT_EQ(std::count(log.begin(), log.end(), "repaint"), 0);
    EXPECT_EQ(reg.rows.GetColumn("Description"),
              (Texts{"Deposit - one", "Deposit - two", "Deposit - four"}));
    EXPECT_EQ(reg.rows.GetSelectedRow(), 2);
    EXPECT_EQ(reg.model.GetFocusRow(), 2);
    EXPECT_EQ(reg.Store().GetPosition(), 2);
}

TEST(QMRegisterModel, EmptyAccountComesUpWithoutASelection)
{
    TestRegister reg;
    EXPECT_TRUE(reg.model.ShowAll());
    EXPECT_EQ(reg.rows.TakeLog(), (Texts{"columns", "filler"}));
    EXPECT_FALSE(reg.model.HasSelection());
    EXPECT_EQ(reg.model.GetFocusRow(), -1);
}

TEST(QMRegisterModel, SelectingARowSetsTheCursor)
{
    ThreeDeposits reg;
    reg.Show();
    for (const int32_t lRow : {0, 2, 1}) {
        EXPECT_TRUE(reg.model.SelectRow(lRow));
        EXPECT_EQ(reg.rows.GetSelectedRow(), lRow);
        EXPECT_EQ(reg.Store().GetPosition(), lRow);
        EXPECT_TRUE(reg.model.HasSelection());
    }
    EXPECT_EQ(reg.rows.TakeLog(), (Texts{"select 0", "select 2", "select 1"}));
}

TEST(QMRegisterModel, RowOutsideTheListIsNotSelected)
{
    ThreeDeposits reg;
    reg.Show();
    reg.Store().First();
    for (const int32_t lRow : {INT_MIN, -1, 3, 4, INT_MAX}) {
        EXPECT_FALSE(reg.model.SelectRow(lRow)) << "row " << lRow;
    }
    EXPECT_EQ(reg.rows.TakeLog(), Texts());
    EXPECT_EQ(reg.Store().GetPosition(), 0);
}

TEST(QMRegisterModel, RowWithoutATransactionIsNotSelected)
{
    ThreeDeposits reg;
    reg.Show();
    reg.Store().Last();
    reg.Store().Remove();
    EXPECT_FALSE(reg.model.SelectRow(2));
    EXPECT_TRUE(reg.model.SelectRow(1));
    reg.rows.TakeLog();
    reg.Store().Clear();
    EXPECT_FALSE(reg.model.SelectRow(0));
    EXPECT_EQ(reg.rows.TakeLog(), Texts());
}

TEST(QMRegisterModel, FocusOnAnotherRowMovesTheCursor)
{
    ThreeDeposits reg;
    reg.Show();
    EXPECT_TRUE(reg.model.SetFocusRow(1));
    EXPECT_EQ(reg.model.GetFocusRow(), 1);
    EXPECT_EQ(reg.Store().GetPosition(), 1);
    EXPECT_EQ(reg.rows.TakeLog(), Texts());
}

TEST(QMRegisterModel, FocusThatIsNoNewsMovesNothing)
{
    ThreeDeposits reg;
    reg.Show();
    EXPECT_TRUE(reg.model.SetFocusRow(1));
    reg.Store().First();
    EXPECT_FALSE(reg.model.SetFocusRow(1));
    EXPECT_EQ(reg.Store().GetPosition(), 0);
    EXPECT_TRUE(reg.model.SetFocusRow(-1));
    EXPECT_FALSE(reg.model.SetFocusRow(-1));
    EXPECT_EQ(reg.Store().GetPosition(), 0);
    EXPECT_EQ(reg.model.GetFocusRow(), -1);
}

TEST(QMRegisterModel, FocusCountsOnlyWhileARowIsSelected)
{
    ThreeDeposits reg;
    reg.Show();
    reg.rows.SetSelectedCount(0);
    EXPECT_FALSE(reg.model.HasSelection());
    EXPECT_EQ(reg.model.GetFocusRow(), -1);
    reg.rows.SetSelectedCount(3);
    EXPECT_TRUE(reg.model.HasSelection());
    EXPECT_EQ(reg.model.GetFocusRow(), 2);
}

TEST(QMRegisterModel, StatusBarNamesTheSelection)
{
    ThreeDeposits reg;
    reg.Show();
    EXPECT_EQ(StatusOf(reg.model)[0], " Transaction: 3 of 3");
    reg.model.SetFocusRow(0);
    EXPECT_EQ(StatusOf(reg.model)[0], " Transaction: 1 of 3");
    reg.rows.SetSelectedCount(2);
    EXPECT_EQ(StatusOf(reg.model)[0], " 2 Transactions Selected");
    reg.rows.SetSelectedCount(12345);
    EXPECT_EQ(StatusOf(reg.model)[0], " 12345 Transactions Selected");
    reg.rows.SetSelectedCount(0);
    EXPECT_EQ(StatusOf(reg.model)[0], " No Transaction Selected");
}

TEST(QMRegisterModel, StatusBarShowsBothSums)
{
    ThreeDeposits reg;
    reg.Show();
    EXPECT_EQ(StatusOf(reg.model)[1], " Balance: $3.00");
    EXPECT_EQ(StatusOf(reg.model)[2], " Available: $7.00");
}

TEST(QMRegisterModel, StatusBarShowsSumsBelowZero)
{
    TestRegister reg;
    reg.Add(QM_TRANS_CHECK, "1/1/2004", 0.05F, 0);
    reg.Add(QM_TRANS_FEE, "1/2/2004", 1234567, uNotCleared);
    reg.Show();
    EXPECT_EQ(StatusOf(reg.model)[1], " Balance: $-0.05");
    EXPECT_EQ(StatusOf(reg.model)[2], " Available: $-1234567.05");
}

TEST(QMRegisterModel, StatusBarShowsHugeSumsWhole)
{
    TestRegister reg;
    for (int n = 0; n < 5; ++n) {
        reg.Add(QM_TRANS_DEPOSIT, "1/1/2004", QM_MAX_AMOUNT, 0);
    }
    reg.Show();
    EXPECT_EQ(StatusOf(reg.model)[1], " Balance: $50000000000.00");
    reg.Add(QM_TRANS_CHECK, "1/1/2005", FLT_MAX, uNotCleared);
    reg.Show();
    EXPECT_EQ(StatusOf(reg.model)[1], " Balance: $50000000000.00");
    EXPECT_EQ(StatusOf(reg.model)[2], " Available: $-340282346638528859811704183484516925440.00");
}

TEST(QMRegisterModel, StatusBarNamesTheDay)
{
    const TestRegister reg;
    const char* const aDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                 "Thursday", "Friday", "Saturday"};
    QMDate date = MakeDate("3/14/2004");
    for (const char* szDay : aDays) {
        EXPECT_EQ(StatusOf(reg.model, date)[3],
                  " " + std::string(szDay) + ", 3/" + std::to_string(date.wDay) + "/2004");
        ++date.wDayOfWeek;
        ++date.wDay;
    }
    EXPECT_EQ(StatusOf(reg.model, MakeDate("12/31/1999"))[3], " Sunday, 12/31/1999");
    EXPECT_EQ(StatusOf(reg.model, MakeDate("1/2/4"))[3], " Sunday, 1/2/   4");
}

TEST(QMRegisterModel, StatusBarIsClearedForAWindowThatGoesBack)
{
    ThreeDeposits reg;
    reg.Show();
    RecordingStatusPanes panes;
    reg.model.UpdateStatusBar(true, MakeDate("3/14/2004"), panes);
    EXPECT_EQ(panes.GetTexts(), (Texts{"", "", "", ""}));
}

TEST(QMRegisterModel, StatusBarOfAnEmptyAccountShowsZeroes)
{
    TestRegister reg;
    reg.Show();
    EXPECT_EQ(StatusOf(reg.model), (Texts{" No Transaction Selected", " Balance: $0.00",
                                          " Available: $0.00", " Sunday, 3/14/2004"}));
}

TEST(QMRegisterModel, RebuildEndsAtTheFirstOperationThatFails)
{
    const int nWithColumns =
        FailEachOperationOf([](TestRegister& reg) { return reg.model.RebuildRows(true); });
    EXPECT_EQ(nWithColumns, 6); // rows away, columns, capacity, three rows
    const int nRows =
        FailEachOperationOf([](TestRegister& reg) { return reg.model.RebuildRows(false); });
    EXPECT_EQ(nRows, 5);
}

TEST(QMRegisterModel, RefreshEndsAtTheFirstOperationThatFails)
{
    const int nAll = FailEachOperationOf(
        [](TestRegister& reg) { return reg.model.RefreshRows(0, QM_COLUMN_ALL, true); });
    EXPECT_EQ(nAll, 3 * 8); // seven texts and the decoration word
    const int nOne = FailEachOperationOf(
        [](TestRegister& reg) { return reg.model.RefreshRows(2, QM_COLUMN_DATE, true); });
    EXPECT_EQ(nOne, 2);
}

TEST(QMRegisterModel, ComingUpEndsAtTheFirstOperationThatFails)
{
    const int nAll = FailEachOperationOf([](TestRegister& reg) { return reg.model.ShowAll(); });
    EXPECT_EQ(nAll, 6 + 3 * 8 + 1);
}

TEST(QMRegisterModel, SelectingFailsWithTheList)
{
    const int nAll = FailEachOperationOf([](TestRegister& reg) { return reg.model.SelectRow(1); });
    EXPECT_EQ(nAll, 1);
}

TEST(QMRegisterModel, ReloadForAPeriodEndsAtTheFirstOperationThatFails)
{
    const int nAll = FailEachOperationOf([](TestRegister& reg) {
        reg.model.SetFocusRow(0);
        reg.model.SetPeriodFilter(false, true);
        return reg.model.GetFocusRow() == 2;
    });
    EXPECT_EQ(nAll, 5 + 3 * 8 + 1);
}
