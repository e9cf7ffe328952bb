// What only a POSIX system has: modes, links, pipes, users without rights.
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/vfilesystem.h"
#include "tests/support/account_support_posix.h"
#include "tests/support/support.h"

namespace {

VFileFault WriteText(const std::string& sPath, const std::string& sText, bool bReplace)
{
    return VWriteWholeFile(sPath.c_str(), sText.data(), sText.size(), bReplace);
}

mode_t ModeOf(const std::string& sPath)
{
    struct stat status = {};
    EXPECT_EQ(stat(sPath.c_str(), &status), 0) << sPath;
    return status.st_mode & 07777;
}

} // namespace

TEST(VCanReplaceFilePosix, RefusesAFileThatMayNotBeWritten)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    WriteWholeFile(sPath, "old");
    ASSERT_EQ(chmod(sPath.c_str(), 0444), 0);
    const PlainUserScope user;
    EXPECT_EQ(VCanReplaceFile(sPath.c_str(), 1), VFileFault::NoAccess);
}

TEST(VWriteWholeFilePosix, RefusesAFileThatMayNotBeWrittenEvenWhereTheFolderMay)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    WriteWholeFile(sPath, "old");
    ASSERT_EQ(chmod(sPath.c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.GetPath().c_str(), 0777), 0);
    {
        const PlainUserScope user;
        EXPECT_EQ(WriteText(sPath, "new", true), VFileFault::NoAccess);
    }
    EXPECT_EQ(ReadWholeFile(sPath), "old");
    EXPECT_EQ(folder.GetNames(), (Texts{"a"}));
}

TEST(VWriteWholeFilePosix, LeavesNothingBehindWhenTheRoomRunsOutOnTheWay)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    WriteWholeFile(sPath, "old");
    {
        const FileSizeScope limit(1000);
        EXPECT_EQ(WriteText(sPath, std::string(5000, 'x'), true), VFileFault::NoRoom);
        EXPECT_EQ(WriteText(folder.PathOf("b"), std::string(5000, 'x'), false), VFileFault::NoRoom);
    }
    EXPECT_EQ(ReadWholeFile(sPath), "old");
    EXPECT_EQ(folder.GetNames(), (Texts{"a"}));
}

TEST(VWriteWholeFilePosix, KeepsTheModeOfAReplacedFile)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    WriteWholeFile(sPath, "old");
    for (const mode_t uMode : {0600, 0640, 0664, 0777}) {
        ASSERT_EQ(chmod(sPath.c_str(), uMode), 0);
        EXPECT_EQ(WriteText(sPath, "new", true), VFileFault::None);
        EXPECT_EQ(ModeOf(sPath), uMode);
    }
}

TEST(VWriteWholeFilePosix, GivesANewFileTheModeOfTheUmask)
{
    const TemporaryFolder folder;
    const mode_t uBefore = umask(027);
    EXPECT_EQ(WriteText(folder.PathOf("a"), "new", false), VFileFault::None);
    umask(uBefore);
    EXPECT_EQ(ModeOf(folder.PathOf("a")), mode_t{0640});
}

TEST(VWriteWholeFilePosix, WritesThroughASymbolicLinkAndLeavesItALink)
{
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    const std::string sLink = folder.PathOf("link");
    WriteWholeFile(elsewhere.PathOf("file"), "old");
    std::filesystem::create_symlink(elsewhere.PathOf("file"), sLink);
    EXPECT_EQ(WriteText(sLink, "new", true), VFileFault::None);
    EXPECT_TRUE(std::filesystem::is_symlink(sLink));
    EXPECT_EQ(ReadWholeFile(elsewhere.PathOf("file")), "new");
    EXPECT_EQ(folder.GetNames(), (Texts{"link"}));
    EXPECT_EQ(elsewhere.GetNames(), (Texts{"file"}));
}

TEST(VWriteWholeFilePosix, RefusesAnExistingFileBehindASymbolicLink)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("file"), "old");
    std::filesystem::create_symlink("file", folder.PathOf("link"));
    EXPECT_EQ(WriteText(folder.PathOf("link"), "new", false), VFileFault::Exists);
    EXPECT_EQ(ReadWholeFile(folder.PathOf("file")), "old");
    EXPECT_EQ(folder.GetNames(), (Texts{"file", "link"}));
}

TEST(VWriteWholeFilePosix, RefusesAPipeWithoutWaitingForIt)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("pipe");
    ASSERT_EQ(mkfifo(sPath.c_str(), 0600), 0);
    EXPECT_EQ(WriteText(sPath, "new", true), VFileFault::NotAFile);
    EXPECT_EQ(VCanReplaceFile(sPath.c_str(), 1), VFileFault::NotAFile);
    EXPECT_FALSE(FileExists(sPath.c_str()));
    EXPECT_EQ(folder.GetNames(), (Texts{"pipe"}));
}

TEST(VWriteWholeFilePosix, RefusesANewFileInAFolderThatMayNotBeWritten)
{
    const TemporaryFolder folder;
    ASSERT_EQ(chmod(folder.GetPath().c_str(), 0555), 0);
    {
        const PlainUserScope user;
        EXPECT_EQ(WriteText(folder.PathOf("a"), "new", false), VFileFault::NoAccess);
        EXPECT_EQ(VCanReplaceFile(folder.PathOf("a").c_str(), 1), VFileFault::NoAccess);
    }
    EXPECT_EQ(folder.GetNames(), Texts{});
    ASSERT_EQ(chmod(folder.GetPath().c_str(), 0755), 0);
}

TEST(VWriteWholeFilePosix, RefusesAPathThroughAFile)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder.PathOf("file"), "old");
    EXPECT_EQ(WriteText(folder.PathOf("file/a"), "new", true), VFileFault::NotFound);
    EXPECT_EQ(VCanReplaceFile(folder.PathOf("file/a").c_str(), 1), VFileFault::NotFound);
    EXPECT_EQ(ReadWholeFile(folder.PathOf("file")), "old");
}

TEST(VWriteWholeFilePosix, RefusesANameThatIsTooLongForTheSystem)
{
    const TemporaryFolder folder;
    EXPECT_EQ(WriteText(folder.PathOf(std::string(300, 'n')), "new", false),
              VFileFault::NameTooLong);
    EXPECT_EQ(folder.GetNames(), Texts{});
}

TEST(VWriteWholeFilePosix, WritesAFileOfTheLongestName)
{
    const TemporaryFolder folder;
    for (const size_t uLength : {246U, 247U, 255U}) {
        const std::string sName(uLength, 'n');
        const std::string sPath = folder.PathOf(sName);
        EXPECT_EQ(WriteText(sPath, "first", false), VFileFault::None) << "length " << uLength;
        EXPECT_EQ(WriteText(sPath, "second", true), VFileFault::None) << "length " << uLength;
        EXPECT_EQ(ReadWholeFile(sPath), "second");
        EXPECT_EQ(WriteText(sPath + std::string(256 - uLength, 'n'), "x", false),
                  VFileFault::NameTooLong);
    }
    EXPECT_EQ(folder.GetNames().size(), 3U);
}
