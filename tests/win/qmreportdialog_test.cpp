// The dialog of reports, driven by its controls.
#include "reports/qmreportdialog.h"

#include "tests/win/picture.h"
#include "tests/win/reportdialog_support.h"

namespace {

constexpr char szReversed[] =
    "The 'From' date does not proceed the 'To' date.\n"
    "Please select a valid date range.";

class QMReportDialogTest : public ReportDialogFixture
{};

} // namespace

TEST_F(QMReportDialogTest, OpensForAnEmptyAccount)
{
    Run([&](HWND hDialog) {
        EXPECT_EQ(Text(m_dialog.GetText()), "Reports - book.qmk");
        EXPECT_EQ(SizeInUnits(hDialog), "450x350");
        EXPECT_NE(SendMessageA(hDialog, WM_GETICON, ICON_SMALL, 0), 0);
        const std::vector<std::string> kinds = {
            "Statement of Account", "Transaction Type", "Description",   "Memo",       "Category",
            "Tax Deductions",       "Expenses",         "Voided Checks", "Not Cleared"};
        EXPECT_EQ(RowsOf(hDialog, IDC_REPORT_TYPE), kinds);
        EXPECT_EQ(ItemText(hDialog, IDC_REPORT_MONTH), "January");
        EXPECT_EQ(RowsOf(hDialog, IDC_REPORT_MONTH).size(), 12U);
        EXPECT_EQ(RowsOf(hDialog, IDC_REPORT_YEAR), std::vector<std::string>{"2000"});
        EXPECT_TRUE(IsOn(hDialog, IDC_REPORT_BYMONTH));
        EXPECT_FALSE(IsEnabled(hDialog, IDC_REPORT_CATEGORY));
        EXPECT_FALSE(IsEnabled(hDialog, IDC_REPORT_PRINT));
        EXPECT_FALSE(IsEnabled(hDialog, IDC_REPORT_PREVIEW));
        EXPECT_EQ(Height(), 0);
        EXPECT_EQ(ItemText(hDialog, IDC_REPORT_PREVIEW), "Pre&view ");
        EXPECT_EQ(ItemText(hDialog, IDC_REPORT_PRINT), "&Print...  ");
    });
}

TEST_F(QMReportDialogTest, RunsEveryKind)
{
    Add(QM_TRANS_CHECK, "1/5/2004", 10, "Home");
    Run([&](HWND hDialog) {
        for (int i = 0; i < 9; ++i) {
            Choose(hDialog, IDC_REPORT_TYPE, i);
            EXPECT_EQ(IsEnabled(hDialog, IDC_REPORT_CATEGORY), i >= 1 && i <= 4);
            Click(hDialog, IDC_REPORT_RUN);
            EXPECT_EQ(m_dialog.GetView().GetPictureRect().GetWidth(), 651);
            EXPECT_GT(Height(), 15) << "kind " << i;
        }
        EXPECT_TRUE(IsEnabled(hDialog, IDC_REPORT_PRINT));
        EXPECT_TRUE(IsEnabled(hDialog, IDC_REPORT_PREVIEW));
    });
}

