// VPrintDialog: the print dialog of Windows and its choice of a printer, with the values that both
// take and return. Pages are counted from 1.
#pragma once

#include "toolkit/vcommondialog.h"
#include "toolkit/vdrawingsurface.h"

class VPrintDialog : public VCommonDialog
{
public:
    ~VPrintDialog() override { Detach(); }

    // Shows the dialog, or with bSetup the choice of a printer. Returns true on OK. uFlags are
    // those of PRINTDLG. With PD_RETURNDEFAULT nothing is shown and the default printer is taken.
    bool Run(HWND hOwner, DWORD uFlags, bool bSetup = false);

    // The handles belong to the print document. This object never frees them.
    HGLOBAL GetDeviceMode() const { return m_hDevMode; }
    HGLOBAL GetDeviceNames() const { return m_hDevNames; }
    void SetDevice(HGLOBAL hDevMode, HGLOBAL hDevNames)
    {
        m_hDevMode = hDevMode;
        m_hDevNames = hDevNames;
    }

    // The printer's surface, after a run with PD_RETURNDC or PD_RETURNIC.
    VDrawingSurface& GetSurface() { return m_surface; }

    int GetFirstPage() const { return m_nFirstPage; }
    int GetLastPage() const { return m_nLastPage; }
    int GetLowestPage() const { return m_nLowestPage; }
    int GetHighestPage() const { return m_nHighestPage; }
    int GetCopies() const { return m_nCopies; }
    bool IsCollated() const { return m_bCollate; }
    void SetPages(int nFirst, int nLast) { m_nFirstPage = nFirst, m_nLastPage = nLast; }
    void SetPageLimits(int nLowest, int nHighest)
    {
        m_nLowestPage = nLowest;
        m_nHighestPage = nHighest;
    }
    void SetCopies(int nCopies) { m_nCopies = nCopies; }
    void SetCollated(bool bCollate) { m_bCollate = bCollate; }

    // ---- Virtual operation, after those of VDialog.

    // Called before the dialog is shown. An override may change the record.
    virtual void OnBeforeShow(PRINTDLGA& /*record*/) {}

private:
    PRINTDLGA MakeRecord(HWND hOwner, DWORD uFlags, bool bSetup);
    void TakeBack(const PRINTDLGA& record);

    VDrawingSurface m_surface;
    HGLOBAL m_hDevMode = nullptr;
    HGLOBAL m_hDevNames = nullptr;
    int m_nFirstPage = 1;
    int m_nLastPage = 1;
    int m_nLowestPage = 1;
    int m_nHighestPage = 1;
    int m_nCopies = 1;
    bool m_bCollate = true;
};
