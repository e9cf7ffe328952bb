// Opening and saving accounts by the menu, and the state after a failure.

#include "tests/e2e/currentfolder.h"
#include "tests/e2e/keyboard.h"
#include "tests/e2e/work_test.h"

namespace {

class SavingTest : public WorkTest
{
protected:
    // Opens an account and changes it. Saving it would write another file.
    std::string OpenChanged(const std::string& sName = "changed.qmk")
    {
        const std::string sPath = MakeAccount(sName, 3);
        OpenAccount(sPath);
        Do(IDM_TRANSACTION_CLEARED);
        AwaitTitle(sName + " *");
        return sPath;
    }

    // Answers the question of Windows whether to replace a file.
    void AnswerReplace(int nAnswer) const
    {
        AwaitBoxWith(m_program.GetId(), nAnswer).Press(nAnswer);
    }

    // Asks to save under the name of a file that exists already.
    void SaveOver(const std::string& sPath) const
    {
        m_program.Post(IDM_FILE_SAVEAS);
        const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
        dialog.EnterName(sPath);
        dialog.Accept();
        AnswerReplace(IDYES);
        dialog.AwaitEnd();
    }

    // Checks that after a failed save the document is as before.
    void ExpectStillChanged(const std::string& sPath, const std::string& sBytes) const
    {
        m_program.Settle();
        const std::string sName = sPath.substr(sPath.find_last_of('\\') + 1);
        EXPECT_EQ(m_program.GetActiveTitle(), sName + " *");
        EXPECT_EQ(ActiveList().GetRowCount(), 3);
        EXPECT_TRUE(IsLocked(sPath));
        CloseAnswering(sName, IDNO);
        EXPECT_EQ(ReadWholeFile(sPath), sBytes);
    }

    static std::string Failed(const std::string& sPath)
    {
        return "Failed to save file '" + sPath + "'.";
    }
};

// ---- Opening.

TEST_F(SavingTest, SameFileTwiceIsActivatedAndTheRecentFilesStay)
{
    const std::string sFirst = MakeAccount("first.qmk", 1);
    const std::string sSecond = MakeAccount("second.qmk", 2);
    m_program.Open({sFirst, sSecond});
    const Texts before = AllSettings();
    ChooseToOpen(sFirst);
    AwaitTitle(sFirst);
    EXPECT_EQ(m_program.GetDocuments().size(), 2U);
    EXPECT_EQ(ReadSettingText("Recent File List", "File1"), sSecond);
    EXPECT_EQ(ReadSettingText("Recent File List", "File2"), sFirst);
}

TEST_F(SavingTest, BadFileOfSeveralDropsTheRest)
{
    const std::string sFirst = MakeAccount("a.qmk", 1);
    const std::string sBad = MakeFile("b.qmk", "bad");
    const std::string sLast = MakeAccount("c.qmk", 2);
    m_program.Open();
    m_program.Post(IDM_FILE_OPEN);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Open");
    dialog.EnterName(PathOf(""));
    dialog.Accept();
    Await("the folder", [&] { return dialog.GetName().empty(); });
    dialog.EnterName(R"("a.qmk" "b.qmk" "c.qmk")");
    dialog.Accept();
    m_program.AnswerBox("Failed to open file '" + sBad + "'.");
    m_program.Settle();
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sFirst});
    EXPECT_FALSE(IsLocked(sLast));
}

TEST_F(SavingTest, SeveralFilesOpenInTheDialogsOrder)
{
    const std::string sFirst = MakeAccount("a.qmk", 1);
    const std::string sSecond = MakeAccount("b.qmk", 2);
    m_program.Open();
    m_program.Post(IDM_FILE_OPEN);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Open");
    EXPECT_EQ(dialog.GetTypes(), (Texts{"Quillmark Files (*.qmk)", "All Files (*.*)"}));
    dialog.EnterName(PathOf(""));
    dialog.Accept();
    Await("the folder", [&] { return dialog.GetName().empty(); });
    dialog.EnterName(R"("a.qmk" "b.qmk")");
    dialog.Accept();
    dialog.AwaitEnd();
    AwaitTitle(sSecond);
    EXPECT_EQ(m_program.GetDocumentTitles(), (Texts{sSecond, sFirst}));
}

TEST_F(SavingTest, CancelledDialogsChangeNothing)
{
    OpenChanged();
    for (const auto& [uCommand, sCaption] :
         {std::pair{IDM_FILE_OPEN, "Open"}, std::pair{IDM_FILE_SAVEAS, "Save As"}}) {
        m_program.Post(static_cast<UINT>(uCommand));
        AwaitFileDialog(m_program, sCaption).End(IDCANCEL);
        m_program.Settle();
        EXPECT_TRUE(m_program.GetBoxes().empty());
    }
    AwaitTitle("changed.qmk *");
}

