// The display period of a register.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "register/qmregistermodel.h"
#include "tests/support/register_support.h"

namespace {

constexpr uint32_t uAll = QM_ACCNT_DISPLAY_ALL;
constexpr uint32_t uMonth = QM_ACCNT_DISPLAY_CURRENT_MONTH;
constexpr uint32_t uRange = QM_ACCNT_DISPLAY_DATE_RANGE;

// Six cleared deposits, two in each of three months. Every sum of some of them is different.
struct MonthsRegister : TestRegister
{
    MonthsRegister()
    {
        float fAmount = 1;
        for (const char* szDate :
             {"1/10/2004", "1/20/2004", "2/10/2004", "2/20/2004", "3/10/2004", "3/20/2004"}) {
            Add(QM_TRANS_DEPOSIT, szDate, fAmount, 0);
            fAmount *= 2;
        }
        Show();
    }

    // Only transactions in the period are shown.
    void Filter(const std::string& sFrom, const std::string& sTo)
    {
        SetHeaderPeriod(uRange, sFrom, sTo);
        model.SetPeriodFilter(true, true);
    }

    Texts Balances() const { return rows.GetColumn("Balance"); }
};

// The period in the header, such as "4 1/1/2004 1/31/2004".
std::string PeriodOf(const TestRegister& reg)
{
    uint32_t uSelection = 99;
    QMDate dtFrom;
    QMDate dtTo;
    reg.document.GetPeriod(uSelection, dtFrom, dtTo);
    return std::to_string(uSelection) + " " + DateText(dtFrom) + " " + DateText(dtTo);
}

// Calls SetPeriod and returns the two dates that it sets.
std::string SetPeriod(TestRegister& reg, uint32_t uSelection, const std::string& sFrom,
                      const std::string& sTo, bool bReload = false)
{
    QMDate dtFrom = MakeDate(sFrom);
    QMDate dtTo = MakeDate(sTo);
    reg.model.SetPeriod(uSelection, dtFrom, dtTo, bReload);
    return DateText(dtFrom) + " " + DateText(dtTo);
}

} // namespace

TEST(QMRegisterPeriod, RowsInTheMiddleOfTheStore)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "2/29/2004");
    EXPECT_EQ(reg.rows.GetColumn("Date"), (Texts{" 2/10/04", " 2/20/04"}));
    EXPECT_EQ(reg.model.GetFirstShown(), 2);
    EXPECT_EQ(reg.model.GetRowCount(), 2);
}

TEST(QMRegisterPeriod, RowsAtTheStartOfTheStore)
{
    MonthsRegister reg;
    reg.Filter("1/1/2000", "1/31/2004");
    EXPECT_EQ(reg.rows.GetColumn("Date"), (Texts{" 1/10/04", " 1/20/04"}));
    EXPECT_EQ(reg.model.GetFirstShown(), 0);
}

TEST(QMRegisterPeriod, RowsAtTheEndOfTheStore)
{
    MonthsRegister reg;
    reg.Filter("3/1/2004", "12/31/2010");
    EXPECT_EQ(reg.rows.GetColumn("Date"), (Texts{" 3/10/04", " 3/20/04"}));
    EXPECT_EQ(reg.model.GetFirstShown(), 4);
}

TEST(QMRegisterPeriod, WithoutTransactionsThereAreNoRowsButStillTheSums)
{
    const struct
    {
        const char* szFrom;
        const char* szTo;
    } aPeriods[] = {{"1/1/2000", "1/9/2004"},
                    {"2/11/2004", "2/19/2004"},
                    {"3/21/2004", "12/31/2010"},
                    {"2/20/2004", "2/10/2004"}}; // the last one ends before it begins
    for (const auto& period : aPeriods) {
        MonthsRegister reg;
        reg.rows.TakeLog();
        reg.Filter(period.szFrom, period.szTo);
        EXPECT_EQ(reg.rows.TakeLog(), (Texts{"delete", "capacity 6", "filler"})) << period.szFrom;
        EXPECT_EQ(reg.model.GetRowCount(), 0) << period.szFrom;
        EXPECT_EQ(reg.model.GetFirstShown(), 0) << period.szFrom;
        EXPECT_EQ(reg.model.GetFocusRow(), -1) << period.szFrom;
        EXPECT_EQ(reg.model.GetBalance(false), 63) << period.szFrom;
        EXPECT_EQ(reg.model.GetBalance(true), 63) << period.szFrom;
        EXPECT_FALSE(reg.model.SelectRow(0)) << period.szFrom;
    }
}

