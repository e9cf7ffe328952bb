// A second start of the program hands its arguments to the first one and ends.

#include "tests/e2e/e2e_test.h"
#include "tests/e2e/reviewwindow.h"
#include "tests/e2e/work_test.h"

namespace {

class HandOverTest : public E2ETest
{
protected:
    // Brings a window of the test to the foreground.
    void TakeForeground()
    {
        m_hOwn = CreateWindowExA(0, "STATIC", "in front", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 300,
                                 300, 200, 100, nullptr, nullptr, nullptr, nullptr);
        SetForegroundWindow(m_hOwn);
        Await("the test's own window in front", [&] {
            Pump();
            return GetForegroundWindow() == m_hOwn;
        });
    }

    // This window must answer messages while the frame comes to the foreground.
    static void Pump()
    {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageA(&message);
        }
    }

    void AwaitFrameInFront() const
    {
        Await("the frame in front", [&] {
            Pump();
            return GetForegroundWindow() == m_program.GetFrame();
        });
    }

    void TearDown() override
    {
        if (m_hOwn != nullptr) {
            DestroyWindow(m_hOwn);
        }
    }

    HWND m_hOwn = nullptr;
};

TEST_F(HandOverTest, FileOpensInTheFirstInstance)
{
    const std::string sPath = CopySample();
    m_program.Open();
    EXPECT_EQ(StartAgain({sPath}), 1U);
    // Everything is done before the second program ends.
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
    EXPECT_EQ(m_program.GetActiveTitle(), sPath);
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
}

TEST_F(HandOverTest, SeveralFilesOpenInOrder)
{
    const Texts paths = {MakeAccount("a.qmk", 1), MakeAccount("b.qmk", 2)};
    m_program.Open();
    EXPECT_EQ(StartAgain(paths), 1U);
    EXPECT_EQ(m_program.GetDocumentTitles(), (Texts{paths[1], paths[0]}));
}

TEST_F(HandOverTest, FileThatIsOpenIsBroughtToTheFront)
{
    const Texts paths = {MakeAccount("a.qmk", 1), MakeAccount("b.qmk", 2)};
    m_program.Open(paths);
    EXPECT_EQ(StartAgain({paths[0]}), 1U);
    EXPECT_EQ(m_program.GetActiveTitle(), paths[0]);
    EXPECT_EQ(m_program.GetDocuments().size(), 2U);
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(HandOverTest, FrameComesToTheFront)
{
    m_program.Open();
    TakeForeground();
    EXPECT_EQ(StartAgain({CopySample()}), 1U);
    AwaitFrameInFront();
}

TEST_F(HandOverTest, MinimizedFrameComesBack)
{
    m_program.Open();
    ShowWindow(m_program.GetFrame(), SW_MINIMIZE);
    Await("the frame as an icon", [&] { return IsIconic(m_program.GetFrame()) != 0; });
    EXPECT_EQ(StartAgain({CopySample()}), 1U);
    EXPECT_FALSE(IsIconic(m_program.GetFrame()));
    AwaitFrameInFront();
}

// Kept: the second instance ends with the exit code 1, although nothing failed.
TEST_F(HandOverTest, WithoutArgumentsItOnlyComesToTheFront)
{
    m_program.Open({CopySample()});
    TakeForeground();
    EXPECT_EQ(StartAgain({}), 1U);
    AwaitFrameInFront();
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(HandOverTest, SecondOneWaitsForTheBoxesOfTheFirst)
{
    m_program.Open();
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {PathOf("none.qmk"), CopySample()});
    const std::string sBox = "Failed to open.\nFile '" + PathOf("none.qmk") + "' does not exist.";
    const MessageBoxWindow box = AwaitMessageBox(m_program.GetId(), sBox);
    EXPECT_TRUE(second.IsRunning());
    box.Press(IDOK);
    EXPECT_EQ(second.AwaitExit(), 1U);
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
}

TEST_F(HandOverTest, SecondOneLeavesTheSettingsAlone)
{
    m_program.Open();
    const Texts before = AllSettings();
    EXPECT_EQ(StartAgain({"-X"}), 1U);
    EXPECT_EQ(AllSettings(), before);
}

TEST_F(HandOverTest, SecondOneWaitsForAFirstThatIsStillComingUp)
{
    m_program.Start({});
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {CopySample()});
    // One of the two was first and has the frame. The other one has handed over its arguments and
    // ended.
    Await("one of two to end", [&] { return !second.IsRunning() || !m_program.IsRunning(); });
    if (second.IsRunning()) {
        EXPECT_EQ(m_program.AwaitExit(), 1U);
        PostMessageA(FindRunningInstance(), WM_CLOSE, 0, 0);
        EXPECT_EQ(second.AwaitExit(), 0U);
        return;
    }
    EXPECT_EQ(second.AwaitExit(), 1U);
    m_program.AwaitFrame();
    m_program.AwaitDocuments(1);
}

