// QMProgressDialog: shows how far an import, an export or a save is, once it takes longer than a
// second, and lets the user cancel it.
#pragma once

#include "account/qmprogress.h"
#include "toolkit/vdialog.h"

class QMProgressDialog : public VDialog, public QMProgress
{
public:
    // The owner, or the modal window that keeps the user from it (VModalOwner), is disabled while
    // the window is there. szTask says what is being done.
    QMProgressDialog(HWND hOwner, const char* szTask);
    // Takes the window away and gives owner and focus back to the user.
    ~QMProgressDialog() override;

    // Shows the window when it is time, and lets it and the other windows answer their messages.
    bool OnStep(uint64_t uDone, uint64_t uTotal) override;
    // The window stays, and cannot be cancelled any more.
    void OnNoReturn() override;
    bool IsCancelled() const { return m_bCancelled; }

    bool OnInitDialog() override;
    // Esc, the button and the sign in the corner cancel; the window stays until the work has ended.
    bool OnCancel() override;
    bool OnOK() override { return false; }
    bool OnClose(bool bForced) override;

private:
    static constexpr DWORD uDelay = 1000; // milliseconds before the window shows
    static constexpr DWORD uPause = 50;   // milliseconds between two looks at the messages

    void Open();
    void Answer();
    void DisableCancel();

    HWND m_hOwner;
    HWND m_hFocus = nullptr; // the window that had the focus before
    VString m_sTask;
    DWORD m_uNext; // the time of the next look
    bool m_bOpen = false;
    bool m_bDisabled = false; // this object has disabled the owner
    bool m_bCancelled = false;
    bool m_bNoReturn = false;
};
