// VCommonDialog: the base of the classes for the dialogs of Windows. The object is bound to the
// window of the dialog while that is open, and to no window otherwise.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include "toolkit/vdialog.h"

class VCommonDialog : public VDialog
{
public:
    VCommonDialog() : VDialog(V_KIND_COMMON_DIALOG) { SetModal(true); }
    ~VCommonDialog() override { Detach(); }

    // The dialog of Windows must get WM_DESTROY too, to clean up. So the message counts as not
    // handled.
    void OnDestroy() override;
    // OnOK and OnCancel may keep the dialog open by false. Otherwise the dialog of Windows gets the
    // command: it reads its controls and ends.
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;

protected:
    // The hook procedure for one kind of record, whose lCustData holds the object. At WM_INITDIALOG
    // it binds the object to the window. If the object refuses the window, it stays unbound.
    template <class TRecord>
    static UINT_PTR CALLBACK HookProc(HWND hWnd, UINT uMessage, WPARAM /*wParam*/, LPARAM lParam)
    {
        if (uMessage != WM_INITDIALOG) {
            return 0;
        }
        const auto* pRecord = reinterpret_cast<const TRecord*>(lParam);
        reinterpret_cast<VCommonDialog*>(pRecord->lCustData)->Hook(hWnd);
        return 1; // Windows sets the focus
    }

    // The value for the record's lCustData.
    LPARAM HookData() { return reinterpret_cast<LPARAM>(this); }

private:
    void Hook(HWND hWnd);
};
