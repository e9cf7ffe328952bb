// The options' flag words, box by box, and what the "Defaults..." buttons set.
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

// Kept: a first start shows no splash screen a second time (its word is 11), while the button turns
// it on.
inline constexpr uint32_t QM_DEFAULT_GENERAL_OPTIONS = 15;
inline constexpr uint32_t QM_DEFAULT_PRINTING_OPTIONS = 3;
// 0x00BBGGRR
inline constexpr uint32_t QM_DEFAULT_BALANCE_POSITIVE = 0x85AD4B;
inline constexpr uint32_t QM_DEFAULT_BALANCE_NEGATIVE = 0x2842C9;
