// The order of the store, compared with a simple model of its rule.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <random>
#include <vector>

#include "account/qmtransactionstore.h"
#include "tests/core/allocationfault.h"
#include "tests/support/storemodel.h"
#include "tests/support/support.h"

namespace {

using Ids = std::vector<uint32_t>;

// The last four modes act like the first.
constexpr int32_t aModes[] = {0, 1, 2, 3, 4, -1, INT32_MIN, INT32_MAX};

constexpr uint32_t uRuns = 400;

// A store and its model. Every operation is done to both.
struct Pair
{
    explicit Pair(int32_t lMode) : model(lMode) { store.Resort(lMode); }

    void AddToBoth(const ModelEntry& entry)
    {
        ASSERT_EQ(AddTo(store, TransactionOf(entry)), model.Add(entry));
    }

    void MoveBoth(uint32_t uAt)
    {
        const auto lPosition = static_cast<int32_t>(uAt % model.GetEntries().size());
        ASSERT_TRUE(store.MoveTo(lPosition));
        model.MoveTo(lPosition);
    }

    void ReplaceInBoth(const ModelEntry& entry)
    {
        store.ReplaceCurrent(TransactionOf(entry), false);
        model.Replace(model.GetCursor(), entry);
    }

    QMTransactionStore store;
    StoreModel model;
};

void ExpectSame(const QMTransactionStore& store, const StoreModel& model)
{
    ASSERT_EQ(IdsOf(store), model.GetIds());
    ASSERT_EQ(store.GetCount(), static_cast<int32_t>(model.GetEntries().size()));
    if (!model.GetEntries().empty()) {
        ASSERT_EQ(store.GetPosition(), model.GetCursor());
        ASSERT_EQ(CurrentId(store), model.GetIds()[static_cast<size_t>(model.GetCursor())]);
    }
}

// Entries with dates that were changed in place after they were added, and the cursor anywhere.
void Disorder(Pair& pair, std::mt19937& random)
{
    const auto uCount = static_cast<uint32_t>(1 + random() % 12);
    const uint32_t uDays = static_cast<uint32_t>(1 + random() % 5);
    for (const ModelEntry& entry : RandomEntries(random, uCount, uDays)) {
        ASSERT_NO_FATAL_FAILURE(pair.AddToBoth(entry));
    }
    for (uint32_t u = static_cast<uint32_t>(random() % 4); u > 0; --u) {
        ASSERT_NO_FATAL_FAILURE(pair.MoveBoth(static_cast<uint32_t>(random())));
        ModelEntry entry = RandomEntries(random, 1, uDays)[0];
        entry.uId = CurrentId(pair.store);
        pair.ReplaceInBoth(entry);
    }
    ASSERT_NO_FATAL_FAILURE(pair.MoveBoth(static_cast<uint32_t>(random())));
}

// The order in which a store of that mode holds entries of these dates, added with the ids 1, 2, 3.
Ids OrderOf(int32_t lMode, const std::vector<const char*>& dates)
{
    QMTransactionStore store;
    store.Resort(lMode);
    uint32_t uId = 0;
    for (const char* szDate : dates) {
        AddTo(store, TransactionOf({++uId, MakeDate(szDate), MakeDate(szDate)}));
    }
    return IdsOf(store);
}

} // namespace

TEST(QMTransactionStoreOrder, AddPutsEqualDatesBehindInTheAscendingModes)
{
    for (const int32_t lMode : {0, 2}) {
        EXPECT_EQ(OrderOf(lMode, {"1/5/2001", "1/5/2001", "1/5/2001"}), (Ids{1, 2, 3}));
        EXPECT_EQ(OrderOf(lMode, {"1/5/2001", "1/6/2001", "1/5/2001", "1/4/2001"}),
                  (Ids{4, 1, 3, 2}));
    }
}

