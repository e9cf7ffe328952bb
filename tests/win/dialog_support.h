// What the tests of the program's dialogs share: presses of real controls, and facts about them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/win/modaldriver.h"

// Clicks as the mouse of a user does, before it returns. A disabled control does not react.
void Click(HWND hDialog, int nId);
// Types into an edit field, one character after another; its limit holds.
void TypeCharacters(HWND hEdit, const std::string& sText);
// Posts a key, which goes through the loop of the dialog.
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
std::vector<std::string> TabOrder(HWND hDialog);
// Controls whose text does not fit, that stick out of the dialog, or that cover another one.
std::vector<std::string> LayoutFaults(HWND hDialog);

// What a control is called to those who hear a window: its own text, or that of the static text
// right before it.
std::string NameOfControl(HWND hControl);
// Controls that the focus can come to and that have no name.
std::vector<std::string> NamelessControls(HWND hDialog);

// An action that answers a message box with a button, and copies its caption and its sentence to
// where the pointers point.
ModalDriver::Action AnswerBox(int nButton, std::string* psSentence = nullptr,
                              std::string* psCaption = nullptr);
