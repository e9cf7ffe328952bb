#include "tools/qmcalculatorengine.h"

#include <algorithm>
#include <cstdio>

#include "resources/resource.h"

namespace {

// The value of m_nDecimal when no more digits fit after the point.
constexpr uint32_t uAllDecimals = 15;

double PowerOfTen(uint32_t uExponent)
{
    double dResult = 1;
    for (double dSquare = 10; uExponent != 0; uExponent >>= 1) {
        dResult *= (uExponent & 1) != 0 ? dSquare : 1;
        dSquare *= dSquare;
    }
    return dResult;
}

// Whether a number has no fraction and fits into a 32-bit integer. It is false for what is not a
// number.
bool IsWhole(double dNumber)
{
    return dNumber > -2147483649.0 && dNumber < 2147483648.0 &&
           static_cast<double>(static_cast<int32_t>(dNumber)) == dNumber;
}

} // namespace

QMCalculatorEngine::QMCalculatorEngine() : m_nPendingOp(IDM_CALC_EQUALS)
{
    ShowEntry();
}

bool QMCalculatorEngine::Press(int32_t nCommand)
{
    if (nCommand >= IDM_CALC_0 && nCommand <= IDM_CALC_9) {
        PressDigit(nCommand - IDM_CALC_0);
        return true;
    }
    switch (nCommand) {
        case IDM_CALC_ADD:
        case IDM_CALC_SUBTRACT:
        case IDM_CALC_MULTIPLY:
        case IDM_CALC_DIVIDE:
            PressOperator(nCommand);
            return true;
        case IDM_CALC_EQUALS:
            m_bEquals = true;
            ApplyPending();
            return true;
        case IDM_CALC_POINT:
            PressPoint();
            return true;
        case IDM_CALC_NOTHING:
            return true;
        default:
            return PressEditing(nCommand) || PressMemory(nCommand);
    }
}

// ---- Entering a number.

// Begins a new entry where a digit or the point does so.
void QMCalculatorEngine::BeginEntry()
{
    if (m_bNewEntry) {
        m_dEntry = 0;
        m_nDecimal = 0;
        m_bNewEntry = false;
    }
    if (m_bEquals) {
        // Kept: the pending operator stays, so that the next "=" applies that of the calculation
        // before.
        m_dAccumulator = 0;
        m_dEntry = 0;
        m_nDecimal = 0;
        m_bEquals = false;
    }
}

void QMCalculatorEngine::PressDigit(int32_t nDigit)
{
    BeginEntry();
    if (m_nDecimal == uAllDecimals) {
        return;
    }
    // Kept: a digit is added whatever the entry's sign, so that -5 followed by 3 gives -47.
    if (m_nDecimal == 0) {
        m_dEntry = m_dEntry * 10 + nDigit;
    } else {
        if (nDigit != 0) {
            m_dEntry += nDigit * (1 / PowerOfTen(m_nDecimal));
        }
        ++m_nDecimal;
    }
    ShowEntry();
}

void QMCalculatorEngine::PressPoint()
{
    BeginEntry();
    m_nDecimal = std::max(m_nDecimal, 1U);
    ShowEntry();
}

// ---- Operators.

void QMCalculatorEngine::PressOperator(int32_t nCommand)
{
    m_bEquals = false;
    if (m_dAccumulator == 0) {
        // Kept: an accumulator that came to 0 counts as empty, so 3 - 3 - 2 + 1 ends in 3.
        m_dAccumulator = m_dEntry;
        m_bNewEntry = true;
    } else if (!m_bNewEntry) {
        ApplyPending();
    }
    m_nPendingOp = nCommand;
}

void QMCalculatorEngine::ApplyPending()
{
    switch (m_nPendingOp) {
        case IDM_CALC_ADD:
            m_dAccumulator += m_dEntry;
            break;
        case IDM_CALC_SUBTRACT:
            m_dAccumulator -= m_dEntry;
            break;
        case IDM_CALC_MULTIPLY:
            m_dAccumulator *= m_dEntry;
            break;
        case IDM_CALC_DIVIDE:
            // A division by 0 divides by 1 instead and says nothing.
            m_dAccumulator /= m_dEntry == 0 ? 1 : m_dEntry;
            break;
        default:
            m_dAccumulator = m_dEntry;
            break;
    }
    m_nDecimal = 0;
    m_bNewEntry = true;
    Show(m_dAccumulator);
}

// ---- Changing the entry.

bool QMCalculatorEngine::PressEditing(int32_t nCommand)
{
    switch (nCommand) {
        case IDM_CALC_BACK:
            PressBack();
            return true;
        case IDM_CALC_CLEARENTRY:
            m_dEntry = 0;
            ShowEntry();
            return true;
        case IDM_CALC_CLEAR:
            ClearAll();
            return true;
        case IDM_CALC_SIGN:
            // Kept: after a result this is the right operand, not the result.
            m_dEntry = -m_dEntry;
            ShowEntry();
            return true;
        default:
            return false;
    }
}

// Kept: the key removes the last character of the text, which may be the point of a whole number.
// The number of decimals does not change.
void QMCalculatorEngine::PressBack()
{
    if (m_bEquals || m_bNewEntry || m_dEntry == 0 || m_strDisplay.IsEmpty()) {
        return;
    }
    const VString strShorter = m_strDisplay.Left(m_strDisplay.GetLength() - 1);
    long double dRead = 0;
    if (sscanf(strShorter.GetText(), "%Lg", &dRead) == 1) {
        m_dEntry = static_cast<double>(dRead);
    }
    ShowEntry();
}

// Kept: the sign of a finished calculation (m_bEquals) stays, and so does the memory.
void QMCalculatorEngine::ClearAll()
{
    m_dAccumulator = 0;
    m_dEntry = 0;
    m_nPendingOp = 0;
    m_nDecimal = 0;
    m_bNewEntry = false;
    ShowEntry();
}

// ---- The memory. It takes the entry, never the result on show.

bool QMCalculatorEngine::PressMemory(int32_t nCommand)
{
    switch (nCommand) {
        case IDM_CALC_MEMORYADD:
            m_dMemory += m_dEntry;
            return true;
        case IDM_CALC_MEMORYSTORE:
            m_dMemory = m_dEntry;
            return true;
        case IDM_CALC_MEMORYRECALL:
            m_dEntry = m_dMemory;
            ShowEntry();
            return true;
        case IDM_CALC_MEMORYCLEAR:
            m_dMemory = 0;
            return true;
        default:
            return false;
    }
}

// ---- The display.

void QMCalculatorEngine::Show(double dNumber)
{
    // A double has at most 309 digits before its point, so the text fits.
    char szText[352];
    if (m_nDecimal > 1 && m_nDecimal <= uAllDecimals) {
        snprintf(szText, sizeof szText, "%0.*f", static_cast<int>(m_nDecimal) - 1, dNumber);
    } else {
        // A whole number is shown with a point at its end.
        snprintf(szText, sizeof szText, IsWhole(dNumber) ? "%g." : "%g", dNumber);
    }
    m_strDisplay = szText;
}
