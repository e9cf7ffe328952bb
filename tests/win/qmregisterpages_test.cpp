// The pages of a register: what their pictures show, and what the printer makes of them.

#include "register/qmregisterpages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

#include "printing/vprintdocument.h"
#include "register/qmregistermodel.h"
#include "tests/support/support.h"
#include "tests/win/dialog_support.h"
#include "tests/win/picture.h"
#include "tests/win/printer_support.h"
#include "tests/win/support.h"

namespace {

constexpr COLORREF crLine = 0xC0C0C0;
constexpr COLORREF crShade = 0xEBEBEB;
constexpr COLORREF crWhite = 0xFFFFFF;

class RegisterPagesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent, WS_POPUP));
        m_parent.Move({10, 10, 1010, 310});
        ASSERT_TRUE(m_list.CreateList(m_parent, 7));
        m_parent.Show(SW_SHOWNOACTIVATE);
        PumpAll();
        m_document.SetAccount(std::make_unique<QMAccount>("house.qmk"));
        QMAccountHeader& header = Header();
        snprintf(header.szBankName, sizeof header.szBankName, "First Example Bank");
        snprintf(header.szHolderName, sizeof header.szHolderName, "A. Holder");
        header.bGridLines = header.bShadedLines = 0;
        // A sheet of letter paper with margins of three quarters of an inch.
        m_context.sizePage = m_context.sizePhysical = {816, 1056};
        m_context.rcPrintable = {72, 72, 744, 984};
    }

    QMAccountHeader& Header() { return m_document.GetAccount()->header; }

    void AddTransactions(int nCount)
    {
        for (int n = 0; n < nCount; ++n) {
            auto pTransaction = std::make_unique<QMTransaction>();
            pTransaction->lType = n % 12;
            pTransaction->dtDate = QMMakeDate(static_cast<uint16_t>(2000 + n / 28), 3,
                                              static_cast<uint16_t>(1 + n % 28));
            pTransaction->lNumber = static_cast<uint32_t>(1000 + n);
            pTransaction->fAmount = 1.25F * static_cast<float>(n * 7 % 1000);
            pTransaction->lFlags = n % 5 == 4 ? QM_TRANS_FLAG_VOIDED : QM_TRANS_FLAG_NOT_CLEARED;
            snprintf(pTransaction->szDescription, sizeof pTransaction->szDescription,
                     "Description %d of %d", n, n * n % 977);
            m_document.GetAccount()->store.Add(std::move(pTransaction));
        }
        ASSERT_TRUE(m_model.ShowAll());
        PumpAll();
    }

    bool Render(uint32_t uFlags = 0)
    {
        m_context.ilPages.Destroy();
        return QMRegisterPages(m_list, m_model.GetColumns(), Header()).Render(m_context, uFlags);
    }

    // The pixels of a page; nPage counts from 1.
    static std::vector<COLORREF> PixelsOf(VPrintContext& context, int nPage)
    {
        const VSize& size = context.sizePage;
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size.cx;
        info.bmiHeader.biHeight = -size.cy;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pBits = nullptr;
        VBitmap bitmap;
        bitmap.Attach(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0));
        const VClientSurface screen(GetDesktopWindow());
        VMemorySurface memory(screen);
        const VSelectScope scope(memory, bitmap.GetHandle());
        EXPECT_TRUE(context.ilPages.Draw(nPage - 1, memory, 0, 0));
        GdiFlush();
        const auto* pPixels = static_cast<const COLORREF*>(pBits);
        std::vector<COLORREF> pixels(pPixels, pPixels + size.cx * size.cy);
        for (COLORREF& cr : pixels) {
            cr = RGB((cr >> 16) & 0xFF, (cr >> 8) & 0xFF, cr & 0xFF);
        }
        return pixels;
    }

    void Look(int nPage) { m_pixels = PixelsOf(m_context, nPage); }
    COLORREF At(int x, int y) const
    {
        return m_pixels[static_cast<size_t>(y * m_context.sizePage.cx + x)];
    }
    // Whether anything is drawn in a part of the page.
    bool HasInk(const VRect& rc) const
    {
        for (int y = rc.top; y < rc.bottom; ++y) {
            for (int x = rc.left; x < rc.right; ++x) {
                if (At(x, y) != crWhite) {
                    return true;
                }
            }
        }
        return false;
    }

    int HeadingHeight() const { return m_list.GetHeadingRect(0).GetHeight(); }
    int TableTop() const { return 72 + HeadingHeight() + 1; }

    VWindow m_parent;
    QMRegisterList m_list;
    QMDocument m_document;
    QMRegisterModel m_model{m_document, m_list};
    VPrintContext m_context;
    std::vector<COLORREF> m_pixels;
};

} // namespace

