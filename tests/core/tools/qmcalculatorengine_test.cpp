#include "tools/qmcalculatorengine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/support/calculatormodel.h"

namespace {

// Presses the keys of these letters (see szCalculatorKeys) and returns the text on the display.
class Calculator
{
public:
    std::string Press(const std::string& sKeys)
    {
        for (const char cKey : sKeys) {
            EXPECT_TRUE(m_engine.Press(CommandOfKey(cKey))) << cKey;
        }
        return m_engine.GetDisplay().GetText();
    }
    const QMCalculatorEngine& Get() const { return m_engine; }

private:
    QMCalculatorEngine m_engine;
};

std::string Shown(const std::string& sKeys)
{
    return Calculator().Press(sKeys);
}

} // namespace

TEST(QMCalculatorEngine, BeginsWithNothing)
{
    Calculator calculator;
    EXPECT_EQ(calculator.Press(""), "0.");
    EXPECT_EQ(calculator.Get().GetAccumulator(), 0);
    EXPECT_EQ(calculator.Get().GetEntry(), 0);
    EXPECT_FALSE(calculator.Get().HasMemory());
    EXPECT_EQ(Shown("="), "0.");
}

TEST(QMCalculatorEngine, KnowsItsOwnCommandsOnly)
{
    QMCalculatorEngine engine;
    for (const int32_t nCommand : {0, 300, 11099, 11125, -1, 10101}) {
        EXPECT_FALSE(engine.Press(nCommand)) << "command " << nCommand;
    }
    for (int32_t nCommand = 11100; nCommand <= 11124; ++nCommand) {
        EXPECT_TRUE(engine.Press(nCommand)) << "command " << nCommand;
    }
}

// ---- The display.

TEST(QMCalculatorEngine, ShowsAPointBehindAWholeNumber)
{
    EXPECT_EQ(Shown("5"), "5.");
    EXPECT_EQ(Shown("123456"), "123456.");
    EXPECT_EQ(Shown("5/2="), "2.5");
    EXPECT_EQ(Shown("2*3="), "6.");
}

TEST(QMCalculatorEngine, ShowsSixSignificantDigits)
{
    EXPECT_EQ(Shown("1234567"), "1.23457e+06.");
    Calculator calculator;
    EXPECT_EQ(calculator.Press("1234567-1234566="), "1.")
        << "the value must keep the digits that the display does not show";
    EXPECT_EQ(Shown("2/3="), "0.666667");
}

TEST(QMCalculatorEngine, ShowsNoPointBeyondThirtyTwoBits)
{
    EXPECT_EQ(Shown("2147483647"), "2.14748e+09.");
    EXPECT_EQ(Shown("2147483648"), "2.14748e+09");
    EXPECT_EQ(Shown("2147483648n"), "-2.14748e+09.")
        << "this is the least number of 32 bits, so it has a point";
    EXPECT_EQ(Shown("2147483649n"), "-2.14748e+09");
}

TEST(QMCalculatorEngine, ShowsAllPlacesOfAnEntry)
{
    EXPECT_EQ(Shown("1."), "1.");
    EXPECT_EQ(Shown("1.5"), "1.5");
    EXPECT_EQ(Shown("1.500"), "1.500");
    EXPECT_EQ(Shown(".12345678901234"), "0.12345678901234");
    EXPECT_EQ(Shown("1.0"), "1.0");
}

TEST(QMCalculatorEngine, SurvivesNumbersWithoutEnd)
{
    EXPECT_EQ(Shown(std::string(309, '9')), "inf");
    EXPECT_EQ(Shown(std::string(309, '9') + "b").substr(0, 3), "inf")
        << "Back leaves \"in\", which is no number, so the entry must stay";
    // The longest text that the display can have.
    const std::string sLong = Shown(std::string(308, '9') + ".12345678901234");
    EXPECT_EQ(sLong.size(), 308U + 1 + 14);
    EXPECT_EQ(Shown(std::string(309, '9') + "*0=").find("nan") != std::string::npos, true);
}

// ---- Digits and the point.

TEST(QMCalculatorEngine, TakesAnyNumberOfWholeDigits)
{
    Calculator calculator;
    calculator.Press(std::string(40, '1'));
    EXPECT_NEAR(calculator.Get().GetEntry() / 1e39, 1.1111111111, 1e-9);
}

