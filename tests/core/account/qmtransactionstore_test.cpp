#include "account/qmtransactionstore.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/core/allocationfault.h"
#include "tests/support/support.h"

namespace {

// A store whose cursor can be taken away, and whose head can be seen.
class OpenStore : public QMTransactionStore
{
public:
    using QMTransactionStore::GetHead;
    using QMTransactionStore::GetTail;
    using QMTransactionStore::SetCursor;
};

// Descriptions from the first to the last.
Texts DescriptionsOf(const QMTransactionStore& store)
{
    Texts texts;
    store.ForEach([&](const QMTransaction& t) { texts.emplace_back(t.szDescription); });
    return texts;
}

QMTransaction Named(const std::string& sDescription, const std::string& sDate, int32_t lType = 0)
{
    return MakeTransaction(lType, sDate, 5, QM_TRANS_FLAG_NOT_CLEARED, sDescription);
}

// "a" to "e" on the first five days of 2001.
void FillFive(QMTransactionStore& store)
{
    int nDay = 0;
    for (const char* szName : {"a", "b", "c", "d", "e"}) {
        AddTo(store, Named(szName, "1/" + std::to_string(++nDay) + "/2001"));
    }
}

std::string CurrentName(const QMTransactionStore& store)
{
    return store.GetCurrentNode() == nullptr ? "none" : store.GetCurrentNode()->szDescription;
}

} // namespace

TEST(QMTransactionStore, StartsEmptyInModeZero)
{
    const QMTransactionStore store;
    EXPECT_TRUE(store.IsEmpty());
    EXPECT_EQ(store.GetCount(), 0);
    EXPECT_EQ(store.GetPosition(), 0);
    EXPECT_EQ(store.GetCurrentNode(), nullptr);
    EXPECT_EQ(store.GetSortMode(), QM_SORT_DATE);
}

TEST(QMTransactionStore, TheFirstAddedIsHeadTailAndCursorAtPositionZero)
{
    OpenStore store;
    auto pNew = std::make_unique<QMTransaction>(Named("a", "1/1/2001"));
    const QMTransaction* pNode = pNew.get();
    EXPECT_EQ(store.Add(std::move(pNew)), 0);
    EXPECT_EQ(store.GetHead(), pNode);
    EXPECT_EQ(store.GetTail(), pNode);
    EXPECT_EQ(store.GetCurrentNode(), pNode);
    EXPECT_EQ(store.GetCount(), 1);
}

TEST(QMTransactionStore, AddSetsTheCursorOnTheNewOneAndAnswersItsPosition)
{
    QMTransactionStore store;
    FillFive(store);
    store.First();
    EXPECT_EQ(AddTo(store, Named("x", "1/3/2001")), 3);
    EXPECT_EQ(CurrentName(store), "x");
    EXPECT_EQ(store.GetPosition(), 3);
    EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "b", "c", "x", "d", "e"}));
}

TEST(QMTransactionStore, AddOfNothingIsRefused)
{
    QMTransactionStore store;
    EXPECT_EQ(store.Add(nullptr), -1);
    EXPECT_TRUE(store.IsEmpty());
    FillFive(store);
    store.MoveTo(2);
    EXPECT_EQ(store.Add(nullptr), -1);
    EXPECT_EQ(store.GetCount(), 5);
    EXPECT_EQ(CurrentName(store), "c");
}

TEST(QMTransactionStore, WithTransactionsButNoCursorNothingIsAddedReadReplacedOrRemoved)
{
    OpenStore store;
    FillFive(store);
    store.SetCursor(nullptr, 2);
    QMTransaction into;
    EXPECT_EQ(AddTo(store, Named("x", "1/3/2001")), -1);
    EXPECT_EQ(store.GetCurrent(into), -1);
    EXPECT_EQ(store.ReplaceCurrent(into, false), -1);
    EXPECT_EQ(store.ReplaceCurrent(into, true), -1);
    EXPECT_EQ(store.Remove(), -1);
    EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "b", "c", "d", "e"}));
}

TEST(QMTransactionStore, AddAfterLastOnAnEmptyStoreStillGivesPositionZero)
{
    QMTransactionStore store;
    store.Last();
    EXPECT_EQ(store.GetPosition(), -1);
    EXPECT_EQ(AddTo(store, Named("a", "1/1/2001")), 0);
}