TEST_F(RegisterPagesTest, ARegisterWithoutRowsIsAPageOfHeadings)
{
    AddTransactions(0);
    ASSERT_TRUE(Render());
    EXPECT_EQ(m_context.nPages, m_context.ilPages.GetImageCount());
    Look(1);
    EXPECT_EQ(At(72, TableTop() - 1), crLine);
    EXPECT_TRUE(HasInk({100, TableTop() - HeadingHeight() + 2, 700, TableTop() - 2}));
    EXPECT_FALSE(HasInk({0, TableTop() + 1, 816, 1056}));
    EXPECT_FALSE(HasInk({0, 0, 816, 72}));
}

TEST_F(RegisterPagesTest, EachOptionPrintsItsText)
{
    AddTransactions(0);
    ASSERT_TRUE(Render(0));
    Look(1);
    const VRect rcNumber = {380, 965, 440, 984};
    const VRect rcBank = {73, 72, 300, 80};
    const VRect rcHolder = {600, 72, 744, 80};
    EXPECT_FALSE(HasInk(rcNumber));
    ASSERT_TRUE(Render(QM_PRINT_PAGE_NUMBERS));
    Look(1);
    EXPECT_TRUE(HasInk(rcNumber));
    EXPECT_EQ(At(72, TableTop() - 1), crLine);
    // A name moves the table down. Two names move it no further.
    for (const uint32_t uFlags :
         {QM_PRINT_BANK_NAME, QM_PRINT_HOLDER_NAME, QM_PRINT_BANK_NAME | QM_PRINT_HOLDER_NAME}) {
        ASSERT_TRUE(Render(uFlags));
        Look(1);
        EXPECT_NE(At(72, TableTop() - 1 - HeadingHeight() + 2), crLine) << "flags " << uFlags;
        EXPECT_EQ(HasInk(rcBank), (uFlags & QM_PRINT_BANK_NAME) != 0) << "flags " << uFlags;
        EXPECT_EQ(HasInk(rcHolder), (uFlags & QM_PRINT_HOLDER_NAME) != 0) << "flags " << uFlags;
    }
}

TEST_F(RegisterPagesTest, KeptTheFirstRowOfAPageIsShaded)
{
    Header().bShadedLines = 1;
    AddTransactions(3);
    ASSERT_TRUE(Render());
    Look(1);
    const int nRow = m_list.GetRowHeight();
    const int x = 72 + 2;
    EXPECT_EQ(At(x, TableTop() + 1), crShade);
    EXPECT_EQ(At(x, TableTop() + nRow + 1), crWhite);
    EXPECT_EQ(At(x, TableTop() + 2 * nRow + 1), crShade);
}

TEST_F(RegisterPagesTest, KeptABalanceHasTheTextsColourOnPaper)
{
    const COLORREF crBalance = RGB(255, 0, 0);
    m_list.SetBalanceColors(crBalance, crBalance);
    AddTransactions(20);
    const Picture screen(m_list);
    EXPECT_TRUE(screen.HasAny({0, 0, screen.GetWidth(), screen.GetHeight()}, crBalance));
    ASSERT_TRUE(Render());
    for (int nPage = 1; nPage <= m_context.nPages; ++nPage) {
        Look(nPage);
        EXPECT_EQ(std::count(m_pixels.begin(), m_pixels.end(), crBalance), 0) << "page " << nPage;
    }
}

