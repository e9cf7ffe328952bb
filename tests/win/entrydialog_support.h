// What the tests of the transaction dialog share: its state in short texts.
#pragma once

#include <windows.h>

#include <string>

#include "tests/support/entry_support.h"
#include "tests/win/dialog_support.h"

// Runs the dialog without an owner.
INT_PTR RunEntryDialog(EntryArgs& args);

// The id of the radio button that is on; 0 when none is, or several are.
int TypeOn(HWND hDialog);
// The boxes that are on, by the letters T (tax), E (expense), V (voided) and C (cleared).
std::string BoxesOn(HWND hDialog);
// A date such as "3/14/2004".
std::string DateIn(HWND hDialog, int nId);
// Sets a date as a user does, with the notification to the dialog.
void PickDate(HWND hDialog, int nId, const std::string& sDate);
// Number, description, amount, memo and category, separated by a bar.
std::string TextsIn(HWND hDialog);
// The enabled arrows, as "<<", "<", ">" and ">>", separated by a blank.
std::string ArrowsOpen(HWND hDialog);