TEST(QMTransactionStore, GetCurrentCopiesWhatIsAtTheCursor)
{
    QMTransactionStore store;
    QMTransaction into = Named("before", "1/1/1999");
    EXPECT_EQ(store.GetCurrent(into), -1);
    EXPECT_STREQ(into.szDescription, "before");
    FillFive(store);
    store.MoveTo(3);
    EXPECT_EQ(store.GetCurrent(into), 3);
    EXPECT_TRUE(IsSame(into, *store.GetCurrentNode()));
    EXPECT_EQ(into.GetNext(), nullptr);
    EXPECT_EQ(into.GetPrevious(), nullptr);
}

TEST(QMTransactionStore, GetCurrentNodeIsTheTransactionItself)
{
    QMTransactionStore store;
    FillFive(store);
    store.GetCurrentNode()->fAmount = 99;
    EXPECT_EQ(ContentsOf(store).back(), "1/5/2001 0 99.00 e");
}

TEST(QMTransactionStore, RemoveOfTheLastOfSeveralGoesToTheNewLast)
{
    QMTransactionStore store;
    FillFive(store);
    EXPECT_EQ(store.Remove(), 3);
    EXPECT_EQ(CurrentName(store), "d");
    EXPECT_TRUE(store.IsLast());
    store.MoveTo(1);
    EXPECT_EQ(store.Remove(), 1);
    EXPECT_EQ(CurrentName(store), "c");
    EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "c", "d"}));
}

TEST(QMTransactionStore, ForEachGoesFromFirstToLastAndLeavesTheCursor)
{
    QMTransactionStore store;
    EXPECT_EQ(ContentsOf(store), Texts{});
    FillFive(store);
    store.MoveTo(1);
    EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "b", "c", "d", "e"}));
    EXPECT_EQ(CurrentName(store), "b");
    EXPECT_EQ(store.GetPosition(), 1);
}

TEST(QMTransactionStore, TheListsOwnCopySlotsCopyNothing)
{
    QMTransactionStore store;
    FillFive(store);
    QMTransaction other = Named("x", "1/1/1999");
    const QMTransaction before = other;
    EXPECT_TRUE(store.CopyCurrentTo(other));
    EXPECT_TRUE(IsSame(other, before));
    EXPECT_TRUE(store.CopyToCurrent(other));
    EXPECT_EQ(CurrentName(store), "e");
}

TEST(QMTransactionStore, ReplacingInPlaceMovesNothingEvenOutOfOrderUntilResort)
{
    QMTransactionStore store;
    FillFive(store);
    store.MoveTo(1);
    EXPECT_EQ(store.ReplaceCurrent(Named("late", "12/31/2001"), false), 1);
    EXPECT_EQ(CurrentName(store), "late");
    EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "late", "c", "d", "e"}));
    EXPECT_EQ(store.Resort(QM_SORT_DATE), 4);
    EXPECT_EQ(CurrentName(store), "late");
    EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "c", "d", "e", "late"}));
}

TEST(QMTransactionStore, ReplacingWithRepositionPutsTheNewOneInItsPlace)
{
    QMTransactionStore store;
    FillFive(store);
    store.MoveTo(1);
    EXPECT_EQ(store.ReplaceCurrent(Named("x", "1/4/2001"), true), 3);
    EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "c", "d", "x", "e"}));
    EXPECT_EQ(CurrentName(store), "x");
    EXPECT_EQ(store.ReplaceCurrent(Named("y", "1/1/1999"), true), 0);
    EXPECT_EQ(DescriptionsOf(store), (Texts{"y", "a", "c", "d", "e"}));
}

TEST(QMTransactionStore, ReplacingTheOnlyOneWithRepositionKeepsItAtZero)
{
    QMTransactionStore store;
    AddTo(store, Named("a", "1/1/2001"));
    EXPECT_EQ(store.ReplaceCurrent(Named("x", "1/4/2001"), true), 0);
    EXPECT_EQ(DescriptionsOf(store), (Texts{"x"}));
}

TEST(QMTransactionStore, ReplacingOneByItselfKeepsItAndGoesBehindItsDay)
{
    for (const bool bCopyFirst : {false, true}) {
        QMTransactionStore store;
        for (const char* szName : {"a", "b", "c"}) {
            AddTo(store, Named(szName, "1/1/2001"));
        }
        store.MoveTo(1);
        const QMTransaction copy = *store.GetCurrentNode();
        const QMTransaction& source = bCopyFirst ? copy : *store.GetCurrentNode();
        EXPECT_EQ(store.ReplaceCurrent(source, false), 1);
        EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "b", "c"}));
        EXPECT_EQ(store.ReplaceCurrent(source, true), 2);
        EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "c", "b"}));
        EXPECT_TRUE(IsSame(*store.GetCurrentNode(), copy));
    }
}