TEST_F(RegisterPagesTest, GridLinesRunAroundTheCells)
{
    Header().bGridLines = 1;
    AddTransactions(2);
    ASSERT_TRUE(Render());
    Look(1);
    const int nRow = m_list.GetRowHeight();
    EXPECT_EQ(At(72, TableTop() + 3), crLine);
    EXPECT_EQ(At(80, TableTop()), crLine);
    EXPECT_EQ(At(80, TableTop() + nRow), crLine);
    EXPECT_EQ(At(80, TableTop() + 2 * nRow), crLine);
    EXPECT_EQ(At(80, TableTop() + 2 * nRow + 1), crWhite);
    // With shading the rows have no line at the top. The last row of a page has one at the bottom.
    Header().bShadedLines = 1;
    ASSERT_TRUE(Render());
    Look(1);
    EXPECT_NE(At(80, TableTop() + nRow), crLine);
    EXPECT_EQ(At(80, TableTop() + 2 * nRow), crLine);
}

TEST_F(RegisterPagesTest, AWideRegisterSpreadsOverStrips)
{
    AddTransactions(200);
    ASSERT_TRUE(Render(QM_PRINT_PAGE_NUMBERS));
    const int nPages = m_context.nPages;
    m_context.rcPrintable.right = 372; // half the width
    ASSERT_TRUE(Render(QM_PRINT_PAGE_NUMBERS));
    EXPECT_GT(m_context.nPages, nPages);
    EXPECT_EQ(m_context.ilPages.GetImageCount(), m_context.nPages);
    // Hidden columns take no room.
    Header().bShowDescription = 0;
    Header().bShowMemo = 0;
    ASSERT_TRUE(m_model.ShowAll());
    const int nWide = m_context.nPages;
    ASSERT_TRUE(Render(QM_PRINT_PAGE_NUMBERS));
    EXPECT_LT(m_context.nPages, nWide);
}

TEST_F(RegisterPagesTest, AFirstColumnWiderThanThePaperLeavesAnEmptyStripBefore)
{
    AddTransactions(3);
    m_context.rcPrintable = {72, 72, 72 + m_list.GetColumnWidth(0) - 2, 984};
    ASSERT_TRUE(Render(QM_PRINT_PAGE_NUMBERS | QM_PRINT_BANK_NAME));
    // Its page has its texts alone; the next one has the table.
    Look(1);
    const int nNumber = m_context.rcPrintable.bottom - 30;
    EXPECT_TRUE(HasInk({72, 72, 100, 84}));
    EXPECT_TRUE(HasInk({60, nNumber, 110, 984}));
    EXPECT_FALSE(HasInk({0, 100, 816, nNumber}));
    Look(2);
    EXPECT_TRUE(HasInk({0, 100, 816, nNumber}));
}

TEST_F(RegisterPagesTest, ALowerPaperHasMorePages)
{
    AddTransactions(100);
    ASSERT_TRUE(Render(QM_PRINT_ALL));
    const int nUpright = m_context.nPages;
    m_context.sizePage = m_context.sizePhysical = {1056, 816};
    m_context.rcPrintable = {72, 72, 984, 744};
    ASSERT_TRUE(Render(QM_PRINT_ALL));
    const int nRows = (744 - 72) / m_list.GetRowHeight();
    EXPECT_GE(m_context.nPages, 100 / nRows);
    EXPECT_NE(m_context.nPages, nUpright);
    EXPECT_EQ(m_context.ilPages.GetImageCount(), m_context.nPages);
}

