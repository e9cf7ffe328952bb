#include "tools/qmoptionspages.h"

#include "resources/resource.h"
#include "toolkit/colordialog.h"
#include "toolkit/fontdialog.h"

// ---- Check boxes.

bool QMFlagOptionsPage::OnInitDialog()
{
    ShowFlags();
    return VPropertyPage::OnInitDialog();
}

void QMFlagOptionsPage::ShowFlags()
{
    for (const QMOptionBox& box : m_boxes) {
        CheckButton(box.nControl, (m_uFlags & box.uBit) != 0 ? BST_CHECKED : BST_UNCHECKED);
    }
}

LRESULT QMFlagOptionsPage::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    if (uId != IDC_OPTION_DEFAULTS) {
        return VPropertyPage::OnCommand(uNotifyCode, uId, hControl);
    }
    m_uFlags = m_uDefaults;
    ShowFlags();
    return 0;
}

bool QMFlagOptionsPage::OnOK()
{
    for (const QMOptionBox& box : m_boxes) {
        m_uFlags = IsButtonChecked(box.nControl) ? m_uFlags | box.uBit : m_uFlags & ~box.uBit;
    }
    return true;
}

// ---- Font and colours.

QMDisplayOptionsPage::QMDisplayOptionsPage(COLORREF crPositive, COLORREF crNegative)
    : m_positive{IDC_OPTION_POSITIVE, crPositive, {}},
      m_negative{IDC_OPTION_NEGATIVE, crNegative, {}}
{}

void QMDisplayOptionsPage::SetFont(const LOGFONTA& font, COLORREF crText)
{
    m_font = font;
    m_crFont = crText;
    m_bHasFont = true;
}

bool QMDisplayOptionsPage::OnInitDialog()
{
    SetSwatch(m_positive, m_positive.crColor);
    SetSwatch(m_negative, m_negative.crColor);
    ShowFontName();
    EnableItem(IDC_OPTION_SELECTFONT, m_bHasFont);
    return VPropertyPage::OnInitDialog();
}

void QMDisplayOptionsPage::ShowFontName()
{
    SetItemText(IDC_OPTION_FONT, m_bHasFont ? m_font.lfFaceName : "");
}

void QMDisplayOptionsPage::SetSwatch(Swatch& swatch, COLORREF crColor)
{
    swatch.crColor = crColor;
    // A high byte would make it a palette index or another kind of colour, and a stored value may
    // hold anything.
    swatch.brush.Create(crColor & 0xFFFFFF);
    InvalidateRect(GetItem(swatch.nControl), nullptr, TRUE);
}

LRESULT QMDisplayOptionsPage::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_CTLCOLORSTATIC) {
        const int nControl = GetDlgCtrlID(reinterpret_cast<HWND>(lParam));
        for (const Swatch* pSwatch : {&m_positive, &m_negative}) {
            if (pSwatch->nControl == nControl) {
                return reinterpret_cast<LRESULT>(pSwatch->brush.GetHandle());
            }
        }
    }
    return VPropertyPage::DefaultProc(hWnd, uMessage, wParam, lParam);
}

LRESULT QMDisplayOptionsPage::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    switch (uId) {
        case IDC_OPTION_SELECTFONT:
            SelectFont();
            return 0;
        case IDC_OPTION_SELECTPOSITIVE:
            SelectColor(m_positive);
            return 0;
        case IDC_OPTION_SELECTNEGATIVE:
            SelectColor(m_negative);
            return 0;
        case IDC_OPTION_DEFAULTS:
            SetDefaults();
            return 0;
        default:
            return VPropertyPage::OnCommand(uNotifyCode, uId, hControl);
    }
}

void QMDisplayOptionsPage::SelectFont()
{
    FontDialog dialog;
    dialog.SetColor(m_crFont);
    if (dialog.Run(GetHandle(), &m_font, CF_BOTH | CF_EFFECTS)) {
        m_font = dialog.GetFont();
        m_crFont = dialog.GetColor();
        ShowFontName();
    }
}

void QMDisplayOptionsPage::SelectColor(Swatch& swatch)
{
    ColorDialog dialog;
    if (dialog.Run(GetHandle(), swatch.crColor, CC_FULLOPEN)) {
        SetSwatch(swatch, dialog.GetColor());
    }
}

void QMDisplayOptionsPage::SetDefaults()
{
    GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof m_font, &m_font);
    m_crFont = 0;
    ShowFontName();
    SetSwatch(m_positive, QM_DEFAULT_BALANCE_POSITIVE);
    SetSwatch(m_negative, QM_DEFAULT_BALANCE_NEGATIVE);
}
