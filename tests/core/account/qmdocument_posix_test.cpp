// A document on a system that is out of room or of permission.
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "account/qmdocument.h"
#include "tests/support/account_support.h"
#include "tests/support/account_support_posix.h"
#include "tests/support/support.h"

namespace {

// Opens the small account in a file of its own and makes it larger than a page, unsaved.
void OpenAndGrow(QMDocument& document, const TemporaryFolder& folder)
{
    const std::string sPath = folder.PathOf("a.qmk");
    WriteWholeFile(sPath, SmallAccount(8192));
    auto pAccount = std::make_unique<QMAccount>(sPath.c_str());
    ASSERT_TRUE(pAccount->Read());
    document.SetAccount(std::move(pAccount));
    for (int n = 0; n < 200; ++n) {
        AddTo(document.GetAccount()->store, MakeTransaction(QM_TRANS_FEE, "3/16/2004", 1));
    }
    document.MarkModified();
}

void ExpectUntouched(QMDocument& document, const TemporaryFolder& folder)
{
    EXPECT_TRUE(document.IsModified());
    EXPECT_EQ(document.GetFullName(), folder.PathOf("a.qmk").c_str());
    EXPECT_EQ(document.GetAccount()->store.GetCount(), 202);
    ASSERT_TRUE(document.GetAccount()->IsOpen());
    EXPECT_EQ(BytesOfFile(*document.GetAccount()), SmallAccount(8192));
    EXPECT_EQ(ReadWholeFile(folder.PathOf("a.qmk")), SmallAccount(8192));
}

class FullVolumeTest : public testing::Test
{
protected:
    FullVolumeTest() : m_volume(m_folder.GetPath(), 65536) {}

    void SetUp() override
    {
        if (!m_volume.GetRefusal().empty()) {
            GTEST_SKIP() << m_volume.GetRefusal();
        }
        OpenAndGrow(m_document, m_folder);
    }

    const TemporaryFolder m_folder;
    const SmallVolume m_volume;
    QMDocument m_document;
};

// Runs the tests as an ordinary user, who can reach the folder and read what is in it.
class PermissionTest : public testing::Test
{
protected:
    void SetUp() override
    {
        OpenAndGrow(m_document, m_folder);
        ASSERT_EQ(chmod(m_folder.PathOf("a.qmk").c_str(), 0444), 0);
        ASSERT_EQ(chmod(m_folder.GetPath().c_str(), 0555), 0);
        const PlainUserScope user;
        if (access(m_folder.PathOf("a.qmk").c_str(), R_OK) != 0) {
            GTEST_SKIP() << "an ordinary user cannot reach the folder for temporary files";
        }
    }

    void TearDown() override { EXPECT_EQ(chmod(m_folder.GetPath().c_str(), 0755), 0); }

    const TemporaryFolder m_folder;
    QMDocument m_document;
};

} // namespace

TEST_F(FullVolumeTest, SaveLeavesTheFileAsItIs)
{
    m_volume.Fill();
    EXPECT_FALSE(m_document.Save());
    EXPECT_EQ(m_document.GetAccount()->GetFault(), VFileFault::NoRoom);
    ExpectUntouched(m_document, m_folder);
}

TEST_F(FullVolumeTest, SaveWorksInTheRoomThatTheFileHas)
{
    m_volume.Fill();
    m_document.GetAccount()->store.Clear();
    EXPECT_TRUE(m_document.Save());
    EXPECT_EQ(BytesOfFile(*m_document.GetAccount()).size(), 1284U);
}

TEST_F(FullVolumeTest, SaveAsANewNameLeavesNothingBehind)
{
    m_volume.Fill();
    EXPECT_FALSE(m_document.SaveAs(m_folder.PathOf("b.qmk").c_str(), 8192));
    ExpectUntouched(m_document, m_folder);
    EXPECT_EQ(m_folder.GetNames(), (std::vector<std::string>{"a.qmk", "filler"}));
}

