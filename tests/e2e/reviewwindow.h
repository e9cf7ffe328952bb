// The import review of the program.
#pragma once

#include "tests/e2e/dialogwindow.h"
#include "tests/e2e/windowlist.h"

class ReviewWindow : public DialogWindow
{
public:
    ReviewWindow(HANDLE hProcess, const DialogWindow& dialog);

    const WindowList& GetList() const { return m_list; }
    bool IsTicked(int nRow) const;
    // The rows that are ticked.
    std::vector<int> GetTicked() const;
    void Tick(int nRow, bool bOn) const;
    // Clicks into a row, nPixels from the left edge of the list.
    void Click(int nRow, int nPixels) const;
    // The state of a check box: 0, 1, or 2 for the third state.
    int GetBoxState(int nId) const;
    // Presses one of the two boxes and waits until it has this state.
    void PressBox(int nId, int nState) const;

private:
    WindowList m_list;
};

// Waits for the review and its rows.
ReviewWindow AwaitReview(const Program& program);
