// What the store answers about its transactions: check numbers, edit lists, tags.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "account/qmeditlist.h"
#include "account/qmtransactionstore.h"
#include "base/vtext.h"
#include "tests/support/support.h"

namespace {

QMTransaction Named(const std::string& sDescription, const std::string& sDate, int32_t lType = 0)
{
    return MakeTransaction(lType, sDate, 5, QM_TRANS_FLAG_NOT_CLEARED, sDescription);
}

QMTransaction CheckOf(uint32_t uNumber, const std::string& sDate, int32_t lType = QM_TRANS_CHECK)
{
    QMTransaction transaction = Named("", sDate, lType);
    transaction.lNumber = uNumber;
    return transaction;
}

// "a" to "e" on the first five days of 2001.
void FillFive(QMTransactionStore& store)
{
    int nDay = 0;
    for (const char* szName : {"a", "b", "c", "d", "e"}) {
        AddTo(store, Named(szName, "1/" + std::to_string(++nDay) + "/2001"));
    }
}

Texts ItemsOf(const QMEditList& list)
{
    Texts texts;
    for (const QMEditItem* p = list.First(); p != nullptr; p = QMEditList::Next(p)) {
        texts.emplace_back(p->GetText());
    }
    return texts;
}

// A store with one transaction of these flags, at the cursor.
void FillOne(QMTransactionStore& store, uint32_t uFlags)
{
    AddTo(store, MakeTransaction(QM_TRANS_FEE, "1/1/2001", 5, uFlags));
}

} // namespace

TEST(QMTransactionStoreNumbers, FindsTheFirstCheckOfANumber)
{
    QMTransactionStore store;
    EXPECT_FALSE(store.HasCheckNumber(7));
    AddTo(store, CheckOf(6, "1/1/2001"));
    AddTo(store, CheckOf(7, "1/2/2001", QM_TRANS_DEPOSIT));
    AddTo(store, CheckOf(7, "1/3/2001"));
    AddTo(store, CheckOf(7, "1/4/2001"));
    AddTo(store, CheckOf(8, "1/5/2001"));
    EXPECT_TRUE(store.HasCheckNumber(7));
    EXPECT_EQ(store.GetPosition(), 2);
    EXPECT_EQ(DateText(store.GetCurrentNode()->dtDate), "1/3/2001");
    EXPECT_TRUE(store.HasCheckNumber(6));
    EXPECT_EQ(store.GetPosition(), 0);
    EXPECT_TRUE(store.HasCheckNumber(8));
    EXPECT_EQ(store.GetPosition(), 4);
}

TEST(QMTransactionStoreNumbers, ANumberThatNoCheckHasLeavesTheCursorOnTheLast)
{
    QMTransactionStore store;
    for (int32_t lType = 1; lType <= 11; ++lType) {
        AddTo(store, CheckOf(7, "1/" + std::to_string(lType) + "/2001", lType));
    }
    store.First();
    EXPECT_FALSE(store.HasCheckNumber(7));
    EXPECT_EQ(store.GetPosition(), 10);
    EXPECT_TRUE(store.IsLast());
}

TEST(QMTransactionStoreNumbers, TheNextNumberFollowsTheLastCheckAndNotTheHighest)
{
    QMTransactionStore store;
    AddTo(store, CheckOf(2000, "1/1/2001"));
    AddTo(store, CheckOf(1500, "1/2/2001"));
    AddTo(store, CheckOf(9000, "1/3/2001", QM_TRANS_DEPOSIT));
    EXPECT_EQ(store.NextCheckNumber(), 1501u);
    EXPECT_EQ(store.GetPosition(), 1);
}

TEST(QMTransactionStoreNumbers, TheNextNumberIs1000WithoutAnyCheck)
{
    QMTransactionStore store;
    EXPECT_EQ(store.NextCheckNumber(), 1000u);
    AddTo(store, CheckOf(7, "1/1/2001", QM_TRANS_DEPOSIT));
    AddTo(store, CheckOf(7, "1/2/2001", QM_TRANS_DEPOSIT));
    EXPECT_EQ(store.NextCheckNumber(), 1000u);
    EXPECT_EQ(store.GetPosition(), 0);
}

