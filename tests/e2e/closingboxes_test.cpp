// Requests to close that come while a box is on the screen, or a dialog over another one. Whatever
// the command stands on stays open, and the user can go on.

#include <algorithm>
#include <cstring>
#include <memory>

#include "tests/e2e/closing_test.h"
#include "tests/e2e/standins.h"
#include "tests/support/printeddocument.h"
#include "tests/support/wine_support_win.h"

namespace {

// ---- Boxes, and the dialogs under them.

class BoxClosingTest;

// How an account of four transactions comes to show a box.
struct Scene
{
    const char* szName;
    void (*pOpen)(BoxClosingTest& test);
    // The text of the box. '@' stands for the folder of the test.
    const char* szBox;
    int nAnswer = IDOK;
    const char* szThen = nullptr; // the text of the box that follows
    // The dialog that stays when the boxes are answered, and the button that ends it.
    const char* szUnder = nullptr;
    int nEnd = IDCANCEL;
    bool bReadOnly = false; // the account
};

class BoxClosingTest : public ClosingTest, public testing::WithParamInterface<Scene>
{
public:
    // ---- For the scenes.

    using ClosingTest::ActiveList;
    using ClosingTest::BeginAdding;
    using ClosingTest::m_program;
    using ClosingTest::MakeFile;
    using ClosingTest::PathOf;
    using ClosingTest::Select;

    DialogWindow Begin(UINT uCommand, const std::string& sCaption) const
    {
        m_program.Post(uCommand);
        return AwaitDialog(m_program, sCaption);
    }

    DialogWindow BeginBankPage() const
    {
        const DialogWindow sheet = Begin(IDM_FILE_ACCOUNTINFO, "Account Information - three.qmk");
        return AwaitPage(m_program, sheet, 1, IDC_BANK_GO);
    }

    void StartSecond(const std::string& sArgument)
    {
        m_second.Start(ProgramFolder() + "quillmark.exe", {sArgument});
    }

    void SetNoBrowser()
    {
        m_pBrowser = std::make_unique<ScopedBrowser>("c:\\gone\\browser.exe %1");
    }

protected:
    std::string Filled(const char* szText) const
    {
        std::string sText = szText;
        const size_t uAt = sText.find('@');
        return uAt == std::string::npos ? sText : sText.replace(uAt, 1, PathOf(""));
    }

    // Asks to close under a box, which stays, and answers it.
    void AskUnderBox(const char* szText, int nAnswer) const
    {
        const MessageBoxWindow box = AwaitMessageBox(m_program.GetId(), Filled(szText));
        AskToClose();
        ExpectKept(1);
        box.Press(nAnswer);
    }