TEST_F(RegisterPagesTest, ThePeriodLimitsWhatIsPrinted)
{
    AddTransactions(200);
    ASSERT_TRUE(Render());
    const int nAll = m_context.nPages;
    QMDate dtFrom = QMMakeDate(2000, 1, 1);
    QMDate dtTo = QMMakeDate(2000, 12, 31);
    m_model.SetPeriodFilter(true, false);
    m_model.SetPeriod(QM_ACCNT_DISPLAY_DATE_RANGE, dtFrom, dtTo, true);
    ASSERT_LT(m_list.GetRowCount(), 200);
    ASSERT_TRUE(Render());
    EXPECT_LT(m_context.nPages, nAll);
}

TEST_F(RegisterPagesTest, RefusesMorePagesThanOneBitmapHolds)
{
    AddTransactions(200);
    m_context.sizePage = {4000, 6000};
    m_context.rcPrintable = {0, 0, 4000, 60}; // about a row a page
    EXPECT_FALSE(Render());
    EXPECT_EQ(m_context.ilPages.GetImageCount(), 0);
    m_context.sizePage = {0, 0};
    EXPECT_FALSE(Render());
}

// ---- Out of the printer.

namespace {

// A picture in grey, so small that it matters no longer how each dot was scaled.
std::vector<double> Shrink(const VSize& size, const VSize& sizeSmall,
                           const std::function<int(int x, int y)>& grayAt)
{
    std::vector<double> small;
    for (int by = 0; by < sizeSmall.cy; ++by) {
        const int nTop = by * size.cy / sizeSmall.cy;
        const int nBottom = (by + 1) * size.cy / sizeSmall.cy;
        for (int bx = 0; bx < sizeSmall.cx; ++bx) {
            const int nLeft = bx * size.cx / sizeSmall.cx;
            const int nRight = (bx + 1) * size.cx / sizeSmall.cx;
            double dSum = 0;
            for (int y = nTop; y < nBottom; ++y) {
                for (int x = nLeft; x < nRight; ++x) {
                    dSum += grayAt(x, y);
                }
            }
            small.push_back(dSum / ((nRight - nLeft) * (nBottom - nTop)));
        }
    }
    return small;
}

constexpr int nBlock = 4; // dots that become one

std::vector<double> Shrink(const std::vector<COLORREF>& image, const VSize& size)
{
    return Shrink(size, {size.cx / nBlock, size.cy / nBlock}, [&](int x, int y) {
        const COLORREF cr = image[static_cast<size_t>(y * size.cx + x)];
        return (GetRValue(cr) * 30 + GetGValue(cr) * 59 + GetBValue(cr) * 11) / 100;
    });
}

// The paper, shifted down by dots, in the size of a page's small picture.
std::vector<double> Shrink(const GrayPage& paper, const VSize& size, int nShift = 0)
{
    return Shrink({paper.nWidth, paper.nHeight}, {size.cx / nBlock, size.cy / nBlock},
                  [&](int x, int y) -> int {
                      const int nFrom = (y - nShift) * paper.nWidth + x;
                      return nFrom < 0 ? 255 : paper.pixels[static_cast<size_t>(nFrom)];
                  });
}

// The mean of the differences, of 255.
double Difference(const std::vector<double>& a, const std::vector<double>& b)
{
    double dSum = 0;
    for (size_t u = 0; u < a.size(); ++u) {
        dSum += std::abs(a[u] - b[u]);
    }
    return dSum / static_cast<double>(a.size());
}

// A print with the pictures that it was made of.
struct Printed
{
    std::vector<std::vector<COLORREF>> images;
    VSize size; // of each
    PrintedDocument paper;
};

class RegisterPaperTest : public RegisterPagesTest
{
protected:
    Printed Print()
    {
        PrintedDocument::AskForPictures();
        VPrintDocument document(m_parent);
        document.SetMargins({750, 750, 750, 750});
        document.SetRenderCallback(&RenderAndKeep, 0, this);
        m_sTitle = PrintedDocument::MakeTitle("pages ");
        ModalDriver driver(60000);
        driver.Next([](HWND hDialog) { Press(hDialog, IDOK); });
        EXPECT_TRUE(document.Print());
        m_printed.paper = AwaitPrinted(m_sTitle);
        return std::move(m_printed);
    }

