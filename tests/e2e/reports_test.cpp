// Tools, Reports in the real program: the nine reports on the screen, on paper and in the preview.

#include <algorithm>
#include <memory>
#include <regex>
#include <set>

#include "base/vtext.h"
#include "reports/qmreport.h"
#include "tests/e2e/ordinaryheap.h"
#include "tests/e2e/remoteprocess.h"
#include "tests/e2e/windowaccess.h"
#include "tests/e2e/work_test.h"
#include "tests/support/printeddocument.h"
#include "tests/support/reportrecorder.h"

namespace {

constexpr char szPreviewTitle[] = "Print Preivew - Quillmark Report";
constexpr char szReversed[] =
    "The 'From' date does not proceed the 'To' date.\n"
    "Please select a valid date range.";

// Spooling takes its time.
constexpr DWORD uPrintLimit = 120000;
// A picture of a hundred thousand lines is large.
constexpr DWORD uHugeLimit = 300000;

// What the boxes of the dialog are set to.
struct Order
{
    uint32_t uKind = QM_REPORT_STATEMENT;
    QMDate dtFrom;
    QMDate dtTo;
    std::string sGroup = QM_REPORT_ALL_GROUPS;
};

Order OrderOf(uint32_t uKind, const char* szFrom = "1/1/2004", const char* szTo = "12/31/2004")
{
    return {uKind, MakeDate(szFrom), MakeDate(szTo), uKind == QM_REPORT_TYPE ? "Check" : "All"};
}

std::string PickerText(const QMDate& date)
{
    char szText[32];
    snprintf(szText, sizeof szText, "%04d-%02d-%02d", date.wYear, date.wMonth, date.wDay);
    return szText;
}

class ReportsTest : public WorkTest
{
protected:
    // Opens the account in the program, and keeps a copy to count the lines of its reports.
    void OpenFor(const std::string& sPath)
    {
        m_pAccount = std::make_unique<QMAccount>(sPath.c_str());
        ASSERT_TRUE(m_pAccount->Read());
        m_pAccount->Close();
        OpenAccount(sPath);
    }

    // In a low window every report needs the scroll bar, which tells its height.
    DialogWindow Begin(const std::string& sName) const
    {
        m_program.Settle();
        PrepareCalls(m_program.GetProcess());
        m_program.Post(IDM_TOOLS_REPORTS);
        const DialogWindow dialog = AwaitDialog(m_program, "Reports - " + sName);
        SetSize(dialog, 720, 160);
        return dialog;
    }

