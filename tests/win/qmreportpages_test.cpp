// The pages of a report: how it is cut, printed and previewed, and what is told where that fails.

#include <cstdio>
#include <regex>

#include "tests/win/picture.h"
#include "tests/win/printer_support.h"
#include "tests/win/reportdialog_support.h"

namespace {

constexpr COLORREF crShade = 0xEBEBEB;
constexpr COLORREF crWhite = 0xFFFFFF;
constexpr char szDrawFailure[] = "Error [0-9A-F]{8}: Failed to draw report\\.";
constexpr char szPrintFailure[] = "Error [0-9A-F]{8}: Unable to print report\\.";
constexpr char szPreviewFailure[] = "Error [0-9A-F]{8}: Unable to run print preview\\.";

class QMReportPagesTest : public ReportDialogFixture
{
protected:
    void SetUp() override
    {
        // A sheet of letter paper with three quarters of an inch around.
        m_context.sizePage = m_context.sizePhysical = {816, 1056};
        m_context.rcPrintable = {72, 72, 744, 984};
    }

    // All of March 2004, with which the dialog opens.
    void AddDeductions(int nCount)
    {
        for (int n = 0; n < nCount; ++n) {
            Add(QM_TRANS_CHECK, "3/" + std::to_string(1 + n * 31 / nCount) + "/2004",
                1.25F * static_cast<float>(n), "", QM_TRANS_FLAG_TAX);
        }
    }

    static void RunKind(HWND hDialog, int nKind)
    {
        Choose(hDialog, IDC_REPORT_TYPE, nKind);
        Click(hDialog, IDC_REPORT_RUN);
    }

    // The report without its margins, in the width of a page: its height is that of the screen's.
    int ReportHeight() { return Height() - QM_REPORT_SCREEN_MARGIN; }

    // The whole report on one sheet that is as high as needed.
    Picture RenderWhole()
    {
        VPrintContext context;
        context.sizePage = {m_context.sizePage.cx, ReportHeight() + 100};
        context.rcPrintable = {m_context.rcPrintable.left, 0, m_context.rcPrintable.right,
                               context.sizePage.cy};
        EXPECT_TRUE(m_dialog.RenderPages(context));
        EXPECT_EQ(context.nPages, 1);
        return Picture(context.ilPages, 0);
    }

    // The first shaded row gives the height of all lines.
    int LineHeight(const Picture& whole) const
    {
        const int x = m_context.rcPrintable.left + 1;
        int nTop = 0;
        while (nTop < whole.GetHeight() && whole.At(x, nTop) != crShade) {
            ++nTop;
        }
        int nBottom = nTop;
        while (whole.At(x, nBottom) == crShade) {
            ++nBottom;
        }
        return nBottom - nTop;
    }

    static VRect Rows(const Picture& picture, int nTop, int nBottom)
    {
        return {0, nTop, picture.GetWidth(), nBottom};
    }

    // Whether both have the same rows of pixels there.
    static bool AreSame(const Picture& one, int nTopOfOne, const Picture& other, int nTopOfOther,
                        int nRows)
    {
        for (int y = 0; y < nRows; ++y) {
            for (int x = 0; x < one.GetWidth(); ++x) {
                if (one.At(x, nTopOfOne + y) != other.At(x, nTopOfOther + y)) {
                    return false;
                }
            }
        }
        return true;
    }

    void ExpectPagesOf(const Picture& whole, int nStep);

    VPrintContext m_context;
};

// The strips of the pages are the report, from its top to its end, and the rest of them is white.
void QMReportPagesTest::ExpectPagesOf(const Picture& whole, int nStep)
{
    const int nTop = m_context.rcPrintable.top;
    const int nHeight = ReportHeight();
    for (int i = 0; i < m_context.nPages; ++i) {
        const Picture page(m_context.ilPages, i);
        EXPECT_EQ(page.GetWidth(), m_context.sizePage.cx);
        EXPECT_EQ(page.GetHeight(), m_context.sizePage.cy);
        const int nRows = std::min(nStep, nHeight - i * nStep);
        EXPECT_TRUE(AreSame(page, nTop, whole, i * nStep, nRows)) << "page " << i;
        EXPECT_TRUE(page.IsAll(Rows(page, 0, nTop), crWhite)) << "page " << i;
        EXPECT_TRUE(page.IsAll(Rows(page, nTop + nRows, page.GetHeight()), crWhite))
            << "page " << i;
        EXPECT_FALSE(page.IsAll(Rows(page, nTop, nTop + nRows), crWhite)) << "page " << i;
    }
}

} // namespace