TEST(QMRegisterPeriod, BothEndsBelongToIt)
{
    MonthsRegister reg;
    reg.Filter("1/20/2004", "3/10/2004");
    EXPECT_EQ(reg.model.GetRowCount(), 4);
    reg.Filter("2/10/2004", "2/10/2004");
    EXPECT_EQ(reg.rows.GetColumn("Date"), (Texts{" 2/10/04"}));
    reg.Filter("1/21/2004", "3/9/2004");
    EXPECT_EQ(reg.model.GetRowCount(), 2);
}

TEST(QMRegisterPeriod, FirstRowsBalanceIncludesEverythingBeforeIt)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "2/29/2004");
    EXPECT_EQ(reg.Balances(), (Texts{"7.00", "15.00"}));
    reg.Filter("3/1/2004", "3/31/2004");
    EXPECT_EQ(reg.Balances(), (Texts{"31.00", "63.00"}));
}

TEST(QMRegisterPeriod, SumsAreThoseOfTheWholeStore)
{
    MonthsRegister reg;
    reg.At(5).lFlags = QM_TRANS_FLAG_NOT_CLEARED;
    for (const char* szFrom : {"1/1/2004", "2/1/2004", "3/1/2004", "4/1/2004"}) {
        reg.Filter(szFrom, "4/30/2004");
        EXPECT_EQ(reg.model.GetBalance(false), 31) << szFrom;
        EXPECT_EQ(reg.model.GetBalance(true), 63) << szFrom;
    }
    reg.Filter("1/1/2004", "1/31/2004");
    EXPECT_EQ(reg.model.GetBalance(false), 31);
    EXPECT_EQ(reg.model.GetBalance(true), 63);
}

TEST(QMRegisterPeriod, HasNoEffectUntilTheFilterIsOn)
{
    MonthsRegister reg;
    reg.SetHeaderPeriod(uRange, "2/1/2004", "2/29/2004");
    reg.Show();
    EXPECT_EQ(reg.model.GetRowCount(), 6);
    reg.model.SetPeriodFilter(true, true);
    EXPECT_EQ(reg.model.GetRowCount(), 2);
    reg.model.SetPeriodFilter(false, true);
    EXPECT_EQ(reg.model.GetRowCount(), 6);
    EXPECT_EQ(reg.model.GetFirstShown(), 0);
    EXPECT_EQ(PeriodOf(reg), "4 2/1/2004 2/29/2004");
}

TEST(QMRegisterPeriod, SelectionOfAllShowsAllWhateverTheDates)
{
    MonthsRegister reg;
    reg.SetHeaderPeriod(uAll, "2/1/2004", "2/29/2004");
    reg.model.SetPeriodFilter(true, true);
    EXPECT_EQ(reg.model.GetRowCount(), 6);
}

TEST(QMRegisterPeriod, EveryOtherSelectionGoesByTheDates)
{
    MonthsRegister reg;
    for (const uint32_t uSelection : {1U, 2U, 3U, 4U, 77U}) {
        reg.SetHeaderPeriod(uSelection, "2/1/2004", "2/29/2004");
        reg.model.SetPeriodFilter(true, true);
        EXPECT_EQ(reg.model.GetRowCount(), 2) << "selection " << uSelection;
    }
}

TEST(QMRegisterPeriod, RowsAndPositionsDifferByTheFirstShown)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "3/31/2004");
    for (const int32_t lRow : {0, 3, 1, 2}) {
        EXPECT_TRUE(reg.model.SelectRow(lRow));
        EXPECT_EQ(reg.Store().GetPosition(), 2 + lRow);
        EXPECT_EQ(reg.rows.GetSelectedRow(), lRow);
    }
    for (const int32_t lRow : {-2, -1, 4}) {
        EXPECT_FALSE(reg.model.SelectRow(lRow)) << "row " << lRow;
        EXPECT_EQ(reg.Store().GetPosition(), 4) << "row " << lRow;
    }
    for (const int32_t lRow : {0, 3, 1, 2}) {
        EXPECT_TRUE(reg.model.SetFocusRow(lRow));
        EXPECT_EQ(reg.Store().GetPosition(), 2 + lRow);
    }
}

