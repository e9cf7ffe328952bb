#include <gtest/gtest.h>

#include <vector>

#include "base/vflagset.h"
#include "base/vlist.h"
#include "base/vrect.h"

TEST(VFlagSet, StartsEmptyOrWithAWord)
{
    EXPECT_EQ(VFlagSet().Get(), 0u);
    EXPECT_EQ(VFlagSet(0x80000001).Get(), 0x80000001u);
}

TEST(VFlagSet, SetsAndClearsTheBitsOfTheMaskAlone)
{
    VFlagSet flags(0x10);
    flags.Set(0x3);
    EXPECT_EQ(flags.Get(), 0x13u);
    flags.Clear(0x12);
    EXPECT_EQ(flags.Get(), 0x01u);
    flags.Clear(0x100);
    EXPECT_EQ(flags.Get(), 0x01u);
    flags.Set(0x6, true);
    EXPECT_EQ(flags.Get(), 0x07u);
    flags.Set(0x5, false);
    EXPECT_EQ(flags.Get(), 0x02u);
}

TEST(VFlagSet, TestsForAnyBitOfTheMask)
{
    const VFlagSet flags(0x12);
    EXPECT_TRUE(flags.Test(0x10));
    EXPECT_TRUE(flags.Test(0x3));
    EXPECT_FALSE(flags.Test(0x5));
    EXPECT_FALSE(flags.Test(0));
}

TEST(VFlagSet, RestoreGoesBackToWhatWasSavedLast)
{
    VFlagSet flags(0xF0);
    flags.Restore();
    EXPECT_EQ(flags.Get(), 0u);
    flags.Set(0x5);
    flags.Save();
    flags.Clear(0xFF);
    flags.Set(0x8);
    flags.Restore();
    EXPECT_EQ(flags.Get(), 0x5u);
    flags.Set(0x10);
    flags.Restore();
    EXPECT_EQ(flags.Get(), 0x5u);
}

TEST(VRect, DerivesWidthAndHeight)
{
    const VRect rect{10, 20, 110, 70};
    EXPECT_EQ(rect.GetWidth(), 100);
    EXPECT_EQ(rect.GetHeight(), 50);
    const VRect negative{-30, -20, -10, 5};
    EXPECT_EQ(negative.GetWidth(), 20);
    EXPECT_EQ(negative.GetHeight(), 25);
}

TEST(VRect, IsEmptyWithoutWidthOrHeight)
{
    EXPECT_TRUE(VRect().IsEmpty());
    EXPECT_FALSE((VRect{0, 0, 1, 1}.IsEmpty()));
    EXPECT_TRUE((VRect{5, 0, 5, 10}.IsEmpty()));
    EXPECT_TRUE((VRect{0, 5, 10, 5}.IsEmpty()));
    EXPECT_TRUE((VRect{6, 0, 5, 10}.IsEmpty()));
    EXPECT_TRUE((VRect{0, 6, 10, 5}.IsEmpty()));
}

TEST(VRect, ComparesAllFourEdges)
{
    const VRect rect{1, 2, 3, 4};
    EXPECT_EQ(rect, (VRect{1, 2, 3, 4}));
    EXPECT_NE(rect, (VRect{0, 2, 3, 4}));
    EXPECT_NE(rect, (VRect{1, 0, 3, 4}));
    EXPECT_NE(rect, (VRect{1, 2, 0, 4}));
    EXPECT_NE(rect, (VRect{1, 2, 3, 0}));
}

namespace {

// An item with two links, so that it can be in two lists at once.
struct Item
{
    int nValue = 0;
    Item* pNext = nullptr;
    Item* pNextElsewhere = nullptr;
};

using Items = VList<Item, &Item::pNext>;
using OtherItems = VList<Item, &Item::pNextElsewhere>;

template <class List>
std::vector<int> Values(const List& list)
{
    std::vector<int> values;
    for (const Item* p = list.GetHead(); p != nullptr; p = List::GetNext(p)) {
        values.push_back(p->nValue);
    }
    EXPECT_EQ(static_cast<size_t>(list.GetCount()), values.size());
    EXPECT_EQ(list.GetTail() == nullptr ? 0 : list.GetTail()->nValue,
              values.empty() ? 0 : values.back());
    return values;
}

using Numbers = std::vector<int>;

} // namespace

TEST(VList, StartsEmpty)
{
    const Items list;
    EXPECT_EQ(list.GetHead(), nullptr);
    EXPECT_EQ(list.GetTail(), nullptr);
    EXPECT_EQ(Values(list), Numbers{});
}

TEST(VList, AddTailKeepsTheOrderOfArrival)
{
    Item a{1}, b{2}, c{3};
    Items list;
    list.AddTail(&a);
    EXPECT_EQ(Values(list), (Numbers{1}));
    list.AddTail(&b);
    list.AddTail(&c);
    EXPECT_EQ(Values(list), (Numbers{1, 2, 3}));
}

TEST(VList, InsertsBehindAnItemOrAtTheHead)
{
    Item a{1}, b{2}, c{3}, d{4};
    Items list;
    list.InsertAfter(nullptr, &a);
    list.InsertAfter(nullptr, &b);
    EXPECT_EQ(Values(list), (Numbers{2, 1}));
    list.InsertAfter(&b, &c);
    EXPECT_EQ(Values(list), (Numbers{2, 3, 1}));
    list.InsertAfter(&a, &d);
    EXPECT_EQ(Values(list), (Numbers{2, 3, 1, 4}));
}

TEST(VList, RemovesFromTheMiddleTheTailAndTheHead)
{
    Item a{1}, b{2}, c{3}, d{4};
    Items list;
    for (Item* p : {&a, &b, &c, &d}) {
        list.AddTail(p);
    }
    EXPECT_TRUE(list.Remove(&b));
    EXPECT_EQ(b.pNext, nullptr);
    EXPECT_EQ(Values(list), (Numbers{1, 3, 4}));
    EXPECT_TRUE(list.Remove(&d));
    EXPECT_EQ(Values(list), (Numbers{1, 3}));
    EXPECT_TRUE(list.Remove(&a));
    EXPECT_EQ(Values(list), (Numbers{3}));
    EXPECT_TRUE(list.Remove(&c));
    EXPECT_EQ(Values(list), Numbers{});
    list.AddTail(&b);
    EXPECT_EQ(Values(list), (Numbers{2}));
}

TEST(VList, DoesNotRemoveAnItemOfNoOrAnotherList)
{
    Item a{1}, b{2};
    Items list;
    EXPECT_FALSE(list.Remove(&a));
    list.AddTail(&a);
    EXPECT_FALSE(list.Remove(&b));
    EXPECT_FALSE(list.Remove(nullptr));
    EXPECT_EQ(Values(list), (Numbers{1}));
}

TEST(VList, KeepsToTheLinkThatItWasGiven)
{
    Item a{1}, b{2};
    Items list;
    OtherItems other;
    list.AddTail(&a);
    list.AddTail(&b);
    other.AddTail(&b);
    other.AddTail(&a);
    EXPECT_EQ(Values(list), (Numbers{1, 2}));
    EXPECT_EQ(Values(other), (Numbers{2, 1}));
}
