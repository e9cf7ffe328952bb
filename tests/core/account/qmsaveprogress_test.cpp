// Saves, copies and merges that are watched, and given up.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "account/qmdocument.h"
#include "account/qmmerge.h"
#include "base/vfilesystem.h"
#include "tests/support/countingprogress.h"
#include "tests/support/support.h"

namespace {

constexpr int nRecords = 60;

class SaveProgressTest : public testing::Test
{
protected:
    void SetUp() override
    {
        auto pAccount = std::make_unique<QMAccount>(PathOf("a.qmk").c_str());
        Fill(pAccount->store, 0);
        m_document.SetAccount(std::move(pAccount));
    }

    static void Fill(QMTransactionStore& store, uint32_t uFlags)
    {
        for (int i = 0; i < nRecords; ++i) {
            AddTo(store, MakeTransaction(QM_TRANS_DEPOSIT, "3/14/2004", 12.5F,
                                         uFlags | (i % 2 == 0 ? QM_TRANS_FLAG_NOT_CLEARED : 0),
                                         std::to_string(i)));
        }
    }

    std::string PathOf(const char* szName) const { return m_folder.PathOf(szName); }
    bool IsThere(const char* szName) const { return FileExists(PathOf(szName).c_str()); }
    QMAccount& Account() { return *m_document.GetAccount(); }

    // The bytes of the account's file, which nobody else can read while it is open.
    std::string Bytes()
    {
        Account().Close();
        std::string sBytes = ReadWholeFile(PathOf("a.qmk"));
        EXPECT_TRUE(Account().Open());
        return sBytes;
    }

    void Change()
    {
        Account().store.First();
        strcpy(Account().store.GetCurrentNode()->szMemo, "changed");
        m_document.MarkModified();
    }

