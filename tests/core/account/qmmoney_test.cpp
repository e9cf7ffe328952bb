#include "account/qmmoney.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr size_t uRoom = 512; // for the largest double

std::string Printed(double dValue, int nWidth)
{
    char szText[uRoom];
    snprintf(szText, sizeof szText, "%*.2f", nWidth, dValue);
    return szText;
}

std::string Formatted(double dValue, int nWidth)
{
    char szText[uRoom];
    const size_t uLength = QMFormatMoney(dValue, nWidth, szText, sizeof szText);
    return {szText, uLength};
}

void ExpectLikePrinting(double dValue)
{
    for (const int nWidth : {0, 1, 4, 10, 31, 32, 40}) {
        ASSERT_EQ(Formatted(dValue, nWidth), Printed(dValue, nWidth)) << "width " << nWidth;
    }
}

// All digits of a double, and the sign of zero.
bool IsSameNumber(double a, double b)
{
    return std::bit_cast<uint64_t>(a) == std::bit_cast<uint64_t>(b);
}

// Whether rounding and formatting the float give the same as printing and parsing back.
::testing::AssertionResult IsLikePrinting(float fAmount)
{
    char szExpected[64];
    char szText[64];
    const auto dAmount = static_cast<double>(fAmount);
    const int nLength = snprintf(szExpected, sizeof szExpected, "%10.2f", dAmount);
    const size_t uLength = QMFormatMoney(dAmount, 10, szText, sizeof szText);
    const double dExpected = strtod(szExpected, nullptr);
    const double dRounded = QMRoundToCents(fAmount);
    if (!IsSameNumber(dRounded, dExpected)) {
        return ::testing::AssertionFailure() << szExpected << " rounds to " << dRounded;
    }
    if (static_cast<int>(uLength) != nLength || std::string(szText) != szExpected) {
        return ::testing::AssertionFailure() << szExpected << " is formatted as " << szText;
    }
    return ::testing::AssertionSuccess();
}

std::vector<float> PeculiarFloats()
{
    std::vector<float> values = {0.0F,   0.004F,  0.005F,  0.01F,       0.015F,
                                 0.125F, 0.375F,  0.625F,  0.995F,      1.005F,
                                 2.675F, 0.001F,  99.995F, 999999.99F,  8388607.5F,
                                 1e7F,   1.6e7F,  1e10F,   4.5e13F,     4503599627370496.0F,
                                 1e20F,  FLT_MIN, FLT_MAX, FLT_TRUE_MIN};
    for (size_t u = values.size(); u-- > 0;) {
        values.push_back(std::nextafterf(values[u], 0));
        values.push_back(std::nextafterf(values[u], INFINITY));
    }
    return values;
}

} // namespace

TEST(QMRoundToCents, RoundsToTheNearerCent)
{
    struct
    {
        float fAmount;
        double dRounded;
    } const aCases[] = {
        {0, 0},           {1, 1},          {0.004F, 0},   {0.006F, 0.01}, {12.344F, 12.34},
        {12.346F, 12.35}, {19.99F, 19.99}, {1e10F, 1e10}, {0.1F, 0.1},    {-12.346F, -12.35},
    };
    for (const auto& test : aCases) {
        EXPECT_EQ(QMRoundToCents(test.fAmount), test.dRounded) << "amount " << test.fAmount;
    }
}

TEST(QMRoundToCents, RoundsAnExactHalfToTheEvenCent)
{
    EXPECT_EQ(QMRoundToCents(0.125F), 0.12);
    EXPECT_EQ(QMRoundToCents(0.375F), 0.38);
    EXPECT_EQ(QMRoundToCents(0.625F), 0.62);
    EXPECT_EQ(QMRoundToCents(0.875F), 0.88);
}

TEST(QMRoundToCents, TakesHalfACentByItsBinaryValue)
{
    // A double cannot hold these exactly: some are a little below the half, some above.
    for (const float fAmount : {0.005F, 0.015F, 0.025F, 0.035F, 1.005F, 1.015F}) {
        const std::string sText = Printed(static_cast<double>(fAmount), 0);
        EXPECT_EQ(QMRoundToCents(fAmount), strtod(sText.c_str(), nullptr)) << "amount " << fAmount;
    }
}

TEST(QMRoundToCents, KeepsTheSignOfANegativeZero)
{
    EXPECT_TRUE(IsSameNumber(QMRoundToCents(-0.001F), -0.0));
    EXPECT_TRUE(IsSameNumber(QMRoundToCents(-0.0F), -0.0));
    EXPECT_TRUE(IsSameNumber(QMRoundToCents(0.001F), 0.0));
}

TEST(QMRoundToCents, KeepsWhatIsNoFiniteNumber)
{
    EXPECT_EQ(QMRoundToCents(INFINITY), std::numeric_limits<double>::infinity());
    EXPECT_EQ(QMRoundToCents(-INFINITY), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(QMRoundToCents(NAN)));
}

TEST(QMMoney, PeculiarFloatsAreLikePrinting)
{
    for (const float fAmount : PeculiarFloats()) {
        EXPECT_TRUE(IsLikePrinting(fAmount));
        EXPECT_TRUE(IsLikePrinting(-fAmount));
    }
}

TEST(QMMoney, PlainAmountsOfDollarsAndCentsAreLikePrinting)
{
    for (int n = 0; n < 10'000'000; n += 37) {
        ASSERT_TRUE(IsLikePrinting(static_cast<float>(n) / 100));
    }
}

