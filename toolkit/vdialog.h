// VDialog: a dialog made from a template, modal or modeless.
//
// A derived class moves the data between its members and the controls by itself: OnInitDialog fills
// the controls, OnOK reads them.
#pragma once

#include "toolkit/vwindow.h"

class VDialog : public VWindow
{
public:
    explicit VDialog(int32_t lKind = V_KIND_DIALOG);
    ~VDialog() override { Detach(); }

    // Called when all controls exist, to fill them. False refuses the dialog, which is then
    // destroyed.
    virtual bool OnInitDialog() { return VWindow::OnInitialize(); }

    // ---- Virtual operations, after those of VWindow.

    virtual bool UpdateCommands() { return false; }
    // The result of a modal dialog that has no Cancel button and is closed.
    virtual INT_PTR CancelResult() const { return IDCANCEL; }
    // Whether DoModal runs the dialog.
    virtual bool IsModal() const { return m_bModal; }
    // Ends a modal dialog with this result, and destroys a modeless one. Does nothing for a page,
    // which its sheet ends, and when there is no window. The object may be deleted afterwards.
    virtual void EndWith(INT_PTR nResult);
    // Called for Cancel and for OK. Both return whether the dialog may end.
    virtual bool OnCancel() { return true; }
    virtual bool OnOK() { return true; }

    bool OnInitialize() override { return OnInitDialog(); }
    bool OnClose(bool bForced) override;
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;

    // Runs the dialog. Afterwards the focus is where it was before. Returns what EndWith was given;
    // -1 when the dialog could not be made. A null hInstance means the resource module of the
    // application. A modal window that keeps the user from hParent is the owner instead.
    INT_PTR DoModal(HWND hParent, UINT uTemplate, HINSTANCE hInstance = nullptr);

    // Makes the dialog and returns at once. The object must live as long as the window.
    bool CreateModeless(HWND hParent, UINT uTemplate);

    // ---- The controls, by their ids.

    void CheckButton(int nId, UINT uState) { CheckDlgButton(GetHandle(), nId, uState); }
    // Whether the button is BST_CHECKED. BST_INDETERMINATE counts as not checked.
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
    // Sets how many characters the user can type into an edit field or a combo box.
    void LimitItemText(int nId, int nCharacters);
    // Sets the focus as the Tab key does: the text of an edit field is selected, and the default
    // button follows.
    void FocusItem(int nId);

    // Puts an icon of the resources into the caption. Windows shows its own in that of a sizable
    // dialog that has none.
    void ShowIcon(UINT uId);

protected:
    void SetModal(bool bModal) { m_bModal = bModal; }

    // Sets the result of a notification; OnNotify returns what this returns. A dialog procedure
    // only says whether it has handled a message. The result itself goes into DWLP_MSGRESULT.
    LRESULT AnswerNotification(LRESULT lValue)
    {
        SetLong(DWLP_MSGRESULT, lValue);
        return TRUE;
    }

private:
    bool m_bModal = false; // set by DoModal
};
