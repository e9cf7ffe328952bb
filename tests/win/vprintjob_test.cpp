// The print job, with a fake printer that notes what it is asked and fails on demand.

#include "printing/vprintjob.h"

#include <gtest/gtest.h>

#include "printing/vprintcontext.h"
#include "printing/vprintprogressdialog.h"
#include "resources/resource.h"
#include "tests/win/dialog_support.h"
#include "tests/win/support.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"

namespace {

constexpr int nWidth = 24; // of a page's picture
constexpr int nHeight = 36;

class FakePrinter : public VDrawingSurface
{
public:
    FakePrinter() { Attach(CreateICA("DISPLAY", nullptr, nullptr, nullptr), true); }

    int GetDeviceCaps(int nIndex) const override
    {
        switch (nIndex) {
            case RASTERCAPS:
                return m_nRasterCaps;
            case LOGPIXELSX:
                return m_nDotsX;
            case LOGPIXELSY:
                return m_nDotsY;
            default:
                return VDrawingSurface::GetDeviceCaps(nIndex);
        }
    }
    int SetAbortProc(ABORTPROC pProcedure) override
    {
        EXPECT_EQ(pProcedure, &AbortPump);
        return Answer("SetAbortProc", 1);
    }
    int StartDoc(const DOCINFOA& document) override
    {
        EXPECT_EQ(document.lpszOutput, nullptr);
        EXPECT_EQ(document.lpszDatatype, nullptr);
        EXPECT_EQ(document.fwType, 0U);
        return Answer("StartDoc(" + std::string(document.lpszDocName) + ")", 7);
    }
    int StartPage() override
    {
        ++m_nPage;
        m_bWholeIsNext = true;
        if (m_onPage) {
            m_onPage(m_nPage);
        }
        return Answer("StartPage", 1);
    }
    int EndPage() override { return Answer("EndPage", 1); }
    int EndDoc() override { return Answer("EndDoc", 1); }
    int AbortDoc() override { return Answer("AbortDoc", 1); }
    int SetStretchBltMode(int nMode) override
    {
        EXPECT_EQ(nMode, BLACKONWHITE);
        return Answer("Mode", COLORONCOLOR);
    }
    bool StretchBlt(int x, int y, int w, int h, const VDrawingSurface& source, int sx, int sy,
                    int sw, int sh, DWORD uRop) override
    {
        EXPECT_EQ(uRop, DWORD{SRCCOPY});
        m_colours.push_back(GetPixel(source.GetHandle(), nWidth / 2, nHeight / 2));
        if (m_bWholeIsNext) {
            m_bWholeIsNext = false;
            EXPECT_EQ((VRect{x, y, sx, sy}), VRect());
            EXPECT_EQ((VSize{sw, sh}), (VSize{nWidth, nHeight}));
            return Answer("Stretch", m_bRefusesWhole ? 0 : 1) != 0;
        }
        char szTile[100];
        snprintf(szTile, sizeof szTile, "%d,%d %dx%d<%d,%d %dx%d", x, y, w, h, sx, sy, sw, sh);
        m_tiles.emplace_back(szTile);
        return static_cast<int>(m_tiles.size()) != m_nFailingTile;
    }

    // The calls since the last Take.
    std::string Take()
    {
        std::string sAll;
        for (const std::string& sCall : m_calls) {
            sAll += (sAll.empty() ? "" : " ") + sCall;
        }
        m_calls.clear();
        return sAll;
    }

    std::string m_sFailing; // the call that fails
    int m_nFailureAt = 1;   // at which time
    bool m_bRefusesWhole = false;
    int m_nFailingTile = 0;
    int m_nRasterCaps = RC_STRETCHDIB;
    int m_nDotsX = 100;
    int m_nDotsY = 100;
    int m_nPage = 0;
    std::function<void(int nPage)> m_onPage;
    std::vector<std::string> m_tiles;
    std::vector<COLORREF> m_colours; // in the middle of what was stretched

private:
    int Answer(const std::string& sCall, int nSuccess)
    {
        m_calls.push_back(sCall);
        const bool bFails = sCall.substr(0, sCall.find('(')) == m_sFailing && --m_nFailureAt == 0;
        return bFails ? 0 : nSuccess;
    }

