#include "account/qmnodelist.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <random>
#include <vector>

namespace {

using Values = std::vector<int>;

// Counts the nodes that exist, and copies its value in the hook.
class Node : public QMListNode
{
public:
    explicit Node(int nStart) : nValue(nStart) { ++nAlive; }
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    ~Node() override { --nAlive; }

    void CopyNode(const QMListNode& other) override
    {
        nValue = static_cast<const Node&>(other).nValue;
    }

    static int nAlive;
    int nValue;
};

int Node::nAlive = 0;

class List : public QMNodeList
{
public:
    using QMNodeList::GetHead;
    using QMNodeList::GetTail;
    using QMNodeList::SetCursor;

    bool AssignFrom(const QMNodeList& /*other*/) override { return false; }

    void Before(int nValue) { InsertBefore(std::make_unique<Node>(nValue)); }
    void Behind(int nValue) { InsertBehind(std::make_unique<Node>(nValue)); }
};

int ValueOf(const QMListNode* pNode)
{
    return pNode == nullptr ? -1 : static_cast<const Node*>(pNode)->nValue;
}

// The values from head to tail. Checks every link on the way.
Values ValuesOf(const List& list)
{
    Values values;
    const QMListNode* pPrevious = nullptr;
    for (const QMListNode* p = list.GetHead(); p != nullptr; p = p->GetNext()) {
        EXPECT_EQ(p->GetPrevious(), pPrevious);
        values.push_back(ValueOf(p));
        pPrevious = p;
    }
    EXPECT_EQ(list.GetTail(), pPrevious);
    EXPECT_EQ(list.GetCount(), static_cast<int32_t>(values.size()));
    EXPECT_EQ(list.IsEmpty(), values.empty());
    return values;
}

// 0, 1, 2 and so on, with the cursor on the last.
void Fill(List& list, int nCount)
{
    for (int n = 0; n < nCount; ++n) {
        list.Behind(n);
    }
}

void ExpectCursor(const List& list, int nValue, int32_t lPosition)
{
    EXPECT_EQ(ValueOf(list.GetCurrentNode()), nValue);
    EXPECT_EQ(list.GetPosition(), lPosition);
}

// What the list must be after the same operations.
struct Model
{
    Values values;
    int32_t lCursor = 0;

    int32_t Count() const { return static_cast<int32_t>(values.size()); }

    void Insert(int nValue, bool bBehind)
    {
        lCursor = values.empty() ? 0 : lCursor + (bBehind ? 1 : 0);
        values.insert(values.begin() + lCursor, nValue);
    }

    int32_t Remove()
    {
        if (values.empty()) {
            return -1;
        }
        values.erase(values.begin() + lCursor);
        lCursor -= lCursor > 0 && lCursor == Count() ? 1 : 0;
        return lCursor;
    }

    bool MoveBy(int32_t lSteps)
    {
        const int32_t lWanted = lCursor + lSteps;
        const int32_t lLast = values.empty() ? 0 : Count() - 1;
        lCursor = lWanted < 0 ? 0 : (lWanted > lLast ? lLast : lWanted);
        return lCursor == lWanted;
    }
};

// One random operation on both.
void StepBoth(List& list, Model& model, std::mt19937& random, int nValue)
{
    const auto lSteps = static_cast<int32_t>(random() % 4);
    switch (random() % 6) {
        case 0:
            list.Before(nValue);
            model.Insert(nValue, false);
            break;
        case 1:
            list.Behind(nValue);
            model.Insert(nValue, true);
            break;
        case 2:
            EXPECT_EQ(list.Remove(), model.Remove());
            break;
        case 3:
            EXPECT_EQ(list.Next(lSteps), model.MoveBy(lSteps));
            break;
        case 4:
            EXPECT_EQ(list.Previous(lSteps), model.MoveBy(-lSteps));
            break;
        default:
            EXPECT_EQ(list.MoveTo(lSteps), lSteps < model.Count());
            model.lCursor = lSteps < model.Count() ? lSteps : model.lCursor;
    }
}

} // namespace

TEST(QMNodeList, StartsEmptyWithoutACursor)
{
    const List list;
    EXPECT_EQ(ValuesOf(list), Values{});
    ExpectCursor(list, -1, 0);
}

TEST(QMNodeList, AnEmptyListIsAtBothItsEnds)
{
    const List list;
    EXPECT_TRUE(list.IsFirst());
    EXPECT_TRUE(list.IsLast());
}

TEST(QMNodeList, TheFirstNodeIsHeadTailAndCursorAtPositionZero)
{
    for (const bool bBehind : {false, true}) {
        List list;
        bBehind ? list.Behind(7) : list.Before(7);
        EXPECT_EQ(ValuesOf(list), (Values{7}));
        ExpectCursor(list, 7, 0);
        EXPECT_TRUE(list.IsFirst());
        EXPECT_TRUE(list.IsLast());
    }
}

