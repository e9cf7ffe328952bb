// Accounts that cannot be opened: what the program says, and what it leaves behind.

#include <cstring>

#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/e2e_test.h"

namespace {

std::string Refused(const std::string& sPath)
{
    return "Failed to open file '" + sPath + "'.";
}

// Sets the read-only attribute of a file until the end of the scope.
class WriteProtection
{
public:
    explicit WriteProtection(const std::string& sPath) : m_sPath(sPath)
    {
        SetFileAttributesA(sPath.c_str(), FILE_ATTRIBUTE_READONLY);
    }
    WriteProtection(const WriteProtection&) = delete;
    WriteProtection& operator=(const WriteProtection&) = delete;
    ~WriteProtection() { SetFileAttributesA(m_sPath.c_str(), FILE_ATTRIBUTE_NORMAL); }

    bool Holds() const
    {
        HANDLE hFile =
            CreateFileA(m_sPath.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        if (hFile != INVALID_HANDLE_VALUE) {
            CloseHandle(hFile);
        }
        return hFile == INVALID_HANDLE_VALUE;
    }

private:
    std::string m_sPath;
};

class RefusalsTest : public E2ETest
{
protected:
    // Starts the program with a file that it must refuse.
    void OpenRefused(const std::string& sPath)
    {
        m_program.Start({sPath});
        m_program.AnswerBox(Refused(sPath));
        m_program.AwaitFrame();
        EXPECT_TRUE(m_program.GetDocuments().empty());
    }

    void HandOverRefused(const std::string& sPath) const
    {
        Process second;
        second.Start(ProgramFolder() + "quillmark.exe", {sPath});
        m_program.AnswerBox(Refused(sPath));
        EXPECT_EQ(second.AwaitExit(), 1U);
    }

