#include "account/qmscramble.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "account/qmdate.h"
#include "tests/support/account_support.h"

namespace {

std::string ByScramble(std::string sBytes)
{
    QMScramble(sBytes.data(), sBytes.size());
    return sBytes;
}

std::string ByUnscramble(std::string sBytes)
{
    QMUnscramble(sBytes.data(), sBytes.size());
    return sBytes;
}

template <class T>
T ThereAndBack(T value)
{
    QMScramble(&value, sizeof value);
    QMUnscramble(&value, sizeof value);
    return value;
}

// A text of uCount letters, with the byte uByte at the place uPlace.
std::string Around(unsigned uByte, size_t uPlace, size_t uCount)
{
    std::string sBytes = std::string("ABCDEFGH").substr(0, uCount);
    sBytes[uPlace] = static_cast<char>(uByte);
    return sBytes;
}

} // namespace

TEST(Scramble, FiveLettersAreComplementedAndTheFirstFourReversed)
{
    EXPECT_EQ(ByScramble("House"), "\x8C\x8A\x90\xB7\x9A");
    EXPECT_EQ(ByUnscramble("\x8C\x8A\x90\xB7\x9A"), "House");
}

TEST(Scramble, RestOfOneToThreeBytesStaysWhereItIs)
{
    EXPECT_EQ(ByScramble("a"), "\x9E");
    EXPECT_EQ(ByScramble("ab"), "\x9E\x9D");
    EXPECT_EQ(ByScramble("abc"), "\x9E\x9D\x9C");
    EXPECT_EQ(ByScramble("abcd"), "\x9B\x9C\x9D\x9E");
    EXPECT_EQ(ByScramble("abcdabc"), "\x9B\x9C\x9D\x9E\x9E\x9D\x9C");
}

TEST(Scramble, BlankStaysABlankAtTheSwappedPlace)
{
    EXPECT_EQ(ByScramble(" abc"), "\x9C\x9D\x9E ");
    EXPECT_EQ(ByScramble("ab c"), "\x9C \x9D\x9E");
    EXPECT_EQ(ByScramble("    "), "    ");
    EXPECT_EQ(ByScramble("abcd ef"), "\x9B\x9C\x9D\x9E \x9A\x99");
}

TEST(Scramble, ZeroIsFilledWithOnes)
{
    EXPECT_EQ(ByScramble(std::string(6, '\0')), std::string(6, '\xFF'));
    EXPECT_EQ(ByUnscramble(std::string(6, '\xFF')), std::string(6, '\0'));
}

TEST(Scramble, NoRegionAndNoBytesDoNothing)
{
    QMScramble(nullptr, 8);
    QMUnscramble(nullptr, 8);
    std::string sBytes = "abcdefgh";
    QMScramble(sBytes.data(), 0);
    QMUnscramble(sBytes.data(), 0);
    EXPECT_EQ(sBytes, "abcdefgh");
}

// 0xDF becomes a blank on the way out, and a blank is left alone on the way back. Files are written
// and read that way everywhere, so the two directions must not be made an exact pair.
TEST(Scramble, EveryByteButDfComesBack)
{
    for (const size_t uCount : {1U, 3U, 4U, 8U}) {
        for (size_t uPlace = 0; uPlace < uCount; ++uPlace) {
            for (unsigned uByte = 0; uByte < 256; ++uByte) {
                const unsigned uExpected = uByte == 0xDF ? 0x20 : uByte;
                EXPECT_EQ(ThereAndBack(Around(uByte, uPlace, uCount)[uPlace]),
                          static_cast<char>(uExpected));
                EXPECT_EQ(ByUnscramble(ByScramble(Around(uByte, uPlace, uCount))),
                          Around(uExpected, uPlace, uCount))
                    << "byte " << uByte << " at " << uPlace << " of " << uCount;
            }
        }
    }
}

TEST(Scramble, UnscramblingNeverYieldsDf)
{
    for (unsigned uByte = 0; uByte < 256; ++uByte) {
        EXPECT_EQ(ByUnscramble(Around(uByte, 2, 8)).find('\xDF'), std::string::npos)
            << "byte " << uByte;
    }
}

TEST(Scramble, NumbersThatHoldDfComeBackChanged)
{
    EXPECT_EQ(ThereAndBack(QMMakeDate(2015, 6, 1)).wYear, 1824);
    EXPECT_EQ(ThereAndBack(QMMakeDate(2014, 6, 1)).wYear, 2014);
    EXPECT_EQ(ThereAndBack(int32_t{223}), 32);
    EXPECT_EQ(ThereAndBack(int32_t{222}), 222);
    EXPECT_EQ(ThereAndBack(int32_t{0xDFDF}), 0x2020);
}

TEST(Scramble, AgreesWithTheRuleByteForByteAtEveryLengthAndPlace)
{
    std::mt19937 random(20040314);
    std::uniform_int_distribution<int> bytes(0, 255);
    for (size_t uSize = 0; uSize <= 70; ++uSize) {
        for (size_t uPlace = 0; uPlace < 8; ++uPlace) {
            std::string sAll(uPlace + uSize + 8, '\0');
            for (char& c : sAll) {
                // Many blanks and complements of blanks, the two bytes that the rule treats in a
                // special way.
                const int nByte = bytes(random);
                c = static_cast<char>(nByte % 5 == 0 ? 0x20 : nByte % 5 == 1 ? 0xDF : nByte);
            }
            const std::string sRegion = sAll.substr(uPlace, uSize);
            std::string sOut = sAll;
            QMScramble(sOut.data() + uPlace, uSize);
            EXPECT_EQ(sOut, std::string(sAll).replace(uPlace, uSize, Scrambled(sRegion)));
            std::string sBack = sAll;
            QMUnscramble(sBack.data() + uPlace, uSize);
            EXPECT_EQ(sBack, std::string(sAll).replace(uPlace, uSize, Unscrambled(sRegion)));
        }
    }
}
