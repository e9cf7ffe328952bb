#include "toolkit/vcommondialog.h"

void VCommonDialog::OnDestroy()
{
    DefaultProc(GetHandle(), WM_DESTROY, 0, 0);
}

LRESULT VCommonDialog::OnCommand(UINT /*uNotifyCode*/, UINT uId, HWND /*hControl*/)
{
    const bool bStays = (uId == IDOK && !OnOK()) || (uId == IDCANCEL && !OnCancel());
    return bStays ? 0 : V_NOT_HANDLED;
}

void VCommonDialog::Hook(HWND hWnd)
{
    if (!Attach(hWnd)) {
        Detach();
    }
}
