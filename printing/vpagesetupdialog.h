// VPageSetupDialog: the margins and the paper, and the dialog of Windows in which the user sets
// them.
#pragma once

#include "toolkit/vcommondialog.h"

class VPageSetupDialog : public VCommonDialog
{
public:
    ~VPageSetupDialog() override { Detach(); }

    // Shows the dialog. Returns true on OK; otherwise nothing has changed. uFlags are those of
    // PAGESETUPDLG. PSD_INTHOUSANDTHSOFINCHES is the unit of this object's values.
    // PSD_DISABLEMARGINS keeps the margins as they are.
    bool Run(HWND hOwner, DWORD uFlags);

    // The margins in thousandths of an inch. Four zeroes mean that no margins are set; the dialog
    // then proposes its own.
    const VRect& GetMargins() const { return m_rcMargins; }
    void SetMargins(const VRect& rcMargins) { m_rcMargins = rcMargins; }
    const VRect& GetMinMargins() const { return m_rcMinMargins; }
    void SetMinMargins(const VRect& rcMinMargins) { m_rcMinMargins = rcMinMargins; }
    // The size of the sheet, as the dialog reported it last.
    const SIZE& GetPaperSize() const { return m_sizePaper; }

    // The handles belong to the print document, which shares them with the print dialog. This
    // object never frees them.
    HGLOBAL GetDeviceMode() const { return m_hDevMode; }
    HGLOBAL GetDeviceNames() const { return m_hDevNames; }
    void SetDevice(HGLOBAL hDevMode, HGLOBAL hDevNames)
    {
        m_hDevMode = hDevMode;
        m_hDevNames = hDevNames;
    }

    // ---- Virtual operation, after those of VDialog.

    // Called before the dialog is shown. An override may change the record.
    virtual void OnBeforeShow(PAGESETUPDLGA& /*record*/) {}

private:
    PAGESETUPDLGA MakeRecord(HWND hOwner, DWORD uFlags);

    VRect m_rcMinMargins;
    VRect m_rcMargins;
    SIZE m_sizePaper = {};
    HGLOBAL m_hDevMode = nullptr;
    HGLOBAL m_hDevNames = nullptr;
};
