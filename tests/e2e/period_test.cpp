// The Transactions Bar: the period of the active register.

#include <set>

#include "base/vtext.h"
#include "register/qmperiod.h"
#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/e2e_test.h"

namespace {

using Days = std::set<std::string>;

constexpr char szFarPast[] = "1999-03-04";
constexpr char szFarFuture[] = "2090-05-06";

std::string DayText(const QMDate& date)
{
    char szText[32];
    snprintf(szText, sizeof szText, "%04d-%02d-%02d", date.wYear, date.wMonth, date.wDay);
    return szText;
}

QMDate DayOf(const std::string& sText)
{
    unsigned uYear = 0;
    unsigned uMonth = 0;
    unsigned uDay = 0;
    EXPECT_EQ(sscanf(sText.c_str(), "%4u-%2u-%2u", &uYear, &uMonth, &uDay), 3) << sText;
    return QMMakeDate(static_cast<uint16_t>(uYear), static_cast<uint16_t>(uMonth),
                      static_cast<uint16_t>(uDay));
}

// The bar uses universal time.
QMDate UniversalToday()
{
    SYSTEMTIME time = {};
    GetSystemTime(&time);
    return QMMakeDate(time.wYear, time.wMonth, time.wDay);
}

struct Range
{
    std::string sFrom;
    std::string sTo;

    bool operator==(const Range&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Range& range)
{
    return stream << range.sFrom << " to " << range.sTo;
}

Range RangeOf(uint32_t uPeriod, const QMDate& dtToday)
{
    QMDate dtFrom;
    QMDate dtTo;
    QMGetPeriodDates(uPeriod, dtToday, dtFrom, dtTo);
    return {DayText(dtFrom), DayText(dtTo)};
}

Texts InRange(const Days& days, const Range& range)
{
    Texts found;
    for (const std::string& sDay : days) {
        // Dates of this form have the same order as texts.
        if (sDay >= range.sFrom && sDay <= range.sTo) {
            found.push_back(sDay);
        }
    }
    return found;
}

// The first and last days of all periods, as of today, and the days beside them.
Days InterestingDays()
{
    Days days = {szFarPast, szFarFuture};
    for (const uint32_t uPeriod : {QM_ACCNT_DISPLAY_PREVIOUS_MONTH, QM_ACCNT_DISPLAY_CURRENT_MONTH,
                                   QM_ACCNT_DISPLAY_CURRENT_YEAR}) {
        const Range range = RangeOf(uPeriod, UniversalToday());
        days.insert({range.sFrom, range.sTo});
    }
    days.insert(DayText(UniversalToday()));
    return days;
}

class PeriodTest : public E2ETest
{
protected:
    PeriodTest()
    {
        WriteSettingNumber("Settings", "Flags", 30); // the bar shows
        WriteSettingNumber("Settings", "Options - General", 10);
    }

    // An account with one check on each of these days. Its description is the date.
    std::string MakeDays(
        const std::string& sName, const Days& days,
        const std::function<void(QMAccount&)>& fill = [](QMAccount&) {}) const
    {
        return MakeAccount(sName, 0, [&](QMAccount& account) {
            for (const std::string& sDay : days) {
                auto p = std::make_unique<QMTransaction>();
                p->dtDate = p->dtCleared = DayOf(sDay);
                p->fAmount = 1;
                VCopyText(p->szDescription, sDay.c_str());
                account.store.Add(std::move(p));
            }
            fill(account);
        });
    }

    // An account that shows a period.
    std::string MakeWithPeriod(const std::string& sName, const Days& days, uint32_t uPeriod,
                               const Range& range) const
    {
        return MakeDays(sName, days, [&](QMAccount& account) {
            account.header.lDisplayPeriod = uPeriod;
            account.header.dtPeriodFrom = DayOf(range.sFrom);
            account.header.dtPeriodTo = DayOf(range.sTo);
        });
    }

    DialogWindow Bar() const
    {
        return {m_program.GetProcess(), FindChildById(m_program.GetFrame(), IDC_TRANSACTIONSBAR)};
    }

    // Selects a period as the user does. Returns the day on which that was.
    QMDate Choose(uint32_t uPeriod) const
    {
        for (;;) {
            const QMDate dtToday = UniversalToday();
            Bar().Choose(IDC_TB_PERIOD, static_cast<int>(uPeriod));
            m_program.Settle();
            if (QMDateIsEqual(dtToday, UniversalToday())) {
                return dtToday;
            }
        }
    }

