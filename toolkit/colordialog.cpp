#include "toolkit/colordialog.h"

namespace {

COLORREF g_customColors[16] = {};

} // namespace

bool ColorDialog::Run(HWND hOwner, COLORREF crStart, DWORD uFlags)
{
    CHOOSECOLORA record = {};
    record.lStructSize = sizeof record;
    record.hwndOwner = hOwner;
    record.rgbResult = crStart;
    record.lpCustColors = g_customColors;
    record.Flags = uFlags | CC_RGBINIT | CC_ENABLEHOOK;
    record.lCustData = HookData();
    record.lpfnHook = &HookProc<CHOOSECOLORA>;
    OnBeforeShow(record);
    if (!ChooseColorA(&record)) {
        return false;
    }
    m_crColor = record.rgbResult;
    return true;
}
