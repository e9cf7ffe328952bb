// Requests to close that come while a command runs. What the command needs stays open, the user can
// go on with it, and no file is changed. Those that come under a box are in a file of their own.

#include <cstring>

#include "tests/e2e/closing_test.h"
#include "tests/e2e/currentfolder.h"
#include "tests/e2e/reviewwindow.h"
#include "tests/support/printeddocument.h"
#include "tests/support/wine_support_win.h"

namespace {

constexpr char szQif[] =
    "!Type:Bank\n"
    "D01/05/1980\nT-12.50\nPEarly\n^\n"
    "D01/20/2024\nT100.00\nPLate\n^\n";

// A command that opens a dialog.
struct Opener
{
    const char* szName;
    UINT uCommand;
    const char* szCaption;
    int nEnd = IDCANCEL; // the button that ends the dialog
    bool bPrints = false;
};

constexpr Opener aOpeners[] = {
    {"Add", IDM_TRANSACTION_ADD, "Add Transaction"},
    {"Edit", IDM_TRANSACTION_EDIT, "Edit Transaction"},
    {"Open", IDM_FILE_OPEN, "Open"},
    {"SaveAs", IDM_FILE_SAVEAS, "Save As"},
    {"Import", IDM_FILE_IMPORT, "Open"},
    {"Export", IDM_FILE_EXPORT, "Save As"},
    {"Password", IDM_FILE_PASSWORD, "Set Password"},
    {"AccountInformation", IDM_FILE_ACCOUNTINFO, "Account Information - three.qmk"},
    {"Options", IDM_TOOLS_OPTIONS, "Options - three.qmk"},
    {"Reports", IDM_TOOLS_REPORTS, "Reports - three.qmk", IDC_REPORT_CLOSE},
    {"Print", IDM_FILE_PRINT, "Print", IDCANCEL, true},
    {"Preview", IDM_FILE_PREVIEW, "Print Preivew - three.qmk", IDC_PREVIEW_CLOSE, true},
    {"PageSetup", IDM_FILE_PAGESETUP, nullptr, IDCANCEL, true},
};

class DialogClosingTest : public ClosingTest, public testing::WithParamInterface<Opener>
{};

TEST_P(DialogClosingTest, KeepsTheFrameWhileItIsOpen)
{
    if (GetParam().bPrints && !PrintedDocument::HasSpooler()) {
        GTEST_SKIP() << "the spooler of the tests does not run";
    }
    const std::string sPath = OpenThree();
    m_program.Post(GetParam().uCommand);
    // Only the system words a caption that is not given.
    const char* szSystem = IsWine() ? "Setup Page" : "Page Setup";
    const DialogWindow dialog =
        AwaitDialog(m_program, GetParam().szCaption == nullptr ? szSystem : GetParam().szCaption);
    AskToClose();
    ExpectKept(1);
    EXPECT_TRUE(dialog.IsOpen());
    dialog.End(GetParam().nEnd);
    ExpectUsable(sPath);
}

std::string NameOfOpener(const testing::TestParamInfo<Opener>& test)
{
    return test.param.szName;
}

INSTANTIATE_TEST_SUITE_P(All, DialogClosingTest, testing::ValuesIn(aOpeners), NameOfOpener);

TEST_F(ClosingTest, AboutKeepsTheFrame)
{
    const std::string sPath = OpenThree();
    m_program.Post(IDM_HELP_ABOUT);
    HWND hAbout = nullptr;
    Await("the About box", [&] {
        for (HWND hWnd : TopWindows(m_program.GetId())) {
            hAbout = WindowText(hWnd) == "About Quillmark" ? hWnd : hAbout;
        }
        return hAbout != nullptr;
    });
    AskToClose();
    ExpectKept(1);
    const DialogWindow about(m_program.GetProcess(), hAbout);
    about.End(IDOK);
    ExpectUsable(sPath);
}

// The calculator is no dialog that keeps the user from the frame.
TEST_F(ClosingTest, CalculatorDoesNotKeepTheFrame)
{
    const std::string sPath = OpenThree();
    m_program.Post(IDM_TOOLS_CALCULATOR);
    AwaitDialog(m_program, "Calculator");
    EXPECT_EQ(SendTo(Frame(), WM_QUERYENDSESSION), 1);
    EXPECT_EQ(m_program.AwaitExit(), 0U);
    EXPECT_EQ(ReadWholeFile(sPath), m_sBytes);
}

TEST_F(ClosingTest, FailureOfOpenKeepsTheFrame)
{
    const std::string sPath = OpenThree();
    const std::string sBroken = MakeFile("broken.qmk", "no account");
    m_program.Post(IDM_FILE_OPEN);
    AwaitFileDialog(m_program, "Open").Enter(sBroken);
    const MessageBoxWindow box =
        AwaitMessageBox(m_program.GetId(), "Failed to open file '" + sBroken + "'.");
    AskToClose();
    ExpectKept(1);
    box.Press(IDOK);
    ExpectUsable(sPath);
}

TEST_F(ClosingTest, EntryOfTheDialogThatStayedIsAdded)
{
    OpenThree();
    const DialogWindow dialog = BeginAdding();
    AskToClose();
    Entry{.sDate = "2004-01-01", .sAmount = "1", .sDescription = "kept"}.Fill(dialog);
    dialog.End(IDOK);
    AwaitRowCount(5);
    AwaitTitle("three.qmk *");
}

TEST_F(ClosingTest, EditOfTheDialogThatStayedIsStored)
{
    const std::string sPath = OpenThree();
    const DialogWindow dialog = BeginEditing();
    AskToClose();
    dialog.SetText(IDC_TX_MEMO, "changed");
    dialog.End(IDOK);
    AwaitTitle("three.qmk *");
    EXPECT_NE(SaveCloseAndRead(sPath)[1].find("changed"), std::string::npos);
}

TEST_F(ClosingTest, DoubleClickRunsACommandToo)
{
    const std::string sPath = OpenThree();
    ActiveList().DoubleClick(1, 1);
    const DialogWindow dialog = AwaitDialog(m_program, "Edit Transaction");
    AskToClose();
    ExpectKept(1);
    dialog.End(IDCANCEL);
    ExpectUsable(sPath);
}

TEST_F(ClosingTest, ImportReviewStaysAndImports)
{
    const std::string sPath = OpenThree();
    const std::string sFile = MakeFile("import.qif", szQif);
    m_program.Post(IDM_FILE_IMPORT);
    AwaitFileDialog(m_program, "Open").Enter(sFile);
    const ReviewWindow review = AwaitReview(m_program);
    AskToClose();
    ExpectKept(1);
    review.End(IDC_IMPORT_IMPORT);
    const MessageBoxWindow box = AwaitMessageBox(
        m_program.GetId(), "Successfully imported 2 transactions from file:\n'" + sFile + "'.");
    AskToClose();
    ExpectKept(1);
    box.Press(IDOK);
    AwaitRowCount(6);
    CloseAnswering("three.qmk", IDNO);
    EXPECT_EQ(ReadWholeFile(sPath), m_sBytes);
}

TEST_F(ClosingTest, OrderOfTheCommandLineIsACommand)
{
    const std::string sPath = MakeAccount("target.qmk", 3);
    const std::string sFile = MakeFile("import.qif", szQif);
    m_program.Start({"-I" + sFile + "|" + sPath});
    m_program.AwaitFrame();
    const ReviewWindow review = AwaitReview(m_program);
    AskToClose();
    ExpectKept(1);
    review.End(IDCANCEL);
    m_program.Settle();
    EXPECT_EQ(m_program.Close(), 0U);
}

TEST_F(ClosingTest, PasswordQuestionKeepsTheFrame)
{
    const std::string sSecret = MakeAccount(
        "secret.qmk", 3, [](QMAccount& account) { memcpy(account.header.szPassword, "open", 4); });
    m_program.Open();
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {sSecret});
    const DialogWindow dialog = AwaitDialog(m_program, "Enter Password");
    AskToClose();
    ExpectKept(0);
    dialog.SetText(IDC_PW_CURRENT, "open");
    dialog.End(IDOK);
    EXPECT_EQ(second.AwaitExit(), 1U);
    m_program.AwaitActive(sSecret);
}

