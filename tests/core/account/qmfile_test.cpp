#include "account/qmfile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "tests/support/account_support.h"
#include "tests/support/support.h"

namespace {

class FileTest : public testing::Test
{
protected:
    // Makes the file and tells its path.
    std::string Make(const std::string& sName, const std::string& sBytes)
    {
        WriteWholeFile(m_folder.PathOf(sName), sBytes);
        return m_folder.PathOf(sName);
    }

    TemporaryFolder m_folder;
};

// A path of exactly uLength bytes in the folder; its folders exist, the file does not.
std::string LongPath(const TemporaryFolder& folder, size_t uLength)
{
    const std::string sFolder = folder.PathOf(std::string(100, 'f'));
    std::filesystem::create_directory(sFolder);
    const std::string sStart = (std::filesystem::path(sFolder) / "n").string();
    return sStart + std::string(uLength - sStart.size(), 'n');
}

} // namespace

TEST_F(FileTest, StartsClosed)
{
    QMFile file(Make("a", "abc").c_str());
    char c = 'x';
    EXPECT_FALSE(file.IsOpen());
    EXPECT_FALSE(file.Seek(0));
    EXPECT_FALSE(file.Read(&c, 1));
    EXPECT_FALSE(file.Write(&c, 1));
    EXPECT_EQ(file.ReadSome(&c, 1), -1);
    EXPECT_EQ(file.GetSize(), -1);
    EXPECT_EQ(file.GetFault(), VFileFault::None);
    EXPECT_EQ(c, 'x');
    EXPECT_EQ(file.GetFileName(), m_folder.PathOf("a"));
    EXPECT_EQ(ReadWholeFile(m_folder.PathOf("a")), "abc");
}

TEST_F(FileTest, OpensForReadingAndWriting)
{
    QMFile file(Make("a", "abcdef").c_str());
    ASSERT_TRUE(file.Open());
    EXPECT_TRUE(file.IsOpen());
    EXPECT_TRUE(file.Open());
    EXPECT_EQ(file.GetSize(), 6);
    EXPECT_TRUE(file.Seek(2));
    EXPECT_TRUE(file.Write("XY", 2));
    EXPECT_EQ(BytesOfFile(file), "abXYef");
    file.Close();
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(ReadWholeFile(m_folder.PathOf("a")), "abXYef");
}

TEST_F(FileTest, OpensForReadingAlone)
{
    QMFile file(Make("a", "abc").c_str());
    ASSERT_TRUE(file.OpenForReading());
    EXPECT_TRUE(file.OpenForReading());
    EXPECT_FALSE(file.Write("X", 1));
    EXPECT_NE(file.GetFault(), VFileFault::None);
    EXPECT_EQ(BytesOfFile(file), "abc");
}

TEST_F(FileTest, ReadsFewerBytesAtTheEndOnly)
{
    QMFile file(Make("a", "abcdef").c_str());
    ASSERT_TRUE(file.Open());
    char szBuffer[8] = {};
    EXPECT_EQ(file.ReadSome(szBuffer, 4), 4);
    EXPECT_EQ(file.ReadSome(szBuffer + 4, 4), 2);
    EXPECT_STREQ(szBuffer, "abcdef");
    EXPECT_EQ(file.ReadSome(szBuffer, 4), 0);
}

// Fewer bytes than asked for, as at the end of the file, is no failure.
TEST_F(FileTest, ReadDoesNotReportAShortCount)
{
    QMFile file(Make("a", "abc").c_str());
    ASSERT_TRUE(file.Open());
    char szBuffer[8] = "-------";
    EXPECT_TRUE(file.Seek(1));
    EXPECT_TRUE(file.Read(szBuffer, 7));
    EXPECT_EQ(std::string(szBuffer, 3), "bc-");
    EXPECT_TRUE(file.Read(szBuffer, 7));
    EXPECT_TRUE(file.Seek(100));
    EXPECT_TRUE(file.Read(szBuffer, 7));
    EXPECT_EQ(std::string(szBuffer, 3), "bc-");
}

