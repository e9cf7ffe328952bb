// How long the pages of a register take to the screen and to the printer, and what memory they
// take: printed, never judged. And what happens when the memory for them cannot be had.

#include <windows.h>

#include <psapi.h> // needs the former

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/e2e_test.h"
#include "tests/e2e/ordinaryheap.h"
#include "tests/support/printeddocument.h"

namespace {

constexpr DWORD uPageLimit = 300000; // milliseconds; hundreds of pages take their time
constexpr char szNoPrinter[] =
    "'.\n\nPlease make sure that there is a printer installed and connected to this computer.";

class PrintingSpeedTest : public E2ETest
{
protected:
    static double Milliseconds()
    {
        LARGE_INTEGER frequency;
        LARGE_INTEGER now;
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&now);
        return static_cast<double>(now.QuadPart) * 1000 / static_cast<double>(frequency.QuadPart);
    }

    // What the program has for itself, in KB.
    int Memory() const
    {
        PROCESS_MEMORY_COUNTERS counters = {};
        counters.cb = sizeof counters;
        EXPECT_TRUE(K32GetProcessMemoryInfo(m_program.GetProcess(), &counters, sizeof counters));
        return static_cast<int>(counters.PagefileUsage / 1024);
    }

    // An account whose columns fit side by side on a page.
    void OpenAccount(const std::string& sName, int nTransactions)
    {
        const std::string sPath = MakeAccount(sName, nTransactions, [](QMAccount& account) {
            account.header.bShowMemo = account.header.bShowCategory = 0;
        });
        m_program.Open({sPath});
        m_program.AwaitActive(sPath);
        m_program.Settle();
    }

    DialogWindow AwaitPreview(const std::string& sName) const
    {
        const std::string sCaption = "Print Preivew - " + sName;
        Await(
            "the preview", [&] { return !FindDialogs(m_program, sCaption).empty(); }, uPageLimit);
        return FindDialogs(m_program, sCaption).front();
    }

    // From the command to the preview on the screen, then to its next page. Returns the pages.
    int MeasurePreview(const std::string& sName)
    {
        // What the first preview of a program loads belongs to no page.
        m_program.Post(IDM_FILE_PREVIEW);
        AwaitPreview(sName).End(IDC_PREVIEW_CLOSE);
        m_program.Settle();
        const int nBefore = Memory();
        const double dBegin = Milliseconds();
        m_program.Post(IDM_FILE_PREVIEW);
        const DialogWindow preview = AwaitPreview(sName);
        m_program.Settle();
        const double dShown = Milliseconds();
        const int nPages = atoi(preview.GetText(IDC_PREVIEW_PAGE).substr(5).c_str());
        const int nWithPages = Memory();
        double dTurned = 0;
        if (nPages > 1) {
            const double dTurn = Milliseconds();
            preview.Press(IDC_PREVIEW_NEXT);
            Await("the next page",
                  [&] { return preview.GetText(IDC_PREVIEW_PAGE).substr(0, 2) == "2 "; });
            dTurned = Milliseconds() - dTurn;
        }
        preview.End(IDC_PREVIEW_CLOSE);
        m_program.Settle();
        printf(
            "speed: preview of %d pages: %.0f ms to the screen, %.0f ms to the next page; "
            "%d KB a page; %d KB left behind\n",
            nPages, dShown - dBegin, dTurned, (nWithPages - nBefore) / std::max(nPages, 1),
            Memory() - nBefore);
        fflush(stdout);
        return nPages;
    }

    // Without the time in which the user looks at the dialog.
    void MeasurePrint(int nPages) const
    {
        const double dBegin = Milliseconds();
        m_program.Post(IDM_FILE_PRINT);
        Await(
            "the print dialog", [&] { return !FindDialogs(m_program, "Print").empty(); },
            uPageLimit);
        const DialogWindow dialog = FindDialogs(m_program, "Print").front();
        const double dDialog = Milliseconds();
        dialog.End(IDOK);
        // It handles messages during the job or after it.
        Await(
            "the end of the job",
            [&] {
                m_program.Settle();
                return IsWindowEnabled(m_program.GetFrame()) &&
                       FindDialogs(m_program, "Printing...").empty();
            },
            uPageLimit);
        printf("speed: print of %d pages: %.0f ms to the dialog, %.0f ms more to the spooler\n",
               nPages, dDialog - dBegin, Milliseconds() - dDialog);
        fflush(stdout);
        EXPECT_TRUE(m_program.GetBoxes().empty());
    }

    void ExpectRefusal(const std::string& sName)
    {
        const int nBefore = Memory();
        m_program.Post(IDM_FILE_PREVIEW);
        m_program.AnswerBox("Failed to create preview for '" + sName + szNoPrinter);
        m_program.Post(IDM_FILE_PRINT);
        m_program.AnswerBox("Failed to print file '" + sName + szNoPrinter);
        m_program.Settle();
        const int nLeft = Memory() - nBefore;
        printf("speed: pages of %s refused, %d KB left behind\n", sName.c_str(), nLeft);
        EXPECT_LT(nLeft, 20000); // less than six pages
        EXPECT_TRUE(IsWindowEnabled(m_program.GetFrame()));
    }

private:
    OrdinaryHeap m_heap;
};

#define NEEDS_A_PRINTER()                                        \
    if (!PrintedDocument::HasSpooler()) {                        \
        GTEST_SKIP() << "the spooler of the tests does not run"; \
    }

} // namespace

TEST_F(PrintingSpeedTest, OneTwentyAndTwoHundredPages)
{
    NEEDS_A_PRINTER();
    for (const int nTransactions : {10, 1200, 12300}) {
        // The spooler need not turn hundreds of pages into a file that nobody reads.
        const std::string sName = "unread" + std::to_string(nTransactions) + ".qmk";
        OpenAccount(sName, nTransactions);
        MeasurePrint(MeasurePreview(sName));
        EXPECT_EQ(m_program.Close(), 0U);
    }
}

TEST_F(PrintingSpeedTest, PagesBeyondAnyMemoryAreRefusedAndNothingStays)
{
    NEEDS_A_PRINTER();
    OpenAccount("huge.qmk", 100000);
    ExpectRefusal("huge.qmk");
    EXPECT_EQ(m_program.Close(), 0U);
}

TEST_F(PrintingSpeedTest, PagesBeyondTheMemoryOf32BitsAreRefusedAndNothingStays)
{
    NEEDS_A_PRINTER();
    if (sizeof(void*) > 4) {
        GTEST_SKIP() << "a 64-bit program has memory for pages of two gigabytes";
    }
    OpenAccount("large.qmk", 36000);
    ExpectRefusal("large.qmk");
    // There is room for fewer.
    HandOverFile(MakeAccount("few.qmk", 3));
    EXPECT_EQ(MeasurePreview("few.qmk"), 2);
    EXPECT_EQ(m_program.Close(), 0U);
}