    std::vector<std::string> m_calls;
    bool m_bWholeIsNext = false; // the first stretch of a page
};

class PrintJobTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(CreateTestWindow(m_owner));
        m_owner.Show(SW_SHOWNOACTIVATE);
        m_context.pSurface = &m_printer;
        m_context.szTitle = "my account";
        m_context.sizeDevice = {200, 300};
        MakePages(3);
    }

    void TearDown() override
    {
        // This must hold after every job.
        if (m_owner.IsValid()) {
            EXPECT_TRUE(IsWindowEnabled(m_owner.GetHandle()));
        }
        EXPECT_EQ(VPrintProgressDialog::GetRunning(), nullptr);
        EXPECT_EQ(FindForemostDialog(), nullptr);
    }

    static COLORREF ColourOf(int nPage) { return RGB(10 * nPage, 100, 200); }

    void MakePages(int nPages)
    {
        ASSERT_TRUE(m_context.ilPages.Create(nWidth, nHeight, nPages, 1, ILC_COLORDDB));
        const VClientSurface screen(m_owner.GetHandle());
        VMemorySurface memory(screen);
        for (int nPage = 1; nPage <= nPages; ++nPage) {
            VBitmap bitmap;
            ASSERT_TRUE(bitmap.Attach(CreateCompatibleBitmap(screen.GetHandle(), nWidth, nHeight)));
            {
                const VSelectScope scope(memory, bitmap.GetHandle());
                const VBrush brush(ColourOf(nPage));
                memory.FillRect({0, 0, nWidth, nHeight}, brush.GetHandle());
            }
            ASSERT_GE(m_context.ilPages.Add(bitmap.GetHandle()), 0);
        }
        m_context.nPages = nPages;
        m_context.nFromPage = 1;
        m_context.nToPage = static_cast<uint16_t>(nPages);
    }

    bool Print() { return PrintJob(m_context, m_owner); }

    VWindow m_owner;
    FakePrinter m_printer;
    VPrintContext m_context;
};

const std::string sPage = " StartPage Mode Stretch EndPage";
const std::string sBegin = "SetAbortProc StartDoc(my account)";

} // namespace

TEST_F(PrintJobTest, SendsEveryPageOnceInOrder)
{
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + sPage + sPage + sPage + " EndDoc");
    EXPECT_EQ(m_printer.m_colours, (std::vector<COLORREF>{ColourOf(1), ColourOf(2), ColourOf(3)}));
}

TEST_F(PrintJobTest, SendsTheRangeThatWasAskedForAlone)
{
    m_context.nFromPage = m_context.nToPage = 2;
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + sPage + " EndDoc");
    EXPECT_EQ(m_printer.m_colours, std::vector<COLORREF>{ColourOf(2)});
}

TEST_F(PrintJobTest, ALastPageBeyondTheEndIsCutDown)
{
    m_context.nFromPage = 3;
    m_context.nToPage = 500;
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + sPage + " EndDoc");
    EXPECT_EQ(m_context.nToPage, 3);
}

TEST_F(PrintJobTest, AFirstPageOfZeroIsTheFirst)
{
    m_context.nFromPage = 0;
    m_context.nToPage = 1;
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.m_colours, std::vector<COLORREF>{ColourOf(1)});
}

TEST_F(PrintJobTest, ARangeBeyondTheEndIsAnEmptyDocument)
{
    m_context.nFromPage = 4;
    m_context.nToPage = 9;
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + " EndDoc");
}

TEST_F(PrintJobTest, DoesNothingWhenCountAndPicturesDiffer)
{
    m_context.nPages = 4;
    EXPECT_FALSE(Print());
    EXPECT_EQ(m_printer.Take(), "SetAbortProc");
}

