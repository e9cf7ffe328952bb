#include "base/vstring.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/core/allocationfault.h"

namespace {

class CountingString : public VString
{
public:
    using VString::operator=;
    int nCalls = 0;

protected:
    void OnOutOfMemory() override { ++nCalls; }
};

// A text whose buffer is full: another byte would need a larger one.
void FillBlock(VString& s)
{
    s = "x";
    while (s.GetLength() + 1 < s.GetCapacity()) {
        s.AppendCharacter('x');
    }
}

std::string Text(const VString& s)
{
    return {s.GetText(), s.GetLength()};
}

} // namespace

TEST(VString, IsEmptyWithoutABufferAtFirst)
{
    const VString s;
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(s.GetLength(), 0u);
    EXPECT_EQ(s.GetCapacity(), 0u);
    EXPECT_STREQ(s.GetText(), "");
    EXPECT_EQ(s.GetStatus().Get(), 0u);
}

TEST(VString, ConstructsFromATextUpToAMaximumLength)
{
    EXPECT_EQ(Text(VString("register")), "register");
    EXPECT_EQ(Text(VString("register", 3)), "reg");
    EXPECT_EQ(Text(VString("register", 8)), "register");
    EXPECT_EQ(Text(VString("register", 100)), "register");
    EXPECT_EQ(Text(VString("register", 0)), "");
}

TEST(VString, TakesANullTextAsEmpty)
{
    EXPECT_TRUE(VString(nullptr).IsEmpty());
    VString s("before");
    EXPECT_TRUE(s.Append(nullptr));
    EXPECT_EQ(s, "before");
    s = nullptr;
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_TRUE(s == nullptr);
}

TEST(VString, CopiesHaveBuffersOfTheirOwn)
{
    VString a("one");
    VString b(a);
    VString c;
    c = a;
    EXPECT_NE(a.GetText(), b.GetText());
    EXPECT_NE(a.GetText(), c.GetText());
    a.Append(" more");
    EXPECT_EQ(b, "one");
    EXPECT_EQ(c, "one");
}

TEST(VString, MovingLeavesTheSourceEmptyAndUsable)
{
    VString a("one");
    VString b(std::move(a));
    EXPECT_EQ(b, "one");
    EXPECT_TRUE(a.IsEmpty()); // NOLINT(bugprone-use-after-move)
    VString c("other");
    c = std::move(b);
    EXPECT_EQ(c, "one");
    EXPECT_TRUE(b.IsEmpty()); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(b.Append("again"));
    EXPECT_EQ(b, "again");
}

TEST(VString, AssigningReplacesTheText)
{
    VString s("a long text to begin with");
    s = "short";
    EXPECT_EQ(Text(s), "short");
    EXPECT_TRUE(s.Assign("cut here", 3));
    EXPECT_EQ(Text(s), "cut");
    s = VString("other");
    EXPECT_EQ(Text(s), "other");
    s = "";
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_STREQ(s.GetText(), "");
}

TEST(VString, AssigningItselfOrAPartOfItselfKeepsTheCharacters)
{
    VString s("0123456789");
    const VString& same = s;
    s = same;
    EXPECT_EQ(s, "0123456789");
    EXPECT_TRUE(s.Assign(s.GetText()));
    EXPECT_EQ(s, "0123456789");
    EXPECT_TRUE(s.Assign(s.GetText() + 3, 4));
    EXPECT_EQ(s, "3456");
}

TEST(VString, AppendsTextsStringsCharactersAndNumbers)
{
    VString s("a");
    EXPECT_TRUE(s.Append("bcd", 2));
    EXPECT_TRUE(s.Append(VString("-")));
    EXPECT_TRUE(s.AppendCharacter('x'));
    EXPECT_TRUE(s.AppendNumber(0));
    EXPECT_TRUE(s.AppendCharacter(' '));
    EXPECT_TRUE(s.AppendNumber(4294967295u));
    EXPECT_EQ(Text(s), "abc-x0 4294967295");
    EXPECT_EQ(s.GetLength(), 17u);
}