// A failure that can be foreseen must not destroy the other file.
TEST_F(FullVolumeTest, SaveAsAnExistingNameLeavesThatFile)
{
    WriteWholeFile(m_folder.PathOf("b.qmk"), "other contents");
    m_volume.Fill();
    EXPECT_FALSE(m_document.SaveAs(m_folder.PathOf("b.qmk").c_str(), 8192));
    ExpectUntouched(m_document, m_folder);
    EXPECT_EQ(ReadWholeFile(m_folder.PathOf("b.qmk")), "other contents");
}

TEST_F(PermissionTest, SaveLeavesAReadOnlyFile)
{
    {
        const PlainUserScope user;
        EXPECT_FALSE(m_document.Save());
    }
    EXPECT_EQ(m_document.GetAccount()->GetFault(), VFileFault::NoAccess);
    ExpectUntouched(m_document, m_folder);
}

TEST_F(PermissionTest, SaveAsIntoAFolderWithoutPermission)
{
    {
        const PlainUserScope user;
        EXPECT_FALSE(m_document.SaveAs(m_folder.PathOf("b.qmk").c_str(), 8192));
    }
    ExpectUntouched(m_document, m_folder);
    EXPECT_EQ(m_folder.GetNames(), std::vector<std::string>{"a.qmk"});
}

TEST_F(PermissionTest, SaveAsAnExistingReadOnlyFile)
{
    ASSERT_EQ(chmod(m_folder.GetPath().c_str(), 0755), 0);
    WriteWholeFile(m_folder.PathOf("b.qmk"), "other contents");
    ASSERT_EQ(chmod(m_folder.PathOf("b.qmk").c_str(), 0444), 0);
    {
        const PlainUserScope user;
        EXPECT_FALSE(m_document.SaveAs(m_folder.PathOf("b.qmk").c_str(), 8192));
    }
    ExpectUntouched(m_document, m_folder);
    EXPECT_EQ(ReadWholeFile(m_folder.PathOf("b.qmk")), "other contents");
}

// Save does not check whether its writes succeeded. Save As reads the file back.
TEST(WriteThatBreaksOff, SaveDoesNotNoticeAndSaveAsDoes)
{
    const TemporaryFolder folder;
    QMDocument document;
    OpenAndGrow(document, folder);
    bool bSavedAs;
    {
        const FileSizeScope limit(2000);
        bSavedAs = document.SaveAs(folder.PathOf("b.qmk").c_str(), 8192);
    }
    EXPECT_FALSE(bSavedAs);
    ExpectUntouched(document, folder);
    EXPECT_EQ(ReadWholeFile(folder.PathOf("b.qmk")).size(), 2000U);
    bool bSaved;
    {
        const FileSizeScope limit(2000);
        bSaved = document.Save();
    }
    EXPECT_TRUE(bSaved);
    EXPECT_EQ(document.GetAccount()->GetSize(), 2000);
}

TEST(DocumentPosix, SaveFollowsTheNameOfARemovedFile)
{
    const TemporaryFolder folder;
    QMDocument document;
    OpenAndGrow(document, folder);
    ASSERT_EQ(unlink(folder.PathOf("a.qmk").c_str()), 0);
    EXPECT_TRUE(document.Save());
    EXPECT_EQ(NumberAt(ReadWholeFile(folder.PathOf("a.qmk")), uCountOffset), 202U);
}

TEST(DocumentPosix, SaveAsFailsOnALinkToThePresentFile)
{
    const TemporaryFolder folder;
    QMDocument document;
    OpenAndGrow(document, folder);
    ASSERT_EQ(symlink("a.qmk", folder.PathOf("b.qmk").c_str()), 0);
    EXPECT_FALSE(document.SaveAs(folder.PathOf("b.qmk").c_str(), 8192));
    ExpectUntouched(document, folder);
}