// ---- Saving.

TEST_F(SavingTest, DialogOffersTheFormats)
{
    OpenNew();
    m_program.Post(IDM_FILE_SAVEAS);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
    EXPECT_EQ(dialog.GetTypes(), (Texts{"Quillmark File (*.qmk)", "Quillmark File 1.0 (*.qmk)",
                                        "Quillmark File 1.1 (*.qmk)", "Quillmark File 2.0 (*.qmk)",
                                        "All Files (*.*)"}));
    EXPECT_EQ(dialog.GetType(), 0);
    dialog.End(IDCANCEL);
}

TEST_F(SavingTest, NewDocumentIsSavedByTheDialog)
{
    OpenNew();
    m_program.Post(IDM_FILE_SAVE);
    AwaitFileDialog(m_program, "Save As").Enter(PathOf("new"));
    // The dialog adds the extension.
    AwaitTitle("new.qmk");
    CloseAnswering("", 0);
    EXPECT_EQ(ReadWholeFile(PathOf("new.qmk")).size(), 1284U);
}

TEST_F(SavingTest, PlainSaveBringsAnOldFormatUpToDate)
{
    const std::string sPath =
        MakeAccount("old.qmk", 3, [](QMAccount& account) { account.SetVersion(QM_VERSION_1_0); });
    ASSERT_EQ(ReadWholeFile(sPath).substr(4, 4), std::string("\0\x10\0\0", 4));
    OpenAccount(sPath);
    Do(IDM_TRANSACTION_CLEARED);
    Do(IDM_FILE_SAVE);
    EXPECT_EQ(m_program.GetActiveTitle(), "old.qmk");
    CloseAnswering("", 0);
    EXPECT_EQ(ReadWholeFile(sPath).substr(4, 4), std::string("\0\x20\0\0", 4));
}

TEST_F(SavingTest, SaveAllPassesOverWhatIsReadOnly)
{
    const std::string sReadOnly =
        MakeAccount("protected.qmk", 2, [](QMAccount& account) { account.header.bReadOnly = 1; });
    const std::string sChanged = MakeAccount("changed.qmk", 3);
    const std::string sBefore = ReadWholeFile(sReadOnly);
    m_program.Open({sReadOnly, sChanged});
    Do(IDM_TRANSACTION_CLEARED);
    AwaitTitle("changed.qmk *");
    Do(IDM_FILE_SAVEALL);
    EXPECT_EQ(m_program.GetActiveTitle(), "changed.qmk");
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(ReadWholeFile(sReadOnly), sBefore);
    EXPECT_NE(LinesOfFile(sChanged)[2].find("| flags 0 |"), std::string::npos);
}

TEST_F(SavingTest, SaveAllWithoutDocumentsSaysNothing)
{
    m_program.Open();
    Do(IDM_FILE_SAVEALL);
}

TEST_F(SavingTest, CtrlSIsOfTheDocumentsAlone)
{
    const Keyboard keyboard(m_program);
    OpenNew();
    keyboard.Press('S', {VK_CONTROL});
    AwaitFileDialog(m_program, "Save As").End(IDCANCEL);
    CloseAnswering("", 0);
    keyboard.Press('S', {VK_CONTROL});
    keyboard.Press('A', {VK_CONTROL});
    // These keys work with and without a document, and come after the others.
    keyboard.Press('N', {VK_CONTROL});
    AwaitTitle("Untitled2");
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(ActiveList().GetRowCount(), 0);
}

TEST_F(SavingTest, ReplacedFileHoldsTheAccount)
{
    const std::string sOld = MakeAccount("old.qmk", 9);
    const std::string sPath = OpenChanged();
    SaveOver(sOld);
    AwaitTitle("old.qmk");
    EXPECT_FALSE(IsLocked(sPath));
    CloseAnswering("", 0);
    EXPECT_EQ(LinesOfFile(sOld).size(), 3U);
}

TEST_F(SavingTest, NoToReplacingLeavesTheDialogOpen)
{
    const std::string sOld = MakeFile("old.qmk", "old");
    const std::string sPath = OpenChanged();
    const std::string sOther = PathOf("other.qmk");
    m_program.Post(IDM_FILE_SAVEAS);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
    dialog.EnterName(sOld);
    dialog.Accept();
    AnswerReplace(IDNO);
    m_program.Settle();
    ASSERT_TRUE(dialog.IsOpen());
    dialog.Enter(sOther);
    AwaitTitle("other.qmk");
    EXPECT_EQ(ReadWholeFile(sOld), "old");
}