TEST(QMNodeList, InsertingInFrontKeepsThePosition)
{
    List list;
    Fill(list, 3);
    list.Before(10);
    EXPECT_EQ(ValuesOf(list), (Values{0, 1, 10, 2}));
    ExpectCursor(list, 10, 2);
    list.First();
    list.Before(11);
    EXPECT_EQ(ValuesOf(list), (Values{11, 0, 1, 10, 2}));
    ExpectCursor(list, 11, 0);
    EXPECT_TRUE(list.IsFirst());
}

TEST(QMNodeList, InsertingBehindTakesThePositionUp)
{
    List list;
    Fill(list, 2);
    list.Behind(10);
    ExpectCursor(list, 10, 2);
    EXPECT_TRUE(list.IsLast());
    list.First();
    list.Behind(11);
    EXPECT_EQ(ValuesOf(list), (Values{0, 11, 1, 10}));
    ExpectCursor(list, 11, 1);
}

TEST(QMNodeList, AfterLastOnAnEmptyListTheFirstNodeIsAtPositionZero)
{
    for (const bool bBehind : {false, true}) {
        List list;
        list.Last();
        ExpectCursor(list, -1, -1);
        bBehind ? list.Behind(7) : list.Before(7);
        ExpectCursor(list, 7, 0);
    }
}

TEST(QMNodeList, RemovingInTheMiddleGoesOnToTheNodeThatFollowed)
{
    List list;
    Fill(list, 4);
    list.MoveTo(1);
    EXPECT_EQ(list.Remove(), 1);
    EXPECT_EQ(ValuesOf(list), (Values{0, 2, 3}));
    ExpectCursor(list, 2, 1);
}

TEST(QMNodeList, RemovingTheFirstOfSeveralKeepsThePosition)
{
    List list;
    Fill(list, 3);
    list.First();
    EXPECT_EQ(list.Remove(), 0);
    EXPECT_EQ(ValuesOf(list), (Values{1, 2}));
    ExpectCursor(list, 1, 0);
    EXPECT_TRUE(list.IsFirst());
}

TEST(QMNodeList, RemovingTheLastOfSeveralGoesBackByOne)
{
    List list;
    Fill(list, 3);
    EXPECT_EQ(list.Remove(), 1);
    EXPECT_EQ(ValuesOf(list), (Values{0, 1}));
    ExpectCursor(list, 1, 1);
    EXPECT_TRUE(list.IsLast());
}

TEST(QMNodeList, RemovingTheOnlyNodeKeepsThePosition)
{
    List list;
    Fill(list, 1);
    EXPECT_EQ(list.Remove(), 0);
    EXPECT_EQ(ValuesOf(list), Values{});
    ExpectCursor(list, -1, 0);
    EXPECT_EQ(list.Remove(), -1);
    ExpectCursor(list, -1, 0);
}

TEST(QMNodeList, RemovingWithoutACursorDoesNothing)
{
    List list;
    Fill(list, 2);
    list.SetCursor(nullptr, 0);
    EXPECT_EQ(list.Remove(), -1);
    EXPECT_EQ(ValuesOf(list), (Values{0, 1}));
}

TEST(QMNodeList, DeletesItsNodes)
{
    {
        List list;
        Fill(list, 5);
        EXPECT_EQ(Node::nAlive, 5);
        list.Remove();
        EXPECT_EQ(Node::nAlive, 4);
        list.Clear();
        EXPECT_EQ(Node::nAlive, 0);
        Fill(list, 3);
    }
    EXPECT_EQ(Node::nAlive, 0);
}

TEST(QMNodeList, ClearResetsEverything)
{
    List list;
    Fill(list, 3);
    list.Clear();
    EXPECT_EQ(ValuesOf(list), Values{});
    ExpectCursor(list, -1, 0);
    list.Clear();
    list.Behind(7);
    EXPECT_EQ(ValuesOf(list), (Values{7}));
}

TEST(QMNodeList, FirstAndLastGoToTheEnds)
{
    List list;
    Fill(list, 3);
    list.First();
    ExpectCursor(list, 0, 0);
    EXPECT_TRUE(list.IsFirst());
    EXPECT_FALSE(list.IsLast());
    list.Last();
    ExpectCursor(list, 2, 2);
    EXPECT_FALSE(list.IsFirst());
    EXPECT_TRUE(list.IsLast());
}

TEST(QMNodeList, OnAnEmptyListFirstGivesPositionZeroAndLastMinusOne)
{
    List list;
    list.Last();
    ExpectCursor(list, -1, -1);
    list.First();
    ExpectCursor(list, -1, 0);
}

TEST(QMNodeList, NextAndPreviousMoveByTheirSteps)
{
    List list;
    Fill(list, 5);
    list.First();
    EXPECT_TRUE(list.Next());
    ExpectCursor(list, 1, 1);
    EXPECT_TRUE(list.Next(3));
    ExpectCursor(list, 4, 4);
    EXPECT_TRUE(list.Previous());
    ExpectCursor(list, 3, 3);
    EXPECT_TRUE(list.Previous(3));
    ExpectCursor(list, 0, 0);
}