    // The program works on normally.
    void ExpectUsable() const
    {
        const size_t uDocuments = m_program.GetDocuments().size();
        HandOverFile(CopySample("another.qmk"));
        EXPECT_EQ(ActiveList().GetRowCount(), 447);
        EXPECT_EQ(m_program.GetDocuments().size(), uDocuments + 1);
        EXPECT_TRUE(m_program.GetBoxes().empty());
    }
};

TEST_F(RefusalsTest, DamagedFileStaysLockedForTheRestOfTheRun)
{
    const std::string sPath = MakeFile("bad.qmk", "this is no account at all");
    OpenRefused(sPath);
    EXPECT_TRUE(IsLocked(sPath));
    HandOverRefused(sPath);
    EXPECT_TRUE(m_program.GetDocuments().empty());
    ExpectUsable();
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_FALSE(IsLocked(sPath));
    EXPECT_EQ(ReadWholeFile(sPath), "this is no account at all");
}

struct Damage
{
    const char* szName;
    std::string (*pDamage)(std::string);
};

std::string Overwritten(std::string sBytes, size_t uOffset, uint32_t uNumber)
{
    memcpy(sBytes.data() + uOffset, &uNumber, sizeof uNumber);
    return sBytes;
}

// Offsets in the file: magic, version, count, size of the header, header, size of a block.
const Damage aDamages[] = {
    {"Empty", [](std::string) { return std::string(); }},
    {"OneByte", [](std::string s) { return s.substr(0, 1); }},
    {"HeaderCut", [](std::string s) { return s.substr(0, 700); }},
    {"LastByteMissing", [](std::string s) { return s.substr(0, s.size() - 1); }},
    {"WrongMagic", [](std::string s) { return Overwritten(s, 0, 0x35763686); }},
    {"VersionTooOld", [](std::string s) { return Overwritten(s, 4, 4095); }},
    {"VersionTooNew", [](std::string s) { return Overwritten(s, 4, 8193); }},
    {"CountTooLarge", [](std::string s) { return Overwritten(s, 8, 448); }},
    {"CountAbsurd", [](std::string s) { return Overwritten(s, 8, 0x7FFFFFFF); }},
    {"HeaderTooLarge", [](std::string s) { return Overwritten(s, 12, 1265); }},
    {"BlockTooLarge", [](std::string s) { return Overwritten(s, 1280, 49); }},
    {"BlockAbsurd", [](std::string s) { return Overwritten(s, 1280, 0xFFFFFFFF); }},
};

class DamagedAccountTest : public RefusalsTest, public testing::WithParamInterface<Damage>
{};

TEST_P(DamagedAccountTest, IsRefusedAndTheFrameGoesOn)
{
    const std::string sBytes = ReadWholeFile(ProgramFolder() + "household.qmk");
    OpenRefused(MakeFile("damaged.qmk", GetParam().pDamage(sBytes)));
    ExpectUsable();
}

std::string NameOfDamage(const testing::TestParamInfo<Damage>& test)
{
    return test.param.szName;
}

INSTANTIATE_TEST_SUITE_P(All, DamagedAccountTest, testing::ValuesIn(aDamages), NameOfDamage);

TEST_F(RefusalsTest, FileThatAnotherProgramHoldsOpensOnceItIsFree)
{
    const std::string sPath = CopySample();
    HANDLE hFile = CreateFileA(sPath.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    OpenRefused(sPath);
    CloseHandle(hFile);
    // The program never had the file open, so it holds nothing of it.
    HandOverFile(sPath);
    EXPECT_EQ(ActiveList().GetRowCount(), 447);
}

TEST_F(RefusalsTest, FileThatCannotBeWrittenIsRefused)
{
    const std::string sPath = CopySample();
    const WriteProtection protection(sPath);
    if (!protection.Holds()) {
        GTEST_SKIP() << "this user may write to protected files";
    }
    OpenRefused(sPath);
    ExpectUsable();
}

TEST_F(RefusalsTest, AccountWhosePasswordIsNotGivenIsRefusedAndStaysLocked)
{
    const std::string sPath = MakeAccount(
        "secret.qmk", 3, [](QMAccount& account) { memcpy(account.header.szPassword, "open", 4); });
    m_program.Start({sPath});
    AwaitDialog(m_program, "Enter Password").End(IDCANCEL);
    m_program.AnswerBox(Refused(sPath));
    m_program.AwaitFrame();
    EXPECT_TRUE(m_program.GetDocuments().empty());
    EXPECT_TRUE(IsLocked(sPath));
    // The program does not ask for the password again, because the file cannot be opened a second
    // time.
    HandOverRefused(sPath);
    ExpectUsable();
}

TEST_F(RefusalsTest, RefusedOneAmongOthersIsTheOnlyOneMissing)
{
    const std::string sFirst = MakeAccount("first.qmk", 1);
    const std::string sBad = MakeFile("bad.qmk", "bad");
    const std::string sLast = MakeAccount("last.qmk", 2);
    m_program.Start({sFirst, sBad, sLast});
    m_program.AnswerBox(Refused(sBad));
    m_program.AwaitFrame();
    EXPECT_EQ(m_program.GetDocumentTitles(), (std::vector<std::string>{sLast, sFirst}));
}

TEST_F(RefusalsTest, ReadOnlyAccountOpensAndIsLocked)
{
    const std::string sPath =
        MakeAccount("protected.qmk", 4, [](QMAccount& account) { account.header.bReadOnly = 1; });
    m_program.Open({sPath});
    EXPECT_EQ(ActiveList().GetRowCount(), 4);
    EXPECT_TRUE(IsLocked(sPath));
}

TEST_F(RefusalsTest, OpenAccountIsLeftAsItWas)
{
    const std::string sPath = CopySample();
    const std::string sBytes = ReadWholeFile(sPath);
    m_program.Open({sPath});
    ActiveList().SetColumnWidth(3, 99);
    EXPECT_EQ(m_program.Close(), 0U);
    EXPECT_EQ(ReadWholeFile(sPath), sBytes);
}

} // namespace
