#include "settings/qmrecentlist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

// One slot: its text, or nothing when it cannot be read.
using Slot = std::optional<std::string>;
using Slots = std::array<Slot, QM_RECENT_COUNT>;

constexpr size_t uLast = QM_RECENT_COUNT - 1;
const Slot unreadable;

// Slots in memory that behave like values in the registry.
class MemorySlots : public QMRecentSlots
{
public:
    explicit MemorySlots(const Slots& slots) : m_slots(slots) {}

    bool Read(int nSlot, VString& sText) const override
    {
        const Slot& slot = m_slots.at(static_cast<size_t>(nSlot));
        if (slot.has_value()) {
            sText = slot->c_str();
        }
        return slot.has_value();
    }

    // Writing an empty text removes the value.
    void Write(int nSlot, const char* szText) override
    {
        m_slots.at(static_cast<size_t>(nSlot)) = *szText == '\0' ? unreadable : Slot(szText);
    }

    const Slots& Get() const { return m_slots; }

private:
    Slots m_slots;
};

Slots Fresh()
{
    Slots slots;
    slots.fill("Empty");
    return slots;
}

// These texts, and free slots after them.
Slots Holding(const std::vector<Slot>& texts)
{
    Slots slots = Fresh();
    std::copy(texts.begin(), texts.end(), slots.begin());
    return slots;
}

std::string Describe(const Slots& slots)
{
    std::string sText;
    for (const Slot& slot : slots) {
        sText += "[" + slot.value_or("?") + "]";
    }
    return sText;
}

// ---- The model: what each operation makes of all slots at once.

bool EqualsNoCase(const std::string& a, const std::string& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return tolower(static_cast<unsigned char>(x)) == tolower(static_cast<unsigned char>(y));
    });
}

std::optional<size_t> Find(const Slots& slots, const std::string& sPath)
{
    for (size_t u = 0; u < slots.size(); ++u) {
        if (slots[u].has_value() && EqualsNoCase(*slots[u], sPath)) {
            return u;
        }
    }
    return std::nullopt;
}

Slots WithAdded(const Slots& slots, const std::string& sPath)
{
    Slots result = slots;
    for (size_t u = 1; u <= Find(slots, sPath).value_or(uLast); ++u) {
        result[u] = slots[u - 1].has_value() ? slots[u - 1] : slots[u];
    }
    result[0] = sPath;
    return result;
}

Slots WithRemoved(const Slots& slots, const std::string& sPath)
{
    const std::optional<size_t> found = Find(slots, sPath);
    if (!found.has_value()) {
        return slots;
    }
    Slots result = slots;
    for (size_t u = *found; u < uLast; ++u) {
        result[u] = slots[u + 1].has_value() ? slots[u + 1] : slots[u];
    }
    result[uLast] = "Empty";
    return result;
}

int CountOf(const Slots& slots)
{
    int nCount = 0;
    for (const Slot& slot : slots) {
        if (slot.value_or("Empty") == "Empty") {
            break;
        }
        ++nCount;
    }
    return nCount;
}

// ---- The list itself.

Slots AfterAdding(const Slots& slots, const std::string& sPath)
{
    MemorySlots memory(slots);
    QMRecentList(memory).Add(sPath.c_str());
    return memory.Get();
}

Slots AfterRemoving(const Slots& slots, const std::string& sPath)
{
    MemorySlots memory(slots);
    QMRecentList(memory).Remove(sPath.c_str());
    return memory.Get();
}

int CountIn(const Slots& slots)
{
    MemorySlots memory(slots);
    return QMRecentList(memory).GetCount();
}

// Whether the list and the model agree about every operation on these slots. Fast enough for
// hundreds of thousands of calls.
bool AgreesOn(const Slots& slots, const std::vector<std::string>& paths)
{
    bool bAgrees = CountIn(slots) == CountOf(slots);
    for (const std::string& sPath : paths) {
        bAgrees = bAgrees && AfterAdding(slots, sPath) == WithAdded(slots, sPath) &&
                  AfterRemoving(slots, sPath) == WithRemoved(slots, sPath);
    }
    EXPECT_TRUE(bAgrees) << Describe(slots);
    return bAgrees;
}

// Every state that can be reached from here by adding and removing these paths.
std::set<Slots> ReachableFrom(const Slots& start, const std::vector<std::string>& paths)
{
    std::set<Slots> reached = {start};
    std::vector<Slots> open = {start};
    while (!open.empty()) {
        const Slots slots = open.back();
        open.pop_back();
        for (const std::string& sPath : paths) {
            for (const Slots& next : {AfterAdding(slots, sPath), AfterRemoving(slots, sPath)}) {
                if (reached.insert(next).second) {
                    open.push_back(next);
                }
            }
        }
    }
    return reached;
}

