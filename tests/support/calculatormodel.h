// A second statement of the calculator's rules, for comparing: one function from a state and a key
// to the next state, and one from a state to the text on show.
#pragma once

#include <cstdint>
#include <string>

struct CalculatorState
{
    double dLeft = 0;
    double dRight = 0;
    double dKept = 0; // the memory
    // Digits after the point; -1 while there is no point.
    int nPlaces = -1;
    // '+', '-', '*' or '/'; '=' when none is pending.
    char cWaiting = '=';
    bool bFinished = false;   // the next digit starts another number
    bool bEqualsLast = false; // the next digit starts another calculation
    std::string sText = "0.";
};

// The keys: 0 to 9 + - * / = . and, as letters, p M+, s MS, r MR, c MC, b Back, e CE, C C, n +/-,
// and a blank for the key that does nothing.
inline constexpr char szCalculatorKeys[] = "0123456789+-*/=.psrcbeCn ";

CalculatorState AfterKey(CalculatorState state, char cKey);
// The command of a key.
int32_t CommandOfKey(char cKey);
