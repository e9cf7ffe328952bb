#include "toolkit/fontdialog.h"

bool FontDialog::Run(HWND hOwner, const LOGFONTA* pFont, DWORD uFlags)
{
    LOGFONTA font = pFont == nullptr ? m_font : *pFont;
    CHOOSEFONTA record = {};
    record.lStructSize = sizeof record;
    record.hwndOwner = hOwner;
    record.lpLogFont = &font;
    record.rgbColors = m_crColor;
    record.Flags = uFlags | CF_ENABLEHOOK | CF_INITTOLOGFONTSTRUCT;
    record.lCustData = HookData();
    record.lpfnHook = &HookProc<CHOOSEFONTA>;
    OnBeforeShow(record);
    if (!ChooseFontA(&record)) {
        return false;
    }
    m_font = font;
    m_crColor = record.rgbColors;
    return true;
}
