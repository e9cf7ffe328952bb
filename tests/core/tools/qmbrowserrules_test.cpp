#include "tools/qmbrowserrules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

std::vector<std::string> g_files;
std::vector<std::string> g_asked;

bool IsThere(const char* szPath)
{
    g_asked.emplace_back(szPath);
    // Blanks after a name do not count, as in Windows.
    std::string sPath = szPath;
    while (!sPath.empty() && sPath.back() == ' ') {
        sPath.pop_back();
    }
    return std::find(g_files.begin(), g_files.end(), sPath) != g_files.end();
}

std::string ProgramOf(const char* szCommand, const std::vector<std::string>& files)
{
    g_files = files;
    g_asked.clear();
    return QMProgramOfCommand(szCommand, IsThere).GetText();
}

} // namespace

TEST(QMServiceOfBrowser, IsToldByTheProgramsPath)
{
    EXPECT_STREQ(QMServiceOfBrowser("c:\\programs\\netscape\\nav.exe"), "NETSCAPE");
    EXPECT_STREQ(QMServiceOfBrowser("C:\\NetScape.exe"), "NETSCAPE");
    EXPECT_STREQ(QMServiceOfBrowser("c:\\programs\\iexplore.exe"), "IEXPLORE");
    EXPECT_STREQ(QMServiceOfBrowser("c:\\netscap"), "IEXPLORE");
    EXPECT_STREQ(QMServiceOfBrowser(""), "IEXPLORE");
}

TEST(QMOtherBrowserService, IgnoresCase)
{
    EXPECT_STREQ(QMOtherBrowserService("IEXPLORE"), "NETSCAPE");
    EXPECT_STREQ(QMOtherBrowserService("iexplore"), "NETSCAPE");
    EXPECT_STREQ(QMOtherBrowserService("Netscape"), "IEXPLORE");
    EXPECT_EQ(QMOtherBrowserService("MOSAIC"), nullptr);
    EXPECT_EQ(QMOtherBrowserService(""), nullptr);
}

TEST(QMBrowserItem, HoldsTheAddressAsItStands)
{
    EXPECT_STREQ(QMBrowserItem("http://bank.example/").GetText(),
                 "\"http://bank.example/\",,-1,,,,");
    EXPECT_STREQ(QMBrowserItem("").GetText(), "\"\",,-1,,,,");
    EXPECT_STREQ(QMBrowserItem("a\",\"b\r\nc").GetText(), "\"a\",\"b\r\nc\",,-1,,,,");
}

TEST(QMProgramOfCommand, TakesWhatStandsBetweenQuotes)
{
    EXPECT_EQ(ProgramOf("\"C:\\My Programs\\Browser.exe\" -url \"%1\"", {}),
              "c:\\my programs\\browser.exe");
    EXPECT_TRUE(g_asked.empty()) << "a path in quotes must not be looked up here";
    EXPECT_EQ(ProgramOf("\"c:\\open", {}), "c:\\open") << "the second quote may be missing";
    EXPECT_EQ(ProgramOf("\"", {}), "");
    EXPECT_EQ(ProgramOf("\"\" x", {}), "");
}

TEST(QMProgramOfCommand, CutsBackToTheFirstFileThatExists)
{
    const std::vector<std::string> files = {"c:\\my programs\\browser.exe", "c:\\my"};
    EXPECT_EQ(ProgramOf("C:\\My Programs\\Browser.exe -new %1", files),
              "c:\\my programs\\browser.exe");
    EXPECT_EQ(g_asked.front(), "c:\\my programs\\browser.exe -new ");
    EXPECT_EQ(ProgramOf("c:\\my programs\\browser.exe", files), "c:\\my programs\\browser.exe");
    EXPECT_EQ(ProgramOf("c:\\my programs\\other.exe %1", files), "c:\\my");
}

TEST(QMProgramOfCommand, LeavesOutWhatFollowsThePercentSign)
{
    const std::vector<std::string> files = {"c:\\a.exe", "c:\\a.exe %1 more"};
    EXPECT_EQ(ProgramOf("c:\\a.exe %1 more", files), "c:\\a.exe");
    EXPECT_EQ(ProgramOf("%1", files), "");
    EXPECT_TRUE(g_asked.empty());
}

TEST(QMProgramOfCommand, CutsBlanksAndUnprintablesAtTheEnd)
{
    // This system says that a name with a blank at its end exists.
    EXPECT_EQ(ProgramOf("c:\\a.exe   %1", {"c:\\a.exe"}), "c:\\a.exe");
    EXPECT_EQ(ProgramOf("c:\\a.exe\x01\x7F", {"c:\\a.exe\x01\x7F"}), "c:\\a.exe");
}

TEST(QMProgramOfCommand, IsEmptyWithoutAFile)
{
    EXPECT_EQ(ProgramOf("", {"x"}), "");
    EXPECT_EQ(ProgramOf("c:\\gone.exe %1", {"x"}), "");
    EXPECT_EQ(ProgramOf(std::string(2000, 'x').c_str(), {"y"}), "");
}

TEST(QMNeedsInterpreter, KnowsBatchFilesByTheirNames)
{
    for (const char* szProgram : {"c:\\a.bat", "C:\\A.CMD", "a.bat.", "a.cmd. .", "a.bat "}) {
        EXPECT_TRUE(QMNeedsInterpreter(szProgram)) << szProgram;
    }
    for (const char* szProgram : {"", ".", "a.exe", "bat", "c:\\a.bat\\browser", "a.batx", "a"}) {
        EXPECT_FALSE(QMNeedsInterpreter(szProgram)) << szProgram;
    }
}

TEST(QMBrowserCommandLine, HasNoQuotes)
{
    EXPECT_STREQ(QMBrowserCommandLine("c:\\my programs\\b.exe", "http://bank.example/ x").GetText(),
                 "c:\\my programs\\b.exe http://bank.example/ x");
    EXPECT_STREQ(QMBrowserCommandLine("b.exe", "").GetText(), "b.exe ");
}
