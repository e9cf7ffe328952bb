// Print, Print Preview and Page Setup, with the tests' own printer and without a printer.

#include <windows.h>

#include <dlgs.h> // needs the former

#include <algorithm>

#include "base/vtext.h"
#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/e2e_test.h"
#include "tests/support/printeddocument.h"
#include "tests/support/wine_support_win.h"

namespace {

constexpr char szNoPrinter[] =
    "'.\n\nPlease make sure that there is a printer installed and connected to this computer.";

// Spooling takes a while.
constexpr DWORD uPrintLimit = 120000;

// So many transactions that their pages take long to spool.
constexpr int nLong = 2000;

class PrintingTest : public E2ETest
{
protected:
    static std::string Unique(const std::string& sName)
    {
        return PrintedDocument::MakeTitle(sName) + ".qmk";
    }

    void Open(const std::string& sPath)
    {
        m_program.Open({sPath});
        m_program.AwaitActive(sPath);
    }

    DialogWindow BeginPreview(const std::string& sName) const
    {
        m_program.Post(IDM_FILE_PREVIEW);
        return AwaitDialog(m_program, "Print Preivew - " + sName);
    }

    DialogWindow BeginPrint() const
    {
        m_program.Post(IDM_FILE_PRINT);
        return AwaitDialog(m_program, "Print");
    }

    DialogWindow BeginPageSetup() const
    {
        m_program.Post(IDM_FILE_PAGESETUP);
        // Windows chooses the words of the caption.
        return AwaitDialog(m_program, IsWine() ? "Setup Page" : "Page Setup");
    }

    // Waits for the end of a command that has disabled the frame. Between the print dialog and the
    // job the frame is enabled, but handles no message.
    void AwaitFrameInUse() const
    {
        Await("the frame to be enabled", [&] {
            m_program.Settle();
            return IsWindowEnabled(m_program.GetFrame()) &&
                   FindDialogs(m_program, "Printing...").empty();
        });
        m_program.Settle();
        EXPECT_TRUE(m_program.GetBoxes().empty());
    }

    static PrintedDocument AwaitPrinted(const std::string& sTitle)
    {
        PrintedDocument document;
        Await(
            "the paper of " + sTitle, [&] { return document.Find(sTitle); }, uPrintLimit);
        return document;
    }

    // Chooses a printer in the print dialog.
    static void ChoosePrinter(const DialogWindow& dialog, const std::string& sPrinter)
    {
        const std::vector<std::string> printers = dialog.GetChoices(cmb4);
        const auto found = std::find(printers.begin(), printers.end(), sPrinter);
        ASSERT_NE(found, printers.end());
        dialog.Choose(cmb4, static_cast<int>(found - printers.begin()));
    }

    static std::string Margins() { return ReadSettingText("Page Setup", "Margins"); }
};

// The program stands still within its scope.
class Suspended
{
public:
    explicit Suspended(const Program& program)
        : m_hThread(OpenThread(THREAD_SUSPEND_RESUME, FALSE,
                               GetWindowThreadProcessId(program.GetFrame(), nullptr)))
    {
        EXPECT_NE(SuspendThread(m_hThread), static_cast<DWORD>(-1));
    }
    Suspended(const Suspended&) = delete;
    Suspended& operator=(const Suspended&) = delete;
    ~Suspended()
    {
        ResumeThread(m_hThread);
        CloseHandle(m_hThread);
    }

private:
    HANDLE m_hThread;
};

#define NEEDS_A_PRINTER()                                        \
    if (!PrintedDocument::HasSpooler()) {                        \
        GTEST_SKIP() << "the spooler of the tests does not run"; \
    }

} // namespace

TEST_F(PrintingTest, WithoutADocumentSaysWhatIsMissing)
{
    m_program.Open();
    m_program.Post(IDM_FILE_PRINT);
    m_program.AnswerBox("Cannot print file...\nNo document window is selected.");
    m_program.Post(IDM_FILE_PREVIEW);
    m_program.AnswerBox("Cannot preview file...\nNo document window is selected.");
}