TEST_F(ClosingTest, QuestionWhetherToSaveIsAskedOnce)
{
    const std::string sPath = OpenThree();
    Do(IDM_TRANSACTION_CLEARED);
    AwaitTitle("three.qmk *");
    PostMessageA(Frame(), WM_CLOSE, 0, 0);
    ExpectAskedOnce();
    PostMessageA(Frame(), WM_CLOSE, 0, 0);
    m_program.AnswerQuestion(szSaveQuestion, {IDYES, IDNO, IDCANCEL}, IDNO);
    EXPECT_EQ(m_program.AwaitExit(), 0U);
    EXPECT_EQ(ReadWholeFile(sPath), m_sBytes);
}

TEST_F(ClosingTest, FailureOfSaveAllOutlivesAFileThatOpensMeanwhile)
{
    // Neither can be written: there are folders of these names.
    ASSERT_TRUE(CreateDirectoryA(PathOf("Untitled1").c_str(), nullptr));
    ASSERT_TRUE(CreateDirectoryA(PathOf("Untitled2").c_str(), nullptr));
    {
        const CurrentFolder folder(PathOf(""));
        OpenNew();
    }
    m_program.NewDocument(2);
    m_program.Post(IDM_FILE_SAVEALL);
    const MessageBoxWindow box =
        AwaitMessageBox(m_program.GetId(), "Failed to save file 'Untitled1'.");
    std::vector<std::string> paths;
    for (int i = 0; i < 8; ++i) {
        paths.push_back(MakeAccount("more" + std::to_string(i) + ".qmk", 1));
    }
    EXPECT_EQ(StartAgain(paths), 1U);
    AskToClose();
    ExpectKept(10);
    box.Press(IDOK);
    m_program.AnswerBox("Failed to save file 'Untitled2'.");
    m_program.Settle();
    EXPECT_TRUE(m_program.GetBoxes().empty());
    ExpectKept(10);
}

