// Showing a web address, with stand-ins for the user's browsers: DDE servers and programs.

#include "tools/qmbrowserlauncher.h"

#include <gtest/gtest.h>

#include "tests/support/ddeserver_win.h"
#include "tests/win/classesroot.h"
#include "tests/win/standinfiles.h"

namespace {

constexpr char g_szUrl[] = "http://www.bank.example/login";
constexpr DWORD g_uTimeOut = 500; // milliseconds

class QMBrowserLauncherTest : public testing::Test
{
protected:
    // Registers the command for web pages.
    void Register(const std::string& sCommand) const
    {
        m_classes.Set(".htm", "webpage");
        m_classes.Set("webpage\\shell\\open\\command", sCommand);
    }

    // The command line with which the stand-in was started; empty when it is not started.
    static std::string StartedWith(const std::string& sProgram)
    {
        const std::string sFile = sProgram + ".txt";
        PumpUntil([&] { return !ContentsOf(sFile).empty(); });
        std::string sLine = ContentsOf(sFile);
        DeleteFileA(sFile.c_str());
        return sLine;
    }

    static std::string Found(const char* szPath = "")
    {
        VString sPath(szPath);
        return QMBrowserLauncher::FindBrowser(sPath) ? Text(sPath) : "no: " + Text(sPath);
    }

    StandinFolder m_folder{"quillmark browsers"};
    ScopedDdeWindows m_windows;
    ScopedClassesRoot m_classes;
    QMBrowserLauncher m_launcher{g_uTimeOut};
};

} // namespace

// ---- Over DDE.

TEST_F(QMBrowserLauncherTest, AsksABrowserThatRuns)
{
    DdeServer server("IEXPLORE", DdeServer::Answers);
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::Done);
    EXPECT_EQ(server.TakeQuestions(), "WWW_OpenURL|\"http://www.bank.example/login\",,-1,,,,\n");
}

TEST_F(QMBrowserLauncherTest, AsksTheOtherBrowserWhereTheFirstDoesNotRun)
{
    DdeServer server("NETSCAPE", DdeServer::Answers);
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::Done);
    EXPECT_EQ(m_launcher.Launch("second"), QMBrowserLauncher::Done);
    EXPECT_EQ(server.TakeQuestions(),
              "WWW_OpenURL|\"http://www.bank.example/login\",,-1,,,,\n"
              "WWW_OpenURL|\"second\",,-1,,,,\n");
}

TEST_F(QMBrowserLauncherTest, GoesBackWhenTheOneThatAnsweredIsGone)
{
    {
        DdeServer server("NETSCAPE", DdeServer::Answers);
        EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::Done);
    }
    DdeServer server("IEXPLORE", DdeServer::Answers);
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::Done);
    EXPECT_NE(server.TakeQuestions(), "");
}

TEST_F(QMBrowserLauncherTest, FindsNoBrowserWhereNoneAnswersOrIsNamed)
{
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::NoBrowser);
    DdeServer server("IEXPLORE", DdeServer::Refuses);
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::NoBrowser);
    EXPECT_EQ(server.TakeQuestions(), "");
}

// Kept: a browser that has accepted the conversation and does not answer counts as done.
TEST_F(QMBrowserLauncherTest, IsDoneWithABrowserThatDoesNotAnswer)
{
    DdeServer server("IEXPLORE", DdeServer::IsSilent);
    const ULONGLONG uBefore = GetTickCount64();
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::Done);
    EXPECT_GE(GetTickCount64() - uBefore, g_uTimeOut - 50)
        << "the launcher must wait for the answer";
}

TEST_F(QMBrowserLauncherTest, StartsNoProgramWhereABrowserAnswers)
{
    const std::string sProgram = m_folder.Copy("standin_browser.exe", "b.exe");
    Register(sProgram + " %1");
    DdeServer server("IEXPLORE", DdeServer::Answers);
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::Done);
    EXPECT_NE(server.TakeQuestions(), "");
    EXPECT_EQ(ContentsOf(sProgram + ".txt"), "");
}

TEST_F(QMBrowserLauncherTest, AsksWhateverTheAddressHolds)
{
    DdeServer server("IEXPLORE", DdeServer::Answers);
    for (const char* szUrl : {"", "\"", "a\",\"c:\\x.exe\",,1", "a\r\n[quit]", "-x", "a & b | c"}) {
        EXPECT_EQ(m_launcher.Launch(szUrl), QMBrowserLauncher::Done);
        EXPECT_EQ(server.TakeQuestions(), "WWW_OpenURL|\"" + std::string(szUrl) + "\",,-1,,,,\n");
    }
}

// ---- The program that the registry names.

