#include "printing/vprintdialog.h"

#include <algorithm>
#include <climits>

#include "printing/vdevicehandles.h"

namespace {

WORD ToWord(int n)
{
    return static_cast<WORD>(std::clamp<int>(n, 0, USHRT_MAX));
}

} // namespace

PRINTDLGA VPrintDialog::MakeRecord(HWND hOwner, DWORD uFlags, bool bSetup)
{
    PRINTDLGA record = {};
    record.lStructSize = sizeof record;
    record.hwndOwner = hOwner;
    record.hDevMode = m_hDevMode;
    record.hDevNames = m_hDevNames;
    record.nFromPage = ToWord(m_nFirstPage);
    record.nToPage = ToWord(m_nLastPage);
    record.nMinPage = ToWord(m_nLowestPage);
    record.nMaxPage = ToWord(m_nHighestPage);
    record.nCopies = ToWord(m_nCopies);
    record.lCustData = HookData();
    record.lpfnPrintHook = &HookProc<PRINTDLGA>;
    record.lpfnSetupHook = &HookProc<PRINTDLGA>;
    record.Flags = uFlags | (bSetup ? PD_PRINTSETUP | PD_ENABLESETUPHOOK : PD_ENABLEPRINTHOOK) |
                   (m_bCollate ? PD_COLLATE : 0U);
    const VLockedDeviceMode mode(m_hDevMode);
    if (DEVMODEA* pMode = mode.Get()) {
        record.Flags |= PD_USEDEVMODECOPIESANDCOLLATE;
        pMode->dmCopies = static_cast<short>(std::clamp(m_nCopies, 1, SHRT_MAX));
        pMode->dmCollate = static_cast<short>(m_bCollate ? DMCOLLATE_TRUE : DMCOLLATE_FALSE);
    }
    return record;
}

void VPrintDialog::TakeBack(const PRINTDLGA& record)
{
    m_hDevMode = record.hDevMode;
    m_hDevNames = record.hDevNames;
    if (record.hDC != nullptr) {
        m_surface.Attach(record.hDC, true);
    }
    m_nFirstPage = record.nFromPage;
    m_nLastPage = record.nToPage;
    m_nLowestPage = record.nMinPage;
    m_nHighestPage = record.nMaxPage;
    m_nCopies = record.nCopies;
    m_bCollate = (record.Flags & PD_COLLATE) != 0;
    if ((record.Flags & PD_USEDEVMODECOPIESANDCOLLATE) != 0) {
        const VLockedDeviceMode mode(m_hDevMode);
        if (const DEVMODEA* pMode = mode.Get()) {
            m_nCopies = pMode->dmCopies;
            m_bCollate = pMode->dmCollate == DMCOLLATE_TRUE;
        }
    }
}

bool VPrintDialog::Run(HWND hOwner, DWORD uFlags, bool bSetup)
{
    PRINTDLGA record = MakeRecord(hOwner, uFlags, bSetup);
    OnBeforeShow(record);
    if (!PrintDlgA(&record)) {
        return false;
    }
    TakeBack(record);
    return true;
}
