// What the program makes of its arguments.

#include <algorithm>

#include "tests/e2e/e2e_test.h"

namespace {

std::string Missing(const std::string& sName)
{
    return "Failed to open.\nFile '" + sName + "' does not exist.";
}

class CommandLineTest : public E2ETest
{
protected:
    // Starts with these arguments, answers the boxes in their order, and waits for the frame.
    void OpenAnswering(const Texts& arguments, const Texts& boxes)
    {
        m_program.Start(arguments);
        for (const std::string& sBox : boxes) {
            m_program.AnswerBox(sBox);
        }
        m_program.AwaitFrame();
        EXPECT_TRUE(m_program.GetBoxes().empty());
    }
};

TEST_F(CommandLineTest, NothingOpensWithoutArguments)
{
    m_program.Open();
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(CommandLineTest, FileIsTitledByItsFullName)
{
    const std::string sPath = CopySample();
    m_program.Open({sPath});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
}

TEST_F(CommandLineTest, SeveralFilesOpenInOrder)
{
    const Texts paths = {MakeAccount("a.qmk", 1), MakeAccount("b.qmk", 2), MakeAccount("c.qmk", 3)};
    m_program.Open(paths);
    EXPECT_EQ(m_program.GetDocumentTitles(), (Texts{paths[2], paths[1], paths[0]}));
    EXPECT_EQ(ActiveList().GetRowCount(), 3);
    EXPECT_EQ(m_program.GetPaneText(1), " Transaction: 3 of 3");
}

TEST_F(CommandLineTest, MissingFileIsNamed)
{
    OpenAnswering({PathOf("none.qmk")}, {Missing(PathOf("none.qmk"))});
    EXPECT_TRUE(m_program.GetDocuments().empty());
    m_program.NewDocument(1);
}

TEST_F(CommandLineTest, MissingFileDoesNotKeepTheNextFromOpening)
{
    const std::string sPath = CopySample();
    OpenAnswering({PathOf("none.qmk"), sPath}, {Missing(PathOf("none.qmk"))});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
}

TEST_F(CommandLineTest, EmptyArgumentIsNoFileName)
{
    OpenAnswering({""}, {"Failed to open file. No file name given."});
    EXPECT_TRUE(m_program.GetDocuments().empty());
}

TEST_F(CommandLineTest, TwoCommasInARowAreAnEmptyName)
{
    const std::string sPath = CopySample();
    OpenAnswering({sPath + ",," + sPath}, {"Failed to open file. No file name given."});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
}

TEST_F(CommandLineTest, BlanksAloneAreAMissingFile)
{
    OpenAnswering({"   "}, {Missing("")});
}

TEST_F(CommandLineTest, FolderIsNoFile)
{
    CreateDirectoryA(PathOf("folder.qmk").c_str(), nullptr);
    OpenAnswering({PathOf("folder.qmk")}, {Missing(PathOf("folder.qmk"))});
    EXPECT_TRUE(m_program.GetDocuments().empty());
}

TEST_F(CommandLineTest, NameWithACommaFallsApartAtIt)
{
    const std::string sPath = CopySample("this,that.qmk");
    OpenAnswering({sPath}, {Missing(PathOf("this")), Missing("that.qmk")});
    EXPECT_TRUE(m_program.GetDocuments().empty());
}

TEST_F(CommandLineTest, HalvesOfANameWithACommaGoTheirOwnWays)
{
    const std::string sPath = CopySample("this");
    OpenAnswering({sPath + ",that.qmk"}, {Missing("that.qmk")});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
}

TEST_F(CommandLineTest, OtherOptionsArePassedOver)
{
    const std::string sPath = CopySample();
    m_program.Open({"-X", "/foo", "-", "/", "-i" + sPath, sPath});
    EXPECT_TRUE(m_program.GetBoxes().empty());
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
}

TEST_F(CommandLineTest, BlanksAroundANameAreTakenOff)
{
    const std::string sPath = CopySample();
    m_program.Open({"  " + sPath + "  "});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
}

TEST_F(CommandLineTest, NameMayHoldBlanksAndAccents)
{
    const std::string sPath = CopySample("my own account (2004) & more.qmk");
    m_program.Open({sPath});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
}

TEST_F(CommandLineTest, ForwardSlashesWork)
{
    std::string sPath = CopySample();
    std::replace(sPath.begin(), sPath.end(), '\\', '/');
    m_program.Open({sPath});
    EXPECT_TRUE(m_program.GetBoxes().empty());
    ASSERT_EQ(m_program.GetDocuments().size(), 1U);
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
}

TEST_F(CommandLineTest, SameFileTwiceOpensOnce)
{
    const std::string sFirst = CopySample();
    const std::string sSecond = MakeAccount("second.qmk", 2);
    m_program.Open({sFirst, sSecond, sFirst});
    EXPECT_EQ(m_program.GetDocumentTitles(), (Texts{sFirst, sSecond}));
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(CommandLineTest, SameFileInCapitalsOpensOnce)
{
    const std::string sPath = CopySample("household.qmk");
    std::string sCapitals = sPath;
    CharUpperA(sCapitals.data());
    m_program.Open({sPath, sCapitals});
    EXPECT_EQ(m_program.GetDocuments().size(), 1U);
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(CommandLineTest, ShortNameFindsTheOpenFile)
{
    const std::string sPath = CopySample("a long name of an account.qmk");
    char szShort[MAX_PATH] = "";
    GetShortPathNameA(sPath.c_str(), szShort, sizeof szShort);
    if (szShort[0] == '\0' || lstrcmpiA(szShort, sPath.c_str()) == 0) {
        GTEST_SKIP() << "the volume keeps no short names";
    }
    m_program.Open({szShort});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
    HandOverFile(sPath);
    EXPECT_EQ(StartAgain({szShort}), 1U);
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
    EXPECT_TRUE(m_program.GetBoxes().empty());
}

TEST_F(CommandLineTest, ImportOfAMissingFileOpensTheAccountAndSaysSo)
{
    const std::string sPath = CopySample();
    const std::string sImported = PathOf("none.qif");
    OpenAnswering({"-I" + sImported + "|" + sPath},
                  {"Failed to import transactions from file\n'" + sImported + "'."});
    EXPECT_EQ(m_program.GetDocumentTitles(), Texts{sPath});
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
}

TEST_F(CommandLineTest, ImportIntoAMissingAccountSaysOnlyThat)
{
    OpenAnswering({"/I" + PathOf("a.qif") + "|" + PathOf("none.qmk")},
                  {Missing(PathOf("none.qmk"))});
    EXPECT_TRUE(m_program.GetDocuments().empty());
}

TEST_F(CommandLineTest, ImportWithoutAnAccountHasNoFileName)
{
    OpenAnswering({"-Ia.qif"}, {"Failed to open file. No file name given."});
}

} // namespace