    void SetDate(int nPicker, const std::string& sDay) const
    {
        Bar().SetDate(nPicker, sDay);
        m_program.Settle();
    }

    Range Pickers() const { return {Bar().GetDate(IDC_TB_FROM), Bar().GetDate(IDC_TB_TO)}; }

    // The days in the rows of the active register.
    Texts Rows() const
    {
        constexpr size_t uDescription = 3;
        const WindowList list = ActiveList();
        Texts days;
        for (const WindowList::Row& row : list.ReadRows(0, list.GetRowCount())) {
            days.push_back(row.at(uDescription));
        }
        return days;
    }

    bool IsModified() const
    {
        const std::string sTitle = m_program.GetActiveTitle();
        return sTitle.size() > 2 && sTitle.substr(sTitle.size() - 2) == " *";
    }

    void Save() const
    {
        m_program.Post(IDM_FILE_SAVE);
        m_program.Settle();
        EXPECT_FALSE(IsModified());
    }

    void ExpectDateControls(bool bEnabled) const
    {
        for (const int nId : {IDC_TB_FROMLABEL, IDC_TB_FROM, IDC_TB_TOLABEL, IDC_TB_TO}) {
            EXPECT_EQ(Bar().IsEnabled(nId), bEnabled) << "control " << nId;
        }
    }
};

// ---- The bar.

TEST_F(PeriodTest, ControlsAreInTheirPlaces)
{
    m_program.Open();
    const VRect bar = WindowRect(Bar().GetHandle());
    EXPECT_EQ(Bar().GetText(IDC_TB_PERIOD), "All");
    EXPECT_EQ(Bar().GetText(IDC_TB_FROMLABEL), "From:");
    EXPECT_EQ(Bar().GetText(IDC_TB_TOLABEL), "To:");
    ExpectDateControls(false);
    constexpr struct
    {
        int nId;
        VRect place;
    } aPlaces[] = {{IDC_TB_FROMLABEL, {106, 1, 138, 20}},
                   {IDC_TB_FROM, {140, 1, 225, 20}},
                   {IDC_TB_TOLABEL, {230, 1, 245, 20}},
                   {IDC_TB_TO, {247, 1, 331, 20}}};
    for (const auto& control : aPlaces) {
        const VRect place = WindowRect(Bar().GetItem(control.nId));
        EXPECT_EQ((VRect{place.left - bar.left, place.top - bar.top, place.right - bar.left,
                         place.bottom - bar.top}),
                  control.place)
            << "control " << control.nId;
    }
    const VRect list = WindowRect(Bar().GetItem(IDC_TB_PERIOD));
    EXPECT_EQ(list.left, bar.left);
    EXPECT_EQ(list.top, bar.top);
    EXPECT_EQ(list.GetWidth(), 96);
}

TEST_F(PeriodTest, PeriodsStandInOrder)
{
    m_program.Open();
    uint32_t uPeriod = 0;
    for (const char* szName :
         {"All", "Previous Month", "Current Month", "Current Year", "Date Range"}) {
        Choose(uPeriod++);
        EXPECT_EQ(Bar().GetText(IDC_TB_PERIOD), szName);
    }
    EXPECT_EQ(SendTo(Bar().GetItem(IDC_TB_PERIOD), CB_GETCOUNT), 5);
}

TEST_F(PeriodTest, WithoutADocumentAChoiceChangesTheBarAlone)
{
    m_program.Open();
    const QMDate dtToday = Choose(QM_ACCNT_DISPLAY_CURRENT_MONTH);
    EXPECT_EQ(Pickers(), RangeOf(QM_ACCNT_DISPLAY_CURRENT_MONTH, dtToday));
    m_program.Post(IDC_TB_PERIOD);
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

// ---- Periods.

TEST_F(PeriodTest, EachPeriodShowsItsDays)
{
    const Days days = InterestingDays();
    m_program.Open({MakeDays("days.qmk", days)});
    EXPECT_EQ(Rows(), Texts(days.begin(), days.end()));
    for (const uint32_t uPeriod : {QM_ACCNT_DISPLAY_PREVIOUS_MONTH, QM_ACCNT_DISPLAY_CURRENT_MONTH,
                                   QM_ACCNT_DISPLAY_CURRENT_YEAR}) {
        const Range range = RangeOf(uPeriod, Choose(uPeriod));
        EXPECT_EQ(Pickers(), range) << "period " << uPeriod;
        EXPECT_EQ(Rows(), InRange(days, range)) << "period " << uPeriod;
        ExpectDateControls(false);
    }
    const QMDate dtToday = Choose(QM_ACCNT_DISPLAY_ALL);
    EXPECT_EQ(Pickers(), (Range{DayText(dtToday), DayText(dtToday)}));
    EXPECT_EQ(Rows(), Texts(days.begin(), days.end()));
    ExpectDateControls(false);
}

TEST_F(PeriodTest, BalancesOfTheStatusBarCountEveryDay)
{
    m_program.Open({MakeDays("days.qmk", {szFarPast, szFarFuture})});
    const std::string sBalance = m_program.GetPaneText(3);
    Choose(QM_ACCNT_DISPLAY_CURRENT_MONTH);
    EXPECT_EQ(Rows(), Texts{});
    EXPECT_EQ(m_program.GetPaneText(1), " No Transaction Selected");
    EXPECT_EQ(m_program.GetPaneText(3), sBalance);
}

TEST_F(PeriodTest, RangeAfterAllBeginsAsThatOfEveryTransaction)
{
    const Days days = InterestingDays();
    m_program.Open({MakeDays("days.qmk", days)});
    Choose(QM_ACCNT_DISPLAY_DATE_RANGE);
    EXPECT_EQ(Pickers(), (Range{szFarPast, szFarFuture}));
    EXPECT_EQ(Rows(), Texts(days.begin(), days.end()));
    ExpectDateControls(true);
}

TEST_F(PeriodTest, RangeAfterAMonthTakesTheDatesAsTheyStand)
{
    const Days days = InterestingDays();
    m_program.Open({MakeDays("days.qmk", days)});
    const Range range =
        RangeOf(QM_ACCNT_DISPLAY_CURRENT_MONTH, Choose(QM_ACCNT_DISPLAY_CURRENT_MONTH));
    Choose(QM_ACCNT_DISPLAY_DATE_RANGE);
    EXPECT_EQ(Pickers(), range);
    EXPECT_EQ(Rows(), InRange(days, range));
    ExpectDateControls(true);
}

TEST_F(PeriodTest, RangeOfAnEmptyAccountIsTheDayOfANewTransaction)
{
    m_program.Open();
    m_program.NewDocument(1);
    Choose(QM_ACCNT_DISPLAY_DATE_RANGE);
    EXPECT_EQ(Pickers(), (Range{"2000-01-01", "2000-01-01"}));
    EXPECT_EQ(Rows(), Texts{});
}

TEST_F(PeriodTest, DatesOfARangeDecideInclusively)
{
    const Days days = {"2003-12-31", "2004-01-01", "2004-02-15", "2004-02-29", "2004-03-01"};
    m_program.Open({MakeDays("days.qmk", days)});
    Choose(QM_ACCNT_DISPLAY_DATE_RANGE);
    SetDate(IDC_TB_FROM, "2004-01-01");
    EXPECT_EQ(Rows(), (Texts{"2004-01-01", "2004-02-15", "2004-02-29", "2004-03-01"}));
    SetDate(IDC_TB_TO, "2004-02-29");
    EXPECT_EQ(Rows(), (Texts{"2004-01-01", "2004-02-15", "2004-02-29"}));
    SetDate(IDC_TB_FROM, "2004-02-15");
    SetDate(IDC_TB_TO, "2004-02-15");
    EXPECT_EQ(Rows(), Texts{"2004-02-15"});
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 1 of 1");
}

// The program does not swap the two dates. Such a range has no days.
TEST_F(PeriodTest, RangeThatEndsBeforeItStartsShowsNothing)
{
    const Days days = {"2003-12-31", "2004-01-01", "2004-02-15"};
    m_program.Open({MakeDays("days.qmk", days)});
    Choose(QM_ACCNT_DISPLAY_DATE_RANGE);
    SetDate(IDC_TB_FROM, "2004-02-20");
    EXPECT_EQ(Pickers(), (Range{"2004-02-20", "2004-02-15"}));
    EXPECT_EQ(Rows(), Texts{});
    EXPECT_EQ(m_program.GetPaneText(1), " No Transaction Selected");
    SetDate(IDC_TB_FROM, "2003-01-01");
    SetDate(IDC_TB_TO, "2002-01-01");
    EXPECT_EQ(Pickers(), (Range{"2003-01-01", "2002-01-01"}));
    EXPECT_EQ(Rows(), Texts{});
    SetDate(IDC_TB_TO, "2004-12-31");
    EXPECT_EQ(Rows(), Texts(days.begin(), days.end()));
}

TEST_F(PeriodTest, ChoosingAPeriodGivesTheListTheFocus)
{
    m_program.Open({MakeDays("days.qmk", {szFarPast})});
    Choose(QM_ACCNT_DISPLAY_CURRENT_YEAR);
    const DWORD uThread = GetWindowThreadProcessId(m_program.GetFrame(), nullptr);
    const HWND hList = Program::GetList(m_program.GetActiveDocument());
    Await("the focus on the list", [&] {
        GUITHREADINFO info = {};
        info.cbSize = sizeof info;
        return GetGUIThreadInfo(uThread, &info) && info.hwndFocus == hList;
    });
}

// ---- The account.

TEST_F(PeriodTest, SamePeriodAgainIsNoChange)
{
    m_program.Open({MakeDays("days.qmk", {"2004-01-01", "2004-02-15"})});
    Choose(QM_ACCNT_DISPLAY_ALL);
    EXPECT_FALSE(IsModified());
    Choose(QM_ACCNT_DISPLAY_CURRENT_YEAR);
    EXPECT_TRUE(IsModified());
    Save();
    Choose(QM_ACCNT_DISPLAY_CURRENT_YEAR);
    EXPECT_FALSE(IsModified());
    Choose(QM_ACCNT_DISPLAY_ALL);
    EXPECT_TRUE(IsModified());
    Save();
    Choose(QM_ACCNT_DISPLAY_ALL);
    EXPECT_FALSE(IsModified());
    Choose(QM_ACCNT_DISPLAY_DATE_RANGE);
    EXPECT_TRUE(IsModified());
    Save();
    SetDate(IDC_TB_FROM, "2004-01-01");
    EXPECT_FALSE(IsModified());
    SetDate(IDC_TB_FROM, "2004-01-02");
    EXPECT_TRUE(IsModified());
}

TEST_F(PeriodTest, ReadOnlyAccountTakesAPeriod)
{
    const Days days = {"2004-01-01", szFarFuture};
    m_program.Open(
        {MakeDays("days.qmk", days, [](QMAccount& account) { account.header.bReadOnly = 1; })});
    Choose(QM_ACCNT_DISPLAY_CURRENT_YEAR);
    EXPECT_EQ(Rows(), Texts{});
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(PeriodTest, PeriodIsSavedAndComesBackWithItsOldDates)
{
    const Days days = {"2001-01-01", "2001-06-07", "2002-01-01"};
    const Range year = {"2001-01-01", "2001-12-31"};
    const std::string sPath = MakeWithPeriod("days.qmk", days, QM_ACCNT_DISPLAY_CURRENT_YEAR, year);
    m_program.Open({sPath});
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 3);
    EXPECT_EQ(Pickers(), year);
    EXPECT_EQ(Rows(), (Texts{"2001-01-01", "2001-06-07"}));
    EXPECT_FALSE(IsModified());
    Choose(QM_ACCNT_DISPLAY_DATE_RANGE);
    SetDate(IDC_TB_FROM, "2001-06-01");
    Save();
    EXPECT_EQ(m_program.Close(), 0U);
    QMAccount account(sPath.c_str());
    ASSERT_TRUE(account.Read());
    EXPECT_EQ(account.header.lDisplayPeriod, QM_ACCNT_DISPLAY_DATE_RANGE);
    EXPECT_EQ(DayText(account.header.dtPeriodFrom), "2001-06-01");
    account.Close();
    m_program.Open({sPath});
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 4);
    EXPECT_EQ(Rows().front(), "2001-06-07");
    ExpectDateControls(true);
}

TEST_F(PeriodTest, BarShowsThePeriodOfTheAccountOnTop)
{
    const Range year = {"2001-01-01", "2001-12-31"};
    const Range range = {"2002-02-02", "2003-03-03"};
    const Days days = {"2001-01-01", "2002-02-02", "2003-03-03", "2003-03-04"};
    const std::string sFirst =
        MakeWithPeriod("first.qmk", days, QM_ACCNT_DISPLAY_CURRENT_YEAR, year);
    const std::string sSecond =
        MakeWithPeriod("second.qmk", days, QM_ACCNT_DISPLAY_DATE_RANGE, range);
    m_program.Open({sFirst, sSecond});
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 4);
        EXPECT_EQ(Pickers(), range);
        EXPECT_EQ(Rows(), (Texts{"2002-02-02", "2003-03-03"}));
        ExpectDateControls(true);
        HandOverFile(sFirst);
        EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 3);
        EXPECT_EQ(Pickers(), year);
        EXPECT_EQ(Rows(), Texts{"2001-01-01"});
        ExpectDateControls(false);
        EXPECT_FALSE(IsModified());
        HandOverFile(sSecond);
    }
    // A change applies to the active account only.
    SetDate(IDC_TB_TO, "2003-03-04");
    HandOverFile(sFirst);
    EXPECT_EQ(Rows(), Texts{"2001-01-01"});
    EXPECT_FALSE(IsModified());
}