TEST_F(PrintingTest, WithoutAPrinterSaysSo)
{
    if (PrintedDocument::HasSpooler()) {
        GTEST_SKIP() << "this test needs a system without a printer";
    }
    Open(CopySample());
    m_program.Post(IDM_FILE_PRINT);
    m_program.AnswerBox(std::string("Failed to print file 'household.qmk") + szNoPrinter);
    m_program.Post(IDM_FILE_PREVIEW);
    m_program.AnswerBox(std::string("Failed to create preview for 'household.qmk") + szNoPrinter);
    EXPECT_EQ(Margins(), "0750 0750 0750 0750");
}

TEST_F(PrintingTest, PreviewShowsTheRegisterAndKeepsThePageSetup)
{
    NEEDS_A_PRINTER();
    Open(CopySample());
    RemoveSetting("Page Setup", "Margins");
    RemoveSetting("Page Setup", "Orientation");
    const DialogWindow preview = BeginPreview("household.qmk");
    EXPECT_EQ(WindowRect(preview.GetHandle()), WindowRect(m_program.GetFrame()));
    EXPECT_EQ(preview.GetText(IDC_PREVIEW_PAGE).substr(0, 5), "1 of ");
    EXPECT_EQ(preview.GetText(IDC_PREVIEW_SCALE), "70%");
    EXPECT_FALSE(preview.IsEnabled(IDC_PREVIEW_FIRST));
    preview.Press(IDC_PREVIEW_LAST);
    Await("the last page", [&] { return !preview.IsEnabled(IDC_PREVIEW_NEXT); });
    preview.End(IDC_PREVIEW_CLOSE);
    AwaitFrameInUse();
    EXPECT_EQ(Margins(), "0750 0750 0750 0750");
    EXPECT_EQ(ReadSettingNumber("Page Setup", "Orientation"), 1U);
}

TEST_F(PrintingTest, PrintPutsEveryPageOnPaper)
{
    NEEDS_A_PRINTER();
    const std::string sName = Unique("print");
    Open(CopySample(sName));
    const DialogWindow preview = BeginPreview(sName);
    const int nPages = atoi(preview.GetText(IDC_PREVIEW_PAGE).substr(5).c_str());
    EXPECT_GT(nPages, 1);
    preview.End(IDC_PREVIEW_CLOSE);
    BeginPrint().End(IDOK);
    EXPECT_EQ(AwaitPrinted(sName).GetPageCount(), nPages);
    AwaitFrameInUse();
}

TEST_F(PrintingTest, PrintsARange)
{
    NEEDS_A_PRINTER();
    const std::string sName = Unique("range");
    Open(CopySample(sName));
    const DialogWindow dialog = BeginPrint();
    dialog.Check(rad3);
    dialog.SetText(edt1, "2");
    dialog.SetText(edt2, "3");
    dialog.End(IDOK);
    EXPECT_EQ(AwaitPrinted(sName).GetPageCount(), 2);
    AwaitFrameInUse();
}

TEST_F(PrintingTest, PrintsCopiesTogetherOrPageByPage)
{
    NEEDS_A_PRINTER();
    PrintedDocument::AskForPictures();
    for (const bool bCollates : {true, false}) {
        const std::string sName = Unique("copies");
        Open(MakeAccount(sName, 3));
        const DialogWindow dialog = BeginPrint();
        EXPECT_TRUE(dialog.IsChecked(chx2)) << "the dialog must offer collated copies at first";
        dialog.SetText(edt3, "3");
        dialog.Check(chx2, bCollates);
        dialog.End(IDOK);
        const PrintedDocument printed = AwaitPrinted(sName);
        EXPECT_EQ(printed.GetCopies(), 3);
        ASSERT_EQ(printed.GetPageCount(), 6);
        const GrayPage first = printed.ReadPage(1);
        const GrayPage last = printed.ReadPage(6);
        EXPECT_FALSE(first == last);
        for (int nPage = 2; nPage <= 5; ++nPage) {
            const bool bFirst = bCollates ? nPage % 2 == 1 : nPage <= 3;
            EXPECT_TRUE(printed.ReadPage(nPage) == (bFirst ? first : last)) << "page " << nPage;
        }
        AwaitFrameInUse();
        m_program.Close();
    }
}