TEST(QMNodeList, TooManyStepsEndFalseOnTheLastNode)
{
    List list;
    Fill(list, 4);
    list.First();
    EXPECT_FALSE(list.Next(4));
    ExpectCursor(list, 3, 3);
    EXPECT_FALSE(list.Next(1));
    ExpectCursor(list, 3, 3);
    EXPECT_FALSE(list.Previous(INT32_MAX));
    ExpectCursor(list, 0, 0);
    EXPECT_FALSE(list.Previous());
    ExpectCursor(list, 0, 0);
}

TEST(QMNodeList, NoStepsAreTrueAndNegativeOnesFalse)
{
    List list;
    EXPECT_TRUE(list.Next(0));
    EXPECT_TRUE(list.Previous(0));
    Fill(list, 3);
    list.MoveTo(1);
    EXPECT_TRUE(list.Next(0));
    EXPECT_TRUE(list.Previous(0));
    for (const int32_t lSteps : {-1, -2, INT32_MIN}) {
        EXPECT_FALSE(list.Next(lSteps));
        EXPECT_FALSE(list.Previous(lSteps));
    }
    ExpectCursor(list, 1, 1);
}

TEST(QMNodeList, AnEmptyListHasNoStepToTake)
{
    List list;
    EXPECT_FALSE(list.Next());
    EXPECT_FALSE(list.Previous());
    ExpectCursor(list, -1, 0);
}

TEST(QMNodeList, MovesFromEveryPositionToEveryOther)
{
    for (int32_t lCount = 0; lCount <= 12; ++lCount) {
        List list;
        Fill(list, lCount);
        for (int32_t lFrom = 0; lFrom < lCount; ++lFrom) {
            for (int32_t lTo = 0; lTo < lCount; ++lTo) {
                ASSERT_TRUE(list.MoveTo(lFrom));
                ASSERT_TRUE(list.MoveTo(lTo));
                ExpectCursor(list, lTo, lTo);
            }
        }
    }
}

TEST(QMNodeList, MovesToAPositionWithoutACursorToStartFrom)
{
    for (int32_t lTo = 0; lTo < 5; ++lTo) {
        for (const int32_t lPosition : {0, 4}) {
            List list;
            Fill(list, 5);
            list.SetCursor(nullptr, lPosition);
            EXPECT_TRUE(list.MoveTo(lTo));
            ExpectCursor(list, lTo, lTo);
        }
    }
}

TEST(QMNodeList, DoesNotMoveToAPositionThatIsNotThere)
{
    List list;
    EXPECT_FALSE(list.MoveTo(0));
    Fill(list, 3);
    list.MoveTo(1);
    for (const int32_t lPosition : {-1, 3, INT32_MIN, INT32_MAX}) {
        EXPECT_FALSE(list.MoveTo(lPosition));
        ExpectCursor(list, 1, 1);
    }
}

TEST(QMNodeList, SeeksANodeOfItsOwn)
{
    List list;
    Fill(list, 4);
    std::vector<QMListNode*> nodes;
    for (QMListNode* p = list.GetHead(); p != nullptr; p = p->GetNext()) {
        nodes.push_back(p);
    }
    for (const int n : {2, 0, 3, 1, 1}) {
        EXPECT_EQ(list.Seek(nodes[static_cast<size_t>(n)]), n);
        ExpectCursor(list, n, n);
    }
}

TEST(QMNodeList, SeekingAForeignNodeOrNoneLeavesTheCursor)
{
    List list;
    List other;
    const Node single(9);
    EXPECT_EQ(list.Seek(&single), -1);
    Fill(list, 3);
    Fill(other, 3);
    list.MoveTo(1);
    for (const QMListNode* p : {static_cast<const QMListNode*>(&single),
                                static_cast<const QMListNode*>(other.GetCurrentNode()),
                                static_cast<const QMListNode*>(nullptr)}) {
        EXPECT_EQ(list.Seek(p), -1);
        ExpectCursor(list, 1, 1);
    }
}

TEST(QMNodeList, CopiesTheCurrentNodeThroughItsHook)
{
    List list;
    Node node(50);
    EXPECT_FALSE(list.CopyCurrentTo(node));
    EXPECT_FALSE(list.CopyToCurrent(node));
    EXPECT_EQ(node.nValue, 50);
    Fill(list, 3);
    list.MoveTo(1);
    EXPECT_TRUE(list.CopyCurrentTo(node));
    EXPECT_EQ(node.nValue, 1);
    node.nValue = 60;
    EXPECT_TRUE(list.CopyToCurrent(node));
    EXPECT_EQ(ValuesOf(list), (Values{0, 60, 2}));
    ExpectCursor(list, 60, 1);
}

TEST(QMNodeList, RandomOperationsAgreeWithAPlainModel)
{
    std::mt19937 random(7);
    for (int nRun = 0; nRun < 500; ++nRun) {
        List list;
        Model model;
        for (int n = 0; n < 40; ++n) {
            StepBoth(list, model, random, n);
            ASSERT_EQ(ValuesOf(list), model.values);
            const bool bEmpty = model.values.empty();
            ExpectCursor(list, bEmpty ? -1 : model.values[static_cast<size_t>(model.lCursor)],
                         model.lCursor);
            ASSERT_FALSE(HasFailure()) << "run " << nRun << ", operation " << n;
        }
    }
    EXPECT_EQ(Node::nAlive, 0);
}