// All ways to fill the ten slots from three contents: 59049.
template <class F>
void ForEachFilling(const std::array<Slot, 3>& contents, F visit)
{
    for (int n = 0; n < 59049; ++n) {
        Slots slots;
        int nRest = n;
        for (Slot& slot : slots) {
            slot = contents[static_cast<size_t>(nRest % 3)];
            nRest /= 3;
        }
        if (!visit(slots)) {
            return;
        }
    }
}

std::vector<Slot> Numbered(int nFirst, int nLast)
{
    std::vector<Slot> paths;
    for (int n = nFirst; n <= nLast; ++n) {
        paths.emplace_back("file" + std::to_string(n));
    }
    return paths;
}

} // namespace

// ---- The rules, one by one.

TEST(QMRecentList, FileThatIsNewGoesOnTop)
{
    EXPECT_EQ(AfterAdding(Fresh(), "a"), Holding({"a"}));
    EXPECT_EQ(AfterAdding(Holding({"a"}), "b"), Holding({"b", "a"}));
}

TEST(QMRecentList, EleventhFileDropsTheOldest)
{
    Slots slots = Fresh();
    for (int n = 1; n <= 11; ++n) {
        slots = AfterAdding(slots, "file" + std::to_string(n));
    }
    EXPECT_EQ(slots, Holding({"file11", "file10", "file9", "file8", "file7", "file6", "file5",
                              "file4", "file3", "file2"}));
    EXPECT_EQ(CountIn(slots), 10);
}

TEST(QMRecentList, SeventhMovesUpAndTheLastThreeStay)
{
    const Slots slots = Holding(Numbered(1, 10));
    EXPECT_EQ(AfterAdding(slots, "file7"), Holding({"file7", "file1", "file2", "file3", "file4",
                                                    "file5", "file6", "file8", "file9", "file10"}));
}

TEST(QMRecentList, ThirdRemovedLeavesAFreeSlotAtTheEnd)
{
    const Slots slots = Holding(Numbered(1, 10));
    EXPECT_EQ(AfterRemoving(slots, "file3"), Holding({"file1", "file2", "file4", "file5", "file6",
                                                      "file7", "file8", "file9", "file10"}));
}

TEST(QMRecentList, RemovingWhatIsNotThereChangesNothing)
{
    EXPECT_EQ(AfterRemoving(Holding({"a", "b"}), "c"), Holding({"a", "b"}));
    EXPECT_EQ(AfterRemoving(Fresh(), "c"), Fresh());
}

TEST(QMRecentList, LettersOfAnySizeAreTheSameFile)
{
    const Slots slots = Holding({"C:\\A.qmk", "c:\\b.qmk", "c:\\c.qmk"});
    // The list shows the spelling of the last time.
    EXPECT_EQ(AfterAdding(slots, "C:\\B.QMK"), Holding({"C:\\B.QMK", "C:\\A.qmk", "c:\\c.qmk"}));
    EXPECT_EQ(AfterRemoving(slots, "c:\\a.QMK"), Holding({"c:\\b.qmk", "c:\\c.qmk"}));
}

TEST(QMRecentList, OnlyTheFirstOfTwoEqualOnesMovesOrGoes)
{
    const Slots slots = Holding({"a", "b", "c", "B"});
    EXPECT_EQ(AfterAdding(slots, "b"), Holding({"b", "a", "c", "B"}));
    EXPECT_EQ(AfterRemoving(slots, "B"), Holding({"a", "c", "B"}));
}

TEST(QMRecentList, GapEndsTheListAndIsMovedLikeAFile)
{
    const Slots slots = Holding({"a", "Empty", "c"});
    EXPECT_EQ(CountIn(slots), 1);
    EXPECT_EQ(AfterAdding(slots, "d"), Holding({"d", "a", "Empty", "c"}));
    EXPECT_EQ(AfterAdding(slots, "c"), Holding({"c", "a", "Empty"}));
    EXPECT_EQ(AfterRemoving(slots, "a"), Holding({"Empty", "c"}));
    EXPECT_EQ(CountIn(AfterRemoving(slots, "a")), 0);
}

// Paths are compared without regard to case. Only the exact word for a free slot ends the list.
TEST(QMRecentList, WordForAFreeSlotIsExact)
{
    EXPECT_EQ(CountIn(Holding({"empty", "EMPTY", "Empty "})), 3);
    EXPECT_EQ(AfterAdding(Holding({"a"}), "empty"), Holding({"empty", "a"}));
    EXPECT_EQ(AfterRemoving(Holding({"a", "empty", "b"}), "Empty"), Holding({"a", "b"}));
}

