// QMProgressDialog: shows how far an import, an export or a save is, once it takes longer than a
// second, and lets the user cancel it.
#pragma once

#include "account/qmprogress.h"
#include "toolkit/vdialog.h"

class QMProgressDialog : public VDialog, public QMProgress
{
public:
    // While the window exists, it disables hOwner, or the modal window that keeps the user from
    // hOwner (VModalOwner). szTask tells the user what is being done.
    QMProgressDialog(HWND hOwner, const char* szTask);
    // Closes the window, enables the owner and sets the focus back.
    ~QMProgressDialog() override;

    // Opens the window when uDelay has passed. Handles the messages that wait for any window.
    bool OnStep(uint64_t uDone, uint64_t uTotal) override;
    // The window stays, but the user cannot cancel any more.
    void OnNoReturn() override;
    bool IsCancelled() const { return m_bCancelled; }

    bool OnInitDialog() override;
    // Esc, the button and the close box cancel. The window stays until the work has ended.
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