TEST(QMTransactionStoreNumbers,
     TheNextNumberIs1000WhenTheLastCheckHasNumberZeroWhateverTheOlderOnes)
{
    QMTransactionStore store;
    AddTo(store, CheckOf(2000, "1/1/2001"));
    AddTo(store, CheckOf(0, "1/2/2001"));
    EXPECT_EQ(store.NextCheckNumber(), 1000u);
}

TEST(QMTransactionStoreEditList, TakesTheTextsFromTheLastToTheFirst)
{
    QMTransactionStore store;
    FillFive(store);
    QMEditList list;
    list.SetFlags(QM_EDIT_BY_ARRIVAL);
    EXPECT_TRUE(store.FillEditList(list, QM_FIELD_PAYEE, 50));
    EXPECT_EQ(ItemsOf(list), (Texts{"e", "d", "c", "b", "a"}));
}

TEST(QMTransactionStoreEditList, SortsTheMostRecentOnesOnly)
{
    QMTransactionStore store;
    FillFive(store);
    AddTo(store, Named("B", "1/6/2001"));
    QMEditList list;
    list.SetFlags(QM_EDIT_ALPHABETICAL);
    EXPECT_TRUE(store.FillEditList(list, QM_FIELD_PAYEE, 4));
    EXPECT_EQ(ItemsOf(list), (Texts{"B", "c", "d", "e"}));
}

TEST(QMTransactionStoreEditList, TextsThatDifferInCaseAloneGiveTheMoreRecentOne)
{
    QMTransactionStore store;
    AddTo(store, Named("Rent", "1/1/2001"));
    AddTo(store, Named("RENT", "1/2/2001"));
    for (const uint32_t uFlags : {QM_EDIT_ALPHABETICAL, QM_EDIT_BY_ARRIVAL}) {
        QMEditList list;
        list.SetFlags(uFlags);
        EXPECT_TRUE(store.FillEditList(list, QM_FIELD_PAYEE, 50));
        EXPECT_EQ(ItemsOf(list), (Texts{"RENT"}));
    }
}

TEST(QMTransactionStoreEditList, ALimitOf50LeavesTheOldestOf51Out)
{
    QMTransactionStore store;
    for (int n = 0; n < 51; ++n) {
        QMTransaction transaction = Named("", "1/1/2001", QM_TRANS_DEPOSIT);
        VCopyText(transaction.szMemo, ("memo " + std::to_string(n)).c_str());
        AddTo(store, transaction);
    }
    QMEditList list;
    list.SetFlags(QM_EDIT_BY_ARRIVAL);
    EXPECT_TRUE(store.FillEditList(list, QM_FIELD_MEMO, 50));
    EXPECT_EQ(list.GetCount(), 50);
    EXPECT_EQ(ItemsOf(list).front(), "memo 50");
    EXPECT_EQ(ItemsOf(list).back(), "memo 1");
}

TEST(QMTransactionStoreEditList, TheLimitCountsAcceptedTextsOnly)
{
    QMTransactionStore store;
    for (const char* szName : {"a", "b", "", "b", "c", "", "C", "c"}) {
        AddTo(store, Named(szName, "1/1/2001"));
    }
    QMEditList list;
    list.SetFlags(QM_EDIT_BY_ARRIVAL);
    EXPECT_TRUE(store.FillEditList(list, QM_FIELD_PAYEE, 2));
    EXPECT_EQ(ItemsOf(list), (Texts{"c", "b"}));
}

TEST(QMTransactionStoreEditList, ThePayeesAreThoseOfChecksAlone)
{
    QMTransactionStore store;
    for (int32_t lType = 1; lType <= 11; ++lType) {
        QMTransaction transaction = Named("description", "1/1/2001", lType);
        VCopyText(transaction.szMemo, "memo");
        VCopyText(transaction.szCategory, "category");
        AddTo(store, transaction);
    }
    QMEditList payees;
    QMEditList memos;
    QMEditList categories;
    memos.SetFlags(QM_EDIT_ALPHABETICAL);
    categories.SetFlags(QM_EDIT_ALPHABETICAL);
    EXPECT_TRUE(store.FillEditList(payees, QM_FIELD_PAYEE, 50));
    EXPECT_TRUE(store.FillEditList(memos, QM_FIELD_MEMO, 50));
    EXPECT_TRUE(store.FillEditList(categories, QM_FIELD_CATEGORY, 50));
    EXPECT_EQ(ItemsOf(payees), Texts{});
    EXPECT_EQ(ItemsOf(memos), (Texts{"memo"}));
    EXPECT_EQ(ItemsOf(categories), (Texts{"category"}));
}

