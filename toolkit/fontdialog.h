// FontDialog: the dialog of Windows to choose a font and its colour.
#pragma once

#include "toolkit/vcommondialog.h"

class FontDialog : public VCommonDialog
{
public:
    ~FontDialog() override { Detach(); }

    // Shows the dialog with pFont selected, or with the object's own font when pFont is null, and
    // with the object's colour. Returns true on OK; font and colour are then the object's. uFlags
    // are those of CHOOSEFONT.
    bool Run(HWND hOwner, const LOGFONTA* pFont = nullptr, DWORD uFlags = CF_SCREENFONTS);

    const LOGFONTA& GetFont() const { return m_font; }
    void SetFont(const LOGFONTA& font) { m_font = font; }
    COLORREF GetColor() const { return m_crColor; }
    void SetColor(COLORREF crColor) { m_crColor = crColor; }

    // ---- Virtual operation, after those of VDialog.

    // Called before the dialog is shown. An override may change the record.
    virtual void OnBeforeShow(CHOOSEFONTA& /*record*/) {}

private:
    LOGFONTA m_font = {};
    COLORREF m_crColor = 0;
};