TEST_F(PrintJobTest, DoesNothingWithoutAPrinter)
{
    VDrawingSurface none;
    m_context.pSurface = &none;
    EXPECT_FALSE(Print());
    m_context.pSurface = nullptr;
    EXPECT_FALSE(Print());
}

TEST_F(PrintJobTest, TellsOfAPrinterThatCannotScale)
{
    m_printer.m_nRasterCaps = ~RC_STRETCHDIB;
    ModalDriver driver;
    std::string sText;
    std::string sCaption;
    driver.Next(AnswerBox(IDOK, &sText, &sCaption));
    EXPECT_FALSE(Print());
    EXPECT_EQ(sText, "Printer does not support image scaling.");
    EXPECT_EQ(sCaption, "Device Error");
    EXPECT_EQ(m_printer.Take(), "");
}

TEST_F(PrintJobTest, AFailedStepAbortsTheDocument)
{
    const struct
    {
        const char* szStep;
        const char* szCalls;
    } tests[] = {
        {"StartPage", " StartPage AbortDoc"},
        {"Mode", " StartPage Mode AbortDoc"},
        {"EndPage", " StartPage Mode Stretch EndPage AbortDoc"},
    };
    for (const auto& test : tests) {
        m_printer.m_sFailing = test.szStep;
        m_printer.m_nFailureAt = 1;
        EXPECT_FALSE(Print()) << test.szStep;
        EXPECT_EQ(m_printer.Take(), sBegin + test.szCalls);
        // The same on the second page.
        m_printer.m_nFailureAt = 2;
        EXPECT_FALSE(Print()) << test.szStep;
        EXPECT_EQ(m_printer.Take(), sBegin + sPage + test.szCalls);
    }
}

TEST_F(PrintJobTest, ADocumentThatDoesNotBeginOrEndFailsWithoutAnAbort)
{
    m_printer.m_sFailing = "StartDoc";
    EXPECT_FALSE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin);
    m_printer.m_sFailing = "EndDoc";
    m_printer.m_nFailureAt = 1;
    EXPECT_FALSE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + sPage + sPage + sPage + " EndDoc");
}

// ---- A driver that refuses the whole page.

TEST_F(PrintJobTest, WhatIsRefusedAsAWholeGoesInTiles)
{
    m_printer.m_bRefusesWhole = true;
    m_context.nToPage = 1;
    m_context.sizeDevice = {250, 320};
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + sPage + " EndDoc");
    // Two columns of three rows, then a strip at the right of each row, one below each column, and
    // the corner.
    EXPECT_EQ(m_printer.m_tiles.size(), 6U + 3 + 2 + 1);
}

TEST_F(PrintJobTest, WholeInchesHaveNoStrips)
{
    m_printer.m_bRefusesWhole = true;
    m_context.nToPage = 1;
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.m_tiles.size(), 6U);
    EXPECT_EQ(m_printer.m_tiles.front().substr(0, 16), "0,0 100x100<0,0 ");
}

TEST_F(PrintJobTest, KeptUnequalResolutionsMissTheRightStrip)
{
    m_printer.m_bRefusesWhole = true;
    m_printer.m_nDotsX = 120; // two columns, by the vertical resolution three
    m_context.nToPage = 1;
    m_context.sizeDevice = {330, 300};
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.m_tiles.size(), 6U);
}

TEST_F(PrintJobTest, ARefusedTileAbortsTheDocument)
{
    m_printer.m_bRefusesWhole = true;
    m_printer.m_nFailingTile = 2;
    EXPECT_FALSE(Print());
    EXPECT_EQ(m_printer.m_tiles.size(), 2U);
    EXPECT_EQ(m_printer.Take(), sBegin + " StartPage Mode Stretch AbortDoc");
}

// ---- The progress window.

