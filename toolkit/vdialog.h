// VDialog: a dialog of a template, modal or modeless.
//
// Dialogs move data between their members and their controls by hand: OnInitDialog fills the
// controls, OnOK reads them.
#pragma once

#include "toolkit/vwindow.h"

class VDialog : public VWindow
{
public:
    explicit VDialog(int32_t lKind = V_KIND_DIALOG) : VWindow(lKind) {}
    // The window ends here, while the operations below still are this object's.
    ~VDialog() override { Detach(); }

    // Fills the controls once they stand; false refuses the dialog.
    virtual bool OnInitDialog() { return VWindow::OnInitialize(); }

    // ---- Virtual operations, behind those of VWindow.

    virtual bool UpdateCommands() { return false; }
    // What a modal dialog without a Cancel button ends with when it is closed.
    virtual INT_PTR CancelResult() const { return IDCANCEL; }
    // Whether the dialog runs a loop of its own.
    virtual bool IsModal() const { return m_bModal; }
    // Ends the dialog; a modeless one is destroyed. Nothing happens to a page, which its sheet
    // ends, or to a dead window. The object may be gone afterwards.
    virtual void EndWith(INT_PTR nResult);
    // Both answer whether the dialog may end.
    virtual bool OnCancel() { return true; }
    virtual bool OnOK() { return true; }

    bool OnInitialize() override { return OnInitDialog(); }
    bool OnClose(bool bForced) override;
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;

    // Runs the dialog; the focus goes back to where it was. Returns what EndWith was given, -1 when
    // the dialog could not be made. A null instance stands for the application's resources.
    INT_PTR DoModal(HWND hParent, UINT uTemplate, HINSTANCE hInstance = nullptr);

    // Makes the dialog and returns at once; the object must live as long as its window.
    bool CreateModeless(HWND hParent, UINT uTemplate);

    // ---- The controls, by their ids.

    void CheckButton(int nId, UINT uState) { CheckDlgButton(GetHandle(), nId, uState); }
    // BST_CHECKED counts, BST_INDETERMINATE does not.
    bool IsButtonChecked(int nId) const
    {
        return IsDlgButtonChecked(GetHandle(), nId) == BST_CHECKED;
    }
    void SetItemText(int nId, const char* szText) { SetDlgItemTextA(GetHandle(), nId, szText); }
    VString GetItemText(int nId) const;
    void EnableItem(int nId, bool bEnable) { EnableWindow(GetItem(nId), bEnable); }
    void ShowItem(int nId, bool bShow) { ShowWindow(GetItem(nId), bShow ? SW_SHOW : SW_HIDE); }
    LRESULT SendItem(int nId, UINT uMessage, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendDlgItemMessageA(GetHandle(), nId, uMessage, wParam, lParam);
    }
    // Characters that an edit field or a combo box takes at the most.
    void LimitItemText(int nId, int nCharacters);
    // As the keyboard does it: the text of an edit field is selected, the default button follows.
    void FocusItem(int nId);

protected:
    void SetModal(bool bModal) { m_bModal = bModal; }

    // What OnNotify returns to give the sender of a notification a value: a dialog's procedure says
    // only whether it took the message, the value stands in the window.
    LRESULT AnswerNotification(LRESULT lValue)
    {
        SetLong(DWLP_MSGRESULT, lValue);
        return TRUE;
    }

private:
    bool m_bModal = false; // set by DoModal
};