TEST(VString, AppendingNothingMakesNoBuffer)
{
    VString s;
    EXPECT_TRUE(s.Append(""));
    EXPECT_TRUE(s.Append(VString()));
    EXPECT_TRUE(s.Append("text", 0));
    EXPECT_EQ(s.GetCapacity(), 0u);
}

TEST(VString, AppendingItselfDoublesIt)
{
    VString s("abc");
    std::string sExpected = "abc";
    for (int n = 0; n < 8; ++n) {
        EXPECT_TRUE(s.Append(s));
        sExpected += sExpected;
        ASSERT_EQ(Text(s), sExpected);
    }
    EXPECT_TRUE(s.Append(s.GetText()));
    EXPECT_EQ(Text(s), sExpected + sExpected);
}

TEST(VString, AppendingAPartOfItselfSurvivesTheGrowth)
{
    for (uint32_t uStart = 0; uStart < 63; ++uStart) {
        VString s;
        for (uint32_t u = 0; u < 63; ++u) {
            s.AppendCharacter(static_cast<char>('A' + u % 26));
        }
        ASSERT_EQ(s.GetCapacity(), 64u);
        const std::string sBefore = Text(s);
        EXPECT_TRUE(s.Append(s.GetText() + uStart, 40));
        EXPECT_EQ(Text(s), sBefore + sBefore.substr(uStart, 40));
    }
}

TEST(VString, SixtyThreeBytesFitAFirstBlockAndTheNextTakesTheCapacityTo128)
{
    VString s("x");
    EXPECT_EQ(s.GetCapacity(), 64u);
    EXPECT_TRUE(s.Append(std::string(62, 'y').c_str()));
    EXPECT_EQ(s.GetLength(), 63u);
    EXPECT_EQ(s.GetCapacity(), 64u);
    EXPECT_TRUE(s.AppendCharacter('z'));
    EXPECT_EQ(s.GetCapacity(), 128u);
}

TEST(VString, AFreshTextOf63BytesTakesTwoBlocksByTheGrowthRule)
{
    EXPECT_EQ(VString(std::string(62, 'x').c_str()).GetCapacity(), 64u);
    EXPECT_EQ(VString(std::string(63, 'x').c_str()).GetCapacity(), 128u);
}

TEST(VString, GrowsByTheRuleForEveryBlockSize)
{
    for (const uint32_t uBlock : {1u, 2u, 7u, 10u, 64u, 100u, 4096u}) {
        VString s;
        s.SetBlockSize(uBlock);
        uint32_t uCapacity = 0;
        for (uint32_t uLength = 1; uLength <= 300; ++uLength) {
            ASSERT_TRUE(s.AppendCharacter('x'));
            const uint32_t uNeeded = uLength + 1;
            if (uCapacity < uNeeded) {
                uCapacity = (uNeeded / uBlock + 1) * uBlock;
            }
            ASSERT_EQ(s.GetCapacity(), uCapacity)
                << "block size " << uBlock << ", length " << uLength;
        }
    }
}

TEST(VString, ABlockSizeOfZeroActsAs64)
{
    VString s;
    s.SetBlockSize(0);
    s.Append("x");
    EXPECT_EQ(s.GetCapacity(), 64u);
    s.Append(std::string(100, 'x').c_str());
    EXPECT_EQ(s.GetCapacity(), 128u);
}

TEST(VString, FindsTheFirstAndTheLastOccurrence)
{
    const VString s("Check-check");
    EXPECT_EQ(s.Find('C'), 0);
    EXPECT_EQ(s.Find('c'), 3);
    EXPECT_EQ(s.Find('k'), 4);
    EXPECT_EQ(s.FindLast('k'), 10);
    EXPECT_EQ(s.FindLast('C'), 0);
    EXPECT_EQ(s.Find('K'), -1);
    EXPECT_EQ(s.FindLast('K'), -1);
    EXPECT_EQ(VString().Find('x'), -1);
    EXPECT_EQ(VString().FindLast('x'), -1);
}

