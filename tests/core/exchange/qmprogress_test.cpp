// Imports and exports that somebody watches and may stop.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/vfilesystem.h"
#include "exchange/qmexchange.h"
#include "tests/support/countingprogress.h"
#include "tests/support/exchange_support.h"
#include "tests/support/support.h"

namespace {

constexpr int nForever = CountingProgress::nForever;
constexpr int nRecords = 3000;

class QMProgressTest : public testing::TestWithParam<const char*>
{
protected:
    std::string GetPath() const { return m_folder.PathOf(GetParam()); }
    bool IsThere() const { return FileExists(GetPath().c_str()); }

    static void Fill(QMTransactionStore& store)
    {
        for (int i = 0; i < nRecords; ++i) {
            AddTo(store, MakeTransaction(QM_TRANS_DEPOSIT, "3/14/2004", 12.5F, 0, "Oak Street"));
        }
    }

    TemporaryFolder m_folder;
};

TEST_P(QMProgressTest, WatchedExportWritesTheSame)
{
    QMTransactionStore store;
    Fill(store);
    ASSERT_TRUE(QMExportFile(GetPath().c_str(), store));
    const std::string sExpected = ReadWholeFile(GetPath());
    CountingProgress progress(nForever);
    ASSERT_TRUE(QMExportFile(GetPath().c_str(), store, &progress));
    EXPECT_EQ(ReadWholeFile(GetPath()), sExpected);
    EXPECT_EQ(progress.nCalls, nRecords);
    EXPECT_TRUE(progress.bOrdered);
}

TEST_P(QMProgressTest, ExportThatIsGivenUpLeavesNoFile)
{
    QMTransactionStore store;
    Fill(store);
    for (const int nSteps : {0, 1, nRecords - 1}) {
        CountingProgress progress(nSteps);
        EXPECT_FALSE(QMExportFile(GetPath().c_str(), store, &progress))
            << "steps before giving up: " << nSteps;
        EXPECT_FALSE(IsThere()) << "steps before giving up: " << nSteps;
        EXPECT_EQ(progress.nCalls, nSteps + 1);
    }
}

TEST_P(QMProgressTest, ExportThatNeverEndsByItselfCanBeGivenUp)
{
    QMTransactionStore store;
    CountingProgress progress(1000);
    EXPECT_FALSE(QMExportFile(GetPath().c_str(), store, &progress));
    EXPECT_EQ(progress.nCalls, 1001);
    EXPECT_FALSE(IsThere());
}

TEST_P(QMProgressTest, WatchedImportReadsTheSame)
{
    QMTransactionStore store;
    Fill(store);
    ASSERT_TRUE(QMExportFile(GetPath().c_str(), store));
    QMTransactionStore expected;
    ASSERT_TRUE(QMImportFile(GetPath().c_str(), expected));
    QMTransactionStore watched;
    CountingProgress progress(nForever);
    ASSERT_TRUE(QMImportFile(GetPath().c_str(), watched, &progress));
    ASSERT_EQ(watched.GetCount(), nRecords);
    EXPECT_EQ(FullText(RecordsOf(watched).front()), FullText(RecordsOf(expected).front()));
    EXPECT_EQ(FullText(RecordsOf(watched).back()), FullText(RecordsOf(expected).back()));
    EXPECT_GT(progress.nCalls, 0);
    EXPECT_TRUE(progress.bOrdered);
}

TEST_P(QMProgressTest, ImportThatIsGivenUpLeavesTheStoreAsItWas)
{
    QMTransactionStore store;
    Fill(store);
    ASSERT_TRUE(QMExportFile(GetPath().c_str(), store));
    CountingProgress whole(nForever);
    QMTransactionStore other;
    ASSERT_TRUE(QMImportFile(GetPath().c_str(), other, &whole));
    for (int nSteps = 0; nSteps < whole.nCalls; ++nSteps) {
        CountingProgress progress(nSteps);
        QMTransactionStore kept;
        AddTo(kept, MakeTransaction(QM_TRANS_CHECK, "1/1/2001", 1.0F, 0, "kept"));
        EXPECT_FALSE(QMImportFile(GetPath().c_str(), kept, &progress))
            << "steps before giving up: " << nSteps;
        EXPECT_EQ(kept.GetCount(), 1);
        // Nothing more is read.
        EXPECT_EQ(progress.nCalls, nSteps + 1);
    }
}

TEST_P(QMProgressTest, MissingFileIsRefusedAsWithoutAProgress)
{
    QMTransactionStore store;
    CountingProgress progress(nForever);
    EXPECT_FALSE(QMImportFile(GetPath().c_str(), store, &progress));
    EXPECT_EQ(progress.nCalls, 0);
}

INSTANTIATE_TEST_SUITE_P(All, QMProgressTest, testing::Values("a.qif", "a.csv", "a.xml"),
                         [](const auto& test) { return std::string(test.param).substr(2); });

} // namespace