TEST(QMCalculatorEngine, IgnoresTheFifteenthDigitBehindThePoint)
{
    EXPECT_EQ(Shown("0.123456789012345"), "0.12345678901234");
    EXPECT_EQ(Shown("0.12345678901234567"), "0.12345678901234");
    Calculator calculator;
    calculator.Press("0.12345678901234");
    const double dBefore = calculator.Get().GetEntry();
    calculator.Press("9");
    EXPECT_EQ(calculator.Get().GetEntry(), dBefore);
}

TEST(QMCalculatorEngine, MovesThePlaceByAZero)
{
    EXPECT_EQ(Shown("1.05"), "1.05");
    EXPECT_EQ(Shown("n.0"), "-0.0") << "a zero after the point must not change the sign";
}

TEST(QMCalculatorEngine, TakesASecondPointForNothing)
{
    EXPECT_EQ(Shown("1.."), "1.");
    EXPECT_EQ(Shown("1.5.5"), "1.55");
}

// Kept: the digit is added whatever the sign.
TEST(QMCalculatorEngine, AddsDigitsToANegativeEntry)
{
    EXPECT_EQ(Shown("5n3"), "-47.");
    EXPECT_EQ(Shown("5n.3"), "-4.7");
}

// ---- Operators.

TEST(QMCalculatorEngine, Calculates)
{
    EXPECT_EQ(Shown("2+3="), "5.");
    EXPECT_EQ(Shown("2-3="), "-1.");
    EXPECT_EQ(Shown("2*3="), "6.");
    EXPECT_EQ(Shown("3/2="), "1.5");
    EXPECT_EQ(Shown("1.25+1.25="), "2.5");
}

TEST(QMCalculatorEngine, GoesFromLeftToRight)
{
    EXPECT_EQ(Shown("2+3*"), "5.");
    EXPECT_EQ(Shown("2+3*4="), "20.");
}

TEST(QMCalculatorEngine, ReplacesAnOperatorByTheNext)
{
    EXPECT_EQ(Shown("2+-3="), "-1.");
    EXPECT_EQ(Shown("2+*-/4="), "0.5");
}

TEST(QMCalculatorEngine, ShowsNothingAnewAtTheFirstOperator)
{
    EXPECT_EQ(Shown("2.50+"), "2.50");
    EXPECT_EQ(Shown("5/2=+"), "2.5");
}

// Kept: an accumulator that came to 0 counts as empty.
TEST(QMCalculatorEngine, TakesAZeroResultForAnEmptyOne)
{
    EXPECT_EQ(Shown("3-3-"), "0.");
    EXPECT_EQ(Shown("3-3-2+1="), "3.");
}

TEST(QMCalculatorEngine, RepeatsTheLastOperationAtEveryEquals)
{
    EXPECT_EQ(Shown("2+3="), "5.");
    EXPECT_EQ(Shown("2+3=="), "8.");
    EXPECT_EQ(Shown("2+3==="), "11.");
}

TEST(QMCalculatorEngine, PassesOverADivisionByZero)
{
    EXPECT_EQ(Shown("5/0="), "5.");
    EXPECT_EQ(Shown("5/0=="), "5.");
    EXPECT_EQ(Shown("5/0+2="), "7.");
    EXPECT_EQ(Shown("5/0n="), "5.");
}

TEST(QMCalculatorEngine, GoesOnWithAResult)
{
    EXPECT_EQ(Shown("2+3=+"), "5.");
    EXPECT_EQ(Shown("2+3=*4="), "20.");
}

// Kept: the operator of the calculation before stays.
TEST(QMCalculatorEngine, StartsAnewAfterEqualsButForTheOperator)
{
    Calculator calculator;
    EXPECT_EQ(calculator.Press("2+3=7"), "7.");
    EXPECT_EQ(calculator.Get().GetAccumulator(), 0);
    EXPECT_EQ(calculator.Get().GetEntry(), 7);
    EXPECT_EQ(calculator.Press("="), "7.") << "the next = must add 7 to 0";
    EXPECT_EQ(Shown("2*3=7="), "0.") << "the next = must multiply 0 by 7";
    EXPECT_EQ(Shown("2+3=.5"), "0.5");
}

// ---- Editing.

TEST(QMCalculatorEngine, TakesBackADigitBehindThePointOnce)
{
    EXPECT_EQ(Shown("1.25b"), "1.20");
    EXPECT_EQ(Shown("1.25bb"), "1.20");
    EXPECT_EQ(Shown("1.25b3"), "1.203");
}

// Kept: the first Back on a whole number removes only the point, and the point comes back.
TEST(QMCalculatorEngine, TakesNothingBackFromAWholeNumber)
{
    EXPECT_EQ(Shown("12b"), "12.");
    EXPECT_EQ(Shown("12bbb"), "12.");
    EXPECT_EQ(Shown("12n"
                    "b"),
              "-12.");
}

