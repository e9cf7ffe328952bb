// The calculator compared with the second statement of its rules, key by key.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include "tests/support/calculatormodel.h"
#include "tools/qmcalculatorengine.h"

namespace {

constexpr unsigned long long uUsualKeys = 200'000;

// QUILLMARK_CALCULATOR_KEYS=NUMBER in the environment asks for a long run.
unsigned long long KeysToPress()
{
    const char* szKeys = getenv("QUILLMARK_CALCULATOR_KEYS");
    const unsigned long long uKeys = szKeys == nullptr ? 0 : strtoull(szKeys, nullptr, 10);
    return uKeys == 0 ? uUsualKeys : uKeys;
}

// The sign of a NaN depends on the order in which the compiler adds.
bool IsSame(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

bool IsSameText(const char* szA, const char* szB)
{
    const bool bNotANumber = strstr(szA, "nan") != nullptr && strstr(szB, "nan") != nullptr;
    return bNotANumber || strcmp(szA, szB) == 0;
}

bool Agree(const QMCalculatorEngine& engine, const CalculatorState& state)
{
    return IsSameText(engine.GetDisplay().GetText(), state.sText.c_str()) &&
           IsSame(engine.GetAccumulator(), state.dLeft) &&
           IsSame(engine.GetEntry(), state.dRight) && IsSame(engine.GetMemory(), state.dKept) &&
           engine.HasMemory() == (state.dKept != 0);
}

// Some sequences have mostly digits, others mostly operators.
char RandomKey(std::mt19937_64& random, unsigned uDigits)
{
    constexpr size_t uKeys = sizeof szCalculatorKeys - 1;
    const auto uKey =
        static_cast<size_t>(random() % 100 < uDigits ? random() % 10 : random() % uKeys);
    return szCalculatorKeys[uKey];
}

// The keys of a sequence up to the first one after which the two disagree; empty when they always
// agree.
std::string FirstDisagreement(std::mt19937_64& random, size_t uLength)
{
    QMCalculatorEngine engine;
    CalculatorState state;
    std::string sKeys;
    const auto uDigits = static_cast<unsigned>(random() % 100);
    for (size_t u = 0; u < uLength; ++u) {
        sKeys += RandomKey(random, uDigits);
        state = AfterKey(state, sKeys.back());
        if (!engine.Press(CommandOfKey(sKeys.back())) || !Agree(engine, state)) {
            return sKeys + "\" shows " + engine.GetDisplay().GetText() + ", not " + state.sText;
        }
    }
    return {};
}

} // namespace

TEST(QMCalculatorEngineRandom, AgreesWithASecondStatementOfItsRules)
{
    const unsigned long long uKeys = KeysToPress();
    std::mt19937_64 random(20040314);
    for (unsigned long long uPressed = 0; uPressed < uKeys;) {
        // Some are long enough to overflow.
        const auto uLength = static_cast<size_t>(1 + random() % (random() % 50 == 0 ? 1000 : 60));
        ASSERT_EQ(FirstDisagreement(random, uLength), "") << "after " << uPressed << " keys";
        uPressed += uLength;
    }
}

// Shows that the comparison can fail.
TEST(QMCalculatorEngineRandom, NoticesARuleThatIsNotKept)
{
    QMCalculatorEngine engine;
    CalculatorState state;
    for (const char cKey : {'5', 'n', '3'}) {
        engine.Press(CommandOfKey(cKey));
        state = AfterKey(state, cKey);
    }
    EXPECT_TRUE(Agree(engine, state));
    state.dRight = -53;
    EXPECT_FALSE(Agree(engine, state));
}