TEST(QMTransactionStoreOrder, AddPutsEqualDatesInFrontInTheDescendingModes)
{
    for (const int32_t lMode : {1, 3}) {
        EXPECT_EQ(OrderOf(lMode, {"1/5/2001", "1/5/2001", "1/5/2001"}), (Ids{3, 2, 1}));
        EXPECT_EQ(OrderOf(lMode, {"1/5/2001", "1/6/2001", "1/5/2001", "1/4/2001"}),
                  (Ids{2, 3, 1, 4}));
    }
}

TEST(QMTransactionStoreOrder, DatesGoByYearThenMonthThenDay)
{
    const std::vector<const char*> dates = {"12/31/1999", "1/1/2001", "2/1/2000", "1/31/2000"};
    EXPECT_EQ(OrderOf(0, dates), (Ids{1, 4, 3, 2}));
    EXPECT_EQ(OrderOf(1, dates), (Ids{2, 3, 4, 1}));
}

TEST(QMTransactionStoreOrder, TheTimeOfDayDoesNotCount)
{
    QMTransactionStore store;
    for (const uint32_t uId : {1u, 2u, 3u}) {
        ModelEntry entry{uId, MakeDate("1/5/2001"), MakeDate("1/5/2001")};
        entry.date.wHour = static_cast<uint16_t>(20 - uId);
        entry.date.wDayOfWeek = static_cast<uint16_t>(5 - uId);
        AddTo(store, TransactionOf(entry));
    }
    EXPECT_EQ(IdsOf(store), (Ids{1, 2, 3}));
}

TEST(QMTransactionStoreOrder, TheClearedModesGoByTheDateClearedAlone)
{
    QMTransactionStore store;
    store.Resort(QM_SORT_CLEARED);
    AddTo(store, TransactionOf({1, MakeDate("1/1/2001"), MakeDate("5/1/2001")}));
    AddTo(store, TransactionOf({2, MakeDate("1/2/2001"), MakeDate("4/1/2001")}));
    EXPECT_EQ(IdsOf(store), (Ids{2, 1}));
    EXPECT_EQ(store.GetSortMode(), QM_SORT_CLEARED);
    store.Resort(QM_SORT_CLEARED_DESCENDING);
    AddTo(store, TransactionOf({3, MakeDate("1/1/1999"), MakeDate("4/15/2001")}));
    EXPECT_EQ(IdsOf(store), (Ids{1, 3, 2}));
}

TEST(QMTransactionStoreOrder, AddAgreesWithTheModelInEveryMode)
{
    std::mt19937 random(11);
    for (const int32_t lMode : aModes) {
        for (uint32_t uRun = 0; uRun < uRuns; ++uRun) {
            Pair pair(lMode);
            for (const ModelEntry& entry : RandomEntries(random, uRun % 14, 1 + uRun % 5)) {
                ASSERT_NO_FATAL_FAILURE(pair.AddToBoth(entry));
                ASSERT_NO_FATAL_FAILURE(ExpectSame(pair.store, pair.model)) << "mode " << lMode;
            }
        }
    }
}

TEST(QMTransactionStoreOrder, AddGoesByTheRuleWhereverTheCursorIs)
{
    std::mt19937 random(12);
    for (const int32_t lMode : aModes) {
        for (uint32_t uRun = 0; uRun < uRuns; ++uRun) {
            Pair pair(lMode);
            ASSERT_NO_FATAL_FAILURE(Disorder(pair, random));
            ModelEntry entry = RandomEntries(random, 1, 5)[0];
            entry.uId = 100;
            ASSERT_NO_FATAL_FAILURE(pair.AddToBoth(entry));
            ASSERT_NO_FATAL_FAILURE(ExpectSame(pair.store, pair.model)) << "mode " << lMode;
        }
    }
}

