#include "tools/qmpasswordrules.h"

#include <gtest/gtest.h>

TEST(QMPasswordCheck, IgnoresCase)
{
    for (const char* szEntry : {"abc", "ABC", "aBc"}) {
        EXPECT_TRUE(QMPasswordCheck("abc").Accepts(szEntry)) << szEntry;
        EXPECT_TRUE(QMPasswordCheck("AbC").Accepts(szEntry)) << szEntry;
    }
}

TEST(QMPasswordCheck, TakesNothingElse)
{
    for (const char* szEntry : {"", "ab", "abcd", " abc", "abc ", "abd"}) {
        EXPECT_FALSE(QMPasswordCheck("abc").Accepts(szEntry)) << szEntry;
    }
}

TEST(QMPasswordCheck, IsNotNeededWithoutAPassword)
{
    EXPECT_FALSE(QMPasswordCheck("").IsNeeded());
    EXPECT_TRUE(QMPasswordCheck("a").IsNeeded());
}

TEST(QMPasswordCheck, AnEmptyEntryIsWrongWhateverThePassword)
{
    EXPECT_FALSE(QMPasswordCheck("").Accepts(""));
    EXPECT_FALSE(QMPasswordCheck("a").Accepts(""));
}

TEST(QMPasswordCheck, IsSpentByThreeWrongEntries)
{
    QMPasswordCheck check("abc");
    EXPECT_FALSE(check.Accepts("x"));
    EXPECT_FALSE(check.Accepts(""));
    EXPECT_FALSE(check.IsSpent());
    EXPECT_TRUE(check.Accepts("abc"));
    EXPECT_FALSE(check.IsSpent()) << "a right entry must not count as a wrong one";
    EXPECT_FALSE(check.Accepts("y"));
    EXPECT_TRUE(check.IsSpent());
}

TEST(QMNewPassword, AgreesInSpiteOfCase)
{
    EXPECT_EQ(QMJudgeNewPassword("abc", "abc"), QMNewPassword::Agree);
    EXPECT_EQ(QMJudgeNewPassword("abc", "ABC"), QMNewPassword::Agree);
    EXPECT_EQ(QMJudgeNewPassword("abc", "abd"), QMNewPassword::Differ);
}

TEST(QMNewPassword, WithOneEntryEmptyDiffers)
{
    EXPECT_EQ(QMJudgeNewPassword("", "abc"), QMNewPassword::Differ);
    EXPECT_EQ(QMJudgeNewPassword("abc", ""), QMNewPassword::Differ);
}

TEST(QMNewPassword, WithBothEntriesEmptyIsNone)
{
    EXPECT_EQ(QMJudgeNewPassword("", ""), QMNewPassword::None);
}
