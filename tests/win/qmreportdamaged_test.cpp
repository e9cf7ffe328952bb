// The dialog of reports with accounts that can be read and are not sound, and with more lines than
// a picture has room for.

#include <algorithm>
#include <regex>

#include "tests/support/randomaccount.h"
#include "tests/win/reportdialog_support.h"

namespace {

struct LetterPaper : VPrintContext
{
    LetterPaper()
    {
        sizePage = sizePhysical = {816, 1056};
        rcPrintable = {72, 72, 744, 984};
    }
};

class QMReportDamagedTest : public ReportDialogFixture
{
protected:
    void SetUp() override { m_driver.SetLimit(120000); }

    // All days that the date boxes know.
    static void ChooseAllDays(HWND hDialog)
    {
        SetDate(hDialog, IDC_REPORT_FROM, 1752, 9, 14);
        SetDate(hDialog, IDC_REPORT_TO, 9999, 12, 31);
        SetFocus(GetDlgItem(hDialog, IDC_REPORT_FROM));
        EXPECT_TRUE(IsOn(hDialog, IDC_REPORT_BYRANGE));
    }

    // Runs the report and makes its pages.
    void RunAndRender(HWND hDialog, int nKind)
    {
        Click(hDialog, IDC_REPORT_RUN);
        EXPECT_GT(Height(), QM_REPORT_SCREEN_MARGIN) << "kind " << nKind;
        LetterPaper context;
        EXPECT_TRUE(m_dialog.RenderPages(context)) << "kind " << nKind;
        EXPECT_GE(context.nPages, 1) << "kind " << nKind;
    }

    void RunEveryKind(HWND hDialog)
    {
        for (int nKind = 0; nKind < static_cast<int>(QM_REPORT_KIND_COUNT); ++nKind) {
            Choose(hDialog, IDC_REPORT_TYPE, nKind);
            RunAndRender(hDialog, nKind);
            if (!IsEnabled(hDialog, IDC_REPORT_CATEGORY)) {
                continue;
            }
            const auto nRows = static_cast<int>(RowsOf(hDialog, IDC_REPORT_CATEGORY).size());
            for (const int nRow : {1, nRows / 2, nRows - 1}) {
                Choose(hDialog, IDC_REPORT_CATEGORY, std::max(nRow, 0));
                RunAndRender(hDialog, nKind);
            }
        }
    }
};

class QMReportDamagedAtRandomTest : public QMReportDamagedTest,
                                    public testing::WithParamInterface<uint32_t>
{};

} // namespace

TEST_P(QMReportDamagedAtRandomTest, EveryReportRunsAndHasPages)
{
    Random random(GetParam());
    FillAtRandom(m_dialog.GetAccount(), random, 80, true);
    Run([&](HWND hDialog) {
        ChooseAllDays(hDialog);
        RunEveryKind(hDialog);
    });
}

INSTANTIATE_TEST_SUITE_P(Seeds, QMReportDamagedAtRandomTest,
                         testing::Range(uint32_t{1}, uint32_t{7}));

TEST_F(QMReportDamagedTest, TextsOfFullLengthWithEveryByteAreDrawn)
{
    QMTransaction t = MakeTransaction(QM_TRANS_CHECK, "3/5/2004", 12.5F, QM_TRANS_FLAG_TAX);
    for (int i = 0; i < 255; ++i) {
        t.szDescription[i] = t.szMemo[i] = static_cast<char>(i + 1);
    }
    for (int i = 0; i < 127; ++i) {
        t.szCategory[i] = static_cast<char>(255 - i);
    }
    AddTo(m_dialog.GetAccount().store, t);
    t.lType = QM_TRANS_DEPOSIT;
    AddTo(m_dialog.GetAccount().store, t);
    Run([&](HWND hDialog) {
        ChooseAllDays(hDialog);
        RunEveryKind(hDialog);
    });
}

TEST_F(QMReportDamagedTest, YearsBeyondEveryCalendarAreOffered)
{
    QMTransaction t = MakeTransaction(QM_TRANS_CHECK, "3/5/2004", 1, QM_TRANS_FLAG_TAX);
    t.dtDate = QMMakeDate(1, 99, 99);
    AddTo(m_dialog.GetAccount().store, t);
    t.dtDate = QMMakeDate(65535, 65535, 65535);
    AddTo(m_dialog.GetAccount().store, t);
    Run([&](HWND hDialog) {
        EXPECT_EQ(SendDlgItemMessageA(hDialog, IDC_REPORT_YEAR, CB_GETCOUNT, 0, 0), 65535);
        EXPECT_EQ(ItemText(hDialog, IDC_REPORT_YEAR), "65535");
        EXPECT_EQ(ItemText(hDialog, IDC_REPORT_MONTH), "January");
        RunAndRender(hDialog, QM_REPORT_STATEMENT);
        ChooseAllDays(hDialog);
        RunEveryKind(hDialog);
    });
}

// The picture would take more than 2^31 bytes.
TEST_F(QMReportDamagedTest, APictureThatCannotBeMadeIsToldAndTheDialogGoesOn)
{
    constexpr int nTransactions = 100000;
    for (int n = 0; n < nTransactions; ++n) {
        Add(QM_TRANS_CHECK, "3/" + std::to_string(1 + n / 5000) + "/2004", 1);
    }
    Add(QM_TRANS_CHECK, "4/1/2004", 1, "", QM_TRANS_FLAG_TAX);
    std::string sSentence;
    m_driver.Next([&](HWND hDialog) {
        Choose(hDialog, IDC_REPORT_TYPE, QM_REPORT_TYPE);
        Choose(hDialog, IDC_REPORT_MONTH, 2);
        Press(hDialog, IDC_REPORT_RUN);
    });
    m_driver.Next(AnswerBox(IDOK, &sSentence));
    m_driver.Again([&](HWND hDialog) {
        EXPECT_EQ(Height(), 0) << "the view must be empty";
        EXPECT_TRUE(IsEnabled(hDialog, IDC_REPORT_PRINT));
        EXPECT_TRUE(IsEnabled(hDialog, IDC_REPORT_PREVIEW));
        LetterPaper context;
        EXPECT_FALSE(m_dialog.RenderPages(context));
        Choose(hDialog, IDC_REPORT_MONTH, 3);
        RunAndRender(hDialog, QM_REPORT_TYPE);
        Press(hDialog, IDC_REPORT_CLOSE);
    });
    EXPECT_EQ(m_dialog.DoModal(nullptr, "book.qmk"), IDC_REPORT_CLOSE);
    EXPECT_TRUE(
        std::regex_match(sSentence, std::regex("Error [0-9A-F]{8}: Failed to draw report\\.")))
        << sSentence;
}