// ---- Saves that fail.

TEST_F(SavingTest, FileHeldByAnotherProgramIsNotReplaced)
{
    const std::string sHeld = MakeFile("held.qmk", "held");
    const std::string sPath = OpenChanged();
    const std::string sBytes = ReadWholeFile(MakeAccount("same.qmk", 3));
    HANDLE hFile = CreateFileA(sHeld.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    SaveOver(sHeld);
    m_program.AnswerBox(Failed(sHeld));
    CloseHandle(hFile);
    ExpectStillChanged(sPath, sBytes);
    EXPECT_EQ(ReadWholeFile(sHeld), "held");
    EXPECT_NE(ReadSettingText("Recent File List", "File1"), sHeld);
}

TEST_F(SavingTest, OwnFileCannotBeReplaced)
{
    const std::string sPath = OpenChanged();
    const std::string sBytes = ReadWholeFile(MakeAccount("same.qmk", 3));
    // The document itself holds the file open.
    SaveOver(sPath);
    m_program.AnswerBox(Failed(sPath));
    ExpectStillChanged(sPath, sBytes);
}

TEST_F(SavingTest, FileOfAnotherDocumentCannotBeReplaced)
{
    const std::string sOther = MakeAccount("other.qmk", 5);
    const std::string sOtherBytes = ReadWholeFile(sOther);
    const std::string sPath = OpenChanged();
    const std::string sBytes = ReadWholeFile(MakeAccount("same.qmk", 3));
    HandOverFile(sOther);
    m_program.Post(IDM_WINDOW_NEXT);
    AwaitTitle("changed.qmk *");
    SaveOver(sOther);
    m_program.AnswerBox(Failed(sOther));
    ExpectStillChanged(sPath, sBytes);
    CloseAnswering("", 0);
    EXPECT_EQ(ReadWholeFile(sOther), sOtherBytes);
}

class ProtectedFile
{
public:
    explicit ProtectedFile(const std::string& sPath) : m_sPath(sPath)
    {
        SetFileAttributesA(sPath.c_str(), FILE_ATTRIBUTE_READONLY);
    }
    ProtectedFile(const ProtectedFile&) = delete;
    ProtectedFile& operator=(const ProtectedFile&) = delete;
    ~ProtectedFile() { SetFileAttributesA(m_sPath.c_str(), FILE_ATTRIBUTE_NORMAL); }

private:
    std::string m_sPath;
};

// Whether the attribute keeps this user from creating the file anew.
bool ProtectionHolds(const std::string& sPath)
{
    WriteWholeFile(sPath, "probe");
    const ProtectedFile protection(sPath);
    HANDLE hFile = CreateFileA(sPath.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                               CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile != INVALID_HANDLE_VALUE) {
        CloseHandle(hFile);
    }
    return hFile == INVALID_HANDLE_VALUE;
}

TEST_F(SavingTest, ProtectedFileIsNotReplaced)
{
    if (!ProtectionHolds(PathOf("probe"))) {
        GTEST_SKIP() << "this user may write to protected files";
    }
    const std::string sOld = MakeFile("old.qmk", "old");
    const std::string sPath = OpenChanged();
    const std::string sBytes = ReadWholeFile(MakeAccount("same.qmk", 3));
    const ProtectedFile protection(sOld);
    m_program.Post(IDM_FILE_SAVEAS);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
    dialog.EnterName(sOld);
    dialog.Accept();
    AnswerReplace(IDYES);
    m_program.AnswerBox(Failed(sOld));
    ExpectStillChanged(sPath, sBytes);
    EXPECT_EQ(ReadWholeFile(sOld), "old");
}

TEST_F(SavingTest, FileThatBecameProtectedIsNotSaved)
{
    if (!ProtectionHolds(PathOf("probe"))) {
        GTEST_SKIP() << "this user may write to protected files";
    }
    const std::string sPath = OpenChanged();
    const std::string sBytes = ReadWholeFile(MakeAccount("same.qmk", 3));
    {
        const ProtectedFile protection(sPath);
        DoAnswering(IDM_FILE_SAVE, Failed(sPath));
        AwaitTitle("changed.qmk *");
        // Save All gives the name without its folder.
        DoAnswering(IDM_FILE_SAVEALL, Failed("changed.qmk"));
    }
    ExpectStillChanged(sPath, sBytes);
}

TEST_F(SavingTest, SaveGoesThroughOnceTheProtectionIsGone)
{
    if (!ProtectionHolds(PathOf("probe"))) {
        GTEST_SKIP() << "this user may write to protected files";
    }
    const std::string sPath = OpenChanged();
    {
        const ProtectedFile protection(sPath);
        DoAnswering(IDM_FILE_SAVE, Failed(sPath));
    }
    Do(IDM_FILE_SAVE);
    EXPECT_EQ(m_program.GetActiveTitle(), "changed.qmk");
    CloseAnswering("", 0);
    EXPECT_NE(LinesOfFile(sPath)[2].find("| flags 0 |"), std::string::npos);
}

// An account in a folder that is removed while the account is open. On a system that does not allow
// that, the test has nothing to do.
class LostFolderTest : public SavingTest
{
protected:
    void OpenChangedIn()
    {
        ASSERT_TRUE(CreateDirectoryA(PathOf("folder").c_str(), nullptr));
        const std::string sPath = MakeAccount("folder\\changed.qmk", 3);
        m_sBytes = ReadWholeFile(sPath);
        OpenAccount(sPath);
        Do(IDM_TRANSACTION_CLEARED);
        AwaitTitle("changed.qmk *");
    }

    bool TakeAway() const
    {
        return MoveFileA(PathOf("folder").c_str(), PathOf("elsewhere").c_str()) != 0;
    }
    void PutBack() const
    {
        EXPECT_TRUE(MoveFileA(PathOf("elsewhere").c_str(), PathOf("folder").c_str()));
    }
    std::string BytesElsewhere() const { return ReadWholeFile(PathOf("elsewhere\\changed.qmk")); }

    std::string m_sBytes; // of the account's file before the change
};

TEST_F(LostFolderTest, SaveAllFailsAndTheDocumentStaysChanged)
{
    OpenChangedIn();
    if (!TakeAway()) {
        GTEST_SKIP() << "this system does not let a folder with an open file be removed";
    }
    DoAnswering(IDM_FILE_SAVEALL, Failed("changed.qmk"));
    EXPECT_EQ(m_program.GetActiveTitle(), "changed.qmk *");
    EXPECT_EQ(ActiveList().GetRowCount(), 3);
    PutBack();
    // Nothing is lost: now the save succeeds.
    Do(IDM_FILE_SAVE);
    EXPECT_EQ(m_program.GetActiveTitle(), "changed.qmk");
    CloseAnswering("", 0);
    EXPECT_NE(LinesOfFile(PathOf("folder\\changed.qmk"))[2].find("| flags 0 |"), std::string::npos);
}

TEST_F(LostFolderTest, SaveAsksForAnotherPlace)
{
    OpenChangedIn();
    if (!TakeAway()) {
        GTEST_SKIP() << "this system does not let a folder with an open file be removed";
    }
    m_program.Post(IDM_FILE_SAVE);
    AwaitFileDialog(m_program, "Save As").Enter(PathOf("rescued.qmk"));
    AwaitTitle("rescued.qmk");
    EXPECT_EQ(BytesElsewhere(), m_sBytes);
    CloseAnswering("", 0);
    EXPECT_NE(LinesOfFile(PathOf("rescued.qmk"))[2].find("| flags 0 |"), std::string::npos);
}

TEST_F(LostFolderTest, SaveThatFailsAtTheClosingIsNotTold)
{
    OpenChangedIn();
    if (!TakeAway()) {
        GTEST_SKIP() << "this system does not let a folder with an open file be removed";
    }
    CloseAnswering("changed.qmk", IDYES);
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_EQ(BytesElsewhere(), m_sBytes);
}

TEST_F(SavingTest, SaveAllGivesANewDocumentAFileOfItsName)
{
    {
        const CurrentFolder folder(PathOf(""));
        OpenNew();
    }
    Add({.sDate = "2004-01-01", .sAmount = "1", .sDescription = "kept"});
    Do(IDM_FILE_SAVEALL);
    EXPECT_EQ(m_program.GetActiveTitle(), "Untitled1");
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(LinesOfFile(PathOf("Untitled1")).size(), 1U);
}

TEST_F(SavingTest, MissingFolderIsRefusedByTheDialog)
{
    const std::string sPath = OpenChanged();
    m_program.Post(IDM_FILE_SAVEAS);
    const FileDialogWindow dialog = AwaitFileDialog(m_program, "Save As");
    dialog.EnterName(PathOf("nowhere\\new.qmk"));
    dialog.Accept();
    MessageBoxWindow box(nullptr);
    Await("the message of the file dialog that the path does not exist", [&] {
        for (const MessageBoxWindow& shown : m_program.GetBoxes()) {
            box = shown.GetHandle() != dialog.GetHandle() ? shown : box;
        }
        return box.GetHandle() != nullptr;
    });
    box.Press(IDOK);
    EXPECT_TRUE(dialog.IsOpen());
    dialog.End(IDCANCEL);
    AwaitTitle("changed.qmk *");
}

} // namespace