TEST_F(QMReportPagesTest, AreCutBetweenLines)
{
    AddDeductions(150);
    Run([&](HWND hDialog) {
        RunKind(hDialog, QM_REPORT_TAX);
        const Picture whole = RenderWhole();
        const int nLine = LineHeight(whole);
        ASSERT_GT(nLine, 8);
        ASSERT_EQ(ReportHeight() % nLine, 0);
        const int nStep = 912 / nLine * nLine;
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        EXPECT_STREQ(m_context.szTitle.GetText(), "Quillmark Report");
        EXPECT_EQ(m_context.nPages, ReportHeight() / nStep + 1);
        EXPECT_GE(m_context.nPages, 3);
        EXPECT_EQ(m_context.ilPages.GetImageCount(), m_context.nPages);
        ExpectPagesOf(whole, nStep);
        // The shade changes from row to row, and so it does from one page to the next.
        const int x = m_context.rcPrintable.left + 1;
        for (int y = nStep; y < ReportHeight() - 10 * nLine; y += nStep) {
            EXPECT_NE(whole.At(x, y - 1), whole.At(x, y)) << "y = " << y;
        }
    });
}

TEST_F(QMReportPagesTest, KeptAReportThatFillsItsPagesGetsAnEmptyOne)
{
    AddDeductions(20);
    Run([&](HWND hDialog) {
        RunKind(hDialog, QM_REPORT_TAX);
        const int nLine = LineHeight(RenderWhole());
        VRect& rc = m_context.rcPrintable;
        rc.bottom = rc.top + ReportHeight();
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        ASSERT_EQ(m_context.nPages, 2);
        const Picture second(m_context.ilPages, 1);
        EXPECT_TRUE(second.IsAll(Rows(second, 0, second.GetHeight()), crWhite));
        rc.bottom += nLine;
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        EXPECT_EQ(m_context.nPages, 1);
        // A page that is one pixel lower loses a whole line to the next.
        const Picture whole = RenderWhole();
        rc.bottom = rc.top + ReportHeight() - 1;
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        EXPECT_EQ(m_context.nPages, 2);
        const Picture page(m_context.ilPages, 0);
        const int nEnd = ReportHeight() - nLine;
        EXPECT_TRUE(AreSame(page, rc.top, whole, 0, nEnd));
        EXPECT_TRUE(page.IsAll(Rows(page, rc.top + nEnd, page.GetHeight()), crWhite));
    });
}

TEST_F(QMReportPagesTest, AreMadeFromNothingEachTime)
{
    AddDeductions(150);
    Run([&](HWND hDialog) {
        RunKind(hDialog, QM_REPORT_TAX);
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        const int nPages = m_context.nPages;
        const Picture before(m_context.ilPages, 1);
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        EXPECT_EQ(m_context.nPages, nPages);
        EXPECT_EQ(m_context.ilPages.GetImageCount(), nPages);
        const Picture after(m_context.ilPages, 1);
        EXPECT_TRUE(AreSame(before, 0, after, 0, before.GetHeight()));
        // The paper may be another one each time.
        m_context.sizePage = {600, 400};
        m_context.rcPrintable = {20, 20, 580, 380};
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        EXPECT_GT(m_context.nPages, 2 * nPages);
        EXPECT_EQ(m_context.ilPages.GetImageCount(), m_context.nPages);
    });
}

TEST_F(QMReportPagesTest, EveryKindHasPages)
{
    AddDeductions(3);
    Run([&](HWND hDialog) {
        for (int nKind = 0; nKind < static_cast<int>(QM_REPORT_KIND_COUNT); ++nKind) {
            RunKind(hDialog, nKind);
            ASSERT_TRUE(m_dialog.RenderPages(m_context)) << "kind " << nKind;
            EXPECT_EQ(m_context.nPages, 1) << "kind " << nKind;
            const Picture page(m_context.ilPages, 0);
            EXPECT_FALSE(page.IsAll(Rows(page, 72, 984), crWhite)) << "kind " << nKind;
        }
    });
}

TEST_F(QMReportPagesTest, AreRefusedWithoutARunOrRoom)
{
    AddDeductions(3);
    Run([&](HWND hDialog) {
        EXPECT_FALSE(m_dialog.RenderPages(m_context))
            << "before the first report there are no pages";
        RunKind(hDialog, QM_REPORT_TAX);
        const int nLine = LineHeight(RenderWhole());
        VRect& rc = m_context.rcPrintable;
        for (const int nHeight : {nLine - 1, 0, -1}) {
            rc.bottom = rc.top + nHeight;
            EXPECT_FALSE(m_dialog.RenderPages(m_context)) << "height " << nHeight;
        }
        rc.bottom = rc.top + nLine;
        EXPECT_TRUE(m_dialog.RenderPages(m_context));
        EXPECT_EQ(m_context.nPages, ReportHeight() / nLine + 1);
        for (const VSize& size : {VSize{0, 0}, VSize{816, 0}, VSize{0, 1056}, VSize{-1, -1}}) {
            m_context.sizePage = size;
            EXPECT_FALSE(m_dialog.RenderPages(m_context));
            EXPECT_EQ(m_context.nPages, 0);
            EXPECT_EQ(m_context.ilPages.GetImageCount(), 0);
        }
    });
}

