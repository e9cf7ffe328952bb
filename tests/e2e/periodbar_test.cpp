// The Transactions Bar: which part of a register shows.

#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"

namespace {

std::string DateOf(int nYear, int nMonth, int nDay)
{
    char szDate[32] = "";
    snprintf(szDate, sizeof szDate, "%04d-%02d-%02d", nYear, nMonth, nDay);
    return szDate;
}

int DaysInMonth(int nYear, int nMonth)
{
    constexpr int anDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool bLeap = nYear % 4 == 0 && (nYear % 100 != 0 || nYear % 400 == 0);
    return nMonth == 2 && bLeap ? 29 : anDays[nMonth - 1];
}

class PeriodBarTest : public WorkTest
{
protected:
    // One transaction a month in the first half of 2004, of 1 to 32 dollars.
    std::string MakeHalfYear(const std::string& sName = "half.qmk") const
    {
        return MakeAccount(sName, 0, [&](QMAccount& account) {
            for (int i = 0; i < 6; ++i) {
                AddTo(account.store,
                      MakeTransaction(QM_TRANS_DEPOSIT, std::to_string(i + 1) + "/15/2004",
                                      static_cast<float>(1 << i), 0));
            }
        });
    }

    // Opens an account and shows the bar.
    void OpenWithBar(const std::string& sPath)
    {
        OpenAccount(sPath);
        Do(IDM_VIEW_TRANSACTIONSBAR);
        EXPECT_EQ(m_program.GetMenuItem(IDM_VIEW_TRANSACTIONSBAR), MenuItem::Checked);
    }

    DialogWindow Bar() const
    {
        return {m_program.GetProcess(), FindChildById(m_program.GetRebar(), IDC_TRANSACTIONSBAR)};
    }

    void ShowRange(const std::string& sFrom, const std::string& sTo) const
    {
        Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_DATE_RANGE);
        Bar().SetDate(IDC_TB_FROM, sFrom);
        Bar().SetDate(IDC_TB_TO, sTo);
        m_program.Settle();
    }

    void ExpectDates(const std::string& sFrom, const std::string& sTo) const
    {
        EXPECT_EQ(Bar().GetDate(IDC_TB_FROM), sFrom);
        EXPECT_EQ(Bar().GetDate(IDC_TB_TO), sTo);
    }

    void ExpectDatesEnabled(bool bEnabled) const
    {
        for (const int nId : {IDC_TB_FROMLABEL, IDC_TB_FROM, IDC_TB_TOLABEL, IDC_TB_TO}) {
            EXPECT_EQ(Bar().IsEnabled(nId), bEnabled) << "control " << nId;
        }
    }
};

TEST_F(PeriodBarTest, OffersFivePeriods)
{
    OpenWithBar(MakeHalfYear());
    EXPECT_EQ(Bar().GetChoices(IDC_TB_PERIOD),
              (Texts{"All", "Previous Month", "Current Month", "Current Year", "Date Range"}));
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 0);
    ExpectDatesEnabled(false);
}

TEST_F(PeriodBarTest, PeriodsGoByTheUniversalDate)
{
    OpenWithBar(MakeHalfYear());
    // Once more, in case midnight came in between.
    SYSTEMTIME before = {};
    SYSTEMTIME after = {};
    do {
        GetSystemTime(&before);
        const int nYear = before.wYear;
        const int nMonth = before.wMonth;
        const int nPrevious = nMonth == 1 ? 12 : nMonth - 1;
        const int nOfYear = nMonth == 1 ? nYear - 1 : nYear;
        Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_PREVIOUS_MONTH);
        ExpectDates(DateOf(nOfYear, nPrevious, 1),
                    DateOf(nOfYear, nPrevious, DaysInMonth(nOfYear, nPrevious)));
        Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_CURRENT_MONTH);
        ExpectDates(DateOf(nYear, nMonth, 1), DateOf(nYear, nMonth, DaysInMonth(nYear, nMonth)));
        Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_CURRENT_YEAR);
        ExpectDates(DateOf(nYear, 1, 1), DateOf(nYear, 12, 31));
        ExpectDatesEnabled(false);
        GetSystemTime(&after);
    } while (before.wDay != after.wDay);
    // This period is long after these transactions. The sums are still those of all of them.
    EXPECT_EQ(ActiveList().GetRowCount(), 0);
    EXPECT_EQ(m_program.GetPaneText(2), " Balance: $63.00");
    EXPECT_EQ(m_program.GetPaneText(1), " No Transaction Selected");
}

TEST_F(PeriodBarTest, RangeAfterAllBeginsWithAllOfIt)
{
    OpenWithBar(MakeHalfYear());
    Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_DATE_RANGE);
    ExpectDates("2004-01-15", "2004-06-15");
    ExpectDatesEnabled(true);
    EXPECT_EQ(ActiveList().GetRowCount(), 6);
    AwaitTitle("half.qmk *");
}

