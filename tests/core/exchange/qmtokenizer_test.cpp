#include "exchange/qmtokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "exchange/qmreplace.h"

namespace {

using Tokens = std::vector<std::string>;

Tokens TokensOf(std::string sText)
{
    const std::string sBefore = sText;
    QMTokenizer tokenizer(sText.data(), ',');
    Tokens tokens;
    while (const char* szToken = tokenizer.Next()) {
        tokens.emplace_back(szToken);
    }
    EXPECT_EQ(tokenizer.Next(), nullptr);
    EXPECT_EQ(sText, sBefore) << "the tokenizer must put every separator back";
    return tokens;
}

std::string Replaced(const char* szText, char cFind, const char* szReplacement)
{
    VString sText(szText);
    EXPECT_TRUE(QMReplace(sText, cFind, szReplacement));
    return sText.GetText();
}

std::string Stripped(std::string sText, char cFind)
{
    QMStrip(sText.data(), cFind);
    return sText.c_str();
}

} // namespace

TEST(Tokenizer, HandsOutWhatStandsBetweenTheSeparators)
{
    EXPECT_EQ(TokensOf("a,bc,d"), (Tokens{"a", "bc", "d"}));
    EXPECT_EQ(TokensOf("a"), (Tokens{"a"}));
}

TEST(Tokenizer, HasAnEmptyTokenBetweenTwoSeparatorsAndInFrontButNoneAtTheEnd)
{
    EXPECT_EQ(TokensOf("a,,b"), (Tokens{"a", "", "b"}));
    EXPECT_EQ(TokensOf(",a"), (Tokens{"", "a"}));
    EXPECT_EQ(TokensOf("a,"), (Tokens{"a"}));
    EXPECT_EQ(TokensOf("a,,"), (Tokens{"a", ""}));
    EXPECT_EQ(TokensOf(","), (Tokens{""}));
}

TEST(Tokenizer, HasNoTokensInAnEmptyOrAbsentText)
{
    EXPECT_EQ(TokensOf(""), Tokens{});
    QMTokenizer tokenizer(nullptr, ',');
    EXPECT_EQ(tokenizer.Next(), nullptr);
    EXPECT_EQ(tokenizer.Next(), nullptr);
}

TEST(Tokenizer, WritesATerminatorAndPutsTheSeparatorBackAtTheNextCall)
{
    char szText[] = "a,b";
    QMTokenizer tokenizer(szText, ',');
    EXPECT_STREQ(tokenizer.Next(), "a");
    EXPECT_EQ(szText[1], '\0');
    EXPECT_STREQ(tokenizer.Next(), "b");
    EXPECT_EQ(szText[1], ',');
}

TEST(Replace, ReplacesEveryOccurrence)
{
    EXPECT_EQ(Replaced("a<b<<c", '<', "&lt;"), "a&lt;b&lt;&lt;c");
    EXPECT_EQ(Replaced("[a]", '[', ""), "a]");
    EXPECT_EQ(Replaced("", 'x', "y"), "");
    EXPECT_EQ(Replaced("xx", 'x', ""), "");
    EXPECT_EQ(Replaced("abc", 'x', "y"), "abc");
}

TEST(Replace, StopsBehindTheFirstWhereTheReplacementHoldsWhatIsSought)
{
    EXPECT_EQ(Replaced("a&b&c", '&', "&amp;"), "a&amp;b&c");
    EXPECT_EQ(Replaced("xx", 'x', "x"), "xx");
}

TEST(Replace, StripsInPlace)
{
    EXPECT_EQ(Stripped("[a][b]", '['), "a]b]");
    EXPECT_EQ(Stripped("abc", '['), "abc");
    EXPECT_EQ(Stripped("[[", '['), "");
    EXPECT_EQ(Stripped("", '['), "");
}
