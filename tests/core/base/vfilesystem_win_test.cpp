// Files with the read-only attribute, which nobody may write.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "base/vfilesystem.h"
#include "tests/support/support.h"

namespace {

using std::filesystem::perms;

// A file with the read-only attribute. The attribute is removed before the folder is.
class ReadOnlyFile
{
public:
    explicit ReadOnlyFile(const std::string& sPath) : m_sPath(sPath)
    {
        WriteWholeFile(sPath, "old");
        std::filesystem::permissions(sPath, perms::owner_read);
    }
    ReadOnlyFile(const ReadOnlyFile&) = delete;
    ReadOnlyFile& operator=(const ReadOnlyFile&) = delete;
    ~ReadOnlyFile() { std::filesystem::permissions(m_sPath, perms::all); }

private:
    std::string m_sPath;
};

} // namespace

TEST(VCanReplaceFileWindows, RefusesAReadOnlyFile)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    const ReadOnlyFile file(sPath);
    EXPECT_EQ(VCanReplaceFile(sPath.c_str(), 1), VFileFault::NoAccess);
}

TEST(VWriteWholeFileWindows, RefusesAReadOnlyFile)
{
    const TemporaryFolder folder;
    const std::string sPath = folder.PathOf("a");
    const ReadOnlyFile file(sPath);
    if (std::ofstream(sPath, std::ios::app).is_open()) {
        GTEST_SKIP() << "this user may write to a file that is marked read-only";
    }
    EXPECT_EQ(VWriteWholeFile(sPath.c_str(), "new", 3, true), VFileFault::NoAccess);
    EXPECT_EQ(ReadWholeFile(sPath), "old");
    EXPECT_EQ(folder.GetNames().size(), 1u);
}