TEST_F(QMReportPagesTest, AreOfTheLastRun)
{
    AddDeductions(3);
    Run([&](HWND hDialog) {
        RunKind(hDialog, QM_REPORT_TAX);
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        const Picture before(m_context.ilPages, 0);
        Choose(hDialog, IDC_REPORT_TYPE, QM_REPORT_VOIDED);
        Choose(hDialog, IDC_REPORT_MONTH, 7);
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        const Picture same(m_context.ilPages, 0);
        EXPECT_TRUE(AreSame(before, 0, same, 0, before.GetHeight()));
        Click(hDialog, IDC_REPORT_RUN);
        ASSERT_TRUE(m_dialog.RenderPages(m_context));
        const Picture other(m_context.ilPages, 0);
        EXPECT_FALSE(AreSame(before, 0, other, 0, before.GetHeight()));
    });
}

// ---- What is told. A document without a client fails as one without a printer does.

TEST_F(QMReportPagesTest, FailuresOfPrintAndPreviewAreTold)
{
    AddDeductions(3);
    m_dialog.GetPrintDocument().SetRenderCallback(nullptr, 0, nullptr);
    std::string sPrint;
    std::string sPreview;
    m_driver.Next([&](HWND hDialog) {
        RunKind(hDialog, QM_REPORT_TAX);
        Press(hDialog, IDC_REPORT_PRINT);
    });
    m_driver.Next(AnswerBox(IDOK, &sPrint));
    m_driver.Again([&](HWND hDialog) {
        EXPECT_GT(Height(), 0) << "the failed print must leave the report on the screen";
        Press(hDialog, IDC_REPORT_PREVIEW);
    });
    m_driver.Next(AnswerBox(IDOK, &sPreview));
    m_driver.Again([&](HWND hDialog) {
        EXPECT_GT(Height(), 0);
        Press(hDialog, IDC_REPORT_CLOSE);
    });
    EXPECT_EQ(m_dialog.DoModal(nullptr, "book.qmk"), IDC_REPORT_CLOSE);
    EXPECT_TRUE(std::regex_match(sPrint, std::regex(szPrintFailure))) << sPrint;
    EXPECT_TRUE(std::regex_match(sPreview, std::regex(szPreviewFailure))) << sPreview;
}

TEST_F(QMReportPagesTest, AReportThatCannotBeDrawnIsTold)
{
    // A date without a year gives a range without one.
    QMTransaction t = MakeTransaction(QM_TRANS_CHECK, "3/1/2004", 1, 0, "Payee");
    t.dtDate = QMDate();
    AddTo(m_dialog.GetAccount().store, t);
    std::string sRun;
    std::string sPrint;
    std::string sAgain;
    m_driver.Next([&](HWND hDialog) { Press(hDialog, IDC_REPORT_RUN); });
    m_driver.Next(AnswerBox(IDOK, &sRun));
    m_driver.Again([&](HWND hDialog) {
        EXPECT_EQ(Height(), 0);
        EXPECT_TRUE(IsEnabled(hDialog, IDC_REPORT_PRINT));
        EXPECT_TRUE(IsEnabled(hDialog, IDC_REPORT_PREVIEW));
        Press(hDialog, IDC_REPORT_PRINT);
    });
    m_driver.Next(AnswerBox(IDOK, &sPrint));
    m_driver.Next(AnswerBox(IDOK, &sAgain));
    m_driver.Again([&](HWND hDialog) { Press(hDialog, IDC_REPORT_CLOSE); });
    EXPECT_EQ(m_dialog.DoModal(nullptr, "book.qmk"), IDC_REPORT_CLOSE);
    EXPECT_TRUE(std::regex_match(sRun, std::regex(szDrawFailure))) << sRun;
    EXPECT_TRUE(std::regex_match(sPrint, std::regex(szPrintFailure))) << sPrint;
    EXPECT_TRUE(std::regex_match(sAgain, std::regex(szDrawFailure))) << sAgain;
}

// ---- On the printer of the tests.

namespace {

// Gives each document of the spooler a title of its own, and counts its pages.
struct Titled
{
    QMReportDialog& dialog;
    std::string sTitle = PrintedDocument::MakeTitle("report ");
    int nPages = 0;