    static void SetSize(const DialogWindow& dialog, int nWidth, int nHeight)
    {
        SetWindowPos(dialog.GetHandle(), nullptr, 0, 0, nWidth, nHeight,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void End(const DialogWindow& dialog) const
    {
        dialog.End(IDC_REPORT_CLOSE);
        m_program.Settle();
        EXPECT_TRUE(IsWindowEnabled(m_program.GetFrame()));
        EXPECT_TRUE(m_program.GetBoxes().empty());
        EXPECT_FALSE(IsMarked());
    }

    static HWND ViewOf(const DialogWindow& dialog)
    {
        for (HWND hChild : ChildrenOf(dialog.GetHandle())) {
            if (GetDlgCtrlID(hChild) == 0 && IsWindowVisible(hChild)) {
                return hChild;
            }
        }
        FailTest("the dialog has no view");
    }

    // The range of the view's vertical bar: the height of the report in pixels. Under Wine a
    // program alone can ask for the bars of its windows.
    int HeightOnScreen(const DialogWindow& dialog) const
    {
        SCROLLINFO info = {};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE;
        RemoteMemory memory(m_program.GetProcess(), sizeof info);
        memory.Write(0, &info, sizeof info);
        CallRemote(m_program.GetProcess(),
                   GetProcAddress(GetModuleHandleA("user32.dll"), "GetScrollInfo"),
                   reinterpret_cast<UINT_PTR>(ViewOf(dialog)), SB_VERT,
                   static_cast<UINT_PTR>(memory.AsParameter()));
        memory.Read(0, &info, sizeof info);
        return info.nMax;
    }

    int LinesOf(const Order& order) const
    {
        QMReport report(*m_pAccount);
        report.SetRange(order.dtFrom, order.dtTo);
        report.SetGroup(order.sGroup.c_str());
        ReportRecorder recorder;
        VRect page = {0, 0, QM_REPORT_SCREEN_WIDTH, 0};
        EXPECT_TRUE(report.Measure(order.uKind, recorder, page, {}));
        return report.GetLineCount();
    }

    // Waits for the report of the order. The first one tells how high a line is.
    void AwaitReport(const DialogWindow& dialog, const Order& order)
    {
        const int nLines = LinesOf(order);
        Await("report " + std::to_string(order.uKind), [&] {
            const int nText = HeightOnScreen(dialog) - QM_REPORT_SCREEN_MARGIN;
            // The button of the preview is the last that a run sets.
            if (!dialog.IsEnabled(IDC_REPORT_PREVIEW)) {
                return false;
            }
            if (m_nLineHeight == 0 && nText > 0 && nText % nLines == 0) {
                m_nLineHeight = nText / nLines;
            }
            return m_nLineHeight > 0 && nText == nLines * m_nLineHeight;
        });
        m_program.Settle();
        EXPECT_GT(m_nLineHeight, 8);
        EXPECT_LT(m_nLineHeight, 40);
    }

    static void SetBoxes(const DialogWindow& dialog, const Order& order)
    {
        if (dialog.GetChoice(IDC_REPORT_TYPE) != static_cast<int>(order.uKind)) {
            dialog.Choose(IDC_REPORT_TYPE, static_cast<int>(order.uKind));
        }
        dialog.SetDate(IDC_REPORT_FROM, PickerText(order.dtFrom));
        dialog.SetDate(IDC_REPORT_TO, PickerText(order.dtTo));
        dialog.Check(IDC_REPORT_BYRANGE);
    }

    void Run(const DialogWindow& dialog, const Order& order)
    {
        SetBoxes(dialog, order);
        dialog.Press(IDC_REPORT_RUN);
        AwaitReport(dialog, order);
    }

    // Runs the month that the boxes are set to then; szFrom and szTo are its days.
    void RunMonth(const DialogWindow& dialog, int nMonth, const char* szYear, const char* szFrom,
                  const char* szTo)
    {
        const std::vector<std::string> years = dialog.GetChoices(IDC_REPORT_YEAR);
        const auto found = std::find(years.begin(), years.end(), szYear);
        ASSERT_TRUE(found != years.end()) << szYear;
        dialog.Choose(IDC_REPORT_YEAR, static_cast<int>(found - years.begin()));
        dialog.Choose(IDC_REPORT_MONTH, nMonth - 1);
        EXPECT_TRUE(dialog.IsChecked(IDC_REPORT_BYMONTH));
        EXPECT_FALSE(dialog.IsChecked(IDC_REPORT_BYRANGE));
        dialog.Press(IDC_REPORT_RUN);
        AwaitReport(dialog, OrderOf(static_cast<uint32_t>(dialog.GetChoice(IDC_REPORT_TYPE)),
                                    szFrom, szTo));
    }

    // Opens the preview and closes it again. Returns how many pages it has.
    int PagesOfPreview(const DialogWindow& dialog) const
    {
        dialog.Press(IDC_REPORT_PREVIEW);
        const DialogWindow preview = AwaitDialog(m_program, szPreviewTitle);
        EXPECT_FALSE(IsWindowEnabled(dialog.GetHandle()));
        const std::string sPages = preview.GetText(IDC_PREVIEW_PAGE);
        EXPECT_EQ(sPages.substr(0, 5), "1 of ");
        preview.End(IDC_PREVIEW_CLOSE);
        AwaitBack(dialog);
        return atoi(sPages.substr(5).c_str());
    }

    void AwaitBack(const DialogWindow& dialog) const
    {
        Await("the report dialog to be enabled", [&] {
            return IsWindowEnabled(dialog.GetHandle()) &&
                   FindDialogs(m_program, "Printing...").empty();
        });
        m_program.Settle();
    }

    // Prints, and waits for a document of so many pages. All reports have the same title, those of
    // a test that runs beside this one too.
    void PrintPages(const DialogWindow& dialog, int nPages) const
    {
        std::set<std::string> before;
        for (const PrintedDocument& document : PrintedDocument::FindAll("Quillmark Report")) {
            before.insert(document.GetName());
        }
        dialog.Press(IDC_REPORT_PRINT);
        AwaitDialog(m_program, "Print").End(IDOK);
        const auto isNew = [&](const PrintedDocument& document) {
            return before.count(document.GetName()) == 0 && document.GetPageCount() == nPages;
        };
        Await(
            std::to_string(nPages) + " pages of a report on paper",
            [&] {
                const auto now = PrintedDocument::FindAll("Quillmark Report");
                return std::any_of(now.begin(), now.end(), isNew);
            },
            uPrintLimit);
        AwaitBack(dialog);
    }

    // The boxes that say that a report cannot be drawn.
    std::vector<MessageBoxWindow> FailuresToDraw() const
    {
        const std::regex sentence("Error [0-9A-F]{8}: Failed to draw report\\.");
        std::vector<MessageBoxWindow> failures;
        for (const MessageBoxWindow& box : m_program.GetBoxes()) {
            if (std::regex_match(box.GetText(), sentence)) {
                failures.push_back(box);
            }
        }
        return failures;
    }

    std::unique_ptr<QMAccount> m_pAccount;
    int m_nLineHeight = 0;
};

#define NEEDS_A_PRINTER()                                        \
    if (!PrintedDocument::HasSpooler()) {                        \
        GTEST_SKIP() << "the spooler of the tests does not run"; \
    }

} // namespace

// ---- The command.

TEST_F(ReportsTest, WithoutADocumentSaysSo)
{
    m_program.Open();
    m_program.Post(IDM_TOOLS_REPORTS);
    m_program.AnswerBox("Cannot run reports...\nNo document window is selected.");
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(ReportsTest, AnAccountInReadOnlyModeHasReports)
{
    OpenFor(MakeAccount("locked.qmk", 3, [](QMAccount& account) { account.header.bReadOnly = 1; }));
    const DialogWindow dialog = Begin("locked.qmk");
    Run(dialog, OrderOf(QM_REPORT_NOT_CLEARED, "1/1/1990", "12/31/1990"));
    End(dialog);
}

TEST_F(ReportsTest, TheBoxInTheCornerClosesTheDialog)
{
    OpenFor(CopySample());
    const DialogWindow dialog = Begin("household.qmk");
    EXPECT_FALSE(IsWindowEnabled(m_program.GetFrame()));
    dialog.Close();
    dialog.AwaitEnd();
    m_program.Settle();
    EXPECT_TRUE(IsWindowEnabled(m_program.GetFrame()));
}

// ---- Running.

TEST_F(ReportsTest, EachOfTheNineRunsAndLeavesTheRegisterAsItIs)
{
    OpenFor(CopySample());
    const std::vector<std::string> before = Column("Description");
    const DialogWindow dialog = Begin("household.qmk");
    EXPECT_EQ(dialog.GetChoices(IDC_REPORT_TYPE).size(), size_t{QM_REPORT_KIND_COUNT});
    EXPECT_EQ(dialog.GetDefaultButton(), IDC_REPORT_RUN);
    EXPECT_FALSE(dialog.IsEnabled(IDC_REPORT_PRINT));
    EXPECT_FALSE(dialog.IsEnabled(IDC_REPORT_PREVIEW));
    for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT; ++uKind) {
        Run(dialog, OrderOf(uKind));
        EXPECT_EQ(dialog.IsEnabled(IDC_REPORT_CATEGORY), uKind >= 1 && uKind <= 4);
    }
    EXPECT_TRUE(dialog.IsEnabled(IDC_REPORT_PRINT));
    EXPECT_TRUE(dialog.IsEnabled(IDC_REPORT_PREVIEW));
    End(dialog);
    EXPECT_EQ(Column("Description"), before);
}

TEST_F(ReportsTest, TheSecondBoxChoosesTheGroup)
{
    OpenFor(CopySample());
    const DialogWindow dialog = Begin("household.qmk");
    Order order = OrderOf(QM_REPORT_CATEGORY);
    Run(dialog, order);
    const std::vector<std::string> groups = dialog.GetChoices(IDC_REPORT_CATEGORY);
    ASSERT_GT(groups.size(), 5U);
    EXPECT_EQ(dialog.GetText(IDC_REPORT_CATEGORY), "All");
    for (int nRow : {1, 5}) {
        dialog.Choose(IDC_REPORT_CATEGORY, nRow);
        order.sGroup = groups[static_cast<size_t>(nRow)];
        Run(dialog, order);
    }
    // Another look at the types brings the first row back.
    dialog.Choose(IDC_REPORT_TYPE, QM_REPORT_CATEGORY);
    EXPECT_EQ(dialog.GetText(IDC_REPORT_CATEGORY), "All");
    Run(dialog, OrderOf(QM_REPORT_CATEGORY));
    dialog.Choose(IDC_REPORT_TYPE, QM_REPORT_TYPE);
    dialog.Choose(IDC_REPORT_CATEGORY, QM_TRANS_FEE);
    order = OrderOf(QM_REPORT_TYPE);
    order.sGroup = "Fee";
    Run(dialog, order);
    End(dialog);
}

TEST_F(ReportsTest, FebruaryEndsByTheCalendar)
{
    OpenFor(MakeAccount("days.qmk", 0, [](QMAccount& account) {
        for (const char* szDate : {"2/28/2003", "3/1/2003", "2/1/2004", "2/28/2004", "2/29/2004",
                                   "3/1/2004", "3/1/2004", "3/1/2004"}) {
            AddTo(account.store, MakeTransaction(QM_TRANS_CHECK, szDate, 5));
        }
    }));
    const DialogWindow dialog = Begin("days.qmk");
    EXPECT_EQ(dialog.GetText(IDC_REPORT_MONTH), "March");
    EXPECT_EQ(dialog.GetText(IDC_REPORT_YEAR), "2004");
    EXPECT_EQ(dialog.GetDate(IDC_REPORT_FROM), "2004-01-01");
    EXPECT_EQ(dialog.GetDate(IDC_REPORT_TO), "2004-12-31");
    dialog.Choose(IDC_REPORT_TYPE, QM_REPORT_NOT_CLEARED);
    RunMonth(dialog, 2, "2004", "2/1/2004", "2/29/2004");
    RunMonth(dialog, 2, "2003", "2/1/2003", "2/28/2003");
    // One day is a range.
    Run(dialog, OrderOf(QM_REPORT_NOT_CLEARED, "3/1/2004", "3/1/2004"));
    End(dialog);
}

TEST_F(ReportsTest, RefusesAReversedRange)
{
    OpenFor(CopySample());
    const DialogWindow dialog = Begin("household.qmk");
    SetBoxes(dialog, OrderOf(QM_REPORT_TAX, "3/2/2004", "3/1/2004"));
    dialog.Press(IDC_REPORT_RUN);
    m_program.AnswerBox(szReversed);
    m_program.Settle();
    EXPECT_FALSE(dialog.IsEnabled(IDC_REPORT_PRINT));
    Run(dialog, OrderOf(QM_REPORT_TAX));
    const int nHeight = HeightOnScreen(dialog);
    SetBoxes(dialog, OrderOf(QM_REPORT_TAX, "3/2/2004", "3/1/2004"));
    dialog.Press(IDC_REPORT_RUN);
    m_program.AnswerBox(szReversed);
    m_program.Settle();
    EXPECT_EQ(HeightOnScreen(dialog), nHeight) << "the last report must stay on the screen";
    End(dialog);
}

TEST_F(ReportsTest, KeptTheFocusOnADateChoosesTheDates)
{
    OpenFor(CopySample());
    const DialogWindow dialog = Begin("household.qmk");
    for (const int nPicker : {IDC_REPORT_FROM, IDC_REPORT_TO}) {
        EXPECT_TRUE(dialog.IsChecked(IDC_REPORT_BYMONTH));
        dialog.Focus(nPicker);
        Await("the radio button of the dates to be chosen", [&] {
            return dialog.IsChecked(IDC_REPORT_BYRANGE) && !dialog.IsChecked(IDC_REPORT_BYMONTH);
        });
        dialog.Choose(IDC_REPORT_MONTH, 3);
    }
    dialog.Focus(IDC_REPORT_BYRANGE);
    EXPECT_TRUE(dialog.IsChecked(IDC_REPORT_BYMONTH))
        << "a radio button that gets the focus must not be chosen by that";
    End(dialog);
}

TEST_F(ReportsTest, CanBeMadeAnySize)
{
    OpenFor(CopySample());
    const DialogWindow dialog = Begin("household.qmk");
    Run(dialog, OrderOf(QM_REPORT_STATEMENT));
    for (const int nSize : {900, 300, 100, 30, 1, 0}) {
        SetSize(dialog, nSize, nSize);
        dialog.Press(IDC_REPORT_RUN);
        m_program.Settle();
    }
    SetSize(dialog, 720, 160);
    Run(dialog, OrderOf(QM_REPORT_TAX));
    End(dialog);
}

// ---- Accounts at the ends of what there is.

TEST_F(ReportsTest, AnEmptyAccountHasTheYear2000)
{
    OpenFor(MakeAccount("empty.qmk", 0));
    const DialogWindow dialog = Begin("empty.qmk");
    EXPECT_EQ(dialog.GetText(IDC_REPORT_MONTH), "January");
    EXPECT_EQ(dialog.GetChoices(IDC_REPORT_YEAR), std::vector<std::string>{"2000"});
    EXPECT_EQ(dialog.GetDate(IDC_REPORT_FROM), "2000-01-01");
    EXPECT_EQ(dialog.GetDate(IDC_REPORT_TO), "2000-12-31");
    for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT; ++uKind) {
        Run(dialog, OrderOf(uKind, "1/1/2000", "12/31/2000"));
    }
    End(dialog);
}

TEST_F(ReportsTest, AnAccountOfOneYearOffersThatYear)
{
    OpenFor(MakeAccount("year.qmk", 50));
    const DialogWindow dialog = Begin("year.qmk");
    EXPECT_EQ(dialog.GetChoices(IDC_REPORT_YEAR), std::vector<std::string>{"1990"});
    dialog.Choose(IDC_REPORT_TYPE, QM_REPORT_NOT_CLEARED);
    RunMonth(dialog, 1, "1990", "1/1/1990", "1/31/1990");
    End(dialog);
}

TEST_F(ReportsTest, AnAccountFrom1752To3000OffersAllYearsBetween)
{
    OpenFor(MakeAccount("long.qmk", 0, [](QMAccount& account) {
        for (const char* szDate : {"10/9/1752", "7/4/1976", "2/9/3000"}) {
            AddTo(account.store, MakeTransaction(QM_TRANS_CHECK, szDate, 10));
        }
    }));
    const DialogWindow dialog = Begin("long.qmk");
    EXPECT_EQ(SendTo(dialog.GetItem(IDC_REPORT_YEAR), CB_GETCOUNT), 1249);
    EXPECT_EQ(dialog.GetText(IDC_REPORT_YEAR), "3000");
    EXPECT_EQ(dialog.GetText(IDC_REPORT_MONTH), "February");
    dialog.Choose(IDC_REPORT_TYPE, QM_REPORT_NOT_CLEARED);
    dialog.Choose(IDC_REPORT_YEAR, 0);
    EXPECT_EQ(dialog.GetText(IDC_REPORT_YEAR), "1752");
    dialog.Choose(IDC_REPORT_MONTH, 9);
    dialog.Press(IDC_REPORT_RUN);
    AwaitReport(dialog, OrderOf(QM_REPORT_NOT_CLEARED, "10/1/1752", "10/31/1752"));
    // No date box goes further back than this.
    Run(dialog, OrderOf(QM_REPORT_NOT_CLEARED, "9/14/1752", "12/31/3000"));
    End(dialog);
}

// ---- Print and Preview.

TEST_F(ReportsTest, PreviewShowsThePagesAndGoesBackToTheReport)
{
    NEEDS_A_PRINTER();
    OpenFor(CopySample());
    const DialogWindow dialog = Begin("household.qmk");
    Run(dialog, OrderOf(QM_REPORT_STATEMENT));
    dialog.Press(IDC_REPORT_PREVIEW);
    const DialogWindow preview = AwaitDialog(m_program, szPreviewTitle);
    const std::string sPages = preview.GetText(IDC_PREVIEW_PAGE);
    ASSERT_EQ(sPages.substr(0, 5), "1 of ");
    const std::string sLast = sPages.substr(5);
    EXPECT_GE(atoi(sLast.c_str()), 2);
    preview.Press(IDC_PREVIEW_LAST);
    Await("the last page",
          [&] { return preview.GetText(IDC_PREVIEW_PAGE) == sLast + " of " + sLast; });
    preview.End(IDC_PREVIEW_CLOSE);
    AwaitBack(dialog);
    AwaitReport(dialog, OrderOf(QM_REPORT_STATEMENT));
    End(dialog);
}

TEST_F(ReportsTest, EachOfTheNineHasAPreview)
{
    NEEDS_A_PRINTER();
    OpenFor(CopySample());
    const DialogWindow dialog = Begin("household.qmk");
    for (uint32_t uKind = 0; uKind < QM_REPORT_KIND_COUNT; ++uKind) {
        Run(dialog, OrderOf(uKind));
        EXPECT_GE(PagesOfPreview(dialog), 1) << "kind " << uKind;
        AwaitReport(dialog, OrderOf(uKind));
    }
    End(dialog);
}

TEST_F(ReportsTest, KeptPreviewIsOfTheLastRunAndThenTheNewChoiceRuns)
{
    NEEDS_A_PRINTER();
    OpenFor(CopySample());
    const DialogWindow dialog = Begin("household.qmk");
    Run(dialog, OrderOf(QM_REPORT_STATEMENT));
    const int nPages = PagesOfPreview(dialog);
    EXPECT_GE(nPages, 2);
    AwaitReport(dialog, OrderOf(QM_REPORT_STATEMENT));
    const int nHeight = HeightOnScreen(dialog);
    SetBoxes(dialog, OrderOf(QM_REPORT_TAX));
    EXPECT_EQ(HeightOnScreen(dialog), nHeight) << "a change in the boxes must not run the report";
    EXPECT_EQ(PagesOfPreview(dialog), nPages);
    AwaitReport(dialog, OrderOf(QM_REPORT_TAX));
    EXPECT_EQ(PagesOfPreview(dialog), 1);
    End(dialog);
}

TEST_F(ReportsTest, KeptPrintIsOfTheLastRunAndThenTheNewChoiceRuns)
{
    NEEDS_A_PRINTER();
    OpenFor(CopySample());
    const DialogWindow dialog = Begin("household.qmk");
    Run(dialog, OrderOf(QM_REPORT_STATEMENT));
    const int nPages = PagesOfPreview(dialog);
    PrintPages(dialog, nPages);
    AwaitReport(dialog, OrderOf(QM_REPORT_STATEMENT));
    SetBoxes(dialog, OrderOf(QM_REPORT_TAX));
    PrintPages(dialog, nPages);
    AwaitReport(dialog, OrderOf(QM_REPORT_TAX));
    // A print that is given up still runs what the boxes say.
    SetBoxes(dialog, OrderOf(QM_REPORT_VOIDED));
    dialog.Press(IDC_REPORT_PRINT);
    AwaitDialog(m_program, "Print").End(IDCANCEL);
    AwaitBack(dialog);
    AwaitReport(dialog, OrderOf(QM_REPORT_VOIDED));
    End(dialog);
}

// ---- More than there is room for.

TEST_F(ReportsTest, AHundredThousandLinesEndInTheReportOrTheSentence)
{
    constexpr int nTransactions = 100000;
    const OrdinaryHeap heap;
    OpenFor(MakeAccount("huge.qmk", nTransactions));
    const DialogWindow dialog = Begin("huge.qmk");
    const Order order = OrderOf(QM_REPORT_NOT_CLEARED, "1/1/1990", "12/31/1999");
    EXPECT_GT(LinesOf(order), nTransactions);
    SetBoxes(dialog, order);
    dialog.Press(IDC_REPORT_RUN);
    // The sentence comes before the buttons can be pressed.
    Await(
        "the report or a sentence",
        [&] { return dialog.IsEnabled(IDC_REPORT_PREVIEW) || !FailuresToDraw().empty(); },
        uHugeLimit);
    const std::vector<MessageBoxWindow> failures = FailuresToDraw();
    if (failures.empty()) {
        EXPECT_GT(HeightOnScreen(dialog), nTransactions);
    } else {
        failures[0].Press(IDOK);
    }
    m_program.Settle();
    Run(dialog, OrderOf(QM_REPORT_NOT_CLEARED, "1/1/1990", "1/5/1990"));
    End(dialog);
}
