#include "exchange/qmexchange.h"
#include "account/qmmerge.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/core/allocationfault.h"
#include "tests/support/exchange_support.h"
#include "tests/support/storemodel.h"
#include "tests/support/support.h"

namespace {

constexpr uint32_t uMarked = QM_TRANS_FLAG_IMPORT | QM_TRANS_FLAG_NOT_CLEARED;

// The rule of a merge: Add, one transaction after the other.
void MergeOneByOne(const QMTransactionStore& from, QMTransactionStore& into)
{
    from.ForEach([&](const QMTransaction& transaction) {
        if (transaction.HasFlag(QM_TRANS_FLAG_IMPORT)) {
            QMTransaction copy = transaction;
            copy.lFlags &= ~QM_TRANS_FLAG_IMPORT;
            AddTo(into, copy);
        }
    });
}

uint32_t Below(std::mt19937& random, uint32_t uLimit)
{
    return static_cast<uint32_t>(random() % uLimit);
}

void Fill(QMTransactionStore& store, std::mt19937& random, uint32_t uCount, uint32_t uDays)
{
    for (const ModelEntry& entry : RandomEntries(random, uCount, uDays)) {
        QMTransaction transaction = TransactionOf(entry);
        transaction.lFlags = random() % 3 == 0 ? QM_TRANS_FLAG_NOT_CLEARED : uMarked;
        AddTo(store, transaction);
    }
}

std::string Obstacle(QMExchangeKind kind, const QMTransactionStore& store)
{
    const char* szObstacle = QMExportObstacle(kind, store);
    return szObstacle == nullptr ? "" : szObstacle;
}

} // namespace

TEST(ExchangeKind, GoesByWhatFollowsTheLastDot)
{
    EXPECT_EQ(QMKindOfPath("a.qif"), QMExchangeKind::Qif);
    EXPECT_EQ(QMKindOfPath("a.CSV"), QMExchangeKind::Csv);
    EXPECT_EQ(QMKindOfPath("folder/a.qif.Xml"), QMExchangeKind::Xml);
    EXPECT_EQ(QMKindOfPath(".qif"), QMExchangeKind::Qif);
    EXPECT_EQ(QMKindOfPath("a.txt"), QMExchangeKind::Text);
    EXPECT_EQ(QMKindOfPath("a.TXT"), QMExchangeKind::Text);
    for (const char* szPath :
         {"", "qif", "a.", "a.qi", "a.qiff", "a.qif ", "folder.qif/a", "a.qmk"}) {
        EXPECT_EQ(QMKindOfPath(szPath), QMExchangeKind::None) << szPath;
    }
    EXPECT_EQ(QMKindOfPath(nullptr), QMExchangeKind::None);
}

TEST(ImportFile, ReadsEachKindByItsOwnFormat)
{
    const std::vector<std::string> one = {"1/1/2000 1 #0 5.00 f16 1/1/2000"};
    EXPECT_EQ(Import("a.QIF", "T5\n^\n"), one);
    EXPECT_EQ(Import("a.csv", "Amount\n5\n"), one);
    EXPECT_EQ(Import("a.xml", "<transaction type='deposit'><amount>5</amount></transaction>"),
              std::vector<std::string>{"1/1/2000 1 #1000 5.00 f16 1/1/2000"});
}

TEST(ImportFile, RefusesTextFilesInEitherCaseAndPathsWithoutADot)
{
    for (const char* szName : {"a.txt", "a.TXT", "a", "a.qmk", "qif"}) {
        EXPECT_EQ(Import(szName, "T5\n^\n"), std::vector<std::string>{"(refused)"}) << szName;
    }
}

TEST(ExportFile, MakesNoFileOfAKindThatItCannotWrite)
{
    const TemporaryFolder folder;
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "1/1/2004", 5));
    for (const char* szName : {"a.txt", "a.TXT", "a", "a.qmk"}) {
        EXPECT_FALSE(QMExportFile(folder.PathOf(szName).c_str(), store)) << szName;
    }
    EXPECT_TRUE(folder.GetNames().empty());
    for (const char* szName : {"a.qif", "a.CSV", "a.xml"}) {
        EXPECT_TRUE(QMExportFile(folder.PathOf(szName).c_str(), store)) << szName;
    }
    EXPECT_EQ(folder.GetNames().size(), 3U);
}

TEST(ExportObstacle, IsAnAccountWithoutTransactionsInEveryKind)
{
    const QMTransactionStore store;
    for (const QMExchangeKind kind :
         {QMExchangeKind::Qif, QMExchangeKind::Csv, QMExchangeKind::Xml}) {
        EXPECT_EQ(Obstacle(kind, store), "the account has no transactions");
    }
}

