// The arguments of a second start. Their file names must mean the same in the folder of the first
// program.

#include "shell/qmcommandline.h"

#include <string>

#include "tests/support/support.h"
#include "tests/win/support.h"

namespace {

class QMCommandLineTest : public testing::Test
{
protected:
    QMCommandLineTest()
    {
        GetCurrentDirectoryA(sizeof m_szBefore, m_szBefore);
        SetCurrentDirectoryA(m_folder.GetPath().c_str());
        char szFolder[MAX_PATH] = "";
        GetCurrentDirectoryA(sizeof szFolder, szFolder);
        m_sFolder = std::string(szFolder) + "\\";
    }
    ~QMCommandLineTest() override { SetCurrentDirectoryA(m_szBefore); }

    static std::string Full(const char* szText) { return QMWithFullNames(szText).GetText(); }

    TemporaryFolder m_folder;
    std::string m_sFolder;

private:
    char m_szBefore[MAX_PATH] = "";
};

TEST_F(QMCommandLineTest, ArgumentsAreJoinedWithACommaBehindEach)
{
    const char* const aszArguments[] = {"program", "a", "", "b c"};
    EXPECT_STREQ(QMJoinArguments(4, aszArguments).GetText(), "a,,b c,");
    EXPECT_STREQ(QMJoinArguments(1, aszArguments).GetText(), "");
}

TEST_F(QMCommandLineTest, NamesOfFilesAreMadeFull)
{
    WriteWholeFile(m_sFolder + "a.qmk", "a");
    EXPECT_EQ(Full("a.qmk,"), m_sFolder + "a.qmk,");
    EXPECT_EQ(Full("./a.qmk, a.qmk ,"), m_sFolder + "a.qmk," + m_sFolder + "a.qmk,");
    EXPECT_EQ(Full((m_sFolder + "a.qmk,").c_str()), m_sFolder + "a.qmk,");
}

TEST_F(QMCommandLineTest, AnythingElseStaysAsItWasTyped)
{
    for (const char* szText :
         {"", ",", ",,", "none.qmk,", " none ,", ".,", "-X,", "/a.qmk,", "-,", "-i a.qmk|b,"}) {
        WriteWholeFile(m_sFolder + "a.qmk", "a");
        EXPECT_EQ(Full(szText), szText);
    }
}

TEST_F(QMCommandLineTest, NamesOfAnOrderAreMadeFull)
{
    WriteWholeFile(m_sFolder + "a.qif", "a");
    WriteWholeFile(m_sFolder + "b.qmk", "b");
    EXPECT_EQ(Full("-Ia.qif|b.qmk,"), "-I" + m_sFolder + "a.qif|" + m_sFolder + "b.qmk,");
    EXPECT_EQ(Full("/Inone.qif|b.qmk,"), "/Inone.qif|" + m_sFolder + "b.qmk,");
    EXPECT_EQ(Full("-Ia.qif,"), "-I" + m_sFolder + "a.qif,");
    EXPECT_EQ(Full("-I|b.qmk,"), "-I|" + m_sFolder + "b.qmk,");
    EXPECT_EQ(Full("-I,"), "-I,");
}

TEST_F(QMCommandLineTest, NameInAFolderWithACommaStaysAsItWasTyped)
{
    ASSERT_TRUE(CreateDirectoryA((m_sFolder + "with, comma").c_str(), nullptr));
    WriteWholeFile(m_sFolder + "with, comma\\a.qmk", "a");
    SetCurrentDirectoryA((m_sFolder + "with, comma").c_str());
    EXPECT_EQ(Full("a.qmk,"), "a.qmk,");
    SetCurrentDirectoryA(m_sFolder.c_str());
}

} // namespace