TEST(QMTransactionStoreEditList, DescriptionsOfVoidedOnesDoNotSaySo)
{
    QMTransactionStore store;
    AddTo(store, MakeTransaction(QM_TRANS_FEE, "1/1/2001", 5, QM_TRANS_FLAG_VOIDED, "card"));
    QMEditList list;
    EXPECT_TRUE(store.FillEditList(list, QM_FIELD_DESCRIPTION, 50));
    EXPECT_EQ(ItemsOf(list), (Texts{"Fee - card"}));
}

TEST(QMTransactionStoreEditList, AnEmptyStoreAndAnUnknownKindGiveNothingAndTrue)
{
    QMTransactionStore store;
    QMEditList list;
    EXPECT_TRUE(store.FillEditList(list, QM_FIELD_PAYEE, 50));
    FillFive(store);
    EXPECT_TRUE(store.FillEditList(list, QM_FIELD_COUNT, 50));
    EXPECT_EQ(ItemsOf(list), Texts{});
}

TEST(QMTransactionStoreEditList, AnEmptyStoreIsLeftAsItIs)
{
    QMTransactionStore store;
    QMEditList list;
    EXPECT_TRUE(store.FillEditList(list, QM_FIELD_PAYEE, 50));
    EXPECT_EQ(store.GetPosition(), 0);
    EXPECT_EQ(list.GetCount(), 0);
}

TEST(QMTransactionStoreTags, SetClearedTakesTheBitOffOrSetsItAndAnswersTheFlagsBefore)
{
    for (uint32_t uFlags = 0; uFlags < 32; ++uFlags) {
        QMTransactionStore store;
        FillOne(store, uFlags);
        EXPECT_EQ(store.SetCleared(true), uFlags);
        EXPECT_EQ(store.GetCurrentNode()->lFlags, uFlags & ~16u);
        EXPECT_EQ(store.SetCleared(false), uFlags & ~16u);
        EXPECT_EQ(store.GetCurrentNode()->lFlags, uFlags | 16u);
    }
}

TEST(QMTransactionStoreTags, SetImportMarkSetsOrClearsItAndAnswersTheFlagsBefore)
{
    for (uint32_t uFlags = 0; uFlags < 32; ++uFlags) {
        QMTransactionStore store;
        FillOne(store, uFlags);
        EXPECT_EQ(store.SetImportMark(true), uFlags);
        EXPECT_EQ(store.GetCurrentNode()->lFlags, uFlags | 0x10000000u);
        EXPECT_EQ(store.SetImportMark(false), uFlags | 0x10000000u);
        EXPECT_EQ(store.GetCurrentNode()->lFlags, uFlags);
    }
}

TEST(QMTransactionStoreTags, ToggleClearedAnswersWhetherItIsNowNotCleared)
{
    for (uint32_t uFlags = 0; uFlags < 32; ++uFlags) {
        QMTransactionStore store;
        FillOne(store, uFlags);
        EXPECT_EQ(store.ToggleCleared(), (uFlags & 16) == 0);
        EXPECT_EQ(store.GetCurrentNode()->lFlags, uFlags ^ 16u);
        EXPECT_EQ(store.ToggleCleared(), (uFlags & 16) != 0);
        EXPECT_EQ(store.GetCurrentNode()->lFlags, uFlags);
    }
}

TEST(QMTransactionStoreTags, ClearImportMarkIsTrueWithAndWithoutTheMark)
{
    QMTransactionStore store;
    FillOne(store, 18 | QM_TRANS_FLAG_IMPORT);
    EXPECT_TRUE(store.ClearImportMark());
    EXPECT_EQ(store.GetCurrentNode()->lFlags, 18u);
    EXPECT_TRUE(store.ClearImportMark());
    EXPECT_EQ(store.GetCurrentNode()->lFlags, 18u);
}

TEST(QMTransactionStoreTags, ChangeTheTransactionAtTheCursorAlone)
{
    QMTransactionStore store;
    FillFive(store);
    store.MoveTo(2);
    store.SetCleared(true);
    std::vector<uint32_t> flags;
    store.ForEach([&](const QMTransaction& t) { flags.push_back(t.lFlags); });
    EXPECT_EQ(flags, (std::vector<uint32_t>{16, 16, 0, 16, 16}));
    EXPECT_EQ(store.GetPosition(), 2);
}