TEST(QMMoney, AmountsWithThirdDecimalsAreLikePrinting)
{
    std::mt19937 random(4);
    for (int n = 0; n < 300'000; ++n) {
        ASSERT_TRUE(IsLikePrinting(static_cast<float>(random() % 20'000'000) / 1000));
    }
}

TEST(QMMoney, EighthsOfADollarAreLikePrinting)
{
    // Only odd eighths of a dollar are half cents that a double holds exactly.
    for (int n = 0; n < 200'000; ++n) {
        ASSERT_TRUE(IsLikePrinting(static_cast<float>(n) / 8));
    }
}

TEST(QMMoney, RandomFloatsOfEverySizeAreLikePrinting)
{
    std::mt19937 random(20040314);
    for (int n = 0; n < 3'000'000; ++n) {
        const float fAmount = std::bit_cast<float>(static_cast<uint32_t>(random()));
        if (std::isfinite(fAmount)) {
            ASSERT_TRUE(IsLikePrinting(fAmount));
        }
    }
}

TEST(QMFormatMoney, PrintsDollarsAndCents)
{
    EXPECT_EQ(Formatted(0, 0), "0.00");
    EXPECT_EQ(Formatted(0.05, 0), "0.05");
    EXPECT_EQ(Formatted(12.5, 0), "12.50");
    EXPECT_EQ(Formatted(-1234.56, 0), "-1234.56");
    EXPECT_EQ(Formatted(-0.001, 0), "-0.00");
    EXPECT_EQ(Formatted(12.5, 10), "     12.50");
    EXPECT_EQ(Formatted(-12.5, 10), "    -12.50");
    EXPECT_EQ(Formatted(12345678.9, 10), "12345678.90");
}

TEST(QMFormatMoney, IsLikePrintingForPeculiarDoubles)
{
    for (const double dValue : {0.0,
                                0.005,
                                0.015,
                                0.125,
                                1.005,
                                9.995,
                                1e9,
                                9999999999.994,
                                9999999999.995,
                                1e10,
                                12345678901.125,
                                1e14,
                                4503599627370496.0,
                                4503599627370495.5,
                                1e16,
                                1e22,
                                1e300,
                                DBL_MAX,
                                DBL_MIN,
                                static_cast<double>(FLT_MAX)}) {
        ExpectLikePrinting(dValue);
        ExpectLikePrinting(-dValue);
        ExpectLikePrinting(std::nextafter(dValue, 0));
        ExpectLikePrinting(std::nextafter(dValue, INFINITY));
    }
    ExpectLikePrinting(std::numeric_limits<double>::infinity());
    ExpectLikePrinting(-std::numeric_limits<double>::infinity());
    ExpectLikePrinting(std::numeric_limits<double>::quiet_NaN());
}

TEST(QMFormatMoney, IsLikePrintingNearHalfCents)
{
    std::mt19937_64 random(1);
    for (int n = 0; n < 100'000; ++n) {
        const auto nCents = static_cast<double>(random() >> (11 + random() % 50));
        double dValue = (nCents + 0.5) / 100;
        for (auto nSteps = static_cast<int>(random() % 5); nSteps > 0; --nSteps) {
            dValue = std::nextafter(dValue, random() % 2 == 0 ? 0 : INFINITY);
        }
        ASSERT_EQ(Formatted(dValue, 0), Printed(dValue, 0));
        ASSERT_EQ(Formatted(-dValue, 10), Printed(-dValue, 10));
    }
}

TEST(QMFormatMoney, IsLikePrintingForRunningSums)
{
    std::mt19937 random(2);
    for (int nRun = 0; nRun < 20; ++nRun) {
        double dSum = 0;
        for (int n = 0; n < 10'000; ++n) {
            const auto fAmount = static_cast<float>(random() % 100'000'000) / 100;
            dSum += random() % 2 == 0 ? QMRoundToCents(fAmount) : -QMRoundToCents(fAmount);
            ASSERT_EQ(Formatted(dSum, 0), Printed(dSum, 0));
        }
    }
}

TEST(QMFormatMoney, IsLikePrintingForRandomDoubles)
{
    std::mt19937_64 random(3);
    for (int n = 0; n < 100'000; ++n) {
        const auto dValue = std::bit_cast<double>(uint64_t{random()});
        if (std::isfinite(dValue)) {
            ASSERT_EQ(Formatted(dValue, 10), Printed(dValue, 10));
        }
    }
}

TEST(QMFormatMoney, CutsWhatDoesNotFitAndAnswersTheLengthThatStayed)
{
    for (const double dValue : {1234.5, -1234.5, 1e300}) {
        for (const int nWidth : {0, 10, 40}) {
            const std::string sWhole = Printed(dValue, nWidth);
            for (size_t uSize = 1; uSize <= 48; ++uSize) {
                std::string sInto(64, 'x');
                const size_t uLength = QMFormatMoney(dValue, nWidth, sInto.data(), uSize);
                const std::string sExpected = sWhole.substr(0, uSize - 1);
                ASSERT_EQ(uLength, sExpected.size());
                ASSERT_STREQ(sInto.c_str(), sExpected.c_str());
                ASSERT_EQ(sInto[uSize], 'x');
            }
        }
    }
}
