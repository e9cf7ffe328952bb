#include "account/qmsortednodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "account/qmdate.h"
#include "account/qmnodelist.h"
#include "tests/core/allocationfault.h"

namespace {

using Keys = std::vector<uint64_t>;
using Order = std::vector<size_t>;

// Nodes with keys, and room for some more.
class Sample
{
public:
    explicit Sample(const Keys& keys, size_t uSpareRoom = 0)
        : m_nodes(keys.size()), m_sorted(keys.size() + uSpareRoom)
    {
        EXPECT_TRUE(m_sorted.HasMemory());
        for (size_t u = 0; u < keys.size(); ++u) {
            m_sorted.Add(keys[u], &m_nodes[u]);
        }
    }

    QMSortedNodes& Nodes() { return m_sorted; }

    // The nodes in their present order, each by its place when it was added.
    Order GetOrder() const
    {
        Order order;
        for (size_t u = 0; u < m_nodes.size(); ++u) {
            order.push_back(static_cast<size_t>(m_sorted.Get(u) - m_nodes.data()));
        }
        return order;
    }

private:
    std::vector<QMListNode> m_nodes;
    QMSortedNodes m_sorted;
};

Order AsAdded(const Keys& keys)
{
    Order order(keys.size());
    std::iota(order.begin(), order.end(), size_t{0});
    return order;
}

Order StableOrder(const Keys& keys, Order order)
{
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t uA, size_t uB) { return keys[uA] < keys[uB]; });
    return order;
}

void ExpectSorted(const Keys& keys)
{
    Sample sample(keys);
    sample.Nodes().Sort();
    EXPECT_EQ(sample.GetOrder(), StableOrder(keys, AsAdded(keys)));
}

// uCount random keys that differ only in the bits of uMask.
Keys RandomKeys(std::mt19937_64& random, size_t uCount, uint64_t uMask)
{
    Keys keys(uCount);
    for (uint64_t& uKey : keys) {
        uKey = random() & uMask;
    }
    return keys;
}

} // namespace

TEST(QMSortedNodes, TakesNoneOneAndTwo)
{
    for (const Keys& keys : {Keys{}, Keys{7}, Keys{1, 2}, Keys{2, 1}, Keys{3, 3}}) {
        ExpectSorted(keys);
    }
}

TEST(QMSortedNodes, EveryBitOfAKeyCounts)
{
    for (int nBit = 0; nBit < 48; ++nBit) {
        const uint64_t uBit = uint64_t{1} << nBit;
        ExpectSorted({uBit, 0});
        ExpectSorted({0, uBit});
        ExpectSorted({uBit, uBit - 1});
        ExpectSorted({QM_DATE_KEY_MAX, QM_DATE_KEY_MAX ^ uBit, QM_DATE_KEY_MAX});
    }
}

TEST(QMSortedNodes, EqualKeysStayInTheirOrder)
{
    ExpectSorted(Keys(1000, 0));
    ExpectSorted(Keys(1000, QM_DATE_KEY_MAX));
    ExpectSorted(Keys(1000, QMDateKey(QMMakeDate(2004, 3, 14))));
}

TEST(QMSortedNodes, SortsEveryValueOfEachByteAlone)
{
    std::mt19937_64 random(1);
    for (int nByte = 0; nByte < 6; ++nByte) {
        Keys keys;
        for (uint64_t u = 0; u < 512; ++u) {
            keys.push_back((u & 255) << 8 * nByte);
        }
        std::shuffle(keys.begin(), keys.end(), random);
        ExpectSorted(keys);
    }
}

TEST(QMSortedNodes, SortsRandomKeysAsStableSortDoes)
{
    std::mt19937_64 random(2);
    for (size_t uCount = 3; uCount < 3000; uCount += 1 + uCount / 4) {
        for (int n = 0; n < 10; ++n) {
            ExpectSorted(RandomKeys(random, uCount, QM_DATE_KEY_MAX));
        }
    }
}