    // Each page is nearer to its own picture than that picture is to another page, to its own page
    // shifted by a row, and to a white one: by half at least.
    void CheckPages(const Printed& printed) const
    {
        const int nPages = printed.paper.GetPageCount();
        ASSERT_EQ(nPages, static_cast<int>(printed.images.size()));
        ASSERT_GE(nPages, 2);
        std::vector<std::vector<double>> papers;
        for (int nPage = 1; nPage <= nPages; ++nPage) {
            papers.push_back(Shrink(printed.paper.ReadPage(nPage), printed.size));
        }
        const std::vector<double> white(papers[0].size(), 255);
        double dLargest = 0;
        double dLeastRatio = 1000;
        for (int nPage = 1; nPage <= nPages; ++nPage) {
            const auto uPage = static_cast<size_t>(nPage - 1);
            const std::vector<double> image = Shrink(printed.images[uPage], printed.size);
            const double dOwn = Difference(image, papers[uPage]);
            const std::vector<double> shifted =
                Shrink(printed.paper.ReadPage(nPage), printed.size, m_list.GetRowHeight());
            for (const auto& wrong : {papers[(uPage + 1) % papers.size()], shifted, white}) {
                EXPECT_LT(dOwn * 2, Difference(image, wrong)) << "page " << nPage;
                dLeastRatio = std::min(dLeastRatio, Difference(image, wrong) / dOwn);
            }
            dLargest = std::max(dLargest, dOwn);
        }
        printf(
            "%d pages: the paper differs from its pictures by %.2f of 255 at most, wrong paper "
            "by %.1f times as much at least\n",
            nPages, dLargest, dLeastRatio);
    }

private:
    static bool RenderAndKeep(VPrintContext& context, uintptr_t, void* pOwner)
    {
        auto& test = *static_cast<RegisterPaperTest*>(pOwner);
        context.szTitle = test.m_sTitle.c_str();
        const bool bDone = QMRegisterPages(test.m_list, test.m_model.GetColumns(), test.Header())
                               .Render(context, QM_PRINT_ALL);
        test.m_printed.images.clear();
        test.m_printed.size = context.sizePage;
        for (int nPage = 1; nPage <= context.nPages; ++nPage) {
            test.m_printed.images.push_back(PixelsOf(context, nPage));
        }
        return bDone;
    }

    std::string m_sTitle;
    Printed m_printed;
};

// The sample lies beside the tests' program.
std::string SamplePath()
{
    char szPath[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, szPath, sizeof szPath);
    const std::string sPath = szPath;
    return sPath.substr(0, sPath.rfind('\\') + 1) + "household.qmk";
}

} // namespace

TEST_F(RegisterPaperTest, AgreesWithThePicturesOfGridLines)
{
    if (!WhyNoPrinter().empty()) {
        GTEST_SKIP() << WhyNoPrinter();
    }
    Header().bGridLines = 1;
    AddTransactions(120);
    CheckPages(Print());
}

TEST_F(RegisterPaperTest, AgreesWithThePicturesOfTheSample)
{
    if (!WhyNoPrinter().empty()) {
        GTEST_SKIP() << WhyNoPrinter();
    }
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("household.qmk");
    WriteWholeFile(sPath, ReadWholeFile(SamplePath()));
    auto pAccount = std::make_unique<QMAccount>(sPath.c_str());
    ASSERT_TRUE(pAccount->Read());
    m_document.SetAccount(std::move(pAccount));
    ASSERT_TRUE(m_model.ShowAll());
    PumpAll();
    const Printed printed = Print();
    EXPECT_GT(printed.paper.GetPageCount(), 10);
    CheckPages(printed);
    m_document.SetAccount(std::make_unique<QMAccount>("house.qmk"));
}