TEST(QMRegisterPeriod, RefreshStartsAtAPositionAndNotAtARow)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "3/31/2004");
    reg.rows.TakeLog();
    EXPECT_TRUE(reg.model.RefreshRows(4, QM_COLUMN_DATE, false));
    EXPECT_EQ(reg.rows.TakeLog(),
              (Texts{"text 2 Date", "decoration 2", "text 3 Date", "decoration 3"}));
    EXPECT_EQ(reg.model.GetFirstShown(), 2);
    EXPECT_EQ(reg.model.GetBalance(true), 63);
}

TEST(QMRegisterPeriod, RefreshFromBeforeTheFirstShownWritesAllRows)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "2/29/2004");
    for (const int32_t lFrom : {0, 1, 2}) {
        reg.rows.TakeLog();
        EXPECT_TRUE(reg.model.RefreshRows(lFrom, 0, false));
        EXPECT_EQ(reg.rows.TakeLog(), (Texts{"decoration 0", "decoration 1"})) << "from " << lFrom;
    }
}

TEST(QMRegisterPeriod, RefreshFromBehindTheLastShownWritesNothing)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "2/29/2004");
    reg.rows.TakeLog();
    EXPECT_TRUE(reg.model.RefreshRows(4, QM_COLUMN_ALL, false));
    EXPECT_EQ(reg.rows.TakeLog(), Texts());
    EXPECT_EQ(reg.model.GetFirstShown(), 2);
    EXPECT_EQ(reg.model.GetBalance(true), 63);
    EXPECT_FALSE(reg.model.RefreshRows(6, QM_COLUMN_ALL, false));
}

// The refresh uses the place of the first row that the refresh before it found. When the period
// changes and the rows are not made anew, the texts go where the old rows are.
TEST(QMRegisterPeriod, RefreshCountsItsRowsFromTheFirstShownOfTheRefreshBefore)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "3/31/2004");
    reg.model.SetPeriodFilter(false, false);
    reg.rows.TakeLog();
    EXPECT_TRUE(reg.model.RefreshRows(3, 0, false));
    EXPECT_EQ(reg.rows.TakeLog(), (Texts{"decoration 1", "decoration 2", "decoration 3"}));
    EXPECT_EQ(reg.model.GetFirstShown(), 0);
    EXPECT_TRUE(reg.model.RefreshRows(3, 0, false));
    EXPECT_EQ(reg.rows.TakeLog(), (Texts{"decoration 3"}));
    EXPECT_EQ(reg.model.GetBalance(true), 31); // no row for the fifth: the sums end with it
}

TEST(QMRegisterPeriod, RebuildAppendsRowsForWhatIsShownOnly)
{
    MonthsRegister reg;
    reg.SetHeaderPeriod(uRange, "2/1/2004", "2/29/2004");
    reg.model.SetPeriodFilter(true, false);
    EXPECT_EQ(reg.rows.TakeLog(), Texts());
    EXPECT_TRUE(reg.model.RebuildRows(false));
    EXPECT_EQ(reg.rows.TakeLog(), (Texts{"delete", "capacity 6", "append", "append", "filler"}));
}

TEST(QMRegisterPeriod, FilterReloadsAndSelectsTheLastRow)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "2/29/2004");
    const Texts log = reg.rows.TakeLog();
    EXPECT_EQ(log.front(), "delete");
    EXPECT_EQ(log.back(), "select 1");
    EXPECT_EQ(std::count(log.begin(), log.end(), "columns"), 0);
    EXPECT_EQ(std::count(log.begin(), log.end(), "repaint"), 0);
    EXPECT_EQ(reg.model.GetFocusRow(), 1);
    EXPECT_EQ(reg.Store().GetPosition(), 3);
}

TEST(QMRegisterPeriod, FilterLeavesTheHeaderAlone)
{
    MonthsRegister reg;
    reg.SetHeaderPeriod(uMonth, "2/1/2004", "2/29/2004");
    for (const bool bReload : {false, true}) {
        for (const bool bEnabled : {true, false}) {
            reg.model.SetPeriodFilter(bEnabled, bReload);
            EXPECT_EQ(PeriodOf(reg), "2 2/1/2004 2/29/2004");
        }
    }
    EXPECT_FALSE(reg.document.IsModified());
    EXPECT_EQ(reg.document.TakeTitles(), Texts());
}

