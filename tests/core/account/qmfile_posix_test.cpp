#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <string>

#include "account/qmfile.h"
#include "tests/support/account_support.h"
#include "tests/support/account_support_posix.h"
#include "tests/support/support.h"

namespace {

void ExpectNoFile(const std::string& sPath)
{
    for (const auto pOpen : {&QMFile::Open, &QMFile::OpenForReading, &QMFile::Create}) {
        QMFile file(sPath.c_str());
        EXPECT_FALSE((file.*pOpen)()) << sPath;
        EXPECT_EQ(file.GetFault(), VFileFault::NotAFile) << sPath;
    }
    QMFile file(sPath.c_str());
    EXPECT_FALSE(file.CanReplace(1)) << sPath;
    EXPECT_EQ(file.GetFault(), VFileFault::NotAFile) << sPath;
}

// A file with these permissions, in a folder that everybody may enter.
std::string MakeFile(const TemporaryFolder& folder, mode_t uMode)
{
    std::string sPath = folder.PathOf("a");
    WriteWholeFile(sPath, "abc");
    EXPECT_EQ(chmod(sPath.c_str(), uMode), 0);
    EXPECT_EQ(chmod(folder.GetPath().c_str(), 0755), 0);
    return sPath;
}

} // namespace

TEST(FilePosix, PipeIsRefusedAndNotWaitedFor)
{
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe").c_str(), 0600), 0);
    ExpectNoFile(folder.PathOf("pipe"));
}

TEST(FilePosix, DeviceIsRefused)
{
    ExpectNoFile("/dev/null");
    ExpectNoFile("/dev/zero");
}

TEST(FilePosix, PathThroughAFileIsNotFound)
{
    const TemporaryFolder folder;
    QMFile file((MakeFile(folder, 0644) + "/b").c_str());
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.GetFault(), VFileFault::NotFound);
    EXPECT_FALSE(file.Create());
    EXPECT_EQ(file.GetFault(), VFileFault::NotFound);
}

TEST(FilePosix, NameThatNoFolderCanHoldIsTooLong)
{
    const TemporaryFolder folder;
    if (folder.GetPath().size() > 3) {
        QMFile file(std::string(256, 'n').c_str());
        EXPECT_FALSE(file.Open());
        EXPECT_EQ(file.GetFault(), VFileFault::NameTooLong);
    }
}

TEST(FilePosix, LinkToAnOpenFileIsLocked)
{
    const TemporaryFolder folder;
    QMFile holder(MakeFile(folder, 0644).c_str());
    ASSERT_TRUE(holder.Open());
    ASSERT_EQ(symlink("a", folder.PathOf("symbolic").c_str()), 0);
    ASSERT_EQ(link(folder.PathOf("a").c_str(), folder.PathOf("hard").c_str()), 0);
    for (const char* szName : {"symbolic", "hard"}) {
        QMFile other(folder.PathOf(szName).c_str());
        EXPECT_FALSE(other.Create()) << szName;
        EXPECT_EQ(other.GetFault(), VFileFault::Locked) << szName;
    }
    EXPECT_EQ(BytesOfFile(holder), "abc");
}

// Other programs see the lock.
TEST(FilePosix, LockIsTheSystems)
{
    const TemporaryFolder folder;
    const std::string sPath = MakeFile(folder, 0644);
    const int nOther = open(sPath.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(nOther, 0);
    ASSERT_EQ(flock(nOther, LOCK_SH), 0);
    QMFile file(sPath.c_str());
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.GetFault(), VFileFault::Locked);
    ASSERT_EQ(flock(nOther, LOCK_UN), 0);
    ASSERT_TRUE(file.Open());
    EXPECT_NE(flock(nOther, LOCK_SH | LOCK_NB), 0);
    close(nOther);
}

TEST(FilePosix, FileWithoutWritePermissionOpensForReadingAlone)
{
    const TemporaryFolder folder;
    const std::string sPath = MakeFile(folder, 0444);
    const PlainUserScope user;
    if (access(sPath.c_str(), R_OK) != 0) {
        GTEST_SKIP() << "an ordinary user cannot reach the folder for temporary files";
    }
    QMFile file(sPath.c_str());
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.GetFault(), VFileFault::NoAccess);
    EXPECT_FALSE(file.Create());
    EXPECT_EQ(file.GetFault(), VFileFault::NoAccess);
    EXPECT_FALSE(file.CanReplace(1));
    EXPECT_EQ(file.GetFault(), VFileFault::NoAccess);
    EXPECT_TRUE(file.OpenForReading());
    EXPECT_EQ(BytesOfFile(file), "abc");
}

TEST(FilePosix, FileWithoutReadPermissionIsRefused)
{
    const TemporaryFolder folder;
    const std::string sPath = MakeFile(folder, 0);
    const PlainUserScope user;
    QMFile file(sPath.c_str());
    EXPECT_FALSE(file.OpenForReading());
    EXPECT_EQ(file.GetFault(), VFileFault::NoAccess);
}

TEST(FilePosix, FolderWithoutWritePermissionTakesNoNewFile)
{
    const TemporaryFolder folder;
    MakeFile(folder, 0644);
    ASSERT_EQ(chmod(folder.GetPath().c_str(), 0555), 0);
    {
        const PlainUserScope user;
        QMFile file(folder.PathOf("b").c_str());
        EXPECT_FALSE(file.CanReplace(1));
        EXPECT_EQ(file.GetFault(), VFileFault::NoAccess);
        EXPECT_FALSE(file.Create());
        EXPECT_EQ(file.GetFault(), VFileFault::NoAccess);
    }
    ASSERT_EQ(chmod(folder.GetPath().c_str(), 0755), 0);
    EXPECT_EQ(folder.GetNames(), std::vector<std::string>{"a"});
}

TEST(FilePosix, FullVolumeIsKnownBeforehandAndWhenWriting)
{
    const TemporaryFolder folder;
    const SmallVolume volume(folder.GetPath(), 65536);
    if (!volume.GetRefusal().empty()) {
        GTEST_SKIP() << volume.GetRefusal();
    }
    WriteWholeFile(folder.PathOf("a"), "abc");
    volume.Fill();
    QMFile file(folder.PathOf("a").c_str());
    ASSERT_TRUE(file.Open());
    const auto uRoom = static_cast<size_t>(sysconf(_SC_PAGESIZE)); // what "a" holds already
    EXPECT_TRUE(file.CanReplace(uRoom));
    EXPECT_FALSE(file.CanReplace(uRoom + 1));
    EXPECT_EQ(file.GetFault(), VFileFault::NoRoom);
    const std::string sMore(2 * uRoom, 'x');
    EXPECT_TRUE(file.Seek(0));
    EXPECT_FALSE(file.Write(sMore.data(), sMore.size()));
    EXPECT_EQ(file.GetFault(), VFileFault::NoRoom);
    QMFile other(folder.PathOf("b").c_str());
    EXPECT_FALSE(other.CanReplace(1));
    EXPECT_EQ(other.GetFault(), VFileFault::NoRoom);
}