TEST_F(PrintingTest, PrintsOnAnotherPrinterWithItsPaperAndResolution)
{
    NEEDS_A_PRINTER();
    PrintedDocument::AskForPictures();
    const std::string sName = Unique("fine");
    const std::string sPath = MakeAccount(sName, 3);
    Open(sPath);
    m_program.Close();
    WriteSettingNumber("Page Setup", "Paper Size", DMPAPER_A4);
    Open(sPath);
    const DialogWindow dialog = BeginPrint();
    ChoosePrinter(dialog, "Fine");
    dialog.End(IDOK);
    const PrintedDocument printed = AwaitPrinted(sName);
    EXPECT_EQ(printed.GetPrinter(), "Fine");
    const GrayPage page = printed.ReadPage(1);
    EXPECT_EQ(page.nWidth, 816); // Letter, with 96 dots per inch
    EXPECT_EQ(page.nHeight, 1056);
    AwaitFrameInUse();
    // The page setup has the printer that was chosen last.
    BeginPreview(sName).End(IDC_PREVIEW_CLOSE);
    AwaitFrameInUse();
    EXPECT_EQ(ReadSettingNumber("Page Setup", "Paper Size"), static_cast<DWORD>(DMPAPER_LETTER));
}

TEST_F(PrintingTest, ACancelInThePrintDialogSaysNothing)
{
    NEEDS_A_PRINTER();
    Open(CopySample());
    BeginPrint().End(IDCANCEL);
    AwaitFrameInUse();
}

TEST_F(PrintingTest, AnAccountInReadOnlyModePrints)
{
    NEEDS_A_PRINTER();
    const std::string sName = Unique("locked");
    Open(MakeAccount(sName, 3, [](QMAccount& account) { account.header.bReadOnly = 1; }));
    BeginPrint().End(IDOK);
    // The three rows do not fill a page, but the columns need two pages side by side.
    EXPECT_EQ(AwaitPrinted(sName).GetPageCount(), 2);
    AwaitFrameInUse();
}

TEST_F(PrintingTest, PageSetupIsStoredOnOkAlone)
{
    NEEDS_A_PRINTER();
    Open(CopySample());
    const DialogWindow first = BeginPageSetup();
    first.SetText(edt4, "2");
    first.End(IDCANCEL);
    AwaitFrameInUse();
    EXPECT_EQ(Margins(), "0750 0750 0750 0750");
    const DialogWindow second = BeginPageSetup();
    second.SetText(edt4, "1.5");
    second.End(IDOK);
    AwaitFrameInUse();
    EXPECT_EQ(Margins(), "1500 0750 0750 0750");
}

TEST_F(PrintingTest, AStoredLandscapeComesBack)
{
    NEEDS_A_PRINTER();
    const std::string sPath = CopySample();
    Open(sPath);
    m_program.Close();
    WriteSettingNumber("Page Setup", "Orientation", 2);
    Open(sPath);
    BeginPreview("household.qmk").End(IDC_PREVIEW_CLOSE);
    AwaitFrameInUse();
    EXPECT_EQ(ReadSettingNumber("Page Setup", "Orientation"), 2U);
}