TEST_F(FileTest, OpenOfAMissingFileMakesNone)
{
    QMFile file(m_folder.PathOf("a").c_str());
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.GetFault(), VFileFault::NotFound);
    EXPECT_FALSE(file.OpenForReading());
    EXPECT_EQ(file.GetFault(), VFileFault::NotFound);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_TRUE(m_folder.GetNames().empty());
}

TEST_F(FileTest, FaultGoesWithTheNextSuccess)
{
    QMFile file(m_folder.PathOf("a").c_str());
    EXPECT_FALSE(file.Open());
    EXPECT_TRUE(file.Create());
    EXPECT_EQ(file.GetFault(), VFileFault::None);
}

TEST_F(FileTest, MissingFolderAndEmptyNameAreNotFound)
{
    const std::string sPath = (std::filesystem::path(m_folder.PathOf("none")) / "a").string();
    for (const std::string& sName : {sPath, std::string()}) {
        QMFile file(sName.c_str());
        EXPECT_FALSE(file.Open()) << sName;
        EXPECT_EQ(file.GetFault(), VFileFault::NotFound) << sName;
        EXPECT_FALSE(file.Create()) << sName;
        EXPECT_EQ(file.GetFault(), VFileFault::NotFound) << sName;
    }
}

TEST_F(FileTest, FolderIsNoFile)
{
    QMFile file(m_folder.GetPath().c_str());
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.GetFault(), VFileFault::NotAFile);
    EXPECT_FALSE(file.OpenForReading());
    EXPECT_EQ(file.GetFault(), VFileFault::NotAFile);
    EXPECT_FALSE(file.Create());
    EXPECT_EQ(file.GetFault(), VFileFault::NotAFile);
    EXPECT_FALSE(file.CanReplace(0));
    EXPECT_EQ(file.GetFault(), VFileFault::NotAFile);
}

TEST_F(FileTest, CreateMakesAnEmptyFile)
{
    QMFile file(m_folder.PathOf("a").c_str());
    ASSERT_TRUE(file.Create());
    EXPECT_TRUE(file.IsOpen());
    EXPECT_EQ(file.GetSize(), 0);
    EXPECT_TRUE(file.Write("abc", 3));
    EXPECT_EQ(BytesOfFile(file), "abc");
}

TEST_F(FileTest, CreateReplacesWhatWasThere)
{
    QMFile file(Make("a", "abcdef").c_str());
    ASSERT_TRUE(file.Create());
    EXPECT_EQ(file.GetSize(), 0);
    EXPECT_TRUE(file.Write("xy", 2));
    file.Close();
    EXPECT_EQ(ReadWholeFile(m_folder.PathOf("a")), "xy");
}

TEST_F(FileTest, CreateOfAnOpenFileLeavesIt)
{
    QMFile file(Make("a", "abc").c_str());
    ASSERT_TRUE(file.Open());
    EXPECT_TRUE(file.Create());
    EXPECT_EQ(BytesOfFile(file), "abc");
}

TEST_F(FileTest, NobodyElseCanOpenAnOpenFile)
{
    QMFile holder(Make("a", "abc").c_str());
    bool (QMFile::*const apOpen[])() = {&QMFile::Open, &QMFile::OpenForReading};
    for (const auto pHold : apOpen) {
        ASSERT_TRUE((holder.*pHold)());
        for (const auto pTry : {&QMFile::Open, &QMFile::OpenForReading, &QMFile::Create}) {
            QMFile other(m_folder.PathOf("a").c_str());
            EXPECT_FALSE((other.*pTry)());
            EXPECT_FALSE(other.IsOpen());
            EXPECT_EQ(other.GetFault(), VFileFault::Locked);
        }
        EXPECT_EQ(BytesOfFile(holder), "abc");
        holder.Close();
    }
    QMFile other(m_folder.PathOf("a").c_str());
    EXPECT_TRUE(other.Open());
}