TEST(ExportObstacle, IsAVoidedTransactionAtTheEndInQifAlone)
{
    QMTransactionStore store;
    AddTo(store, MakeTransaction(1, "1/1/2004", 5, 17));
    AddTo(store, MakeTransaction(1, "1/2/2004", 5));
    store.First();
    EXPECT_EQ(Obstacle(QMExchangeKind::Qif, store), "")
        << "a voided transaction is an obstacle only as the last one";
    EXPECT_EQ(store.GetPosition(), 0) << "the cursor must not move";
    AddTo(store, MakeTransaction(1, "1/3/2004", 5, 17));
    EXPECT_EQ(Obstacle(QMExchangeKind::Qif, store),
              "the last transaction is voided, and a QIF file cannot end with one that it leaves "
              "out");
    EXPECT_EQ(Obstacle(QMExchangeKind::Csv, store), "");
    EXPECT_EQ(Obstacle(QMExchangeKind::Xml, store), "");
}

TEST(ExportObstacle, IsATransactionOfAnUnknownTypeAtTheEndInXmlAlone)
{
    QMTransactionStore store;
    AddTo(store, MakeTransaction(12, "1/1/2004", 5));
    AddTo(store, MakeTransaction(11, "1/2/2004", 5));
    EXPECT_EQ(Obstacle(QMExchangeKind::Xml, store), "")
        << "an unknown type is an obstacle only in the last transaction";
    for (const int32_t lType : {12, -1}) {
        AddTo(store, MakeTransaction(lType, "1/3/2004", 5));
        EXPECT_EQ(Obstacle(QMExchangeKind::Xml, store),
                  "the last transaction is of an unknown type, and an XML file cannot end with one "
                  "that it leaves out");
        EXPECT_EQ(Obstacle(QMExchangeKind::Qif, store), "");
        EXPECT_EQ(Obstacle(QMExchangeKind::Csv, store), "");
    }
}

TEST(Merge, TakesTheMarkedOnesAndTheirMarksOff)
{
    QMTransactionStore from;
    AddTo(from, MakeTransaction(1, "1/1/2004", 5, uMarked, "yes"));
    AddTo(from, MakeTransaction(1, "1/2/2004", 6, 16, "no"));
    AddTo(from, MakeTransaction(1, "1/3/2004", 7, uMarked, "also"));
    QMTransactionStore into;
    AddTo(into, MakeTransaction(2, "1/2/2004", 8, 16, "there"));
    EXPECT_EQ(QMMergeMarked(from, into), 2);
    EXPECT_EQ(ContentsOf(into),
              (std::vector<std::string>{"1/1/2004 1 5.00 yes", "1/2/2004 2 8.00 there",
                                        "1/3/2004 1 7.00 also"}));
    EXPECT_EQ(into.GetPosition(), 2);
    for (const QMTransactionStore* pStore : {&from, &into}) {
        pStore->ForEach([](const QMTransaction& transaction) {
            EXPECT_EQ(transaction.lFlags, QM_TRANS_FLAG_NOT_CLEARED);
        });
    }
    EXPECT_EQ(from.GetCount(), 3);
    EXPECT_EQ(QMMergeMarked(from, into), 0) << "the first merge must have removed all marks";
}

TEST(Merge, QuestionsNothing)
{
    QMTransactionStore from;
    QMTransaction odd = MakeTransaction(12, "99/99/3", -5, uMarked);
    odd.lNumber = 0;
    AddTo(from, odd);
    QMTransactionStore into;
    AddTo(into, odd);
    EXPECT_EQ(QMMergeMarked(from, into), 1);
    EXPECT_EQ(into.GetCount(), 2)
        << "the merge must not ask whether the account has the same record";
}

TEST(Merge, MergesNothingOutOfAnEmptyStore)
{
    QMTransactionStore from;
    QMTransactionStore into;
    EXPECT_EQ(QMMergeMarked(from, into), 0);
    EXPECT_TRUE(into.IsEmpty());
}

TEST(Merge, LeavesTheAccountAsAddingOneByOneWould)
{
    std::mt19937 random(2004);
    for (int i = 0; i < 200; ++i) {
        QMTransactionStore from;
        QMTransactionStore into;
        Fill(into, random, Below(random, 20), 1 + Below(random, 10));
        Fill(from, random, Below(random, 20), 1 + Below(random, 10));
        QMTransactionStore expected;
        expected.AssignFrom(into);
        MergeOneByOne(from, expected);
        const int32_t lBefore = into.GetCount();
        EXPECT_EQ(QMMergeMarked(from, into), expected.GetCount() - lBefore);
        ASSERT_EQ(IdsOf(into), IdsOf(expected));
        if (into.GetCount() > lBefore) {
            ASSERT_EQ(into.GetPosition(), expected.GetPosition());
        }
    }
}

