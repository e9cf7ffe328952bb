// Files in ways that only Windows has: devices with names, and the read-only attribute.
#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "account/qmdocument.h"
#include "tests/support/account_support.h"
#include "tests/support/support.h"

namespace {

class ReadOnlyFileTest : public testing::Test
{
protected:
    void SetUp() override
    {
        WriteWholeFile(m_sPath, SmallAccount(8192));
        ASSERT_TRUE(SetFileAttributesA(m_sPath.c_str(), FILE_ATTRIBUTE_READONLY));
    }

    void TearDown() override
    {
        EXPECT_TRUE(SetFileAttributesA(m_sPath.c_str(), FILE_ATTRIBUTE_NORMAL));
        EXPECT_EQ(ReadWholeFile(m_sPath), SmallAccount(8192));
    }

    // Wine leaves this attribute to the system below it, where root may write to any file.
    bool IsAttributeKept() const
    {
        const HANDLE hFile = CreateFileA(m_sPath.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr);
        if (hFile != INVALID_HANDLE_VALUE) {
            CloseHandle(hFile);
        }
        return hFile == INVALID_HANDLE_VALUE;
    }

    const TemporaryFolder m_folder;
    const std::string m_sPath = m_folder.PathOf("a.qmk");
};

} // namespace

TEST(FileWin, DeviceIsRefused)
{
    for (const char* szName : {"NUL", "nul"}) {
        for (const auto pOpen : {&QMFile::Open, &QMFile::OpenForReading, &QMFile::Create}) {
            QMFile file(szName);
            EXPECT_FALSE((file.*pOpen)()) << szName;
            EXPECT_EQ(file.GetFault(), VFileFault::NotAFile) << szName;
        }
    }
}

TEST_F(ReadOnlyFileTest, OpensForReadingAlone)
{
    QMFile file(m_sPath.c_str());
    EXPECT_TRUE(file.OpenForReading());
    EXPECT_EQ(BytesOfFile(file), SmallAccount(8192));
    file.Close();
    if (!IsAttributeKept()) {
        GTEST_SKIP() << "this user may write to a file that is marked read-only";
    }
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.GetFault(), VFileFault::NoAccess);
    EXPECT_FALSE(file.Create());
    EXPECT_EQ(file.GetFault(), VFileFault::NoAccess);
}

TEST_F(ReadOnlyFileTest, CannotBeReplaced)
{
    QMFile file(m_sPath.c_str());
    EXPECT_FALSE(file.CanReplace(1));
    EXPECT_EQ(file.GetFault(), VFileFault::NoAccess);
}

TEST_F(ReadOnlyFileTest, SaveLeavesIt)
{
    auto pAccount = std::make_unique<QMAccount>(m_sPath.c_str());
    ASSERT_TRUE(pAccount->OpenForReading());
    ASSERT_TRUE(pAccount->Read());
    QMDocument document;
    document.SetAccount(std::move(pAccount));
    document.GetAccount()->store.Clear();
    document.MarkModified();
    EXPECT_FALSE(document.Save());
    EXPECT_TRUE(document.IsModified());
    EXPECT_TRUE(document.GetAccount()->IsOpen());
    EXPECT_EQ(BytesOfFile(*document.GetAccount()), SmallAccount(8192));
}
