// A second start: it hands its arguments to the program that runs, and ends.

#include "tests/e2e/e2e_test.h"

namespace {

using Texts = std::vector<std::string>;

class HandOverTest : public E2ETest
{
protected:
    // Puts a window of the test's own in front.
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

    // The test's window has to answer while the frame takes its place.
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
    // All is done before the second one ends.
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
    // Whichever was first has the frame; the other one ends, delivered.
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

} // namespace
