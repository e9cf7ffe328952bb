// QMCalculatorEngine: the calculator's arithmetic, apart from its window.
//
// Keys are the commands of the calculator's window (IDM_CALC_). An operator waits in
// m_nPendingOp until the next one or "=" applies it. The text on show is made of a number each
// time; nobody edits it.
#pragma once

#include <cstdint>

#include "base/vstring.h"

class QMCalculatorEngine
{
public:
    QMCalculatorEngine();

    // Carries out a key. False for a command that is none of the keys; nothing changes then.
    bool Press(int32_t nCommand);

    const VString& GetDisplay() const { return m_strDisplay; }
    // Whether the memory holds anything but 0.
    bool HasMemory() const { return m_dMemory != 0; }

    double GetAccumulator() const { return m_dAccumulator; }
    double GetEntry() const { return m_dEntry; }
    double GetMemory() const { return m_dMemory; }

private:
    void BeginEntry();
    void PressDigit(int32_t nDigit);
    void PressPoint();
    void PressOperator(int32_t nCommand);
    void ApplyPending();
    void PressBack();
    bool PressEditing(int32_t nCommand);
    bool PressMemory(int32_t nCommand);
    void ClearAll();
    void ShowEntry() { Show(m_dEntry); }
    void Show(double dNumber);

    double m_dAccumulator = 0; // left operand and result
    double m_dEntry = 0;       // the number being entered; the right operand
    double m_dMemory = 0;
    // 0 while whole digits are entered, 1 once the point was pressed, and one more for each digit
    // behind the point.
    uint32_t m_nDecimal = 0;
    // A command; one that is no operator makes the entry the result.
    int32_t m_nPendingOp;
    bool m_bNewEntry = false; // a result is on show: a digit or a point begins a new entry
    bool m_bEquals = false;   // the last operator key was "="
    VString m_strDisplay;
};