    // The second start waits for the answers to what it has handed over.
    void EndSecond()
    {
        if (m_second.GetHandle() != nullptr) {
            EXPECT_EQ(m_second.AwaitExit(), 1U);
        }
    }

private:
    Process m_second;
    std::unique_ptr<ScopedBrowser> m_pBrowser;
};

const Scene aScenes[] = {
    {.szName = "NothingSelected",
     .pOpen =
         [](BoxClosingTest& test) {
             test.Select({});
             test.m_program.Post(IDM_TRANSACTION_EDIT);
         },
     .szBox = "Cannot edit transaction.\nNo transaction is selected."},
    {.szName = "ReadOnly",
     .pOpen = [](BoxClosingTest& test) { test.m_program.Post(IDM_TRANSACTION_ADD); },
     .szBox = "This command cannot be performed in read-only mode.",
     .bReadOnly = true},
    {.szName = "ClickInReadOnly",
     .pOpen = [](BoxClosingTest& test) { test.ActiveList().Click(1, 3); },
     .szBox = "This command cannot be performed in read-only mode.",
     .bReadOnly = true},
    {.szName = "RemoveOne",
     .pOpen = [](BoxClosingTest& test) { test.m_program.Post(IDM_TRANSACTION_REMOVE); },
     .szBox = "Are you sure you want to remove this transaction?",
     .nAnswer = IDNO},
    {.szName = "RemoveSeveral",
     .pOpen =
         [](BoxClosingTest& test) {
             test.Select({0, 1});
             test.m_program.Post(IDM_TRANSACTION_REMOVE);
         },
     .szBox = "Are you sure you want to remove these transactions?",
     .nAnswer = IDNO},
    {.szName = "WrongEntry",
     .pOpen = [](BoxClosingTest& test) { test.BeginAdding().Press(IDC_TX_ADD); },
     .szBox = "An invalid amount was entered.",
     .szUnder = "Add Transaction"},
    {.szName = "NumberInUse",
     .pOpen =
         [](BoxClosingTest& test) {
             const DialogWindow dialog = test.BeginAdding();
             Entry{.sDate = "2004-01-02", .sAmount = "1", .sNumber = "1000", .sDescription = "x"}
                 .Fill(dialog);
             dialog.Press(IDC_TX_ADD);
         },
     .szBox = "Check number already in use.\nWould you like to continue?",
     .nAnswer = IDNO,
     .szUnder = "Add Transaction"},
    {.szName = "PasswordsDiffer",
     .pOpen =
         [](BoxClosingTest& test) {
             const DialogWindow dialog = test.Begin(IDM_FILE_PASSWORD, "Set Password");
             dialog.SetText(IDC_PW_NEW, "one");
             dialog.SetText(IDC_PW_NEWAGAIN, "other");
             dialog.Press(IDOK);
         },
     .szBox = "New password entries do not match.",
     .szUnder = "Set Password"},
    {.szName = "PasswordOff",
     .pOpen =
         [](BoxClosingTest& test) { test.Begin(IDM_FILE_PASSWORD, "Set Password").Press(IDOK); },
     .szBox = "Both new password enteries are empty.\nDo you want password protection turned off?",
     .nAnswer = IDNO,
     .szUnder = "Set Password"},
    {.szName = "ImportFailure",
     .pOpen =
         [](BoxClosingTest& test) {
             test.m_program.Post(IDM_FILE_IMPORT);
             AwaitFileDialog(test.m_program, "Open").Enter(test.MakeFile("bad.xml", "<not closed"));
         },
     .szBox = "Failed to import transactions from file\n'@bad.xml'."},
    {.szName = "ExportResult",
     .pOpen =
         [](BoxClosingTest& test) {
             test.m_program.Post(IDM_FILE_EXPORT);
             AwaitFileDialog(test.m_program, "Save As").Enter(test.PathOf("out.csv"));
         },
     .szBox = "Successfully exported 4 transactions to file:\n'@out.csv'."},
    {.szName = "ExportFailure",
     .pOpen =
         [](BoxClosingTest& test) {
             test.m_program.Post(IDM_FILE_EXPORT);
             AwaitFileDialog(test.m_program, "Save As").Enter(test.PathOf("out.txt"));
         },
     .szBox = "Failed to export transactions to file:\n'@out.txt'.",
     .szThen = "Failed to export transactions to file\n'@out.txt'."},
    {.szName = "RecentFileThatIsGone",
     .pOpen =
         [](BoxClosingTest& test) {
             WriteSettingText("Recent File List", "File2", test.PathOf("gone.qmk"));
             test.m_program.Post(IDM_FILE_RECENT_FIRST + 1);
         },
     .szBox = "File '@gone.qmk' does not exist."},
    {.szName = "RecentFileThatIsRefused",
     .pOpen =
         [](BoxClosingTest& test) {
             WriteSettingText("Recent File List", "File2", test.MakeFile("bad.qmk", "bad"));
             test.m_program.Post(IDM_FILE_RECENT_FIRST + 1);
         },
     .szBox = "Failed to open file '@bad.qmk'."},
    {.szName = "HandedFileThatIsGone",
     .pOpen = [](BoxClosingTest& test) { test.StartSecond(test.PathOf("gone.qmk")); },
     .szBox = "Failed to open.\nFile '@gone.qmk' does not exist."},
    {.szName = "BankWithoutAnAddress",
     .pOpen = [](BoxClosingTest& test) { test.BeginBankPage().Press(IDC_BANK_GO); },
     .szBox = "Please Enter a URL.",
     .szUnder = "Account Information - three.qmk"},
    {.szName = "BankWithoutABrowser",
     .pOpen =
         [](BoxClosingTest& test) {
             test.SetNoBrowser();
             const DialogWindow page = test.BeginBankPage();
             page.SetText(IDC_BANK_HOMEPAGE, "http://www.bank.example/");
             page.Press(IDC_BANK_GO);
         },
     .szBox = "Could not launch browser ''.",
     .szUnder = "Account Information - three.qmk"},
    {.szName = "BankWebpageWithoutABrowser",
     .pOpen =
         [](BoxClosingTest& test) {
             test.SetNoBrowser();
             test.m_program.Post(IDM_TOOLS_BANKWEBPAGE);
         },
     .szBox = "Could not launch browser\n''."},
    {.szName = "ReversedReport",
     .pOpen =
         [](BoxClosingTest& test) {
             const DialogWindow dialog = test.Begin(IDM_TOOLS_REPORTS, "Reports - three.qmk");
             dialog.Check(IDC_REPORT_BYRANGE);
             dialog.SetDate(IDC_REPORT_FROM, "2004-03-02");
             dialog.SetDate(IDC_REPORT_TO, "2004-03-01");
             dialog.Press(IDC_REPORT_RUN);
         },
     .szBox = "The 'From' date does not proceed the 'To' date.\nPlease select a valid date range.",
     .szUnder = "Reports - three.qmk",
     .nEnd = IDC_REPORT_CLOSE},
};

TEST_P(BoxClosingTest, KeepsTheFrameWhileItIsOpen)
{
    const Scene& scene = GetParam();
    const std::string sPath = OpenThree(scene.bReadOnly);
    scene.pOpen(*this);
    AskUnderBox(scene.szBox, scene.nAnswer);
    if (scene.szThen != nullptr) {
        AskUnderBox(scene.szThen, IDOK);
    }
    if (scene.szUnder != nullptr) {
        const DialogWindow dialog = AwaitDialog(m_program, scene.szUnder);
        Await("the dialog's use", [&] { return IsWindowEnabled(dialog.GetHandle()) != FALSE; });
        AskToClose();
        EXPECT_TRUE(dialog.IsOpen());
        dialog.End(scene.nEnd);
    }
    EndSecond();
    ExpectUsable(sPath);
}

std::string NameOfScene(const testing::TestParamInfo<Scene>& test)
{
    return test.param.szName;
}

INSTANTIATE_TEST_SUITE_P(All, BoxClosingTest, testing::ValuesIn(aScenes), NameOfScene);

// ---- Dialogs over dialogs.

struct Pair
{
    const char* szName;
    UINT uCommand;
    const char* szOuter;
    // Presses what brings up the inner dialog.
    void (*pPress)(const Program& program, const DialogWindow& outer);
    std::string sInner;
    int nEndInner;
    int nEndOuter;
    bool bPrints;
};

// A report must have been run before it can be printed or previewed.
void PressOfReport(const DialogWindow& dialog, int nId)
{
    dialog.Press(IDC_REPORT_RUN);
    Await("the report", [&] { return dialog.IsEnabled(nId); });
    dialog.Press(nId);
}

const Pair aPairs[] = {
    {"Font", IDM_TOOLS_OPTIONS, "Options - three.qmk",
     [](const Program& program, const DialogWindow& sheet) {
         AwaitPage(program, sheet, 2, IDC_OPTION_SELECTFONT).Press(IDC_OPTION_SELECTFONT);
     },
     "Font", IDCANCEL, IDCANCEL, false},
    {"Colour", IDM_TOOLS_OPTIONS, "Options - three.qmk",
     [](const Program& program, const DialogWindow& sheet) {
         AwaitPage(program, sheet, 2, IDC_OPTION_SELECTPOSITIVE).Press(IDC_OPTION_SELECTPOSITIVE);
     },
     "Color", IDCANCEL, IDCANCEL, false},
    {"PrintFromThePreview", IDM_FILE_PREVIEW, "Print Preivew - three.qmk",
     [](const Program&, const DialogWindow& preview) { preview.Press(IDC_PREVIEW_PRINT); }, "Print",
     IDCANCEL, IDC_PREVIEW_CLOSE, true},
    {"PageSetupFromThePreview", IDM_FILE_PREVIEW, "Print Preivew - three.qmk",
     [](const Program&, const DialogWindow& preview) { preview.Press(IDC_PREVIEW_SETUP); },
     // Only the system words this caption.
     IsWine() ? "Setup Page" : "Page Setup", IDCANCEL, IDC_PREVIEW_CLOSE, true},
    {"PrintOfAReport", IDM_TOOLS_REPORTS, "Reports - three.qmk",
     [](const Program&, const DialogWindow& dialog) { PressOfReport(dialog, IDC_REPORT_PRINT); },
     "Print", IDCANCEL, IDC_REPORT_CLOSE, true},
    {"PreviewOfAReport", IDM_TOOLS_REPORTS, "Reports - three.qmk",
     [](const Program&, const DialogWindow& dialog) { PressOfReport(dialog, IDC_REPORT_PREVIEW); },
     "Print Preivew - Quillmark Report", IDC_PREVIEW_CLOSE, IDC_REPORT_CLOSE, true},
};

class PairClosingTest : public ClosingTest, public testing::WithParamInterface<Pair>
{};

TEST_P(PairClosingTest, KeepsTheFrameWhileItIsOpen)
{
    const Pair& pair = GetParam();
    if (pair.bPrints && !PrintedDocument::HasSpooler()) {
        GTEST_SKIP() << "no spooler for tests runs";
    }
    const std::string sPath = OpenThree();
    m_program.Post(pair.uCommand);
    const DialogWindow outer = AwaitDialog(m_program, pair.szOuter);
    pair.pPress(m_program, outer);
    const DialogWindow inner = AwaitDialog(m_program, pair.sInner);
    AskToClose();
    ExpectKept(1);
    EXPECT_TRUE(inner.IsOpen());
    inner.End(pair.nEndInner);
    Await("the use of the dialog", [&] { return IsWindowEnabled(outer.GetHandle()) != FALSE; });
    AskToClose();
    ExpectKept(1);
    EXPECT_TRUE(outer.IsOpen());
    outer.End(pair.nEndOuter);
    ExpectUsable(sPath);
}

std::string NameOfPair(const testing::TestParamInfo<Pair>& test)
{
    return test.param.szName;
}

INSTANTIATE_TEST_SUITE_P(All, PairClosingTest, testing::ValuesIn(aPairs), NameOfPair);

// ---- Boxes that need more than a line.

TEST_F(ClosingTest, BoxWithoutADocumentKeepsTheFrame)
{
    m_program.Open();
    m_program.Post(IDM_FILE_SAVE);
    const MessageBoxWindow box =
        AwaitMessageBox(m_program.GetId(), "Cannot save file...\nNo document window is selected.");
    AskToClose();
    ExpectKept(0);
    box.Press(IDOK);
    EXPECT_EQ(m_program.Close(), 0U);
}

TEST_F(ClosingTest, RefusalToClearKeepsTheFrame)
{
    const std::string sPath = OpenThree();
    Select({3});
    m_program.Post(IDM_TRANSACTION_CLEARED);
    const MessageBoxWindow box =
        AwaitMessageBox(m_program.GetId(),
                        "Transaction 4:\n\nUnable to set cleared status.\nThis transaction has an "
                        "amount of $0.00.");
    AskToClose();
    ExpectKept(1);
    box.Press(IDOK);
    // The command marks the account as changed all the same.
    AwaitTitle("three.qmk *");
    CloseAnswering("three.qmk", IDNO);
    EXPECT_EQ(ReadWholeFile(sPath), m_sBytes);
}

TEST_F(ClosingTest, QuestionOfADocumentThatClosesIsAskedOnce)
{
    OpenThree();
    Do(IDM_TRANSACTION_CLEARED);
    AwaitTitle("three.qmk *");
    m_program.Post(IDM_FILE_CLOSE);
    ExpectAskedOnce();
    AwaitTitle("three.qmk *");
}

TEST_F(ClosingTest, WrongPasswordOfAHandedFileKeepsTheFrame)
{
    const std::string sSecret = MakeAccount(
        "secret.qmk", 3, [](QMAccount& account) { memcpy(account.header.szPassword, "open", 4); });
    const std::string sPath = OpenThree();
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {sSecret});
    const DialogWindow dialog = AwaitDialog(m_program, "Enter Password");
    dialog.SetText(IDC_PW_CURRENT, "closed");
    dialog.Press(IDOK);
    MessageBoxWindow box = AwaitMessageBox(m_program.GetId(), "Invalid password entered.");
    AskToClose();
    ExpectKept(1);
    box.Press(IDOK);
    dialog.End(IDCANCEL);
    box = AwaitMessageBox(m_program.GetId(), "Failed to open file '" + sSecret + "'.");
    AskToClose();
    ExpectKept(1);
    box.Press(IDOK);
    EXPECT_EQ(second.AwaitExit(), 1U);
    ExpectUsable(sPath);
}