// With few varying bits many keys are equal, and most digits are the same in all keys.
TEST(QMSortedNodes, SortsKeysOfWhichFewBitsVary)
{
    std::mt19937_64 random(3);
    for (int n = 0; n < 500; ++n) {
        const uint64_t uMask = random() & random() & random() & QM_DATE_KEY_MAX;
        ExpectSorted(RandomKeys(random, 100, uMask));
    }
}

TEST(QMSortedNodes, SortsManyRandomDates)
{
    std::mt19937_64 random(4);
    Keys keys;
    for (int n = 0; n < 200000; ++n) {
        keys.push_back(QMDateKey(QMMakeDate(static_cast<uint16_t>(1990 + random() % 40),
                                            static_cast<uint16_t>(1 + random() % 12),
                                            static_cast<uint16_t>(1 + random() % 31))));
    }
    ExpectSorted(keys);
}

TEST(QMSortedNodes, OrderedAndReversedInputComesOutTheSame)
{
    Keys keys(1000);
    std::iota(keys.begin(), keys.end(), uint64_t{0xFFFFFE00});
    ExpectSorted(keys);
    std::reverse(keys.begin(), keys.end());
    ExpectSorted(keys);
}

TEST(QMSortedNodes, ReverseTurnsTheOrderRound)
{
    Sample none({});
    none.Nodes().Reverse();
    EXPECT_EQ(none.GetOrder(), Order{});
    Sample one({5});
    one.Nodes().Reverse();
    EXPECT_EQ(one.GetOrder(), Order{0});
    Sample two({1, 2});
    two.Nodes().Reverse();
    EXPECT_EQ(two.GetOrder(), (Order{1, 0}));
    Sample four({5, 1, 9, 1});
    four.Nodes().Reverse();
    EXPECT_EQ(four.GetOrder(), (Order{3, 2, 1, 0}));
}

TEST(QMSortedNodes, SortKeepsTheReversedOrderOfEquals)
{
    std::mt19937_64 random(5);
    for (int n = 0; n < 100; ++n) {
        const Keys keys = RandomKeys(random, 200, 0x010000030003);
        Sample sample(keys);
        sample.Nodes().Reverse();
        sample.Nodes().Sort();
        Order order = AsAdded(keys);
        std::reverse(order.begin(), order.end());
        EXPECT_EQ(sample.GetOrder(), StableOrder(keys, order));
    }
}

TEST(QMSortedNodes, SortedOnceMoreNothingMoves)
{
    std::mt19937_64 random(6);
    const Keys keys = RandomKeys(random, 500, 0xFF00FF);
    Sample sample(keys);
    sample.Nodes().Sort();
    const Order first = sample.GetOrder();
    sample.Nodes().Sort();
    EXPECT_EQ(sample.GetOrder(), first);
}

TEST(QMSortedNodes, RoomThatIsNotUsedDoesNoHarm)
{
    std::mt19937_64 random(7);
    const Keys keys = RandomKeys(random, 50, QM_DATE_KEY_MAX);
    Sample sample(keys, 1000);
    sample.Nodes().Sort();
    EXPECT_EQ(sample.GetOrder(), StableOrder(keys, AsAdded(keys)));
    sample.Nodes().Reverse();
    Order order = StableOrder(keys, AsAdded(keys));
    std::reverse(order.begin(), order.end());
    EXPECT_EQ(sample.GetOrder(), order);
}

TEST(QMSortedNodes, TellsWhenEitherOfItsTwoRoomsIsRefused)
{
    for (const int nBefore : {0, 1}) {
        const AllocationFault fault(nBefore);
        const QMSortedNodes nodes(10);
        EXPECT_FALSE(nodes.HasMemory());
    }
    const AllocationFault fault(2);
    const QMSortedNodes nodes(10);
    EXPECT_TRUE(nodes.HasMemory());
}
