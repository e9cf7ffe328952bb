// What the tests of the program's dialogs share: presses of real controls, and properties of the
// controls.
#pragma once

#include <windows.h>

#include <string>

#include "tests/support/support.h"
#include "tests/win/modaldriver.h"

// Clicks as a user's mouse does, and returns after the click was handled. A disabled control does
// not react.
void Click(HWND hDialog, int nId);
// Types into an edit field, one character after another. The limit of the field holds.
void TypeCharacters(HWND hEdit, const std::string& sText);
// Posts a key. It goes through the message loop of the dialog.
void PostKey(HWND hControl, WPARAM uKey);

bool IsOn(HWND hDialog, int nId);
bool IsEnabled(HWND hDialog, int nId);
bool IsShown(HWND hDialog, int nId);
// The id of the control that has the focus, or whose edit field has it; 0 when none has.
int FocusedId(HWND hDialog);
// How many characters can be typed into an edit field or a combo box.
int LimitOf(HWND hDialog, int nId);

// The inside of the dialog in dialog units, such as "328x190".
std::string SizeInUnits(HWND hDialog);
// The controls in tab order, such as "1601 Check", without texts and frames (id -1).
Texts TabOrder(HWND hDialog);
// Controls whose text does not fit, that reach beyond the dialog, or that cover another control.
Texts LayoutFaults(HWND hDialog);

// The name by which a screen reader calls a control: its own text, or that of the static text right
// before it.
std::string NameOfControl(HWND hControl);
// Controls that can have the focus and have no name.
Texts NamelessControls(HWND hDialog);

// An action that presses a button of a message box. It copies the caption and the sentence of the
// box to where the pointers point.
ModalDriver::Action AnswerBox(int nButton, std::string* psSentence = nullptr,
                              std::string* psCaption = nullptr);
