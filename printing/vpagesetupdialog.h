// VPageSetupDialog: margins and paper, and the system's dialog to set them up.
#pragma once

#include "toolkit/vcommondialog.h"

class VPageSetupDialog : public VCommonDialog
{
public:
    // The window ends here, while the operations of this class still are the object's.
    ~VPageSetupDialog() override { Detach(); }

    // Shows the dialog; true on OK, and nothing changes otherwise. Flags are the system's
    // (PSD_...); PSD_INTHOUSANDTHSOFINCHES is the unit in which this object's values are meant, and
    // PSD_DISABLEMARGINS keeps the margins as they are.
    bool Run(HWND hOwner, DWORD uFlags);

    // Thousandths of an inch; all four sides zero stand for margins that are not set, for which the
    // dialog proposes its own.
    const VRect& GetMargins() const { return m_rcMargins; }
    void SetMargins(const VRect& rcMargins) { m_rcMargins = rcMargins; }
    const VRect& GetMinMargins() const { return m_rcMinMargins; }
    void SetMinMargins(const VRect& rcMinMargins) { m_rcMinMargins = rcMinMargins; }
    // Of the sheet as it was last reported.
    const SIZE& GetPaperSize() const { return m_sizePaper; }

    // Both handles are shared with the print dialog and are the print document's, whoever made
    // them: neither is freed here.
    HGLOBAL GetDeviceMode() const { return m_hDevMode; }
    HGLOBAL GetDeviceNames() const { return m_hDevNames; }
    void SetDevice(HGLOBAL hDevMode, HGLOBAL hDevNames)
    {
        m_hDevMode = hDevMode;
        m_hDevNames = hDevNames;
    }

    // ---- Virtual operation, behind those of VDialog.

    // May change the record before the dialog is shown.
    virtual void OnBeforeShow(PAGESETUPDLGA& /*record*/) {}

private:
    PAGESETUPDLGA MakeRecord(HWND hOwner, DWORD uFlags);

    VRect m_rcMinMargins;
    VRect m_rcMargins;
    SIZE m_sizePaper = {};
    HGLOBAL m_hDevMode = nullptr;
    HGLOBAL m_hDevNames = nullptr;
};