// Kept: Back reads the number that is on the display, which shows six digits.
TEST(QMCalculatorEngine, LosesDigitsOfALongNumberByBack)
{
    Calculator calculator;
    calculator.Press("1234567b");
    EXPECT_EQ(calculator.Get().GetEntry(), 1234570);
}

TEST(QMCalculatorEngine, TakesBackNothingOfAResultOrOfZero)
{
    EXPECT_EQ(Shown("2.5+b"), "2.5");
    EXPECT_EQ(Shown("1.2*2=b"), "2.4");
    EXPECT_EQ(Shown("0.00b"), "0.00");
}

TEST(QMCalculatorEngine, ClearsAnEntryAndKeepsItsPlaces)
{
    EXPECT_EQ(Shown("1.25e"), "0.00");
    EXPECT_EQ(Shown("1.25e7"), "0.007");
    EXPECT_EQ(Shown("2+3e4="), "6.");
    EXPECT_EQ(Shown("2+3=e="), "5.") << "after CE there is no operand to add";
}

TEST(QMCalculatorEngine, ClearsAllButTheMemory)
{
    Calculator calculator;
    EXPECT_EQ(calculator.Press("5s3+4C"), "0.");
    EXPECT_EQ(calculator.Get().GetAccumulator(), 0);
    EXPECT_EQ(calculator.Get().GetMemory(), 5);
    EXPECT_EQ(calculator.Press("9="), "9.") << "C must remove the pending operator";
}

// Kept: the sign of the finished calculation outlives C, so Back does nothing.
TEST(QMCalculatorEngine, KeepsTheSignOfEqualsThroughClear)
{
    EXPECT_EQ(Shown("2+3=C5"), "5.");
    EXPECT_EQ(Shown("1s2+3=Cr5"), "5.") << "a digit must replace the recalled entry";
    EXPECT_EQ(Shown("1.25sC"
                    "rb"),
              "1.2")
        << "without a finished calculation Back must work";
    EXPECT_EQ(Shown("1.25s2+3=Crb"), "1.25");
}

// Kept: after a result the sign changes on the right operand.
TEST(QMCalculatorEngine, ChangesTheSignOfTheEntry)
{
    EXPECT_EQ(Shown("5n"), "-5.");
    EXPECT_EQ(Shown("5nn"), "5.");
    EXPECT_EQ(Shown("n"), "-0.");
    EXPECT_EQ(Shown("2+3=n"), "-3.");
    EXPECT_EQ(Shown("2+3=n="), "2.");
}

// ---- Memory.

TEST(QMCalculatorEngine, KeepsTheEntryInMemory)
{
    Calculator calculator;
    calculator.Press("2+3=p");
    EXPECT_EQ(calculator.Get().GetMemory(), 3)
        << "M+ must take the entry, not the result on the display";
    EXPECT_TRUE(calculator.Get().HasMemory());
    calculator.Press("p");
    EXPECT_EQ(calculator.Get().GetMemory(), 6);
    calculator.Press(
        "n"
        "ss");
    EXPECT_EQ(calculator.Get().GetMemory(), -3);
    calculator.Press("c");
    EXPECT_FALSE(calculator.Get().HasMemory());
}

TEST(QMCalculatorEngine, TellsAnEmptyMemory)
{
    Calculator calculator;
    calculator.Press(
        "5p"
        "np");
    EXPECT_EQ(calculator.Get().GetMemory(), 0);
    EXPECT_FALSE(calculator.Get().HasMemory());
    calculator.Press("5s0s");
    EXPECT_TRUE(calculator.Get().HasMemory()) << "5s0s puts 50 into the memory";
    calculator.Press("es");
    EXPECT_FALSE(calculator.Get().HasMemory());
}

TEST(QMCalculatorEngine, RecallsTheMemoryIntoTheEntry)
{
    EXPECT_EQ(Shown("5sC7+r="), "12.");
    EXPECT_EQ(Shown("5sC7+r+2="), "9.")
        << "MR begins no entry, so the next operator must replace the pending one";
    EXPECT_EQ(Shown("5sC7+0r+2="), "14.");
    EXPECT_EQ(Shown("5sCr"), "5.");
    EXPECT_EQ(Shown("5sCr1"), "51.") << "a digit must be appended to the recalled number";
    EXPECT_EQ(Shown("2.5sC1.00r"), "2.50")
        << "the number must be shown with the decimals of the entry";
}
