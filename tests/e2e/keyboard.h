// The keyboard of the machine. Keys go to the foreground window, as a user's do.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/program.h"

class Keyboard
{
public:
    explicit Keyboard(const Program& program) : m_program(program) {}

    // Presses a key (VK_, or a capital letter) while other keys are held down. Does not wait. The
    // program must be in the foreground.
    void Press(WORD uKey, const std::vector<WORD>& held = {}) const;
    // Types characters, of one line at most.
    void Type(const std::string& sText) const;

    // Presses Tab until the control with that id has the focus.
    void TabTo(const DialogWindow& dialog, int nId) const;
    // Presses Tab until the control has the focus, and replaces its text.
    void Fill(const DialogWindow& dialog, int nId, const std::string& sText) const;
    // Presses Tab until the check box has the focus, and sets its state by the space bar.
    void Check(const DialogWindow& dialog, int nId, bool bOn) const;

private:
    void AwaitInFront() const;

    const Program& m_program;
};
