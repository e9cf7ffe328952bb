#include "account/qmeditlist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/core/allocationfault.h"
#include "tests/support/support.h"

namespace {

Texts ItemsOf(const QMEditList& list)
{
    Texts texts;
    for (const QMEditItem* p = list.First(); p != nullptr; p = QMEditList::Next(p)) {
        texts.emplace_back(p->GetText());
    }
    EXPECT_EQ(list.GetCount(), static_cast<int32_t>(texts.size()));
    return texts;
}

// What a list of these flags holds after the texts were added one by one.
Texts Added(uint32_t uFlags, const Texts& texts)
{
    QMEditList list;
    list.SetFlags(uFlags);
    for (const std::string& sText : texts) {
        list.Add(sText.c_str());
    }
    return ItemsOf(list);
}

std::string Folded(std::string sText)
{
    std::transform(sText.begin(), sText.end(), sText.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return sText;
}

// The rules of the list, stated a second time.
struct Model
{
    uint32_t uFlags;
    Texts texts;

    int Compare(const std::string& a, const std::string& b) const
    {
        return (uFlags & 8) != 0 ? a.compare(b) : Folded(a).compare(Folded(b));
    }

    bool Has(const std::string& sText) const
    {
        return std::any_of(texts.begin(), texts.end(),
                           [&](const std::string& s) { return Compare(s, sText) == 0; });
    }

    size_t PlaceOf(const std::string& sText) const
    {
        if (texts.empty() || (uFlags & 16) != 0) {
            return texts.size();
        }
        if (sText.empty()) {
            return 0;
        }
        for (size_t u = 0; u < texts.size(); ++u) {
            const int nOrder = Compare(sText, texts[u]);
            if (texts[u].empty() || ((uFlags & 1) != 0 ? nOrder <= 0 : nOrder >= 0)) {
                return u;
            }
        }
        return texts.size();
    }

    bool Add(const std::string& sText)
    {
        if ((uFlags & 4) != 0 && Has(sText)) {
            return false;
        }
        texts.insert(texts.begin() + static_cast<ptrdiff_t>(PlaceOf(sText)), sText);
        return true;
    }
};

std::string RandomText(std::mt19937& random)
{
    std::string sText;
    for (auto n = random() % 3; n > 0; --n) {
        sText += "aAbB\xE9"[random() % 5];
    }
    return sText;
}

} // namespace

TEST(QMEditList, StartsEmptyAndSortsAscending)
{
    QMEditList list;
    EXPECT_EQ(list.First(), nullptr);
    EXPECT_EQ(list.GetCount(), 0);
    for (const char* szText : {"b", "c", "a", "b"}) {
        list.Add(szText);
    }
    EXPECT_EQ(ItemsOf(list), (Texts{"a", "b", "b", "c"}));
}

TEST(QMEditList, SortsDescendingWithoutTheAscendingBit)
{
    EXPECT_EQ(Added(0, {"b", "c", "a", "B"}), (Texts{"c", "B", "b", "a"}));
}

TEST(QMEditList, KeepsTheOrderOfArrivalWithTheUnsortedBit)
{
    const Texts texts = {"b", "", "c", "a", "", "b"};
    EXPECT_EQ(Added(QM_EDIT_UNSORTED, texts), texts);
    EXPECT_EQ(Added(QM_EDIT_UNSORTED | QM_EDIT_ASCENDING, texts), texts);
}

TEST(QMEditList, AlphabeticalListsReadInOrderIgnoringCase)
{
    EXPECT_EQ(Added(QM_EDIT_ALPHABETICAL, {"beta", "Alpha", "gamma", "BETA", "delta", "alpha"}),
              (Texts{"Alpha", "beta", "delta", "gamma"}));
}

TEST(QMEditList, ListsByArrivalTakeEachTextOnce)
{
    EXPECT_EQ(Added(QM_EDIT_BY_ARRIVAL, {"beta", "Alpha", "BETA", "alpha", "gamma"}),
              (Texts{"beta", "Alpha", "gamma"}));
}

TEST(QMEditList, TheTwoWaysOfTheRegisterAreTheFlagWords5And20)
{
    EXPECT_EQ(QM_EDIT_ALPHABETICAL, 5u);
    EXPECT_EQ(QM_EDIT_BY_ARRIVAL, 20u);
}

TEST(QMEditList, TextsThatDifferInCaseAreDifferentWithTheExactBit)
{
    EXPECT_EQ(Added(QM_EDIT_EXACT | QM_EDIT_ALPHABETICAL, {"b", "a", "B", "A", "b", "A"}),
              (Texts{"A", "B", "a", "b"}));
    EXPECT_EQ(Added(QM_EDIT_EXACT | QM_EDIT_BY_ARRIVAL, {"b", "B", "b"}), (Texts{"b", "B"}));
}

TEST(QMEditList, GoesByCharacterCodeWithNoRegardForTheLocale)
{
    EXPECT_EQ(Added(QM_EDIT_ASCENDING, {"\xE9", "z", "\xC9", "1", " "}),
              (Texts{" ", "1", "z", "\xC9", "\xE9"}));
}

TEST(QMEditList, ANewTextGoesInFrontOfItsEquals)
{
    EXPECT_EQ(Added(QM_EDIT_ASCENDING, {"a", "A", "b"}), (Texts{"A", "a", "b"}));
    EXPECT_EQ(Added(0, {"a", "A", "b"}), (Texts{"b", "A", "a"}));
}

TEST(QMEditList, AnEmptyTextGoesToTheHead)
{
    EXPECT_EQ(Added(QM_EDIT_ASCENDING, {"b", "a", ""}), (Texts{"", "a", "b"}));
    EXPECT_EQ(Added(0, {"b", "a", ""}), (Texts{"", "b", "a"}));
}

TEST(QMEditList, AnEmptyTextThatIsThereStopsEveryLaterOneInFrontOfIt)
{
    EXPECT_EQ(Added(QM_EDIT_ASCENDING, {"b", "", "c", "a"}), (Texts{"a", "c", "", "b"}));
    EXPECT_EQ(Added(0, {"b", "", "c", "a"}), (Texts{"c", "a", "", "b"}));
    EXPECT_EQ(Added(QM_EDIT_ASCENDING, {"", ""}), (Texts{"", ""}));
}

TEST(QMEditList, AnEmptyTextIsADuplicateLikeAnyOther)
{
    EXPECT_EQ(Added(QM_EDIT_ALPHABETICAL, {"", "a", ""}), (Texts{"a", ""}));
    EXPECT_EQ(Added(QM_EDIT_BY_ARRIVAL, {"", "a", ""}), (Texts{"", "a"}));
}

TEST(QMEditList, AddAnswersTheNewItem)
{
    QMEditList list;
    QMEditItem* pItem = list.Add("a");
    ASSERT_NE(pItem, nullptr);
    EXPECT_EQ(*pItem, "a");
    EXPECT_EQ(list.First(), pItem);
}

TEST(QMEditList, AddRefusesANullTextAndADuplicate)
{
    QMEditList list;
    list.SetFlags(QM_EDIT_ALPHABETICAL);
    EXPECT_EQ(list.Add(nullptr), nullptr);
    EXPECT_NE(list.Add("a"), nullptr);
    EXPECT_EQ(list.Add("A"), nullptr);
    EXPECT_EQ(list.Add("a"), nullptr);
    EXPECT_EQ(ItemsOf(list), (Texts{"a"}));
}

TEST(QMEditList, AddGoesOnRefusingDuplicatesAfterEveryInsertion)
{
    QMEditList list;
    list.SetFlags(QM_EDIT_BY_ARRIVAL);
    for (int n = 0; n < 3; ++n) {
        EXPECT_EQ(list.Add("a") != nullptr, n == 0);
        EXPECT_EQ(list.Add("b") != nullptr, n == 0);
    }
    EXPECT_EQ(ItemsOf(list), (Texts{"a", "b"}));
}

TEST(QMEditList, AddWithoutMemoryAddsNothing)
{
    for (const int nBefore : {0, 1}) {
        QMEditList list;
        const QMEditItem* pItem = nullptr;
        {
            const AllocationFault fault(nBefore);
            pItem = list.Add("text");
        }
        EXPECT_EQ(pItem, nullptr) << "allocations before the failure: " << nBefore;
        EXPECT_EQ(ItemsOf(list), Texts{}) << "allocations before the failure: " << nBefore;
    }
}

TEST(QMEditList, InsertTakesAnItemIntoItsPlace)
{
    QMEditList list;
    list.Add("a");
    list.Add("c");
    auto pItem = std::make_unique<QMEditItem>("b");
    EXPECT_TRUE(list.Insert(pItem.get()));
    EXPECT_EQ(list.Find("b"), pItem.release());
    EXPECT_EQ(ItemsOf(list), (Texts{"a", "b", "c"}));
}

TEST(QMEditList, InsertLeavesARefusedDuplicateToItsOwner)
{
    QMEditList list;
    list.SetFlags(QM_EDIT_BY_ARRIVAL);
    list.Add("a");
    const auto pItem = std::make_unique<QMEditItem>("A");
    EXPECT_FALSE(list.Insert(pItem.get()));
    EXPECT_EQ(*pItem, "A");
    EXPECT_EQ(ItemsOf(list), (Texts{"a"}));
}

TEST(QMEditList, FindAnswersTheFirstOfTheText)
{
    QMEditList list;
    list.SetFlags(QM_EDIT_UNSORTED);
    EXPECT_EQ(list.Find("a"), nullptr);
    list.Add("x");
    const QMEditItem* pFirst = list.Add("A");
    const QMEditItem* pSecond = list.Add("a");
    EXPECT_EQ(list.Find("a"), pFirst);
    EXPECT_EQ(list.Find("A"), pFirst);
    EXPECT_EQ(list.Find(""), nullptr);
    EXPECT_EQ(list.Find("ab"), nullptr);
    list.SetFlags(QM_EDIT_UNSORTED | QM_EDIT_EXACT);
    EXPECT_EQ(list.Find("a"), pSecond);
    EXPECT_EQ(list.Find("A"), pFirst);
    EXPECT_EQ(list.Find("X"), nullptr);
}

TEST(QMEditList, RemoveUnlinksAndDeletesOnRequest)
{
    QMEditList list;
    for (const char* szText : {"a", "b", "c", "d"}) {
        list.Add(szText);
    }
    list.Remove(list.Find("b"), true);
    EXPECT_EQ(ItemsOf(list), (Texts{"a", "c", "d"}));
    list.Remove(list.Find("a"), true);
    list.Remove(list.Find("d"), true);
    EXPECT_EQ(ItemsOf(list), (Texts{"c"}));
    list.Add("e");
    EXPECT_EQ(ItemsOf(list), (Texts{"c", "e"}));
}

TEST(QMEditList, RemoveWithoutDestroyGivesTheItemBack)
{
    QMEditList list;
    list.Add("a");
    const std::unique_ptr<QMEditItem> pItem(list.Add("b"));
    list.Remove(pItem.get(), false);
    EXPECT_EQ(*pItem, "b");
    EXPECT_EQ(ItemsOf(list), (Texts{"a"}));
    QMEditList other;
    other.Add("c");
    EXPECT_TRUE(other.Insert(pItem.get()));
    EXPECT_EQ(ItemsOf(other), (Texts{"b", "c"}));
    other.Remove(pItem.get(), false);
}

TEST(QMEditList, RemoveOfAnItemOfAnotherListDoesNothing)
{
    QMEditList list;
    QMEditList other;
    list.Add("a");
    list.Remove(other.Add("a"), true);
    EXPECT_EQ(ItemsOf(list), (Texts{"a"}));
    EXPECT_EQ(ItemsOf(other), (Texts{"a"}));
}

TEST(QMEditList, RandomTextsAgreeWithAPlainModelForEveryFlagWord)
{
    std::mt19937 random(21);
    for (uint32_t uFlags = 0; uFlags < 32; ++uFlags) {
        for (int nRun = 0; nRun < 100; ++nRun) {
            QMEditList list;
            list.SetFlags(uFlags);
            Model model{uFlags, {}};
            for (int n = 0; n < 12; ++n) {
                const std::string sText = RandomText(random);
                ASSERT_EQ(list.Add(sText.c_str()) != nullptr, model.Add(sText))
                    << "flags " << uFlags;
                ASSERT_EQ(ItemsOf(list), model.texts) << "flags " << uFlags;
            }
        }
    }
}
