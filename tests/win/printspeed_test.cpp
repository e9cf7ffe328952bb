// How long a register takes until its pages are made and until they are spooled, compared with a
// loop that only stretches as many white pictures to the same printer. The times are printed and
// never judged, because they depend on what else the machine does.

#include <gtest/gtest.h>

#include <cstdio>

#include "printing/vprintdocument.h"
#include "printing/vprintjob.h"
#include "register/qmregistermodel.h"
#include "register/qmregisterpages.h"
#include "tests/win/printer_support.h"
#include "tests/win/support.h"

namespace {

double Milliseconds()
{
    LARGE_INTEGER now;
    LARGE_INTEGER perSecond;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&perSecond);
    return static_cast<double>(now.QuadPart) * 1000.0 / static_cast<double>(perSecond.QuadPart);
}

// Pages. All pictures of a document lie in one piece of memory: after all other tests a 32-bit
// process has none of 700 MB.
constexpr int nMany = sizeof(void*) == 4 ? 60 : 200;

struct Figures
{
    int nPages = 0;
    double dRender = 0;
    double dJob = 0;
    double dBare = 0;
};

class PrintSpeedTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_parent, WS_POPUP));
        ASSERT_TRUE(m_list.CreateList(m_parent, 7));
        m_parent.Show(SW_SHOWNOACTIVATE);
    }

    void MakeRegister(int nRows)
    {
        auto pAccount = std::make_unique<QMAccount>("house.qmk");
        pAccount->header.bShowMemo = 0; // so that one strip holds the columns
        for (int n = 0; n < nRows; ++n) {
            auto pTransaction = std::make_unique<QMTransaction>();
            pTransaction->dtDate = QMMakeDate(2004, 1, 1);
            pTransaction->fAmount = 1.25F;
            snprintf(pTransaction->szDescription, sizeof pTransaction->szDescription,
                     "Description %d", n);
            pAccount->store.Add(std::move(pTransaction));
        }
        m_document.SetAccount(std::move(pAccount));
        ASSERT_TRUE(m_model.ShowAll());
        PumpAll();
    }

    static bool Render(VPrintContext& context, uintptr_t, void* pOwner)
    {
        auto& test = *static_cast<PrintSpeedTest*>(pOwner);
        return QMRegisterPages(test.m_list, test.m_model.GetColumns(),
                               test.m_document.GetAccount()->header)
            .Render(context, QM_PRINT_ALL);
    }

    static void PrintWhite(VPrintContext& context)
    {
        VDrawingSurface& printer = *context.pSurface;
        VMemorySurface memory(printer);
        VBitmap white;
        const VSize& size = context.sizePage;
        white.Attach(CreateCompatibleBitmap(printer.GetHandle(), size.cx, size.cy));
        const VSelectScope scope(memory, white.GetHandle());
        memory.PatBlt(0, 0, size.cx, size.cy, WHITENESS);
        DOCINFOA document = {};
        document.cbSize = sizeof document;
        document.lpszDocName = "unread white pages";
        printer.SetAbortProc(nullptr);
        ASSERT_GT(printer.StartDoc(document), 0);
        for (int nPage = 0; nPage < context.nPages; ++nPage) {
            printer.StartPage();
            printer.StretchBlt(0, 0, context.sizeDevice.cx, context.sizeDevice.cy, memory, 0, 0,
                               size.cx, size.cy, SRCCOPY);
            printer.EndPage();
        }
        EXPECT_GT(printer.EndDoc(), 0);
    }

    Figures Measure(VPrintDocument& document, int nRows)
    {
        MakeRegister(nRows);
        Figures figures;
        VPrintContext context;
        const double dBegin = Milliseconds();
        EXPECT_TRUE(document.RenderToContext(context));
        figures.dRender = Milliseconds() - dBegin;
        figures.nPages = context.nPages;
        context.nToPage = static_cast<uint16_t>(context.nPages);
        context.szTitle = "unread pages";
        const double dJob = Milliseconds();
        EXPECT_TRUE(PrintJob(context, m_parent));
        figures.dJob = Milliseconds() - dJob;
        const double dBare = Milliseconds();
        PrintWhite(context);
        figures.dBare = Milliseconds() - dBare;
        printf(
            "speed: printing %d pages: %.0f ms to the pages, %.0f ms to the spooler, %.0f ms for "
            "white ones; %d KB a page\n",
            figures.nPages, figures.dRender, figures.dJob, figures.dBare,
            context.sizePage.cx * context.sizePage.cy * 4 / 1024);
        return figures;
    }

    VWindow m_parent;
    QMRegisterList m_list;
    QMDocument m_document;
    QMRegisterModel m_model{m_document, m_list};
};

} // namespace

TEST_F(PrintSpeedTest, TellsHowLongPagesTake)
{
    if (!WhyNoPrinter().empty()) {
        GTEST_SKIP() << WhyNoPrinter();
    }
    VPrintDocument document(m_parent);
    document.SetMargins({750, 750, 750, 750});
    document.SetRenderCallback(&Render, 0, this);
    const int nFew = Measure(document, 1).nPages;
    const Figures some = Measure(document, 1000);
    // As many rows as so many pages have, by what 1000 have.
    const Figures many = Measure(document, 1000 * nMany / some.nPages);
    EXPECT_EQ(nFew, 1);
    EXPECT_GE(some.nPages, 10);
    EXPECT_NEAR(many.nPages, nMany, 10);
}