// A taker gets the records one by one, in the order of the file.
TEST(ImportTo, GivesWhatAStoreWouldHold)
{
    struct Taker : QMRecordTaker
    {
        bool Take(const QMTransaction& transaction) override
        {
            texts.push_back(TextOf(transaction));
            return static_cast<int>(texts.size()) <= nRoom;
        }
        Texts texts;
        int nRoom = 1000;
    };
    QMTransactionStore written;
    std::mt19937 random(17);
    for (int i = 0; i < 30; ++i) {
        const auto sDate = std::to_string(1 + Below(random, 12)) + "/5/2004";
        AddTo(written, MakeTransaction(i % 2 == 0 ? QM_TRANS_CHECK : QM_TRANS_DEPOSIT, sDate, 5));
    }
    struct StringSink : QMByteSink
    {
        bool Write(const char* pBytes, size_t uSize) override
        {
            sBytes.append(pBytes, uSize);
            return true;
        }
        std::string sBytes;
    };
    for (const auto kind : {QMExchangeKind::Qif, QMExchangeKind::Csv, QMExchangeKind::Xml}) {
        StringSink sink;
        ASSERT_TRUE(QMExportTo(sink, kind, written));
        const auto Import = [&](Taker& taker, const std::string& sBytes, QMImportTally* pTally) {
            QMMemorySource source(sBytes.data(), sBytes.size());
            return QMImportTo(taker, source, kind, pTally);
        };
        QMTransactionStore store;
        QMMemorySource source(sink.sBytes.data(), sink.sBytes.size());
        ASSERT_TRUE(QMImportFrom(source, kind, store));
        Taker taker;
        QMImportTally tally;
        EXPECT_TRUE(Import(taker, sink.sBytes, &tally));
        EXPECT_EQ(taker.texts, ContentsOf(store));
        EXPECT_EQ(tally.lRecords, 30);
        Taker full;
        full.nRoom = 7;
        EXPECT_FALSE(Import(full, sink.sBytes, nullptr));
        Taker none;
        EXPECT_FALSE(Import(none, "", nullptr));
        EXPECT_TRUE(none.texts.empty());
    }
    Taker taker;
    QMMemorySource source("a", 1);
    EXPECT_FALSE(QMImportTo(taker, source, QMExchangeKind::Text));
}

TEST(Merge, AddsNothingWhereMemoryRunsOut)
{
    std::mt19937 random(7);
    QMTransactionStore from;
    QMTransactionStore into;
    Fill(from, random, 5, 3);
    Fill(into, random, 5, 3);
    const std::vector<uint32_t> before = IdsOf(into);
    int32_t lResult = -1;
    int nBefore = 0;
    for (; lResult < 0; ++nBefore) {
        for (from.First(); from.SetImportMark(true), from.Next();) {
        }
        {
            const AllocationFault fault(nBefore);
            lResult = QMMergeMarked(from, into);
        }
        if (lResult < 0) {
            ASSERT_EQ(IdsOf(into), before) << "allocations before the failure: " << nBefore;
        }
    }
    EXPECT_EQ(lResult, 5);
    EXPECT_GT(nBefore, 5) << "each of 5 copies takes an allocation, and sorting takes one more";
    EXPECT_EQ(into.GetCount(), 10);
}

TEST(TakeFrom, IsACopyThatLeavesTheOtherEmpty)
{
    std::mt19937 random(11);
    QMTransactionStore from;
    Fill(from, random, 10, 5);
    from.MoveTo(3);
    QMTransactionStore copy;
    copy.AssignFrom(from);
    QMTransactionStore into;
    Fill(into, random, 3, 5);
    into.TakeFrom(into);
    EXPECT_EQ(into.GetCount(), 3);
    into.TakeFrom(from);
    EXPECT_EQ(IdsOf(into), IdsOf(copy));
    EXPECT_EQ(into.GetPosition(), copy.GetPosition());
    EXPECT_EQ(CurrentId(into), CurrentId(copy));
    EXPECT_TRUE(from.IsEmpty());
    EXPECT_EQ(from.GetCurrentNode(), nullptr);
    AddTo(from, MakeTransaction(1, "1/1/2004", 5));
    EXPECT_EQ(from.GetCount(), 1);
}
