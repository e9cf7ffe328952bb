// QMCalculatorEngine: the arithmetic of the calculator, without its window.
//
// Keys are the commands of the calculator's window (IDM_CALC_). An operator waits in m_nPendingOp
// until the next operator or "=" applies it. The text on show is made from a number each time.
#pragma once

#include <cstdint>

#include "base/vstring.h"

class QMCalculatorEngine
{
public:
    QMCalculatorEngine();

    // Carries out a key. Returns false, and changes nothing, when the command is not that of a key.
    bool Press(int32_t nCommand);

    const VString& GetDisplay() const { return m_strDisplay; }
    // Whether the memory holds a number other than 0.
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

    double m_dAccumulator = 0; // the left operand, and the result
    double m_dEntry = 0;       // the number that is being entered; the right operand
    double m_dMemory = 0;
    // 0 before the point was pressed, 1 after it, and one more for each digit after the point.
    uint32_t m_nDecimal = 0;
    // The command of the pending operator. One that is no operator makes the entry the result.
    int32_t m_nPendingOp;
    bool m_bNewEntry = false; // a result is on show, and the next digit or point begins a new entry
    bool m_bEquals = false;   // the last operator key was "="
    VString m_strDisplay;
};