// The dialog asks whether to replace the file. Windows words that question.
TEST_F(ClosingTest, QuestionAndFailureOfSaveAsKeepTheFrame)
{
    const std::string sPath = OpenThree();
    // The test holds this file open, so nobody else can write it.
    const std::string sHeld = MakeFile("held.qmk", "held");
    HANDLE hFile = CreateFileA(sHeld.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    m_program.Post(IDM_FILE_SAVEAS);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
    dialog.EnterName(sHeld);
    dialog.Accept();
    const MessageBoxWindow question = AwaitBoxWith(m_program.GetId(), IDYES);
    AskToClose();
    ExpectKept(1);
    question.Press(IDYES);
    const MessageBoxWindow box =
        AwaitMessageBox(m_program.GetId(), "Failed to save file '" + sHeld + "'.");
    AskToClose();
    ExpectKept(1);
    box.Press(IDOK);
    CloseHandle(hFile);
    ExpectUsable(sPath);
}

TEST_F(ClosingTest, FailuresWithoutAPrinterKeepTheFrame)
{
    if (PrintedDocument::HasSpooler()) {
        GTEST_SKIP() << "there is a printer";
    }
    const std::string sPath = OpenThree();
    for (const auto& [uCommand, sFailure] :
         {std::pair{IDM_FILE_PRINT, "Failed to print file 'three.qmk'."},
          std::pair{IDM_FILE_PREVIEW, "Failed to create preview for 'three.qmk'."}}) {
        m_program.Post(static_cast<UINT>(uCommand));
        const MessageBoxWindow box = AwaitMessageBox(
            m_program.GetId(), std::string(sFailure) +
                                   "\n\nPlease make sure that there is a printer installed and "
                                   "connected to this computer.");
        AskToClose();
        ExpectKept(1);
        box.Press(IDOK);
    }
    ExpectUsable(sPath);
}

} // namespace