    static bool Render(VPrintContext& context, uintptr_t, void* pOwner)
    {
        auto& titled = *static_cast<Titled*>(pOwner);
        const bool bDone = titled.dialog.RenderPages(context);
        titled.nPages = context.nPages;
        context.szTitle = titled.sTitle.c_str();
        return bDone;
    }
};

constexpr DWORD uSlowMs = 120000; // a printer's dialogs and jobs on a busy machine

} // namespace

TEST_F(QMReportPagesTest, KeptPrintPrintsTheLastRunAndThenShowsTheNewChoice)
{
    if (!WhyNoPrinter().empty()) {
        GTEST_SKIP() << WhyNoPrinter();
    }
    AddDeductions(150);
    Titled titled{m_dialog};
    m_dialog.GetPrintDocument().SetRenderCallback(&Titled::Render, 0, &titled);
    int nDeductions = 0;
    m_driver.SetLimit(uSlowMs);
    m_driver.Next([&](HWND hDialog) {
        RunKind(hDialog, QM_REPORT_TAX);
        nDeductions = Height();
        Choose(hDialog, IDC_REPORT_TYPE, QM_REPORT_VOIDED);
        EXPECT_EQ(Height(), nDeductions) << "the report must stay on the screen";
        Press(hDialog, IDC_REPORT_PRINT);
    });
    m_driver.Next([](HWND hPrint) { Press(hPrint, IDOK); });
    m_driver.When(
        [&](HWND hDialog) { return IsReportDialog(hDialog); },
        [&](HWND hDialog) {
            EXPECT_LT(Height(), nDeductions)
                << "the screen must now show the report of voided checks, which has no rows";
            EXPECT_GT(Height(), 0);
            Press(hDialog, IDC_REPORT_CLOSE);
        });
    EXPECT_EQ(m_dialog.DoModal(nullptr, "book.qmk"), IDC_REPORT_CLOSE);
    EXPECT_GE(titled.nPages, 2)
        << "the printed report must be the earlier one: voided checks take one page";
    EXPECT_EQ(AwaitPrinted(titled.sTitle).GetPageCount(), titled.nPages);
}

TEST_F(QMReportPagesTest, ACancelOfPrintIsNotTold)
{
    if (!WhyNoPrinter().empty()) {
        GTEST_SKIP() << WhyNoPrinter();
    }
    AddDeductions(3);
    m_driver.SetLimit(uSlowMs);
    m_driver.Next([&](HWND hDialog) {
        RunKind(hDialog, QM_REPORT_TAX);
        Press(hDialog, IDC_REPORT_PRINT);
    });
    m_driver.Next([](HWND hPrint) { Press(hPrint, IDCANCEL); });
    m_driver.Again([&](HWND hDialog) {
        EXPECT_GT(Height(), 0);
        Press(hDialog, IDC_REPORT_CLOSE);
    });
    EXPECT_EQ(m_dialog.DoModal(nullptr, "book.qmk"), IDC_REPORT_CLOSE);
}

TEST_F(QMReportPagesTest, PreviewComesUpAndGoes)
{
    if (!WhyNoPrinter().empty()) {
        GTEST_SKIP() << WhyNoPrinter();
    }
    AddDeductions(150);
    m_driver.SetLimit(uSlowMs);
    for (int i = 0; i < 2; ++i) {
        m_driver.When([](HWND) { return true; },
                      [&](HWND hDialog) {
                          RunKind(hDialog, QM_REPORT_TAX);
                          Press(hDialog, IDC_REPORT_PREVIEW);
                      });
        m_driver.Next([&](HWND hPreview) {
            EXPECT_EQ(Text(VWindow::WindowText(hPreview)), "Print Preivew - Quillmark Report");
            const std::string sPages = ItemText(hPreview, IDC_PREVIEW_PAGE);
            EXPECT_TRUE(std::regex_match(sPages, std::regex("1 of [2-9]"))) << sPages;
            Click(hPreview, IDC_PREVIEW_LAST);
            EXPECT_EQ(ItemText(hPreview, IDC_PREVIEW_PAGE),
                      sPages.substr(5) + " of " + sPages.substr(5));
            EXPECT_FALSE(IsWindowEnabled(m_dialog.GetHandle()));
            Press(hPreview, IDC_PREVIEW_CLOSE);
        });
    }
    m_driver.Again([&](HWND hDialog) {
        EXPECT_TRUE(IsReportDialog(hDialog));
        EXPECT_GT(Height(), 0);
        Press(hDialog, IDC_REPORT_CLOSE);
    });
    EXPECT_EQ(m_dialog.DoModal(nullptr, "book.qmk"), IDC_REPORT_CLOSE);
}
