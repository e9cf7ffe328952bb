#include "tests/support/calculatormodel.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>

namespace {

constexpr int nMostPlaces = 14;
constexpr double adTenth[] = {1 / 1e0,  1 / 1e1,  1 / 1e2,  1 / 1e3,  1 / 1e4,
                              1 / 1e5,  1 / 1e6,  1 / 1e7,  1 / 1e8,  1 / 1e9,
                              1 / 1e10, 1 / 1e11, 1 / 1e12, 1 / 1e13, 1 / 1e14};

std::string TextOf(double dNumber, int nPlaces)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    if (nPlaces >= 1) {
        text << std::fixed << std::setprecision(nPlaces) << dNumber;
        return text.str();
    }
    text << std::setprecision(6) << dNumber;
    const bool bInteger = std::isfinite(dNumber) && std::trunc(dNumber) == dNumber &&
                          dNumber >= std::numeric_limits<int32_t>::min() &&
                          dNumber <= std::numeric_limits<int32_t>::max();
    return bInteger ? text.str() + '.' : text.str();
}

void ShowRight(CalculatorState& state)
{
    state.sText = TextOf(state.dRight, state.nPlaces);
}

void StartNumber(CalculatorState& state)
{
    if (state.bFinished || state.bEqualsLast) {
        state.dRight = 0;
        state.nPlaces = -1;
    }
    if (state.bEqualsLast) {
        state.dLeft = 0;
    }
    state.bFinished = false;
    state.bEqualsLast = false;
}

void AddDigit(CalculatorState& state, int nDigit)
{
    StartNumber(state);
    if (state.nPlaces == nMostPlaces) {
        return;
    }
    if (state.nPlaces < 0) {
        state.dRight = 10 * state.dRight + nDigit;
    } else {
        ++state.nPlaces;
        state.dRight = nDigit == 0 ? state.dRight : state.dRight + adTenth[state.nPlaces] * nDigit;
    }
    ShowRight(state);
}

double Combined(const CalculatorState& state)
{
    switch (state.cWaiting) {
        case '+':
            return state.dLeft + state.dRight;
        case '-':
            return state.dLeft - state.dRight;
        case '*':
            return state.dLeft * state.dRight;
        case '/':
            return state.dRight == 0 ? state.dLeft : state.dLeft / state.dRight;
        default:
            return state.dRight;
    }
}

void Finish(CalculatorState& state)
{
    state.dLeft = Combined(state);
    state.nPlaces = -1;
    state.bFinished = true;
    state.sText = TextOf(state.dLeft, -1);
}

void Wait(CalculatorState& state, char cOperator)
{
    state.bEqualsLast = false;
    if (state.dLeft == 0) {
        state.dLeft = state.dRight;
        state.bFinished = true;
    } else if (!state.bFinished) {
        Finish(state);
    }
    state.cWaiting = cOperator;
}

void TakeBack(CalculatorState& state)
{
    if (state.bFinished || state.bEqualsLast || state.dRight == 0 || state.sText.empty()) {
        return;
    }
    const std::string sShorter = state.sText.substr(0, state.sText.size() - 1);
    char* pEnd = nullptr;
    const long double dRead = strtold(sShorter.c_str(), &pEnd);
    if (pEnd != sShorter.c_str()) {
        state.dRight = static_cast<double>(dRead);
    }
    ShowRight(state);
}

void Clear(CalculatorState& state)
{
    CalculatorState fresh;
    fresh.dKept = state.dKept;
    fresh.bEqualsLast = state.bEqualsLast;
    state = fresh;
}

void SetRight(CalculatorState& state, double dNumber)
{
    state.dRight = dNumber;
    ShowRight(state);
}

} // namespace

CalculatorState AfterKey(CalculatorState state, char cKey)
{
    switch (cKey) {
        case '+':
        case '-':
        case '*':
        case '/':
            Wait(state, cKey);
            break;
        case '=':
            Finish(state);
            state.bEqualsLast = true;
            break;
        case '.':
            StartNumber(state);
            state.nPlaces = state.nPlaces < 0 ? 0 : state.nPlaces;
            ShowRight(state);
            break;
        case 'p':
            state.dKept += state.dRight;
            break;
        case 's':
            state.dKept = state.dRight;
            break;
        case 'r':
            SetRight(state, state.dKept);
            break;
        case 'c':
            state.dKept = 0;
            break;
        case 'b':
            TakeBack(state);
            break;
        case 'e':
            SetRight(state, 0);
            break;
        case 'C':
            Clear(state);
            break;
        case 'n':
            SetRight(state, -state.dRight);
            break;
        case ' ':
            break;
        default:
            AddDigit(state, cKey - '0');
            break;
    }
    return state;
}

int32_t CommandOfKey(char cKey)
{
    constexpr int32_t nFirst = 11100;
    return nFirst + static_cast<int32_t>(strchr(szCalculatorKeys, cKey) - szCalculatorKeys);
}