TEST_F(PrintJobTest, TellsThePageAndDisablesTheOwner)
{
    std::vector<std::string> texts;
    m_printer.m_onPage = [&](int) {
        const VPrintProgressDialog* pProgress = VPrintProgressDialog::GetRunning();
        ASSERT_NE(pProgress, nullptr);
        EXPECT_TRUE(pProgress->IsVisible());
        EXPECT_FALSE(IsWindowEnabled(m_owner.GetHandle()));
        EXPECT_EQ(Text(pProgress->GetText()), "Printing...");
        EXPECT_EQ(ItemText(pProgress->GetHandle(), IDC_PROGRESS_TITLE), "my account");
        EXPECT_EQ(LayoutFaults(pProgress->GetHandle()), std::vector<std::string>());
        EXPECT_EQ(SizeInUnits(pProgress->GetHandle()), "160x70");
        texts.push_back(ItemText(pProgress->GetHandle(), IDC_PROGRESS_STATUS));
    };
    EXPECT_TRUE(Print());
    EXPECT_EQ(texts, (std::vector<std::string>{"Sending Page 1...", "Sending Page 2...",
                                               "Sending Page 3..."}));
}

TEST_F(PrintJobTest, KeptAnOwnerThatWasDisabledBeforeIsEnabledAtTheEnd)
{
    m_owner.Enable(false);
    EXPECT_TRUE(Print());
    EXPECT_TRUE(IsWindowEnabled(m_owner.GetHandle()));
}

TEST_F(PrintJobTest, CancelBetweenTwoPagesIsNoFailure)
{
    m_printer.m_onPage = [](int nPage) {
        if (nPage == 2) {
            PostMessageA(VPrintProgressDialog::GetRunning()->GetHandle(), WM_COMMAND, IDCANCEL, 0);
        }
    };
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + sPage + " StartPage AbortDoc");
}

TEST_F(PrintJobTest, TheBoxOfTheWindowCancelsToo)
{
    m_printer.m_onPage = [](int) {
        PostMessageA(VPrintProgressDialog::GetRunning()->GetHandle(), WM_CLOSE, 0, 0);
    };
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + " StartPage AbortDoc");
}

TEST_F(PrintJobTest, EscapeCancels)
{
    m_printer.m_onPage = [](int) {
        PostMessageA(GetDlgItem(VPrintProgressDialog::GetRunning()->GetHandle(), IDCANCEL),
                     WM_KEYDOWN, VK_ESCAPE, 0);
    };
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + " StartPage AbortDoc");
}

TEST_F(PrintJobTest, TheOwnersEndEndsTheJob)
{
    m_printer.m_onPage = [&](int) { DestroyWindow(m_owner.GetHandle()); };
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + " StartPage AbortDoc");
    EXPECT_FALSE(m_owner.IsValid());
    EXPECT_EQ(VPrintProgressDialog::GetRunning(), nullptr);
    EXPECT_EQ(FindForemostDialog(), nullptr);
    // The next owner prints. Besides, Wine 8 frees what it keeps of a window that ends while its
    // context is in use, and now makes it anew, so that the objects are as many as before.
    m_printer.m_onPage = nullptr;
    ASSERT_TRUE(CreateTestWindow(m_owner));
    m_owner.Show(SW_SHOWNOACTIVATE);
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + sPage + sPage + sPage + " EndDoc");
}

TEST_F(PrintJobTest, LeavesAQuitToTheProgramsLoop)
{
    m_printer.m_onPage = [](int) { PostQuitMessage(5); };
    EXPECT_TRUE(Print());
    EXPECT_EQ(m_printer.Take(), sBegin + " StartPage AbortDoc");
    MSG message = {};
    while (message.message != WM_QUIT && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 5U);
}

TEST_F(PrintJobTest, HandlesTheMessagesOfOtherWindows)
{
    Record record;
    VRecordingWindow other(record);
    ASSERT_TRUE(CreateTestWindow(other, record));
    m_printer.m_onPage = [&](int nPage) { other.Post(WM_COMMAND, static_cast<WPARAM>(nPage)); };
    EXPECT_TRUE(Print());
    EXPECT_EQ(record.Take(), "OnCommand(0,1) OnCommand(0,2) OnCommand(0,3)");
}

TEST(AbortPump, StopsWhenNoJobRuns)
{
    EXPECT_FALSE(AbortPump(nullptr, 0));
}
