// Print, Print Preview and Page Setup, with the printer of the tests or without any.

#include <windows.h>

#include <dlgs.h> // needs the former

#include "base/vtext.h"
#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/e2e_test.h"
#include "tests/support/printeddocument.h"
#include "tests/support/wine_support_win.h"

namespace {

constexpr char szNoPrinter[] =
    "'.\n\nPlease make sure that there is a printer installed and connected to this computer.";

// Spooling takes its time.
constexpr DWORD uPrintLimit = 120000;

// Transactions whose pages are long on their way to the spooler.
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
        // The system words the caption.
        return AwaitDialog(m_program, IsWine() ? "Setup Page" : "Page Setup");
    }

    // Waits for the end of a command that put the frame out of use.
    void AwaitFrameInUse() const
    {
        Await("the frame's use", [&] {
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

    static std::string Margins() { return ReadSettingText("Page Setup", "Margins"); }
};

#define NEEDS_A_PRINTER()                            \
    if (!PrintedDocument::HasSpooler()) {            \
        GTEST_SKIP() << "no spooler for tests runs"; \
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
        GTEST_SKIP() << "there is a printer";
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

TEST_F(PrintingTest, PrintsCopiesAndARange)
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
    // Its three rows fill no page, and its columns need two side by side.
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