TEST(VString, FindIgnoresCaseOnRequestOnly)
{
    const VString s("Check-check");
    EXPECT_EQ(s.Find('c', false), 0);
    EXPECT_EQ(s.Find('K', false), 4);
    EXPECT_EQ(s.FindLast('C', false), 9);
    EXPECT_EQ(s.FindLast('K', false), 10);
    EXPECT_EQ(s.Find('z', false), -1);
    EXPECT_EQ(s.FindLast('z', false), -1);
}

TEST(VString, LeftMidAndRightTakeParts)
{
    const VString s("012345");
    EXPECT_EQ(s.Left(2), "01");
    EXPECT_EQ(s.Mid(2), "2345");
    EXPECT_EQ(s.Mid(2, 3), "234");
    EXPECT_EQ(s.Right(2), "45");
    EXPECT_EQ(s.Left(0), "");
    EXPECT_EQ(s.Mid(2, 0), "");
    EXPECT_EQ(s.Right(0), "");
}

TEST(VString, PartsOutsideTheTextAreLeftOut)
{
    const VString s("012345");
    EXPECT_EQ(s.Left(100), "012345");
    EXPECT_EQ(s.Right(100), "012345");
    EXPECT_EQ(s.Mid(4, 100), "45");
    EXPECT_EQ(s.Mid(6), "");
    EXPECT_EQ(s.Mid(100, 2), "");
    EXPECT_EQ(s.Mid(0xFFFFFFFF, 0xFFFFFFFF), "");
    EXPECT_EQ(VString().Left(1), "");
    EXPECT_EQ(VString().Right(1), "");
}

TEST(VString, GetAtAnswersTheTerminatorBehindTheEnd)
{
    const VString s("ab");
    EXPECT_EQ(s.GetAt(0), 'a');
    EXPECT_EQ(s.GetAt(1), 'b');
    EXPECT_EQ(s.GetAt(2), '\0');
    EXPECT_EQ(s.GetAt(0xFFFFFFFF), '\0');
    EXPECT_EQ(VString().GetAt(0), '\0');
}

TEST(VString, ComparesWithAndWithoutCase)
{
    const VString s("Memo");
    EXPECT_EQ(s.CompareNoCase("mEMO"), 0);
    EXPECT_LT(s.CompareNoCase("memos"), 0);
    EXPECT_GT(s.CompareNoCase("MEM"), 0);
    EXPECT_GT(s.CompareNoCase(nullptr), 0);
    EXPECT_EQ(VString().CompareNoCase(nullptr), 0);
    EXPECT_TRUE(s == "Memo");
    EXPECT_FALSE(s == "memo");
    EXPECT_TRUE(s == VString("Memo"));
    EXPECT_FALSE(s == VString("Mem"));
}

TEST(VString, TrimTakesWhiteSpaceOffBothEnds)
{
    struct
    {
        const char* szText;
        const char* szTrim;
        const char* szLeft;
        const char* szRight;
    } const aCases[] = {
        {"", "", "", ""},
        {" ", "", "", ""},
        {" \t\r\n\v\f ", "", "", ""},
        {"x", "x", "x", "x"},
        {"  a b  ", "a b", "a b  ", "  a b"},
        {"\t\ta", "a", "a", "\t\ta"},
        {"a\r\n", "a", "a\r\n", "a"},
        {"\xA0"
         "a",
         "\xA0"
         "a",
         "\xA0"
         "a",
         "\xA0"
         "a"},
    };
    for (const auto& test : aCases) {
        VString sBoth(test.szText);
        VString sLeft(test.szText);
        VString sRight(test.szText);
        sBoth.Trim();
        sLeft.TrimLeft();
        sRight.TrimRight();
        EXPECT_EQ(Text(sBoth), test.szTrim) << test.szText;
        EXPECT_EQ(Text(sLeft), test.szLeft) << test.szText;
        EXPECT_EQ(Text(sRight), test.szRight) << test.szText;
    }
}

