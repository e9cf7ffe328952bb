// The commands of the Help menu, with a library that stands in for the viewer of help and notes how
// it was called.

#include "tests/e2e/keyboard.h"
#include "tests/e2e/standins.h"
#include "tests/e2e/work_test.h"

namespace {

class HelpTest : public WorkTest
{
protected:
    // The calls that the stand-in has noted, once there are that many.
    std::string AwaitCalls(int nCount) const
    {
        Await(std::to_string(nCount) + " calls", [&] {
            const std::string sNotes = NotesOf(m_sViewer);
            return std::count(sNotes.begin(), sNotes.end(), '\n') >= nCount;
        });
        return NotesOf(m_sViewer);
    }

    // A call as the stand-in notes it.
    std::string Call(const std::string& sFile, int nCommand) const
    {
        return std::to_string(HandleToULong(m_program.GetFrame())) + "|" + sFile + "|" +
               std::to_string(nCommand) + "|0\n";
    }

    std::string m_sViewer = CopyStandin("standin_viewer.dll", PathOf("the viewer.dll"));
    std::string m_sHelp = ProgramFolder() + "quillmark.chm";
};

} // namespace

TEST_F(HelpTest, EachCommandAsksTheViewerOfTheMachine)
{
    const ScopedHelpViewer viewer(m_sViewer);
    m_program.Open();
    std::string sExpected = Call(m_sHelp + "::/html\\qm_gettingstarted.htm", 0);
    m_program.Post(IDM_HELP_GETTINGSTARTED);
    EXPECT_EQ(AwaitCalls(1), sExpected);
    m_program.Post(IDM_HELP_CONTENTS);
    sExpected += Call(m_sHelp, 1);
    EXPECT_EQ(AwaitCalls(2), sExpected);
    m_program.Post(IDM_HELP_INDEX);
    sExpected += Call(m_sHelp, 2);
    EXPECT_EQ(AwaitCalls(3), sExpected);
    EXPECT_EQ(m_program.Close(), 0U) << "the program must close while the viewer is loaded";
}

TEST_F(HelpTest, F1ShowsTheContentsWithADocumentAndWithout)
{
    const ScopedHelpViewer viewer(m_sViewer);
    m_program.Open();
    const Keyboard keyboard(m_program);
    SetForegroundWindow(m_program.GetFrame());
    keyboard.Press(VK_F1);
    EXPECT_EQ(AwaitCalls(1), Call(m_sHelp, 1));
    m_program.NewDocument(1);
    keyboard.Press(VK_F1);
    EXPECT_EQ(AwaitCalls(2), Call(m_sHelp, 1) + Call(m_sHelp, 1));
}

// The file need not exist, which is for the viewer to say.
TEST_F(HelpTest, FileIsThatOfTheInstallDirectoryAtTheStart)
{
    const ScopedHelpViewer viewer(m_sViewer);
    m_program.Open();
    m_program.Close();
    WriteSettingText("Settings", "Directory - Install", "C:\\Some where\\else");
    m_program.Open();
    WriteSettingText("Settings", "Directory - Install", "C:\\Later");
    m_program.Post(IDM_HELP_CONTENTS);
    EXPECT_EQ(AwaitCalls(1), Call("C:\\Some where\\else\\quillmark.chm", 1));
}

TEST_F(HelpTest, WithoutAViewerNothingHappensAndItIsNotLookedForAgain)
{
    {
        const ScopedHelpViewer none(CopyStandin("standin_noviewer.dll", PathOf("no viewer.dll")));
        m_program.Open();
        for (const UINT uId : {IDM_HELP_CONTENTS, IDM_HELP_INDEX, IDM_HELP_GETTINGSTARTED}) {
            Do(uId);
        }
    }
    const ScopedHelpViewer viewer(m_sViewer);
    Do(IDM_HELP_CONTENTS);
    EXPECT_EQ(NotesOf(m_sViewer), "");
    EXPECT_TRUE(IsWindowEnabled(m_program.GetFrame()));
    EXPECT_EQ(m_program.Close(), 0U);
}
