#include "base/vtext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

namespace {

int Sign(int n)
{
    return (n > 0) - (n < 0);
}

constexpr int32_t lMost = std::numeric_limits<int32_t>::max();
constexpr int32_t lLeast = std::numeric_limits<int32_t>::min();
constexpr double dInfinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(VText, LowersAsciiLettersAlone)
{
    for (int n = -128; n < 128; ++n) {
        const char c = static_cast<char>(n);
        const bool bUpper = n >= 'A' && n <= 'Z';
        EXPECT_EQ(VToLower(c), bUpper ? static_cast<char>(n - 'A' + 'a') : c) << "character " << n;
    }
}

TEST(VText, KnowsSpacesAndDigits)
{
    for (int n = -128; n < 128; ++n) {
        const char c = static_cast<char>(n);
        EXPECT_EQ(VIsSpace(c), c != '\0' && strchr(" \t\n\v\f\r", c) != nullptr)
            << "character " << n;
        EXPECT_EQ(VIsDigit(c), c != '\0' && strchr("0123456789", c) != nullptr)
            << "character " << n;
    }
}

TEST(VText, ComparesByCharacterCode)
{
    struct
    {
        const char* szA;
        const char* szB;
        int nExact;
        int nNoCase;
    } const aCases[] = {
        {"", "", 0, 0},         {"", "a", -1, -1},        {"abc", "abc", 0, 0},
        {"abc", "abd", -1, -1}, {"ab", "abc", -1, -1},    {"ABC", "abc", -1, 0},
        {"abc", "ABC", 1, 0},   {"B", "a", -1, 1},        {"a", "B", 1, -1},
        {"z", "\xE9", -1, -1},  {"\xC9", "\xE9", -1, -1}, {"\xFF", "\x01", 1, 1},
        {"a b", "a-b", -1, -1},
    };
    for (const auto& test : aCases) {
        EXPECT_EQ(Sign(VCompare(test.szA, test.szB)), test.nExact) << test.szA << "|" << test.szB;
        EXPECT_EQ(Sign(VCompare(test.szB, test.szA)), -test.nExact);
        EXPECT_EQ(Sign(VCompareNoCase(test.szA, test.szB)), test.nNoCase)
            << test.szA << "|" << test.szB;
        EXPECT_EQ(Sign(VCompareNoCase(test.szB, test.szA)), -test.nNoCase);
    }
}

TEST(VText, BeginsWithIgnoresCase)
{
    EXPECT_TRUE(VBeginsWithNoCase("Checking", "cHECK"));
    EXPECT_TRUE(VBeginsWithNoCase("check", "Check"));
    EXPECT_TRUE(VBeginsWithNoCase("anything", ""));
    EXPECT_TRUE(VBeginsWithNoCase("", ""));
    EXPECT_FALSE(VBeginsWithNoCase("Chec", "Check"));
    EXPECT_FALSE(VBeginsWithNoCase("", "Check"));
    EXPECT_FALSE(VBeginsWithNoCase(" Check", "Check"));
}

TEST(VText, CopiesIntoAnArrayAndZeroesTheRest)
{
    char szInto[8];
    const auto Copy = [&](const char* szSource) {
        memset(szInto, 'x', sizeof szInto);
        VCopyText(szInto, szSource);
        return std::string(szInto, sizeof szInto);
    };
    const auto Padded = [](std::string s) {
        s.resize(8, '\0');
        return s;
    };
    EXPECT_EQ(Copy("abc"), Padded("abc"));
    EXPECT_EQ(Copy("1234567"), Padded("1234567"));
    EXPECT_EQ(Copy("12345678"), Padded("1234567"));
    EXPECT_EQ(Copy("a much longer text"), Padded("a much "));
    EXPECT_EQ(Copy(""), Padded(""));
    EXPECT_EQ(Copy(nullptr), Padded(""));
}

TEST(VText, CopiesNothingIntoAnArrayOfNoBytes)
{
    char c = 'x';
    VCopyText(&c, 0, "text");
    EXPECT_EQ(c, 'x');
    VCopyText(&c, 1, "text");
    EXPECT_EQ(c, '\0');
}

TEST(VText, CopiesWithinOneArray)
{
    char szInto[8] = "abcdefg";
    VCopyText(szInto, szInto + 2);
    EXPECT_STREQ(szInto, "cdefg");
}

TEST(VText, ParsesWholeNumbers)
{
    struct
    {
        const char* szText;
        int32_t lValue;
    } const aCases[] = {
        {"", 0},
        {"0", 0},
        {"7", 7},
        {"007", 7},
        {"1000", 1000},
        {"  42", 42},
        {"\t\r\n\v\f42", 42},
        {"42 ", 42},
        {"42abc", 42},
        {"4 2", 4},
        {"1,234", 1},
        {"1.9", 1},
        {"abc", 0},
        {"$5", 0},
        {"+5", 5},
        {"-5", -5},
        {"+-5", 0},
        {"--5", 0},
        {"- 5", 0},
        {"-", 0},
        {"0x10", 0},
        {"2147483646", lMost - 1},
        {"2147483647", lMost},
        {"2147483648", lMost},
        {"4294967295", lMost},
        {"99999999999999999999999999", lMost},
        {"-2147483647", lLeast + 1},
        {"-2147483648", lLeast},
        {"-2147483649", lLeast},
        {"-99999999999999999999999999", lLeast},
    };
    for (const auto& test : aCases) {
        EXPECT_EQ(VParseInteger(test.szText), test.lValue) << test.szText;
    }
}

TEST(VText, ParsesWholeNumbersUpToAnEnd)
{
    const char* szText = " -12345";
    EXPECT_EQ(VParseInteger(szText, szText), 0);
    EXPECT_EQ(VParseInteger(szText, szText + 1), 0);
    EXPECT_EQ(VParseInteger(szText, szText + 2), 0);
    EXPECT_EQ(VParseInteger(szText, szText + 3), -1);
    EXPECT_EQ(VParseInteger(szText, szText + 5), -123);
    EXPECT_EQ(VParseInteger(szText, szText + 7), -12345);
    EXPECT_EQ(VParseInteger(szText, nullptr), -12345);
}

TEST(VText, ParsesDecimalNumbers)
{
    struct
    {
        const char* szText;
        double dValue;
    } const aCases[] = {
        {"", 0},
        {"0", 0},
        {"12", 12},
        {"12.5", 12.5},
        {".5", 0.5},
        {"5.", 5},
        {".", 0},
        {"-.", 0},
        {"-12.5", -12.5},
        {"+12.5", 12.5},
        {" \t\n12.5", 12.5},
        {"12.5 x", 12.5},
        {"12.5.7", 12.5},
        {"1 234", 1},
        {"1,234.5", 1},
        {"1e2", 100},
        {"1E+2", 100},
        {"1e-2", 0.01},
        {"1e", 1},
        {"1e+", 1},
        {"1ex", 1},
        {"+-5", 0},
        {"-+5", 0},
        {"--5", 0},
        {"- 5", 0},
        {"$5", 0},
        {"abc", 0},
        {"e5", 0},
        {"0.1", 0.1},
        {"1e308", 1e308},
        {"123456789012345678901234567890", 123456789012345678901234567890.0},
    };
    for (const auto& test : aCases) {
        EXPECT_EQ(VParseDouble(test.szText), test.dValue) << test.szText;
    }
}

TEST(VText, WordsAndHexadecimalFormsAreNoNumbers)
{
    for (const char* szText : {"inf", "-inf", "+INF", "infinity", "nan", "NaN", "nan(1)", "-nan",
                               "0x10", "0X1p4", "-0x10", " inf"}) {
        EXPECT_EQ(VParseDouble(szText), 0) << szText;
    }
}

TEST(VText, NumbersBeyondADoubleGiveInfinityAndTooSmallOnesZero)
{
    EXPECT_EQ(VParseDouble("1e400"), dInfinity);
    EXPECT_EQ(VParseDouble("-1e400"), -dInfinity);
    EXPECT_EQ(VParseDouble((std::string(400, '9')).c_str()), dInfinity);
    EXPECT_EQ(VParseDouble("1e-400"), 0);
    EXPECT_EQ(VParseDouble("-1e-400"), 0);
    EXPECT_EQ(VParseDouble("1e400 and more"), dInfinity);
}

TEST(VText, NumbersKeepTheSignOfZero)
{
    EXPECT_FALSE(std::signbit(VParseDouble("0")));
    EXPECT_TRUE(std::signbit(VParseDouble("-0")));
}
