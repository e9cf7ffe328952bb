// ColorDialog: the system's choice of a colour.
#pragma once

#include "toolkit/vcommondialog.h"

class ColorDialog : public VCommonDialog
{
public:
    // The window ends here, while the operations of this class still are the object's.
    ~ColorDialog() override { Detach(); }

    // Shows the dialog on a colour (0x00BBGGRR); true on OK. Flags are the system's (CC_...). The
    // custom colours that the user defines last for the run of the program, in all such dialogs.
    bool Run(HWND hOwner, COLORREF crStart, DWORD uFlags = 0);

    // What the last OK chose; black before.
    COLORREF GetColor() const { return m_crColor; }

    // ---- Virtual operation, behind those of VDialog.

    // May change the record before the dialog is shown.
    virtual void OnBeforeShow(CHOOSECOLORA& /*record*/) {}

private:
    COLORREF m_crColor = 0;
};