TEST_F(PrintingTest, AbsurdStoredValuesDoNoHarm)
{
    NEEDS_A_PRINTER();
    const std::string sPath = MakeAccount("few.qmk", 3);
    Open(sPath);
    m_program.Close();
    for (const char* szMargins : {"-5000 -5000 -5000 -5000", "99999999999 1 1 1", "wide", "750"}) {
        WriteSettingText("Page Setup", "Margins", szMargins);
        WriteSettingNumber("Page Setup", "Orientation", 99);
        WriteSettingNumber("Page Setup", "Paper Size", 0x7FFFFFFF);
        WriteSettingNumber("Page Setup", "Paper Source", 0xFFFFFFFE);
        Open(sPath);
        m_program.Post(IDM_FILE_PREVIEW);
        // It comes up or says that it cannot, and the program goes on.
        Await("the preview or a sentence", [&] {
            return !FindDialogs(m_program, "Print Preivew - few.qmk").empty() ||
                   !m_program.GetBoxes().empty();
        });
        for (const DialogWindow& preview : FindDialogs(m_program, "Print Preivew - few.qmk")) {
            preview.End(IDC_PREVIEW_CLOSE);
        }
        for (const MessageBoxWindow& box : m_program.GetBoxes()) {
            box.Press(IDOK);
        }
        AwaitFrameInUse();
        EXPECT_EQ(m_program.Close(), 0U) << szMargins;
    }
}

TEST_F(PrintingTest, TheFrameDoesNotCloseDuringAJob)
{
    NEEDS_A_PRINTER();
    const std::string sName = Unique("long");
    Open(MakeAccount(sName, nLong));
    BeginPrint().End(IDOK);
    const DialogWindow progress = AwaitDialog(m_program, "Printing...");
    PostMessageA(m_program.GetFrame(), WM_CLOSE, 0, 0);
    EXPECT_EQ(SendTo(m_program.GetFrame(), WM_QUERYENDSESSION), 0);
    EXPECT_TRUE(progress.IsOpen());
    EXPECT_GT(AwaitPrinted(sName).GetPageCount(), 10);
    AwaitFrameInUse();
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
    EXPECT_EQ(m_program.Close(), 0U);
}

TEST_F(PrintingTest, AFileHandedOverDuringAJobOpens)
{
    NEEDS_A_PRINTER();
    const std::string sName = Unique("long");
    Open(MakeAccount(sName, nLong));
    const std::string sOther = CopySample();
    BeginPrint().End(IDOK);
    AwaitDialog(m_program, "Printing...");
    HandOverFile(sOther);
    AwaitPrinted(sName);
    AwaitFrameInUse();
    EXPECT_EQ(m_program.GetDocuments().size(), 2U);
}

TEST_F(PrintingTest, CancelOfAJobSaysNothing)
{
    NEEDS_A_PRINTER();
    Open(MakeAccount(Unique("long"), nLong));
    BeginPrint().End(IDOK);
    AwaitDialog(m_program, "Printing...").End(IDCANCEL);
    AwaitFrameInUse();
}

// ---- A printer that vanishes.

TEST_F(PrintingTest, APrinterThatVanishesDuringAJobIsToldOf)
{
    if (!StoppedSpooler::IsPossible()) {
        GTEST_SKIP() << "the spooler that runs is not one that a test may stop";
    }
    const std::string sName = Unique("long");
    Open(MakeAccount(sName, nLong));
    BeginPrint().End(IDOK);
    const DialogWindow progress = AwaitDialog(m_program, "Printing...");
    {
        auto pSuspended = std::make_unique<Suspended>(m_program);
        const StoppedSpooler stopped;
        EXPECT_TRUE(progress.IsOpen());
        pSuspended.reset();
        Await(
            "the end of the job", [&] { return !progress.IsOpen(); }, uPrintLimit);
        m_program.AnswerBox("Failed to print file '" + sName + szNoPrinter);
        AwaitFrameInUse();
    }
    const std::string sAgain = Unique("again");
    HandOverFile(MakeAccount(sAgain, 3));
    BeginPrint().End(IDOK);
    EXPECT_EQ(AwaitPrinted(sAgain).GetPageCount(), 2);
    AwaitFrameInUse();
    EXPECT_EQ(m_program.Close(), 0U);
}