// The bar remembers what it showed before, whichever account that was for.
TEST_F(PeriodTest, RangeTakesTheDatesAsTheyStandAfterAPeriodOfAnotherAccount)
{
    const Days days = {"2001-01-01", "2002-02-02"};
    const std::string sFirst = MakeDays("first.qmk", days);
    const std::string sSecond =
        MakeWithPeriod("second.qmk", days, QM_ACCNT_DISPLAY_ALL, {"2002-01-01", "2002-12-31"});
    m_program.Open({sFirst});
    Choose(QM_ACCNT_DISPLAY_CURRENT_YEAR);
    HandOverFile(sSecond);
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 0);
    EXPECT_EQ(Rows(), (Texts{"2001-01-01", "2002-02-02"}));
    Choose(QM_ACCNT_DISPLAY_DATE_RANGE);
    EXPECT_EQ(Pickers(), (Range{"2002-01-01", "2002-12-31"}));
    EXPECT_EQ(Rows(), Texts{"2002-02-02"});
}

TEST_F(PeriodTest, HiddenBarShowsEveryDayAndKeepsThePeriods)
{
    const Range year = {"2001-01-01", "2001-12-31"};
    const Days days = {"2001-01-01", "2002-02-02"};
    const std::string sFirst =
        MakeWithPeriod("first.qmk", days, QM_ACCNT_DISPLAY_CURRENT_YEAR, year);
    const std::string sSecond =
        MakeWithPeriod("second.qmk", days, QM_ACCNT_DISPLAY_CURRENT_YEAR, year);
    m_program.Open({sFirst, sSecond});
    EXPECT_EQ(Rows(), Texts{"2001-01-01"});
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 1 of 1");
    m_program.Post(IDM_VIEW_TRANSACTIONSBAR);
    m_program.Settle();
    EXPECT_EQ(Rows(), (Texts{"2001-01-01", "2002-02-02"}));
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 2 of 2");
    EXPECT_FALSE(IsModified());
    HandOverFile(sFirst);
    EXPECT_EQ(Rows(), (Texts{"2001-01-01", "2002-02-02"}));
    HandOverFile(MakeWithPeriod("third.qmk", days, QM_ACCNT_DISPLAY_CURRENT_YEAR, year));
    EXPECT_EQ(Rows(), (Texts{"2001-01-01", "2002-02-02"}));
    m_program.Post(IDM_VIEW_TRANSACTIONSBAR);
    m_program.Settle();
    for (const std::string& sPath : {PathOf("third.qmk"), sFirst, sSecond}) {
        HandOverFile(sPath);
        EXPECT_EQ(Rows(), Texts{"2001-01-01"}) << sPath;
        EXPECT_FALSE(IsModified());
    }
}