TEST_F(QMReportDialogTest, OffersTheGroupsOfAType)
{
    Add(QM_TRANS_CHECK, "1/5/2004", 10, "Home");
    Add(QM_TRANS_CHECK, "1/6/2004", 10, "Car");
    Add(QM_TRANS_DEPOSIT, "1/7/2004", 10, "home");
    Run([&](HWND hDialog) {
        Choose(hDialog, IDC_REPORT_TYPE, QM_REPORT_TYPE);
        EXPECT_EQ(RowsOf(hDialog, IDC_REPORT_CATEGORY).size(), 12U);
        EXPECT_EQ(ItemText(hDialog, IDC_REPORT_CATEGORY), "Check");
        Choose(hDialog, IDC_REPORT_TYPE, QM_REPORT_DESCRIPTION);
        EXPECT_EQ(RowsOf(hDialog, IDC_REPORT_CATEGORY), (std::vector<std::string>{"All", "Payee"}));
        for (const int nKind : {QM_REPORT_MEMO, QM_REPORT_CATEGORY}) {
            Choose(hDialog, IDC_REPORT_TYPE, nKind);
            EXPECT_EQ(RowsOf(hDialog, IDC_REPORT_CATEGORY),
                      (std::vector<std::string>{"All", "Car", "home"}));
        }
        // Kept: any notification of the list of reports brings the first group back.
        Choose(hDialog, IDC_REPORT_CATEGORY, 2);
        SendMessageA(hDialog, WM_COMMAND, MAKEWPARAM(IDC_REPORT_TYPE, CBN_DROPDOWN), 0);
        EXPECT_EQ(ItemText(hDialog, IDC_REPORT_CATEGORY), "All");
        // A report without groups keeps the rows and selects none.
        Choose(hDialog, IDC_REPORT_TYPE, QM_REPORT_TAX);
        EXPECT_EQ(RowsOf(hDialog, IDC_REPORT_CATEGORY).size(), 3U);
        EXPECT_EQ(SendDlgItemMessageA(hDialog, IDC_REPORT_CATEGORY, CB_GETCURSEL, 0, 0), CB_ERR);
    });
}

TEST_F(QMReportDialogTest, TakesTheDatesOfTheChoice)
{
    Add(QM_TRANS_CHECK, "2/1/2004", 10, "", QM_TRANS_FLAG_TAX);
    Add(QM_TRANS_CHECK, "2/29/2004", 10, "", QM_TRANS_FLAG_TAX);
    Add(QM_TRANS_CHECK, "3/1/2004", 10, "", QM_TRANS_FLAG_TAX);
    Run([&](HWND hDialog) {
        EXPECT_EQ(ItemText(hDialog, IDC_REPORT_MONTH), "March");
        Choose(hDialog, IDC_REPORT_TYPE, QM_REPORT_TAX);
        const auto RunMonth = [&](int nMonth) {
            Choose(hDialog, IDC_REPORT_MONTH, nMonth - 1);
            EXPECT_TRUE(IsOn(hDialog, IDC_REPORT_BYMONTH));
            Click(hDialog, IDC_REPORT_RUN);
            return Height();
        };
        const int nTwoRows = RunMonth(2);
        const int nOneRow = RunMonth(3);
        EXPECT_LT(nOneRow, nTwoRows);
        // The dates from January to December are those that the boxes start with. Kept: one that
        // gets the focus is chosen by that.
        SetFocus(GetDlgItem(hDialog, IDC_REPORT_FROM));
        EXPECT_TRUE(IsOn(hDialog, IDC_REPORT_BYRANGE));
        EXPECT_FALSE(IsOn(hDialog, IDC_REPORT_BYMONTH));
        Click(hDialog, IDC_REPORT_RUN);
        EXPECT_EQ(Height() - nTwoRows, nTwoRows - nOneRow) << "the report must have three rows";
        // One day.
        SetDate(hDialog, IDC_REPORT_FROM, 2004, 2, 29);
        SetDate(hDialog, IDC_REPORT_TO, 2004, 2, 29);
        Click(hDialog, IDC_REPORT_RUN);
        EXPECT_EQ(Height(), nOneRow);
    });
}

TEST_F(QMReportDialogTest, SaysSoWhereTheDatesSelectNothing)
{
    Add(QM_TRANS_CHECK, "2/29/2004", 10, "", QM_TRANS_FLAG_TAX);
    Run([&](HWND hDialog) {
        SetWindowPos(hDialog, nullptr, 0, 0, 800, 500, SWP_NOMOVE | SWP_NOZORDER);
        Choose(hDialog, IDC_REPORT_TYPE, QM_REPORT_TAX);
        const auto RunMonth = [&](int nMonth) {
            Choose(hDialog, IDC_REPORT_MONTH, nMonth - 1);
            Click(hDialog, IDC_REPORT_RUN);
            const Picture picture(m_dialog.GetView());
            return picture.Describe({15, 60, 636, Height()}); // below the line of the dates
        };
        const std::string sFebruary = RunMonth(2);
        const std::string sMarch = RunMonth(3);
        EXPECT_FALSE(sFebruary == sMarch);
        EXPECT_TRUE(RunMonth(4) == sMarch);
        EXPECT_TRUE(RunMonth(2) == sFebruary);
    });
}