TEST_F(HandOverTest, EmptyMessageDoesNoHarm)
{
    m_program.Open();
    COPYDATASTRUCT data = {};
    const LRESULT lAnswer =
        SendTo(m_program.GetFrame(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    EXPECT_EQ(lAnswer, 1);
    m_program.NewDocument(1);
}

TEST_F(HandOverTest, TextWithoutATerminatorIsReadToItsEnd)
{
    const std::string sPath = CopySample();
    m_program.Open();
    std::string sText = sPath + ",";
    COPYDATASTRUCT data = {2, static_cast<DWORD>(sText.size()), sText.data()};
    const LRESULT lAnswer =
        SendTo(m_program.GetFrame(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    EXPECT_EQ(lAnswer, 1);
    EXPECT_EQ(m_program.GetActiveTitle(), sPath);
}

TEST_F(HandOverTest, AfterTheEndTheNextStartIsAFirstOne)
{
    m_program.Open();
    EXPECT_EQ(m_program.Close(), 0U);
    m_program.Open();
    EXPECT_EQ(m_program.Close(), 0U);
}

// The current folder of the second start is the test's, and that of the first one is another.
class RelativeNameTest : public HandOverTest
{
protected:
    RelativeNameTest()
    {
        GetCurrentDirectoryA(sizeof m_szBefore, m_szBefore);
        Enter();
    }
    ~RelativeNameTest() override { Leave(); }

    void Enter() const { SetCurrentDirectoryA(PathOf("").c_str()); }
    void Leave() const { SetCurrentDirectoryA(m_szBefore); }

    char m_szBefore[MAX_PATH] = "";
};

TEST_F(RelativeNameTest, IsHandedOverInFull)
{
    const std::string sPath = CopySample();
    Leave();
    m_program.Open();
    Enter();
    EXPECT_EQ(StartAgain({"household.qmk"}), 1U);
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
    EXPECT_EQ(ReadSettingText("Recent File List", "File1"), sPath);
    // By its full name it is still the same file.
    EXPECT_EQ(StartAgain({sPath}), 1U);
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
}

TEST_F(RelativeNameTest, IsMadeFullInTheProgramsOwnArgumentsToo)
{
    const std::string sPath = CopySample();
    m_program.Open({R"(.\household.qmk)"});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
    EXPECT_EQ(ReadSettingText("Recent File List", "File1"), sPath);
}

TEST_F(RelativeNameTest, StaysAsItWasTypedWhereThereIsNoFile)
{
    Leave();
    m_program.Open();
    Enter();
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {"none.qmk"});
    m_program.AnswerBox("Failed to open.\nFile 'none.qmk' does not exist.");
    EXPECT_EQ(second.AwaitExit(), 1U);
}

TEST_F(RelativeNameTest, BothNamesOfAnOrderAreMadeFull)
{
    const std::string sAccount = MakeAccount("target.qmk", 3);
    MakeFile("import.qif", "!Type:Bank\nD01/05/2004\nT1.00\n^\n");
    Leave();
    m_program.Open();
    Enter();
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {"-Iimport.qif|target.qmk"});
    AwaitReview(m_program).End(IDCANCEL);
    EXPECT_EQ(second.AwaitExit(), 1U);
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sAccount});
}

// ---- While a command runs.

class HandOverInWorkTest : public WorkTest
{
protected:
    static std::string OrderFor(const std::string& sFile, const std::string& sAccount)
    {
        return "-I" + sFile + "|" + sAccount;
    }
    // Two transactions whose dates are before all others in these tests.
    std::string MakeEarly() const
    {
        return MakeFile("early.qif",
                        "!Type:Bank\nD01/05/1980\nT-12.50\nPEarly one\n^\n"
                        "D01/06/1980\nT-1.00\nPEarly two\n^\n");
    }
};