// ---- A document that was never saved.

class NewDocumentClosingTest : public ClosingTest
{
protected:
    // A new document with a transaction. The current folder of the program is that of the test.
    void OpenNewChanged()
    {
        {
            const CurrentFolder folder(PathOf(""));
            OpenNew();
        }
        Add({.sDate = "2004-01-01", .sAmount = "1", .sDescription = "kept"});
        AwaitTitle("Untitled1 *");
    }

    // Asks to close and answers that the changes are to be saved.
    FileDialogWindow CloseWithYes(HWND hWnd) const
    {
        PostMessageA(hWnd, WM_CLOSE, 0, 0);
        m_program.AnswerQuestion("Save changes to 'Untitled1'?", {IDYES, IDNO, IDCANCEL}, IDYES);
        return AwaitFileDialog(m_program, "Save As");
    }

    bool HasFile(const char* szName) const
    {
        return GetFileAttributesA(PathOf(szName).c_str()) != INVALID_FILE_ATTRIBUTES;
    }
};

TEST_F(NewDocumentClosingTest, AsksForANameAndCancelKeepsTheWindow)
{
    OpenNewChanged();
    CloseWithYes(m_program.GetActiveDocument()).End(IDCANCEL);
    m_program.Settle();
    AwaitTitle("Untitled1 *");
    EXPECT_FALSE(HasFile("Untitled1"));
    CloseWithYes(m_program.GetActiveDocument()).Enter(PathOf("mine.qmk"));
    m_program.AwaitDocuments(0);
    EXPECT_FALSE(HasFile("Untitled1"));
    EXPECT_EQ(LinesOfFile(PathOf("mine.qmk")).size(), 1U);
    EXPECT_EQ(ReadSettingText("Recent File List", "File1"), PathOf("mine.qmk"));
}

TEST_F(NewDocumentClosingTest, CancelKeepsTheFrameTooAndANameClosesIt)
{
    OpenNewChanged();
    const FileDialogWindow dialog = CloseWithYes(Frame());
    AskToClose();
    EXPECT_TRUE(dialog.IsOpen());
    dialog.End(IDCANCEL);
    m_program.Settle();
    ExpectKept(1);
    CloseWithYes(Frame()).Enter(PathOf("mine.qmk"));
    EXPECT_EQ(m_program.AwaitExit(), 0U);
    EXPECT_EQ(LinesOfFile(PathOf("mine.qmk")).size(), 1U);
}

TEST_F(NewDocumentClosingTest, FileOfItsNameThatIsNotItsOwnIsLeftAlone)
{
    const std::string sOther = MakeFile("Untitled1", "of somebody else");
    OpenNewChanged();
    CloseWithYes(m_program.GetActiveDocument()).Enter(PathOf("mine.qmk"));
    m_program.AwaitDocuments(0);
    EXPECT_EQ(ReadWholeFile(sOther), "of somebody else");
    EXPECT_EQ(LinesOfFile(PathOf("mine.qmk")).size(), 1U);
}

TEST_F(NewDocumentClosingTest, NameThatCannotBeWrittenKeepsTheWindow)
{
    OpenNewChanged();
    // The test holds this file open, so nobody else can write it.
    const std::string sHeld = MakeFile("held.qmk", "held");
    HANDLE hFile = CreateFileA(sHeld.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    const FileDialogWindow dialog = CloseWithYes(m_program.GetActiveDocument());
    dialog.EnterName(sHeld);
    dialog.Accept();
    Await("the question whether to replace the file, or the failure", [&] {
        for (const MessageBoxWindow& box : m_program.GetBoxes()) {
            if (box.GetText() == "Failed to save file '" + sHeld + "'.") {
                box.Press(IDOK);
                return true;
            }
            const std::vector<int> buttons = box.GetButtons();
            if (!buttons.empty() && box.GetHandle() != dialog.GetHandle()) {
                box.Press(buttons.size() > 1 ? IDYES : buttons[0]);
            }
        }
        return false;
    });
    CloseHandle(hFile);
    m_program.Settle();
    AwaitTitle("Untitled1 *");
}

TEST_F(NewDocumentClosingTest, OneThatWasSavedByItsNameIsSavedInPlace)
{
    OpenNewChanged();
    Do(IDM_FILE_SAVEALL);
    Add({.sDate = "2004-01-02", .sAmount = "2", .sDescription = "second"});
    CloseAnswering("Untitled1", IDYES);
    EXPECT_EQ(LinesOfFile(PathOf("Untitled1")).size(), 2U);
}

} // namespace