TEST(QMRecentList, UnreadableSlotIsNotMovedAndEndsTheList)
{
    const Slots slots = Holding({"a", unreadable, "c"});
    EXPECT_EQ(CountIn(slots), 1);
    EXPECT_EQ(CountIn(Holding({unreadable, "b"})), 0);
    // The path after it stays in its place and also moves up.
    EXPECT_EQ(AfterAdding(slots, "d"), Holding({"d", "a", "c", "c"}));
    EXPECT_EQ(AfterRemoving(slots, "a"), Holding({"a", "c"}));
}

TEST(QMRecentList, UnreadableSlotsAtBothEnds)
{
    Slots slots = Holding({unreadable, "b"});
    slots[uLast] = unreadable;
    Slots added = Holding({"x", "b", "b"});
    EXPECT_EQ(AfterAdding(slots, "x"), added);
    EXPECT_EQ(AfterAdding(slots, "b").at(1), Slot("b"));
    EXPECT_EQ(AfterRemoving(slots, "b"), Holding({unreadable}));
}

TEST(QMRecentList, NothingReadableIsFilledFromTheTop)
{
    Slots slots;
    EXPECT_EQ(CountIn(slots), 0);
    EXPECT_EQ(AfterRemoving(slots, "a"), slots);
    slots[0] = "a";
    EXPECT_EQ(AfterAdding(Slots{}, "a"), slots);
    slots[1] = "a";
    slots[0] = "b";
    Slots first{};
    first[0] = "a";
    EXPECT_EQ(AfterAdding(first, "b"), slots);
}

// The program never gives an empty name. It would remove the value at the top.
TEST(QMRecentList, EmptyNameRemovesTheTop)
{
    EXPECT_EQ(AfterAdding(Holding({"a"}), ""), Holding({unreadable, "a"}));
}

// ---- All of them.

TEST(QMRecentList, EveryReachableStateFollowsThePlainModel)
{
    const std::vector<std::string> paths = {"a", "b", "c", "d", "e"};
    const std::set<Slots> reached = ReachableFrom(Fresh(), paths);
    // Every choice of some of the five in every order.
    EXPECT_EQ(reached.size(), 326U);
    for (const Slots& slots : reached) {
        ASSERT_TRUE(AgreesOn(slots, {"a", "B", "c", "D", "e", "f", "Empty"}));
    }
}

TEST(QMRecentList, EveryStateReachableFromDamagedSlotsFollowsThePlainModel)
{
    const std::vector<std::string> paths = {"a", "b", "c"};
    size_t uStates = 0;
    for (const Slots& start :
         {Holding({"a", "Empty", "b"}), Holding({"a", unreadable, "b"}), Holding({"a", "A", "b"}),
          Holding({unreadable, unreadable, "a"}), Slots{}}) {
        for (const Slots& slots : ReachableFrom(start, paths)) {
            ++uStates;
            ASSERT_TRUE(AgreesOn(slots, {"A", "b", "c", "Empty"}));
        }
    }
    EXPECT_GT(uStates, 100U);
}

TEST(QMRecentList, EveryFillingWithGapsAndUnreadableSlotsFollowsThePlainModel)
{
    ForEachFilling({"a", "Empty", unreadable}, [](const Slots& slots) {
        return AgreesOn(slots, {"A", "b", "empty"});
    });
}

TEST(QMRecentList, EveryFillingWithDuplicatesFollowsThePlainModel)
{
    ForEachFilling({"a", "B", unreadable}, [](const Slots& slots) {
        return AgreesOn(slots, {"A", "b"});
    });
}

TEST(QMRecentList, LongRandomUseOfMoreFilesThanSlotsFollowsThePlainModel)
{
    std::mt19937 random(84);
    Slots slots = Fresh();
    for (int n = 0; n < 20000; ++n) {
        const std::string sPath = "file" + std::to_string(random() % 14);
        const bool bAdd = random() % 4 != 0;
        const Slots expected = bAdd ? WithAdded(slots, sPath) : WithRemoved(slots, sPath);
        slots = bAdd ? AfterAdding(slots, sPath) : AfterRemoving(slots, sPath);
        ASSERT_EQ(Describe(slots), Describe(expected)) << "index " << n;
        // These files, each once, and free slots after them.
        const std::set<Slot> files(slots.begin(), slots.begin() + CountIn(slots));
        ASSERT_EQ(files.size(), static_cast<size_t>(CountIn(slots)));
        ASSERT_EQ(std::count(slots.begin(), slots.end(), Slot("Empty")),
                  QM_RECENT_COUNT - CountIn(slots));
    }
}