TEST_F(HandOverInWorkTest, OrderForTheAccountWaitsForTheEndOfEdit)
{
    const std::string sPath = MakeAccount("a.qmk", 3);
    const std::string sFile = MakeEarly();
    OpenAccount(sPath);
    Select({1});
    const DialogWindow dialog = BeginEditing();
    EXPECT_EQ(StartAgain({OrderFor(sFile, sPath)}), 1U);
    m_program.Settle();
    EXPECT_EQ(ActiveList().GetRowCount(), 3);
    EXPECT_TRUE(FindDialogs(m_program, "Import File").empty());
    dialog.SetText(IDC_TX_MEMO, "edited");
    dialog.End(IDOK);
    AwaitReview(m_program).End(IDC_IMPORT_IMPORT);
    AwaitMessageBox(m_program.GetId(),
                    "Successfully imported 2 transactions from file:\n'" + sFile + "'.")
        .Press(IDOK);
    AwaitRowCount(5);
    const Texts expected = {"Early one", "Early two", "transaction 0", "edited", "transaction 2"};
    std::vector<std::string> lines = SaveCloseAndRead(sPath);
    ASSERT_EQ(lines.size(), expected.size());
    for (size_t u = 0; u < expected.size(); ++u) {
        EXPECT_NE(lines[u].find(expected[u]), std::string::npos) << lines[u];
    }
}

TEST_F(HandOverInWorkTest, OrderForAnotherAccountIsCarriedOutAtOnce)
{
    const std::string sFirst = MakeAccount("a.qmk", 3);
    const std::string sSecond = MakeAccount("b.qmk", 2);
    const std::string sFile = MakeEarly();
    OpenAccount(sFirst);
    Select({1});
    const DialogWindow dialog = BeginEditing();
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {OrderFor(sFile, sSecond)});
    AwaitReview(m_program).End(IDC_IMPORT_IMPORT);
    AwaitMessageBox(m_program.GetId(),
                    "Successfully imported 2 transactions from file:\n'" + sFile + "'.")
        .Press(IDOK);
    EXPECT_EQ(second.AwaitExit(), 1U);
    EXPECT_EQ(ActiveList().GetRowCount(), 4);
    EXPECT_FALSE(IsWindowEnabled(m_program.GetFrame()));
    dialog.End(IDCANCEL);
    m_program.Settle();
    EXPECT_EQ(m_program.GetDocuments().size(), 2U);
}

TEST_F(HandOverInWorkTest, TwoOrdersForAnAccountFollowOneAnother)
{
    const std::string sPath = MakeAccount("a.qmk", 3);
    const std::string sFile = MakeEarly();
    OpenAccount(sPath);
    const DialogWindow dialog = BeginAdding();
    EXPECT_EQ(StartAgain({OrderFor(sFile, sPath), OrderFor(sFile, sPath)}), 1U);
    dialog.End(IDCANCEL);
    for (int nRows : {5, 7}) {
        AwaitReview(m_program).End(IDC_IMPORT_IMPORT);
        AwaitMessageBox(m_program.GetId(),
                        "Successfully imported 2 transactions from file:\n'" + sFile + "'.")
            .Press(IDOK);
        AwaitRowCount(nRows);
    }
}

TEST_F(HandOverInWorkTest, OrderThatCameAtTheClosingOpensTheAccountAgain)
{
    const std::string sPath = MakeAccount("a.qmk", 3);
    const std::string sFile = MakeEarly();
    OpenAccount(sPath);
    Select({1});
    Do(IDM_TRANSACTION_CLEARED);
    AwaitTitle("a.qmk *");
    m_program.Post(IDM_FILE_CLOSE);
    const MessageBoxWindow question =
        AwaitMessageBox(m_program.GetId(), "Save changes to 'a.qmk'?");
    EXPECT_EQ(StartAgain({OrderFor(sFile, sPath)}), 1U);
    question.Press(IDNO);
    AwaitReview(m_program).End(IDCANCEL);
    m_program.AwaitActive(sPath);
    EXPECT_EQ(ActiveList().GetRowCount(), 3);
}

TEST_F(HandOverInWorkTest, FilesOpenAtOnceAndThePanesAreTheirs)
{
    const std::string sFirst = MakeAccount("a.qmk", 3);
    const std::string sSecond = MakeAccount("b.qmk", 2);
    OpenAccount(sFirst);
    const DialogWindow dialog = BeginAdding();
    EXPECT_EQ(StartAgain({sSecond}), 1U);
    m_program.AwaitActive(sSecond);
    Texts before;
    for (int nPane = 1; nPane <= 4; ++nPane) {
        before.push_back(m_program.GetPaneText(nPane));
    }
    Entry{.sDate = "2004-01-01", .sAmount = "1000", .sDescription = "of a"}.Fill(dialog);
    dialog.End(IDOK);
    m_program.Settle();
    EXPECT_EQ(m_program.GetActiveTitle(), sSecond);
    for (int nPane = 1; nPane <= 4; ++nPane) {
        EXPECT_EQ(m_program.GetPaneText(nPane), before[static_cast<size_t>(nPane - 1)])
            << "pane " << nPane;
    }
    m_program.Post(IDM_WINDOW_NEXT);
    m_program.AwaitActive("a.qmk *");
    EXPECT_EQ(ActiveList().GetRowCount(), 4);
}

} // namespace