TEST_F(FileTest, CreatedFileIsLockedToo)
{
    QMFile holder(m_folder.PathOf("a").c_str());
    ASSERT_TRUE(holder.Create());
    ASSERT_TRUE(holder.Write("abc", 3));
    QMFile other(m_folder.PathOf("a").c_str());
    EXPECT_FALSE(other.Create());
    EXPECT_EQ(other.GetFault(), VFileFault::Locked);
    EXPECT_FALSE(other.Open());
    EXPECT_EQ(BytesOfFile(holder), "abc");
}

TEST_F(FileTest, EndOfTheObjectClosesTheFile)
{
    const std::string sPath = Make("a", "abc");
    {
        QMFile holder(sPath.c_str());
        ASSERT_TRUE(holder.Open());
    }
    QMFile other(sPath.c_str());
    EXPECT_TRUE(other.Open());
}

TEST_F(FileTest, NameOf260BytesIsKeptWhole)
{
    const std::string sPath = LongPath(m_folder, 260);
    QMFile file(sPath.c_str());
    EXPECT_EQ(file.GetFileName(), sPath);
#ifndef _WIN32 // where a path of that length is beyond the system itself
    EXPECT_TRUE(file.Create());
    EXPECT_TRUE(std::filesystem::exists(sPath));
#endif
}

TEST_F(FileTest, NameOf261BytesIsNeverOpened)
{
    const std::string sPath = LongPath(m_folder, 261);
    const std::string sCut = sPath.substr(0, 260);
    QMFile cut(sCut.c_str());
    cut.Create(); // the file that a cut name would mean
    cut.Close();
    QMFile file(sPath.c_str());
    EXPECT_EQ(file.GetFileName(), sCut);
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.GetFault(), VFileFault::NameTooLong);
    EXPECT_FALSE(file.OpenForReading());
    EXPECT_EQ(file.GetFault(), VFileFault::NameTooLong);
    EXPECT_FALSE(file.Create());
    EXPECT_EQ(file.GetFault(), VFileFault::NameTooLong);
    EXPECT_FALSE(file.CanReplace(1));
    EXPECT_EQ(file.GetFault(), VFileFault::NameTooLong);
    EXPECT_FALSE(file.IsOpen());
}

TEST_F(FileTest, CanReplaceAsksWithoutTouching)
{
    QMFile file(Make("a", "abc").c_str());
    EXPECT_TRUE(file.CanReplace(1000));
    EXPECT_EQ(file.GetFault(), VFileFault::None);
    QMFile missing(m_folder.PathOf("b").c_str());
    EXPECT_TRUE(missing.CanReplace(1000));
    EXPECT_EQ(m_folder.GetNames(), std::vector<std::string>{"a"});
    EXPECT_EQ(ReadWholeFile(m_folder.PathOf("a")), "abc");
}

TEST_F(FileTest, CanReplaceKnowsAVolumeThatIsTooSmall)
{
    QMFile file(Make("a", "abc").c_str());
    ASSERT_TRUE(file.Open());
    EXPECT_FALSE(file.CanReplace(uint64_t{1} << 62));
    EXPECT_EQ(file.GetFault(), VFileFault::NoRoom);
    EXPECT_TRUE(file.IsOpen());
    EXPECT_EQ(BytesOfFile(file), "abc");
}

TEST_F(FileTest, CanReplaceKnowsAMissingFolder)
{
    const std::string sPath = (std::filesystem::path(m_folder.PathOf("none")) / "a").string();
    QMFile file(sPath.c_str());
    EXPECT_FALSE(file.CanReplace(1));
    EXPECT_EQ(file.GetFault(), VFileFault::NotFound);
}

TEST(FileFault, EveryFaultHasAPhraseOfItsOwn)
{
    EXPECT_STREQ(VFileFaultText(VFileFault::None), "");
    std::set<std::string> phrases;
    for (const VFileFault fault :
         {VFileFault::NameTooLong, VFileFault::NotFound, VFileFault::NotAFile, VFileFault::Exists,
          VFileFault::Locked, VFileFault::NoAccess, VFileFault::NoRoom, VFileFault::Other}) {
        EXPECT_STRNE(VFileFaultText(fault), "");
        phrases.insert(VFileFaultText(fault));
    }
    EXPECT_EQ(phrases.size(), 8U);
}
