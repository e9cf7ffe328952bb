// ModalDriver: does a test's steps while a modal dialog or a message box is up, whose own loop
// keeps the test waiting.
//
//     ModalDriver driver;
//     driver.Next([](HWND hDialog) { Press(hDialog, IDC_PUSH); });    // opens a box
//     driver.Next([](HWND hBox) { Press(hBox, IDYES); });
//     driver.Again([](HWND hDialog) { Press(hDialog, IDOK); });       // back in the dialog
//     EXPECT_EQ(dialog.DoModal(nullptr, IDD_TEST), IDOK);
//
// A step that does not come within the time fails the test, and so does a dialog that stays up
// after the last step; what is up is then cancelled, so that the test ends.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

class ModalDriver
{
public:
    using Action = std::function<void(HWND hDialog)>;
    using Condition = std::function<bool(HWND hDialog)>;

    // There may be one driver at a time. The limit counts for each step separately.
    explicit ModalDriver(DWORD uLimitMs = 10000);
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;
    // Fails the running test when a step was not reached.
    ~ModalDriver();

    // Adds a step for the next dialog that no step has seen yet: the foremost dialog of this thread
    // that is visible and enabled. An action may send messages as well as post them. When it opens
    // a box, the next steps run in the message loop of that box.
    ModalDriver& Next(Action action);
    // Adds a step for a dialog that a step has seen before.
    ModalDriver& Again(Action action);
    // Adds a step for a dialog for which the condition holds.
    ModalDriver& When(Condition condition, Action action);

    // The limit of the steps that are still to come.
    void SetLimit(DWORD uLimitMs) { m_uLimitMs = uLimitMs; }

    bool IsDone() const { return m_uNext == m_steps.size(); }

private:
    struct Step
    {
        Condition condition;
        Action action;
    };

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
    void Poll();
    void GiveUp(HWND hDialog);
    bool HasSeen(HWND hDialog) const;

    std::vector<Step> m_steps;
    size_t m_uNext = 0;
    std::vector<HWND> m_seen;
    UINT_PTR m_uTimer;
    DWORD m_uLimitMs;
    ULONGLONG m_uSince;
    bool m_bGaveUp = false;
};

// The foremost dialog or message box of this thread that is visible and enabled; null when there is
// none.
HWND FindForemostDialog();

// Presses a button once the messages in the queue are handled.
void Press(HWND hDialog, int nId);
// Sets the text of an edit field or a combo box, with the notifications that typing sends.
void Type(HWND hDialog, int nId, const char* szText);
std::string ItemText(HWND hDialog, int nId);
// The sentence in a message box.
std::string BoxText(HWND hBox);