TEST(QMTransactionStoreOrder, AFillerAgreesWithAddingOneByOneInEveryMode)
{
    std::mt19937 random(13);
    for (const int32_t lMode : aModes) {
        for (uint32_t uRun = 0; uRun < uRuns; ++uRun) {
            Pair pair(lMode);
            QMStoreFiller filler(pair.store);
            for (const ModelEntry& entry : RandomEntries(random, uRun % 14, 1 + uRun % 5)) {
                filler.Add(std::make_unique<QMTransaction>(TransactionOf(entry)));
                pair.model.Add(entry);
            }
            ASSERT_TRUE(filler.Finish());
            ASSERT_NO_FATAL_FAILURE(ExpectSame(pair.store, pair.model)) << "mode " << lMode;
        }
    }
}

TEST(QMTransactionStoreOrder, AFillerOfManyEntriesAgreesWithAddingOneByOne)
{
    std::mt19937 random(14);
    for (const int32_t lMode : {0, 1, 2, 3}) {
        Pair pair(lMode);
        QMStoreFiller filler(pair.store);
        for (const ModelEntry& entry : RandomEntries(random, 1500, 60)) {
            filler.Add(std::make_unique<QMTransaction>(TransactionOf(entry)));
            pair.model.Add(entry);
        }
        ASSERT_TRUE(filler.Finish());
        ASSERT_NO_FATAL_FAILURE(ExpectSame(pair.store, pair.model)) << "mode " << lMode;
    }
}

TEST(QMTransactionStoreOrder, AFillerTellsWhetherEverythingCameInOrder)
{
    const auto IsInOrder = [](const std::vector<const char*>& dates) {
        QMTransactionStore store;
        QMStoreFiller filler(store);
        for (const char* szDate : dates) {
            filler.Add(std::make_unique<QMTransaction>(MakeTransaction(0, szDate, 1)));
        }
        EXPECT_TRUE(filler.Finish());
        return filler.IsInOrder();
    };
    EXPECT_TRUE(IsInOrder({}));
    EXPECT_TRUE(IsInOrder({"1/5/2001"}));
    EXPECT_TRUE(IsInOrder({"1/5/2001", "1/5/2001", "1/6/2001", "1/1/2002"}));
    EXPECT_FALSE(IsInOrder({"1/5/2001", "1/6/2001", "1/5/2001"}));
    EXPECT_FALSE(IsInOrder({"1/5/2001", "1/4/2001", "1/6/2001"}));
}

TEST(QMTransactionStoreOrder, AFillerWithoutMemoryToPutThemInOrderLeavesTheStoreEmpty)
{
    QMTransactionStore store;
    QMStoreFiller filler(store);
    for (const char* szDate : {"1/6/2001", "1/5/2001"}) {
        filler.Add(std::make_unique<QMTransaction>(MakeTransaction(0, szDate, 1)));
    }
    const AllocationFault fault;
    EXPECT_FALSE(filler.Finish());
    EXPECT_TRUE(store.IsEmpty());
}

TEST(QMTransactionStoreOrder, AssignFromAgreesWithAddingOneByOneInEveryMode)
{
    std::mt19937 random(15);
    for (const int32_t lMode : aModes) {
        for (uint32_t uRun = 0; uRun < uRuns; ++uRun) {
            Pair pair(lMode);
            ASSERT_NO_FATAL_FAILURE(Disorder(pair, random));
            Pair copy(aModes[uRun % 4]);
            ASSERT_NO_FATAL_FAILURE(Disorder(copy, random));
            ASSERT_TRUE(copy.store.AssignFrom(pair.store));
            copy.model.AssignFrom(pair.model);
            ASSERT_NO_FATAL_FAILURE(ExpectSame(copy.store, copy.model)) << "mode " << lMode;
            ASSERT_NO_FATAL_FAILURE(ExpectSame(pair.store, pair.model)) << "mode " << lMode;
            ASSERT_EQ(copy.store.GetSortMode(), lMode);
        }
    }
}