TEST_F(QMBrowserLauncherTest, FindsTheProgramOfACommandInQuotes)
{
    const std::string sProgram = m_folder.Copy("standin_browser.exe", "My Browser.exe");
    Register("\"" + sProgram + "\" -new \"%1\"");
    EXPECT_EQ(Found(), m_folder.Get() + "\\my browser.exe");
}

TEST_F(QMBrowserLauncherTest, FindsTheProgramOfACommandWithoutQuotes)
{
    const std::string sProgram = m_folder.Copy("standin_browser.exe", "my folder\\my browser.exe");
    Register(sProgram + " -new %1");
    EXPECT_EQ(Found(), sProgram);
    Register(sProgram);
    EXPECT_EQ(Found(), sProgram);
}

TEST_F(QMBrowserLauncherTest, FindsNothingWhereThereIsNoFile)
{
    EXPECT_EQ(Found(), "no: ") << "the registry has no association";
    m_classes.Set(".htm", "webpage");
    EXPECT_EQ(Found(), "no: ") << "the registry has no command";
    for (const std::string& sCommand :
         {std::string("\"c:\\gone.exe\" %1"), std::string("c:\\gone.exe %1"), std::string("%1"),
          std::string("\"\""), "\"c:\\" + std::string(260, 'x') + "\"",
          "c:\\" + std::string(900, 'x') + " %1", m_folder.Get()}) {
        Register(sCommand);
        EXPECT_EQ(Found(), "no: ") << sCommand;
    }
}

TEST_F(QMBrowserLauncherTest, LeavesAPathThatIsGiven)
{
    const std::string sProgram = m_folder.Copy("standin_browser.exe", "b.exe");
    EXPECT_EQ(Found(sProgram.c_str()), sProgram);
    Register(sProgram);
    EXPECT_EQ(Found("c:\\other.exe"), "no: c:\\other.exe");
}

TEST_F(QMBrowserLauncherTest, StartsTheProgramWithTheAddressBehindIt)
{
    const std::string sProgram = m_folder.Copy("standin_browser.exe", "my folder\\browser.exe");
    Register("\"" + sProgram + "\" -new \"%1\"");
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::Done);
    EXPECT_EQ(StartedWith(sProgram), sProgram + " http://www.bank.example/login");
}

// Given only the command line "my folder\browser.exe", Windows would first try "my.exe".
TEST_F(QMBrowserLauncherTest, StartsNoOtherProgramWithAPartOfTheName)
{
    const std::string sProgram = m_folder.Copy("standin_browser.exe", "my folder\\browser.exe");
    const std::string sTrap = m_folder.Copy("standin_browser.exe", "my.exe");
    Register("\"" + sProgram + "\"");
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::Done);
    EXPECT_EQ(StartedWith(sProgram), sProgram + " http://www.bank.example/login");
    EXPECT_EQ(ContentsOf(sTrap + ".txt"), "");
}

TEST_F(QMBrowserLauncherTest, GivesAnyAddressToThatOneProgram)
{
    const std::string sProgram = m_folder.Copy("standin_browser.exe", "browser.exe");
    const std::string sTrap = m_folder.Copy("standin_browser.exe", "trap.exe");
    Register(sProgram + " %1");
    for (const std::string& sUrl :
         {std::string("--run=") + sTrap, sTrap, "\" " + sTrap, "a & " + sTrap, "a | " + sTrap,
          "a\r\n" + sTrap, std::string(127, 'x'), std::string("%COMSPEC% /c ") + sTrap,
          "> " + sTrap, std::string()}) {
        EXPECT_EQ(m_launcher.Launch(sUrl.c_str()), QMBrowserLauncher::Done);
        EXPECT_EQ(StartedWith(sProgram), sProgram + " " + sUrl);
        EXPECT_EQ(ContentsOf(sTrap + ".txt"), "") << sUrl;
    }
}

TEST_F(QMBrowserLauncherTest, TellsThatTheProgramDoesNotStart)
{
    const std::string sProgram = m_folder.Copy("standin_browser.exe", "b.exe");
    FILE* pFile = fopen(sProgram.c_str(), "wb");
    ASSERT_NE(pFile, nullptr);
    fputs("this is no program", pFile);
    fclose(pFile);
    Register(sProgram);
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::NotStarted);
}

TEST_F(QMBrowserLauncherTest, StartsNoBatchFile)
{
    const std::string sBatch = m_folder.Get() + "\\browser.bat";
    const std::string sDone = m_folder.Get() + "\\done.txt";
    FILE* pFile = fopen(sBatch.c_str(), "wb");
    ASSERT_NE(pFile, nullptr);
    fprintf(pFile, "echo done>\"%s\"\r\n", sDone.c_str());
    fclose(pFile);
    Register(sBatch + " %1");
    EXPECT_EQ(m_launcher.Launch(g_szUrl), QMBrowserLauncher::NotStarted);
    EXPECT_EQ(ContentsOf(sDone), "");
}