TEST_F(PeriodBarTest, RangeAfterAnotherPeriodTakesTheDatesAsTheyStand)
{
    OpenWithBar(MakeHalfYear());
    Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_CURRENT_YEAR);
    const std::string sFrom = Bar().GetDate(IDC_TB_FROM);
    const std::string sTo = Bar().GetDate(IDC_TB_TO);
    Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_DATE_RANGE);
    ExpectDates(sFrom, sTo);
    EXPECT_EQ(ActiveList().GetRowCount(), 0);
}

TEST_F(PeriodBarTest, FirstRowOfAPeriodHoldsWhatCameBefore)
{
    OpenWithBar(MakeHalfYear());
    ShowRange("2004-03-01", "2004-04-30");
    EXPECT_EQ(Column("Balance"), (Texts{"7.00", "15.00"}));
    EXPECT_EQ(m_program.GetPaneText(2), " Balance: $63.00");
    EXPECT_EQ(ActiveList().GetSelectedRows(), std::vector<int>{1});
    AwaitPane(1, " Transaction: 2 of 2");
}

TEST_F(PeriodBarTest, RangeThatEndsBeforeItBeginsShowsNothing)
{
    OpenWithBar(MakeHalfYear());
    ShowRange("2004-05-01", "2004-02-01");
    ExpectDates("2004-05-01", "2004-02-01");
    EXPECT_EQ(ActiveList().GetRowCount(), 0);
    // Commands still work: an added transaction has no row.
    Add({.lType = QM_TRANS_DEPOSIT, .sDate = "2004-03-01", .sAmount = "100"});
    EXPECT_EQ(ActiveList().GetRowCount(), 0);
    Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_ALL);
    AwaitRowCount(7);
}

TEST_F(PeriodBarTest, AllTwiceMarksOnlyOnce)
{
    const std::string sPath = MakeHalfYear();
    OpenWithBar(sPath);
    ShowRange("2004-03-01", "2004-04-30");
    Do(IDM_FILE_SAVE);
    EXPECT_FALSE(IsMarked());
    Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_ALL);
    EXPECT_TRUE(IsMarked());
    Do(IDM_FILE_SAVE);
    EXPECT_FALSE(IsMarked());
    Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_ALL);
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(ActiveList().GetRowCount(), 6);
}

TEST_F(PeriodBarTest, HiddenBarShowsAllAndKeepsThePeriod)
{
    const std::string sPath = MakeHalfYear();
    OpenWithBar(sPath);
    ShowRange("2004-03-01", "2004-04-30");
    Do(IDM_FILE_SAVE);
    Do(IDM_VIEW_TRANSACTIONSBAR);
    EXPECT_EQ(ActiveList().GetRowCount(), 6);
    EXPECT_FALSE(IsMarked());
    CloseAnswering("", 0);
    HandOverFile(sPath);
    EXPECT_EQ(ActiveList().GetRowCount(), 6);
    Do(IDM_VIEW_TRANSACTIONSBAR);
    EXPECT_EQ(ActiveList().GetRowCount(), 2);
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 4);
    ExpectDates("2004-03-01", "2004-04-30");
    EXPECT_FALSE(IsMarked());
}

TEST_F(PeriodBarTest, BarShowsThePeriodOfTheActiveAccount)
{
    const std::string sFirst = MakeHalfYear("first.qmk");
    const std::string sSecond = MakeHalfYear("second.qmk");
    OpenWithBar(sFirst);
    ShowRange("2004-03-01", "2004-04-30");
    Do(IDM_FILE_SAVE);
    HandOverFile(sSecond);
    m_program.Settle();
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 0);
    ExpectDatesEnabled(false);
    EXPECT_EQ(ActiveList().GetRowCount(), 6);
    m_program.Post(IDM_WINDOW_NEXT);
    m_program.AwaitActive("first.qmk");
    m_program.Settle();
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 4);
    ExpectDatesEnabled(true);
    ExpectDates("2004-03-01", "2004-04-30");
}

TEST_F(PeriodBarTest, ChoiceGivesTheFocusBackToTheRegister)
{
    OpenWithBar(MakeHalfYear());
    Bar().Choose(IDC_TB_PERIOD, QM_ACCNT_DISPLAY_DATE_RANGE);
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetGUIThreadInfo(GetWindowThreadProcessId(m_program.GetFrame(), nullptr), &info));
    EXPECT_EQ(info.hwndFocus, ActiveList().GetHandle());
}

TEST_F(PeriodBarTest, WithoutADocumentNothingHappens)
{
    m_program.Open();
    Do(IDM_VIEW_TRANSACTIONSBAR);
    for (int nPeriod = 0; nPeriod <= 4; ++nPeriod) {
        Bar().Choose(IDC_TB_PERIOD, nPeriod);
    }
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    m_program.NewDocument(1);
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 0);
}

TEST_F(PeriodBarTest, EmptyAccountTakesEveryPeriod)
{
    OpenNew();
    Do(IDM_VIEW_TRANSACTIONSBAR);
    for (const int nPeriod : {4, 3, 2, 1, 0}) {
        Bar().Choose(IDC_TB_PERIOD, nPeriod);
        m_program.Settle();
        EXPECT_EQ(ActiveList().GetRowCount(), 0);
    }
    AwaitTitle("Untitled1 *");
}

} // namespace
