#include "base/vstringlist.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Tokens = std::vector<std::string>;

Tokens Split(const char* szText, char cSeparator)
{
    VStringList list(szText, cSeparator);
    Tokens tokens;
    while (const char* szToken = list.Next()) {
        tokens.emplace_back(szToken);
    }
    return tokens;
}

} // namespace

TEST(VStringList, HandsOutTheTokensInTheirOrder)
{
    EXPECT_EQ(Split("a.qmk,b.qmk,c.qif", ','), (Tokens{"a.qmk", "b.qmk", "c.qif"}));
    EXPECT_EQ(Split("one", ','), (Tokens{"one"}));
    EXPECT_EQ(Split("a b,c d", ' '), (Tokens{"a", "b,c", "d"}));
}

TEST(VStringList, AnEmptyOrNullTextHasNoToken)
{
    EXPECT_EQ(Split("", ','), Tokens{});
    EXPECT_EQ(Split(nullptr, ','), Tokens{});
}

TEST(VStringList, SeparatorsInARowHaveAnEmptyTokenBetweenThem)
{
    EXPECT_EQ(Split("a,,b", ','), (Tokens{"a", "", "b"}));
    EXPECT_EQ(Split(",a", ','), (Tokens{"", "a"}));
    EXPECT_EQ(Split(",,", ','), (Tokens{"", ""}));
}

TEST(VStringList, ASeparatorAtTheEndHasNoTokenBehindIt)
{
    EXPECT_EQ(Split("a,", ','), (Tokens{"a"}));
    EXPECT_EQ(Split(",", ','), (Tokens{""}));
}

TEST(VStringList, StaysAtTheEnd)
{
    VStringList list("a", ',');
    EXPECT_STREQ(list.Next(), "a");
    EXPECT_EQ(list.Next(), nullptr);
    EXPECT_EQ(list.Next(), nullptr);
}

TEST(VStringList, WorksOnACopyOfTheText)
{
    char szText[] = "one,two";
    VStringList list(szText, ',');
    szText[0] = 'X';
    szText[3] = 'X';
    EXPECT_STREQ(list.Next(), "one");
    EXPECT_STREQ(list.Next(), "two");
}
