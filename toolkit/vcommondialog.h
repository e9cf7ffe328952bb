// VCommonDialog: the base of the wrappers around the system's own dialogs. The object is bound to
// the system's window while that is up, and to nothing before and after.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include "toolkit/vdialog.h"

class VCommonDialog : public VDialog
{
public:
    VCommonDialog() : VDialog(V_KIND_COMMON_DIALOG) { SetModal(true); }
    // The window ends here, while the operations below still are this object's.
    ~VCommonDialog() override { Detach(); }

    // The system's dialog cleans up here, though this window handles the message.
    void OnDestroy() override;
    // OnOK and OnCancel may keep the dialog open; else the system reads its controls and ends it.
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;

protected:
    // The hook of one kind of record, whose lCustData holds the object. It binds the object to the
    // window at its start; an object that refuses the window is left out of it.
    template <class TRecord>
    static UINT_PTR CALLBACK HookProc(HWND hWnd, UINT uMessage, WPARAM /*wParam*/, LPARAM lParam)
    {
        if (uMessage != WM_INITDIALOG) {
            return 0;
        }
        const auto* pRecord = reinterpret_cast<const TRecord*>(lParam);
        reinterpret_cast<VCommonDialog*>(pRecord->lCustData)->Hook(hWnd);
        return 1; // the system places the focus
    }

    // What goes into the record's lCustData.
    LPARAM HookData() { return reinterpret_cast<LPARAM>(this); }

private:
    void Hook(HWND hWnd);
};
