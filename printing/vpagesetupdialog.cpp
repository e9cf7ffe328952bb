#include "printing/vpagesetupdialog.h"

#include "toolkit/vrect_win.h"

namespace {

bool IsSet(const VRect& rcMargins)
{
    return rcMargins != VRect();
}

} // namespace

PAGESETUPDLGA VPageSetupDialog::MakeRecord(HWND hOwner, DWORD uFlags)
{
    PAGESETUPDLGA record = {};
    record.lStructSize = sizeof record;
    record.hwndOwner = hOwner;
    record.hDevMode = m_hDevMode;
    record.hDevNames = m_hDevNames;
    record.Flags = uFlags | PSD_ENABLEPAGESETUPHOOK;
    record.lCustData = HookData();
    record.lpfnPageSetupHook = &HookProc<PAGESETUPDLGA>;
    if (IsSet(m_rcMinMargins)) {
        record.rtMinMargin = VToRect(m_rcMinMargins);
        record.Flags |= PSD_MINMARGINS;
    }
    if (IsSet(m_rcMargins)) {
        record.rtMargin = VToRect(m_rcMargins);
        record.Flags |= PSD_MARGINS;
    }
    return record;
}

bool VPageSetupDialog::Run(HWND hOwner, DWORD uFlags)
{
    PAGESETUPDLGA record = MakeRecord(hOwner, uFlags);
    OnBeforeShow(record);
    if (!PageSetupDlgA(&record)) {
        return false;
    }
    m_hDevMode = record.hDevMode;
    m_hDevNames = record.hDevNames;
    m_sizePaper = {record.ptPaperSize.x, record.ptPaperSize.y};
    if ((record.Flags & PSD_DISABLEMARGINS) == 0) {
        m_rcMinMargins = VFromRect(record.rtMinMargin);
        m_rcMargins = VFromRect(record.rtMargin);
    }
    return true;
}