TEST(VString, TrimmingAStringWithoutABufferDoesNothing)
{
    VString s;
    s.Trim();
    s.ToLower();
    EXPECT_TRUE(s.IsEmpty());
}

TEST(VString, ToLowerChangesAsciiLettersAlone)
{
    VString s("ABC xyz-09 \xC4@[`{");
    s.ToLower();
    EXPECT_EQ(s, "abc xyz-09 \xC4@[`{");
}

TEST(VString, ClearFreesTheBufferOrKeepsIt)
{
    VString s("text");
    s.Clear(false);
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_STREQ(s.GetText(), "");
    EXPECT_EQ(s.GetCapacity(), 64u);
    s = "text";
    s.Clear();
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_STREQ(s.GetText(), "");
    EXPECT_EQ(s.GetCapacity(), 0u);
    EXPECT_TRUE(s.Append("again"));
    EXPECT_EQ(s, "again");
}

TEST(VString, ClearResetsTheStatusOrKeepsIt)
{
    VString s;
    {
        const AllocationFault fault;
        s.Append("text");
    }
    s.Clear(true, false);
    EXPECT_TRUE(s.GetStatus().Test(VString::uStatusOutOfMemory));
    s.Clear(true, true);
    EXPECT_FALSE(s.GetStatus().Test(VString::uStatusOutOfMemory));
}

TEST(VString, AnAppendThatFindsNoMemoryCallsTheHookAndLeavesTheText)
{
    CountingString s;
    FillBlock(s);
    const std::string sBefore = Text(s);
    {
        const AllocationFault fault;
        EXPECT_FALSE(s.Append("y"));
        EXPECT_FALSE(s.Append(s));
        EXPECT_FALSE(s.AppendCharacter('y'));
        EXPECT_FALSE(s.AppendNumber(7));
    }
    EXPECT_EQ(Text(s), sBefore);
    EXPECT_EQ(s.GetCapacity(), 64u);
    EXPECT_TRUE(s.GetStatus().Test(VString::uStatusOutOfMemory));
}

TEST(VString, TheHookRunsOnceForEveryFailedGrowth)
{
    CountingString s;
    FillBlock(s);
    const AllocationFault fault;
    s.AppendCharacter('y');
    EXPECT_EQ(s.nCalls, 1);
    s.Append("yy");
    EXPECT_EQ(s.nCalls, 2);
}

TEST(VString, AnAssignmentOfATextThatFindsNoMemoryLeavesTheText)
{
    CountingString s;
    s = "before";
    const std::string sLong(200, 'x');
    {
        const AllocationFault fault;
        EXPECT_FALSE(s.Assign(sLong.c_str()));
    }
    EXPECT_EQ(Text(s), "before");
    EXPECT_EQ(s.nCalls, 1);
    EXPECT_TRUE(s.GetStatus().Test(VString::uStatusOutOfMemory));
}

TEST(VString, AnAssignmentOfAStringThatFindsNoMemoryLeavesTheText)
{
    VString s("before");
    const VString sLong(std::string(200, 'x').c_str());
    {
        const AllocationFault fault;
        s = sLong;
    }
    EXPECT_EQ(Text(s), "before");
    EXPECT_TRUE(s.GetStatus().Test(VString::uStatusOutOfMemory));
}

TEST(VString, AFailedGrowthCanBeRepeatedOnceThereIsMemory)
{
    VString s;
    {
        const AllocationFault fault;
        EXPECT_FALSE(s.Append("text"));
    }
    EXPECT_TRUE(s.Append("text"));
    EXPECT_EQ(s, "text");
}
