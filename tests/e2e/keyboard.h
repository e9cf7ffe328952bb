// The keyboard of the machine: what is typed goes to the window in front, as its user's keys do.
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

    // Presses a key (VK_, or a capital letter) while others are held; does not wait. The program
    // has to be in front.
    void Press(WORD uKey, const std::vector<WORD>& held = {}) const;
    // Characters; a line of them at the most.
    void Type(const std::string& sText) const;

    // Presses Tab until the control of that id has the focus.
    void TabTo(const DialogWindow& dialog, int nId) const;
    // The same, and types a text in the place of what stands there.
    void Fill(const DialogWindow& dialog, int nId, const std::string& sText) const;
    // The same for a box, with the space bar.
    void Check(const DialogWindow& dialog, int nId, bool bOn) const;

private:
    void AwaitInFront() const;

    const Program& m_program;
};