TEST(QMRegisterPeriod, NewPeriodGoesToTheHeaderAndMarksTheDocument)
{
    const struct
    {
        uint32_t uSelection;
        const char* szFrom;
        const char* szTo;
        const char* szPeriod;
        bool bChanged;
    } aPeriods[] = {
        {uRange, "2/1/2004", "2/29/2004", "4 2/1/2004 2/29/2004", false},
        {uRange, "2/2/2004", "2/29/2004", "4 2/2/2004 2/29/2004", true},
        {uRange, "2/1/2004", "2/28/2004", "4 2/1/2004 2/28/2004", true},
        {uMonth, "2/1/2004", "2/29/2004", "2 2/1/2004 2/29/2004", true},
        {uRange, "2/1/2005", "3/29/2004", "4 2/1/2005 3/29/2004", true},
    };
    for (const auto& period : aPeriods) {
        MonthsRegister reg;
        reg.SetHeaderPeriod(uRange, "2/1/2004", "2/29/2004");
        const std::string sDates = SetPeriod(reg, period.uSelection, period.szFrom, period.szTo);
        EXPECT_EQ(sDates, std::string(period.szFrom) + " " + period.szTo);
        EXPECT_EQ(PeriodOf(reg), period.szPeriod);
        EXPECT_EQ(reg.document.IsModified(), period.bChanged) << period.szPeriod;
    }
}

TEST(QMRegisterPeriod, TimeOfDayIsNoChange)
{
    MonthsRegister reg;
    reg.SetHeaderPeriod(uRange, "2/1/2004", "2/29/2004");
    QMDate dtFrom = MakeDate("2/1/2004");
    QMDate dtTo = MakeDate("2/29/2004");
    dtFrom.wHour = dtTo.wMilliseconds = dtTo.wDayOfWeek = 5;
    reg.model.SetPeriod(uRange, dtFrom, dtTo, false);
    EXPECT_FALSE(reg.document.IsModified());
}

TEST(QMRegisterPeriod, UnchangedPeriodLeavesAMarkedDocumentMarked)
{
    MonthsRegister reg;
    reg.SetHeaderPeriod(uRange, "2/1/2004", "2/29/2004");
    reg.document.MarkModified();
    SetPeriod(reg, uRange, "2/1/2004", "2/29/2004");
    EXPECT_TRUE(reg.document.IsModified());
    EXPECT_EQ(reg.document.TakeTitles(), Texts{"house.qmk *"});
}

TEST(QMRegisterPeriod, AllHandsBackTheFirstAndTheLastDate)
{
    MonthsRegister reg;
    reg.SetHeaderPeriod(uRange, "2/1/2004", "2/29/2004");
    EXPECT_EQ(SetPeriod(reg, uAll, "5/5/1999", "6/6/1999"), "1/10/2004 3/20/2004");
    EXPECT_EQ(PeriodOf(reg), "0 1/10/2004 3/20/2004");
    EXPECT_TRUE(reg.document.IsModified());
}

TEST(QMRegisterPeriod, AllChosenTwiceMarksOnce)
{
    MonthsRegister reg;
    reg.SetHeaderPeriod(uRange, "2/1/2004", "2/29/2004");
    SetPeriod(reg, uAll, "1/1/2004", "1/1/2004");
    SetPeriod(reg, uAll, "1/1/2004", "1/1/2004");
    EXPECT_EQ(reg.document.TakeTitles(), Texts{"house.qmk *"});
    reg.document.ClearModified();
    EXPECT_EQ(reg.document.TakeTitles(), Texts{"house.qmk"});
    SetPeriod(reg, uAll, "1/1/2004", "1/1/2004");
    EXPECT_FALSE(reg.document.IsModified());
    EXPECT_EQ(reg.document.TakeTitles(), Texts());
}

// When all is shown, the dates in the header follow the store. That does not count as a change by
// the user.
TEST(QMRegisterPeriod, AllTakesNewDatesWithoutMarking)
{
    MonthsRegister reg;
    reg.SetHeaderPeriod(uAll, "2/1/2004", "2/29/2004");
    reg.Add(QM_TRANS_DEPOSIT, "7/4/2005", 1, 0);
    EXPECT_EQ(SetPeriod(reg, uAll, "5/5/1999", "6/6/1999"), "1/10/2004 7/4/2005");
    EXPECT_EQ(PeriodOf(reg), "0 1/10/2004 7/4/2005");
    EXPECT_FALSE(reg.document.IsModified());
}

