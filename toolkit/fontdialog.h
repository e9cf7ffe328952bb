// FontDialog: the system's choice of a font and its colour.
#pragma once

#include "toolkit/vcommondialog.h"

class FontDialog : public VCommonDialog
{
public:
    // The window ends here, while the operations of this class still are the object's.
    ~FontDialog() override { Detach(); }

    // Shows the dialog on a font, or on the object's own where that is null, and on the object's
    // colour; true on OK, which takes both over. Flags are the system's (CF_...).
    bool Run(HWND hOwner, const LOGFONTA* pFont = nullptr, DWORD uFlags = CF_SCREENFONTS);

    const LOGFONTA& GetFont() const { return m_font; }
    void SetFont(const LOGFONTA& font) { m_font = font; }
    COLORREF GetColor() const { return m_crColor; }
    void SetColor(COLORREF crColor) { m_crColor = crColor; }

    // ---- Virtual operation, behind those of VDialog.

    // May change the record before the dialog is shown.
    virtual void OnBeforeShow(CHOOSEFONTA& /*record*/) {}

private:
    LOGFONTA m_font = {};
    COLORREF m_crColor = 0;
};