TEST_F(PeriodTest, UnknownPeriodOfAFileGoesByItsDatesAndLeavesTheBar)
{
    const Days days = {"2001-01-01", "2002-02-02"};
    m_program.Open({MakeWithPeriod("days.qmk", days, 77, {"2002-01-01", "2002-12-31"})});
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 0);
    EXPECT_EQ(Rows(), Texts{"2002-02-02"});
    Choose(QM_ACCNT_DISPLAY_ALL);
    EXPECT_EQ(Rows(), (Texts{"2001-01-01", "2002-02-02"}));
}

TEST_F(PeriodTest, DatesOfAFileThatAreNoneLeaveThePickers)
{
    const Days days = {"2001-01-01"};
    m_program.Open({MakeDays("days.qmk", days, [](QMAccount& account) {
        account.header.lDisplayPeriod = QM_ACCNT_DISPLAY_DATE_RANGE;
        account.header.dtPeriodFrom = QMMakeDate(65535, 99, 99);
        account.header.dtPeriodTo = QMMakeDate(0, 0, 0);
    })});
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(Bar().GetChoice(IDC_TB_PERIOD), 4);
    EXPECT_EQ(Rows(), Texts{});
    SetDate(IDC_TB_FROM, "2000-01-01");
    SetDate(IDC_TB_TO, "2001-01-01");
    EXPECT_EQ(Rows(), Texts{"2001-01-01"});
}

} // namespace