TEST(QMTransactionStoreOrder, AssignFromADescendingStoreTurnsThoseOfOneDayRound)
{
    QMTransactionStore store;
    store.Resort(QM_SORT_DATE_DESCENDING);
    for (const uint32_t uId : {1u, 2u, 3u}) {
        AddTo(store, TransactionOf({uId, MakeDate("1/5/2001"), MakeDate("1/5/2001")}));
    }
    EXPECT_EQ(IdsOf(store), (Ids{3, 2, 1}));
    QMTransactionStore copy;
    EXPECT_TRUE(copy.AssignFrom(store));
    EXPECT_EQ(IdsOf(copy), (Ids{1, 2, 3}));
    EXPECT_EQ(CurrentId(copy), 3u);
    EXPECT_EQ(copy.GetPosition(), 2);
}

TEST(QMTransactionStoreOrder, ResortAgreesWithItsDefinitionFromEveryModeToEveryOther)
{
    std::mt19937 random(16);
    for (const int32_t lFrom : aModes) {
        for (const int32_t lTo : aModes) {
            for (uint32_t uRun = 0; uRun < uRuns / 4; ++uRun) {
                Pair pair(lFrom);
                ASSERT_NO_FATAL_FAILURE(Disorder(pair, random));
                const uint32_t uId = CurrentId(pair.store);
                ASSERT_EQ(pair.store.Resort(lTo), pair.model.Resort(lTo));
                ASSERT_NO_FATAL_FAILURE(ExpectSame(pair.store, pair.model))
                    << "from mode " << lFrom << " to mode " << lTo;
                ASSERT_EQ(CurrentId(pair.store), uId);
                ASSERT_EQ(pair.store.GetSortMode(), lTo);
            }
        }
    }
}

TEST(QMTransactionStoreOrder, ResortKeepsThoseOfOneDayAsTheyStood)
{
    for (const int32_t lMode : {0, 1, 2, 3}) {
        QMTransactionStore store;
        for (const uint32_t uId : {1u, 2u, 3u}) {
            AddTo(store, TransactionOf({uId, MakeDate("1/5/2001"), MakeDate("1/5/2001")}));
        }
        store.First();
        EXPECT_EQ(store.Resort(lMode), 0);
        EXPECT_EQ(IdsOf(store), (Ids{1, 2, 3}));
    }
}

TEST(QMTransactionStoreOrder, AfterResortByDateClearedALaterAddKeepsThatOrder)
{
    QMTransactionStore store;
    AddTo(store, TransactionOf({1, MakeDate("1/1/2001"), MakeDate("3/1/2001")}));
    AddTo(store, TransactionOf({2, MakeDate("1/2/2001"), MakeDate("2/1/2001")}));
    EXPECT_EQ(store.Resort(QM_SORT_CLEARED), 0);
    EXPECT_EQ(IdsOf(store), (Ids{2, 1}));
    EXPECT_EQ(AddTo(store, TransactionOf({3, MakeDate("1/9/2009"), MakeDate("2/15/2001")})), 1);
    EXPECT_EQ(IdsOf(store), (Ids{2, 3, 1}));
}

TEST(QMTransactionStoreOrder, ResortOfAnEmptyStoreSetsTheMode)
{
    QMTransactionStore store;
    EXPECT_EQ(store.Resort(QM_SORT_DATE_DESCENDING), 0);
    EXPECT_EQ(store.GetSortMode(), QM_SORT_DATE_DESCENDING);
    EXPECT_TRUE(store.IsEmpty());
}

TEST(QMTransactionStoreOrder, ResortWithoutMemoryChangesNothingButTheMode)
{
    QMTransactionStore store;
    for (const uint32_t uId : {1u, 2u, 3u}) {
        AddTo(store, TransactionOf({uId, MakeDate("1/5/2001"), MakeDate("1/5/2001")}));
    }
    store.MoveTo(1);
    for (const int nBefore : {0, 1}) {
        const AllocationFault fault(nBefore);
        EXPECT_EQ(store.Resort(QM_SORT_DATE_DESCENDING), -1);
    }
    EXPECT_EQ(IdsOf(store), (Ids{1, 2, 3}));
    EXPECT_EQ(CurrentId(store), 2u);
    EXPECT_EQ(store.GetSortMode(), QM_SORT_DATE_DESCENDING);
}