TEST(QMRegisterPeriod, AllOfOneTransactionIsItsDateTwice)
{
    TestRegister reg;
    reg.Add(QM_TRANS_DEPOSIT, "7/4/2005", 1, 0);
    EXPECT_EQ(SetPeriod(reg, uAll, "5/5/1999", "6/6/1999"), "7/4/2005 7/4/2005");
}

TEST(QMRegisterPeriod, AllOfAnEmptyStoreIsTheFirstOfJanuary2000)
{
    TestRegister reg;
    reg.Show();
    reg.SetHeaderPeriod(uMonth, "2/1/2004", "2/29/2004");
    EXPECT_EQ(SetPeriod(reg, uAll, "5/5/1999", "6/6/1999", true), "1/1/2000 1/1/2000");
    EXPECT_EQ(PeriodOf(reg), "0 1/1/2000 1/1/2000");
    EXPECT_TRUE(reg.document.IsModified());
    EXPECT_EQ(reg.rows.TakeLog(), Texts{"filler"});
    EXPECT_EQ(reg.model.GetFocusRow(), -1);
}

TEST(QMRegisterPeriod, RowsStayWithoutAReload)
{
    MonthsRegister reg;
    reg.model.SetPeriodFilter(true, false);
    SetPeriod(reg, uRange, "2/1/2004", "2/29/2004", false);
    SetPeriod(reg, uAll, "2/1/2004", "2/29/2004", false);
    EXPECT_EQ(reg.rows.TakeLog(), Texts());
    EXPECT_EQ(reg.model.GetRowCount(), 6);
}

TEST(QMRegisterPeriod, ReloadShowsThePeriodAndSelectsItsLastRow)
{
    MonthsRegister reg;
    reg.model.SetPeriodFilter(true, false);
    SetPeriod(reg, uRange, "1/15/2004", "3/15/2004", true);
    const Texts log = reg.rows.TakeLog();
    EXPECT_EQ(log.front(), "delete");
    EXPECT_EQ(log.back(), "select 3");
    EXPECT_EQ(std::count(log.begin(), log.end(), "columns"), 0);
    EXPECT_EQ(reg.Balances(), (Texts{"3.00", "7.00", "15.00", "31.00"}));
    EXPECT_EQ(reg.model.GetFocusRow(), 3);
    EXPECT_EQ(reg.Store().GetPosition(), 4);
    SetPeriod(reg, uAll, "1/15/2004", "3/15/2004", true);
    EXPECT_EQ(reg.model.GetRowCount(), 6);
    EXPECT_EQ(reg.rows.GetSelectedRow(), 5);
    EXPECT_EQ(reg.Store().GetPosition(), 5);
}

TEST(QMRegisterPeriod, ReloadIsMadeForAnUnchangedPeriodToo)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "2/29/2004");
    reg.rows.TakeLog();
    SetPeriod(reg, uRange, "2/1/2004", "2/29/2004", true);
    EXPECT_EQ(reg.rows.TakeLog().back(), "select 1");
    EXPECT_FALSE(reg.document.IsModified());
}

TEST(QMRegisterPeriod, WithTheFilterOffAReloadShowsAll)
{
    MonthsRegister reg;
    SetPeriod(reg, uRange, "2/1/2004", "2/29/2004", true);
    EXPECT_EQ(reg.model.GetRowCount(), 6);
    EXPECT_EQ(reg.rows.GetSelectedRow(), 5);
    EXPECT_EQ(PeriodOf(reg), "4 2/1/2004 2/29/2004");
}

TEST(QMRegisterPeriod, StatusBarCountsTheRowsOfThePeriod)
{
    MonthsRegister reg;
    reg.Filter("2/1/2004", "2/29/2004");
    RecordingStatusPanes panes;
    reg.model.UpdateStatusBar(false, MakeDate("3/14/2004"), panes);
    EXPECT_EQ(panes.GetTexts(), (Texts{" Transaction: 2 of 2", " Balance: $63.00",
                                       " Available: $63.00", " Sunday, 3/14/2004"}));
}
