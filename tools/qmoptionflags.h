// The flag words of the options: which check box is which bit, and what the "Defaults..." buttons
// set.
#pragma once

#include <cstdint>
#include <span>

// A bit of a flag word and the check box that shows it.
struct QMOptionBox
{
    int nControl;
    uint32_t uBit;
};

std::span<const QMOptionBox> QMGeneralOptionBoxes();
std::span<const QMOptionBox> QMPrintingOptionBoxes();

// Kept: the buttons set 15, which shows the splash screen. The value of a first start is 11, which
// does not.
inline constexpr uint32_t QM_DEFAULT_GENERAL_OPTIONS = 15;
inline constexpr uint32_t QM_DEFAULT_PRINTING_OPTIONS = 3;
// Colours are 0x00BBGGRR.
inline constexpr uint32_t QM_DEFAULT_BALANCE_POSITIVE = 0x85AD4B;
inline constexpr uint32_t QM_DEFAULT_BALANCE_NEGATIVE = 0x2842C9;