TEST_F(QMReportDialogTest, RefusesAReversedRange)
{
    std::string sSentence;
    m_driver.Next([&](HWND hDialog) {
        SetDate(hDialog, IDC_REPORT_FROM, 2004, 3, 2);
        SetDate(hDialog, IDC_REPORT_TO, 2004, 3, 1);
        SetFocus(GetDlgItem(hDialog, IDC_REPORT_TO));
        Press(hDialog, IDC_REPORT_RUN);
    });
    m_driver.Next(AnswerBox(IDOK, &sSentence));
    m_driver.Again([&](HWND hDialog) {
        EXPECT_FALSE(IsEnabled(hDialog, IDC_REPORT_PRINT));
        EXPECT_EQ(Height(), 0);
        EXPECT_EQ(FocusedId(hDialog), IDC_REPORT_FROM) << "the focus must be on the first date";
        Press(hDialog, IDCANCEL);
    });
    EXPECT_EQ(m_dialog.DoModal(nullptr, "book.qmk"), IDC_REPORT_CLOSE);
    EXPECT_EQ(sSentence, szReversed);
}

TEST_F(QMReportDialogTest, AsksForAReport)
{
    std::string sSentence;
    m_driver.Next([&](HWND hDialog) {
        SendDlgItemMessageA(hDialog, IDC_REPORT_TYPE, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        Press(hDialog, IDC_REPORT_RUN);
    });
    m_driver.Next(AnswerBox(IDOK, &sSentence));
    m_driver.Again([&](HWND hDialog) {
        EXPECT_EQ(FocusedId(hDialog), IDC_REPORT_TYPE);
        Press(hDialog, IDOK);
    });
    EXPECT_EQ(m_dialog.DoModal(nullptr, "book.qmk"), IDC_REPORT_CLOSE);
    EXPECT_EQ(sSentence, "Please select a report.");
}

TEST_F(QMReportDialogTest, CanBeMadeAnySize)
{
    Run([&](HWND hDialog) {
        RECT before = {};
        GetWindowRect(m_dialog.GetView().GetHandle(), &before);
        SetWindowPos(hDialog, nullptr, 0, 0, 700, 500, SWP_NOMOVE | SWP_NOZORDER);
        const VRect client = m_dialog.GetClientRect();
        const VRect view = m_dialog.GetView().GetWindowRect();
        EXPECT_EQ(view.GetWidth(), client.right - 10);
        EXPECT_EQ(view.GetHeight(), client.bottom - 80);
        for (const int nSize : {300, 100, 10, 0}) {
            SetWindowPos(hDialog, nullptr, 0, 0, nSize, nSize, SWP_NOMOVE | SWP_NOZORDER);
            Click(hDialog, IDC_REPORT_RUN);
            EXPECT_GT(Height(), 0);
        }
    });
}

TEST_F(QMReportDialogTest, OffersTheYearsOfTheAccount)
{
    Add(QM_TRANS_CHECK, "2/9/1752", 10);
    Add(QM_TRANS_CHECK, "2/9/3000", 10);
    Run([&](HWND hDialog) {
        const auto years = RowsOf(hDialog, IDC_REPORT_YEAR);
        ASSERT_EQ(years.size(), 1249U);
        EXPECT_EQ(years.front(), "1752");
        EXPECT_EQ(years.back(), "3000");
        EXPECT_EQ(ItemText(hDialog, IDC_REPORT_YEAR), "3000");
    });
}