TEST(QMTransactionStore, ReplacingInAnEmptyStoreIsRefused)
{
    QMTransactionStore store;
    EXPECT_EQ(store.ReplaceCurrent(Named("x", "1/1/2001"), false), -1);
    EXPECT_EQ(store.ReplaceCurrent(Named("x", "1/1/2001"), true), -1);
    EXPECT_TRUE(store.IsEmpty());
}

TEST(QMTransactionStore, ReplacingWithRepositionWithoutMemoryKeepsTheOldOne)
{
    QMTransactionStore store;
    FillFive(store);
    store.MoveTo(1);
    const QMTransaction other = Named("x", "1/4/2001");
    {
        const AllocationFault fault;
        EXPECT_EQ(store.ReplaceCurrent(other, true), -1);
    }
    EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "b", "c", "d", "e"}));
    EXPECT_EQ(CurrentName(store), "b");
}

TEST(QMTransactionStoreAssign, CopiesEverythingAndPutsTheCursorOnTheSameOne)
{
    QMTransactionStore store;
    FillFive(store);
    store.GetCurrentNode()->lFlags = 5;
    store.MoveTo(2);
    QMTransactionStore copy;
    FillFive(copy);
    copy.Resort(QM_SORT_CLEARED_DESCENDING);
    EXPECT_TRUE(copy.AssignFrom(store));
    EXPECT_EQ(ContentsOf(copy), ContentsOf(store));
    EXPECT_EQ(copy.GetSortMode(), QM_SORT_DATE);
    EXPECT_EQ(copy.GetPosition(), 2);
    EXPECT_EQ(CurrentName(copy), "c");
    EXPECT_NE(copy.GetCurrentNode(), store.GetCurrentNode());
    copy.Last();
    EXPECT_EQ(copy.GetCurrentNode()->lFlags, 5u);
}

TEST(QMTransactionStoreAssign, FromAnEmptyStoreEmptiesIt)
{
    QMTransactionStore empty;
    empty.Resort(QM_SORT_CLEARED);
    QMTransactionStore store;
    FillFive(store);
    EXPECT_TRUE(store.AssignFrom(empty));
    EXPECT_TRUE(store.IsEmpty());
    EXPECT_EQ(store.GetPosition(), 0);
    EXPECT_EQ(store.GetCurrentNode(), nullptr);
    EXPECT_EQ(store.GetSortMode(), QM_SORT_CLEARED);
}

TEST(QMTransactionStoreAssign, FromItselfKeepsEverything)
{
    QMTransactionStore store;
    FillFive(store);
    store.MoveTo(2);
    EXPECT_TRUE(store.AssignFrom(store));
    EXPECT_EQ(DescriptionsOf(store), (Texts{"a", "b", "c", "d", "e"}));
    EXPECT_EQ(CurrentName(store), "c");
    EXPECT_EQ(store.GetPosition(), 2);
}

TEST(QMTransactionStoreAssign, FromAListThatIsNoStoreIsRefused)
{
    class OtherList : public QMNodeList
    {
    public:
        bool AssignFrom(const QMNodeList& /*other*/) override { return false; }
    };
    QMTransactionStore store;
    FillFive(store);
    EXPECT_FALSE(store.AssignFrom(OtherList()));
    EXPECT_EQ(store.GetCount(), 5);
}

TEST(QMTransactionStoreAssign, EndsTheCopyingWhenMemoryRunsOut)
{
    QMTransactionStore store;
    FillFive(store);
    for (int nBefore = 0; nBefore < 5; ++nBefore) {
        QMTransactionStore copy;
        {
            const AllocationFault fault(nBefore);
            EXPECT_FALSE(copy.AssignFrom(store));
        }
        const Texts all = DescriptionsOf(store);
        EXPECT_EQ(DescriptionsOf(copy), Texts(all.begin(), all.begin() + nBefore));
        EXPECT_EQ(AddTo(copy, Named("x", "1/9/2001")), nBefore);
    }
}
