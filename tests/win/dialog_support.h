// What the tests of the program's dialogs share: presses of real controls, and facts about them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/win/modaldriver.h"

// As a user's mouse does it, before this returns. A disabled control does not react.
void Click(HWND hDialog, int nId);
// Types into an edit field, one character after another; its limit holds.
void TypeCharacters(HWND hEdit, const std::string& sText);
// A key on its way through the dialog's own loop.
void PostKey(HWND hControl, WPARAM uKey);

bool IsOn(HWND hDialog, int nId);
bool IsEnabled(HWND hDialog, int nId);
bool IsShown(HWND hDialog, int nId);
// The id of the control with the focus, of which its edit field is a part; 0 for none.
int FocusedId(HWND hDialog);
// Of an edit field or a combo box.
int LimitOf(HWND hDialog, int nId);

// "328x190": the inside of the dialog in its own units.
std::string SizeInUnits(HWND hDialog);
// Of each control that is no plain text or frame (id -1), in tab order: "1601 Check".
std::vector<std::string> TabOrder(HWND hDialog);
// Controls whose text does not fit, that stick out of the dialog, or that cover another one.
std::vector<std::string> LayoutFaults(HWND hDialog);

// What a control is called to those who hear a window: its own text, or that of the static text
// right before it.
std::string NameOfControl(HWND hControl);
// Controls that the focus can come to and that have no name.
std::vector<std::string> NamelessControls(HWND hDialog);

// Answers a message box with a button; its caption and sentence go where the pointers lead.
ModalDriver::Action AnswerBox(int nButton, std::string* psSentence = nullptr,
                              std::string* psCaption = nullptr);
