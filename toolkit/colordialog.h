// ColorDialog: the dialog of Windows to choose a colour.
#pragma once

#include "toolkit/vcommondialog.h"

class ColorDialog : public VCommonDialog
{
public:
    ~ColorDialog() override { Detach(); }

    // Shows the dialog with crStart (0x00BBGGRR) selected. Returns true on OK. uFlags are those of
    // CHOOSECOLOR. The custom colours that the user defines last until the program ends, in all
    // such dialogs.
    bool Run(HWND hOwner, COLORREF crStart, DWORD uFlags = 0);

    // The colour of the last OK; black before the first.
    COLORREF GetColor() const { return m_crColor; }

    // ---- Virtual operation, after those of VDialog.

    // Called before the dialog is shown. An override may change the record.
    virtual void OnBeforeShow(CHOOSECOLORA& /*record*/) {}

private:
    COLORREF m_crColor = 0;
};