    TemporaryFolder m_folder;
    QMDocument m_document;
};

TEST_F(SaveProgressTest, WatchedSaveWritesTheSame)
{
    ASSERT_TRUE(m_document.Save());
    const std::string sExpected = Bytes();
    CountingProgress progress;
    ASSERT_TRUE(m_document.Save(&progress));
    EXPECT_EQ(Bytes(), sExpected);
    EXPECT_GT(progress.nCalls, nRecords);
    EXPECT_TRUE(progress.bOrdered);
    EXPECT_TRUE(progress.bComplete);
    EXPECT_EQ(progress.nNoReturns, 1);
}

TEST_F(SaveProgressTest, SaveThatIsGivenUpLeavesTheFileAsItWas)
{
    ASSERT_TRUE(m_document.Save());
    const std::string sBefore = Bytes();
    Change();
    for (const int nSteps : {0, 1, nRecords - 1}) {
        CountingProgress progress(nSteps);
        EXPECT_FALSE(m_document.Save(&progress)) << "steps before giving up: " << nSteps;
        EXPECT_EQ(progress.nCalls, nSteps + 1)
            << "a save that was given up must report no more steps";
        EXPECT_EQ(progress.nNoReturns, 0);
        EXPECT_TRUE(m_document.IsModified());
        EXPECT_TRUE(Account().IsOpen());
        EXPECT_EQ(Bytes(), sBefore) << "steps before giving up: " << nSteps;
    }
}

TEST_F(SaveProgressTest, SaveIsNotGivenUpOnceTheOldContentsAreGone)
{
    ASSERT_TRUE(m_document.Save());
    Change();
    CountingProgress progress(nRecords); // the steps that make the bytes
    EXPECT_TRUE(m_document.Save(&progress));
    EXPECT_GT(progress.nCalls, nRecords) << "the progress must have asked to give up";
    EXPECT_EQ(progress.nNoReturns, 1);
    EXPECT_FALSE(m_document.IsModified());
    Account().Close();
    QMAccount again(PathOf("a.qmk").c_str());
    ASSERT_TRUE(again.Read());
    EXPECT_EQ(again.store.GetCount(), nRecords);
    again.store.First();
    EXPECT_STREQ(again.store.GetCurrentNode()->szMemo, "changed");
}

TEST_F(SaveProgressTest, FirstSaveThatIsGivenUpLeavesNoFile)
{
    CountingProgress progress(3);
    EXPECT_FALSE(m_document.Save(&progress));
    EXPECT_FALSE(IsThere("a.qmk"));
    EXPECT_FALSE(Account().IsOpen()) << "the document must still count as never saved";
    EXPECT_TRUE(m_document.Save());
    EXPECT_TRUE(IsThere("a.qmk"));
}

TEST_F(SaveProgressTest, SaveAsThatIsGivenUpChangesNothing)
{
    ASSERT_TRUE(m_document.Save());
    ASSERT_TRUE(m_document.SaveAs(PathOf("old.qmk").c_str(), 0));
    ASSERT_TRUE(m_document.SaveAs(PathOf("a.qmk").c_str(), 0));
    const std::string sOld = ReadWholeFile(PathOf("old.qmk"));
    Change();
    for (const char* szName : {"old.qmk", "new.qmk"}) {
        CountingProgress progress(nRecords - 1);
        EXPECT_FALSE(m_document.SaveAs(PathOf(szName).c_str(), 4096, &progress));
        EXPECT_EQ(progress.nNoReturns, 0);
        EXPECT_STREQ(m_document.GetFileName().GetText(), "a.qmk");
        EXPECT_TRUE(m_document.IsModified());
        EXPECT_EQ(Account().SetVersion(0), 8192);
    }
    EXPECT_EQ(ReadWholeFile(PathOf("old.qmk")), sOld);
    EXPECT_FALSE(IsThere("new.qmk"));
}

TEST_F(SaveProgressTest, WatchedSaveAsTellsOfWritingAndReadingBack)
{
    CountingProgress progress(nRecords);
    EXPECT_TRUE(m_document.SaveAs(PathOf("new.qmk").c_str(), 4352, &progress));
    EXPECT_GE(progress.nCalls, 2 * nRecords);
    EXPECT_TRUE(progress.bOrdered);
    EXPECT_TRUE(progress.bComplete);
    EXPECT_EQ(progress.nNoReturns, 1);
    EXPECT_EQ(Account().SetVersion(0), 4352);
    EXPECT_EQ(Account().store.GetCount(), nRecords);
}

TEST_F(SaveProgressTest, CopyIsWatchedAndGivenUp)
{
    QMTransactionStore copy;
    CountingProgress whole;
    EXPECT_EQ(m_document.GetTransactions(copy, &whole), nRecords);
    EXPECT_EQ(ContentsOf(copy), ContentsOf(Account().store));
    EXPECT_EQ(whole.nCalls, nRecords);
    EXPECT_TRUE(whole.bOrdered);
    CountingProgress progress(5);
    EXPECT_EQ(m_document.GetTransactions(copy, &progress), -1);
    EXPECT_EQ(progress.nCalls, 6);
    EXPECT_EQ(Account().store.GetCount(), nRecords);
}

TEST_F(SaveProgressTest, MergeThatIsGivenUpAddsNothing)
{
    const Texts before = ContentsOf(Account().store);
    for (const int nSteps : {0, 7, nRecords - 1}) {
        QMTransactionStore from;
        Fill(from, QM_TRANS_FLAG_IMPORT);
        CountingProgress progress(nSteps);
        EXPECT_LT(QMMergeMarked(from, Account().store, &progress), 0)
            << "steps before giving up: " << nSteps;
        EXPECT_EQ(progress.nCalls, nSteps + 1);
        EXPECT_EQ(ContentsOf(Account().store), before) << "steps before giving up: " << nSteps;
    }
    QMTransactionStore from;
    Fill(from, QM_TRANS_FLAG_IMPORT);
    CountingProgress whole;
    EXPECT_EQ(QMMergeMarked(from, Account().store, &whole), nRecords);
    EXPECT_EQ(whole.nCalls, nRecords);
    EXPECT_TRUE(whole.bOrdered);
    EXPECT_EQ(Account().store.GetCount(), 2 * nRecords);
}

} // namespace
