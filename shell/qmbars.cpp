#include "shell/qmbars.h"

#include <iterator>

#include "resources/resource.h"
#include "toolkit/vapplication.h"
#include "toolkit/vdrawingsurface.h"
#include "toolkit/vgdiobjects.h"

namespace {

constexpr UINT uSeparator = 0;

// The buttons in their order. Each takes the next picture of the strip.
constexpr UINT auButtons[] = {
    IDM_FILE_NEW,
    IDM_FILE_IMPORT,
    IDM_FILE_OPEN,
    IDM_FILE_SAVE,
    uSeparator,
    IDM_FILE_PRINT,
    IDM_FILE_PREVIEW,
    uSeparator,
    IDM_TRANSACTION_ADD,
    IDM_TRANSACTION_EDIT,
    IDM_TRANSACTION_REMOVE,
    IDM_TRANSACTION_CLEARED,
    IDM_TRANSACTION_VOIDED,
    IDM_TRANSACTION_TAX,
    IDM_TRANSACTION_EXPENSE,
    uSeparator,
    IDM_TOOLS_REPORTS,
    IDM_TOOLS_BANKWEBPAGE,
    IDM_TOOLS_CALCULATOR,
    uSeparator,
    IDM_WINDOW_PREVIOUS,
    IDM_WINDOW_NEXT,
    uSeparator,
    IDM_HELP_CONTENTS,
};

constexpr int nPictures = 18; // room for the first pictures; the list grows by itself

} // namespace

bool QMToolbar::CreateToolbar(VWindow& parent, UINT uId)
{
    constexpr DWORD uStyle = WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS |
                             CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN;
    VBitmap strip;
    if (!strip.Load(IDB_TOOLBAR) ||
        !m_images.Create(nPictureSize, nPictureSize, nPictures, 0, ILC_COLOR32) ||
        m_images.Add(strip.GetHandle()) < 0 ||
        !Create(parent.GetHandle(), {}, uStyle, TOOLBARCLASSNAMEA, "", uId)) {
        return false;
    }
    SetImageList(m_images.GetHandle());
    TBBUTTON aButtons[std::size(auButtons)] = {};
    int nPicture = 0;
    for (size_t u = 0; u < std::size(auButtons); ++u) {
        const bool bButton = auButtons[u] != uSeparator;
        aButtons[u].iBitmap = bButton ? nPicture++ : 0;
        aButtons[u].idCommand = static_cast<int>(auButtons[u]);
        aButtons[u].fsState = TBSTATE_ENABLED;
        aButtons[u].fsStyle = bButton ? BTNS_BUTTON : BTNS_SEP;
    }
    const bool bAdded = AddButtons(aButtons, static_cast<int>(std::size(aButtons)));
    // Adding pictures makes the toolbar measure its buttons anew, so their size is set again.
    Send(TB_SETBUTTONSIZE, 0, MAKELPARAM(nButtonSize, nButtonSize));
    AutoSize();
    return bAdded;
}

LRESULT QMToolbar::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_PAINT && wParam != 0) {
        VDrawingSurface surface;
        surface.Attach(reinterpret_cast<HDC>(wParam), false);
        surface.FillRect(GetClientRect(), GetSysColorBrush(COLOR_BTNFACE));
    }
    return VToolbar::DefaultProc(hWnd, uMessage, wParam, lParam);
}

void QMStatusBar::SetPaneText(const char* szText, int nPane)
{
    if (nPane == 0) {
        VStatusBar::SetPaneText(szText, nPane);
        // A status bar without room for more than one pane is in simple mode, which has a text of
        // its own.
        Send(SB_SETTEXTA, SB_SIMPLEID, reinterpret_cast<LPARAM>(OrDefault(szText)));
        return;
    }
    const char* szNew = szText == nullptr ? "" : szText;
    if (nPane < 0 || nPane > QM_TEXT_PANES || m_asText[nPane - 1] == szNew) {
        return;
    }
    m_asText[nPane - 1] = szNew;
    LayOutPanes();
    Send(SB_SETTEXTA, static_cast<WPARAM>(nPane), reinterpret_cast<LPARAM>(szNew));
    Update();
}

LRESULT QMStatusBar::OnSize(UINT uType, int nWidth, int nHeight)
{
    const LRESULT lResult = VStatusBar::OnSize(uType, nWidth, nHeight);
    LayOutPanes();
    return lResult;
}

void QMStatusBar::LayOutPanes()
{
    VClientSurface surface(GetHandle());
    const VSelectScope font(surface, reinterpret_cast<HGDIOBJ>(Send(WM_GETFONT)));
    int anWidths[QM_TEXT_PANES];
    for (int i = 0; i < QM_TEXT_PANES; ++i) {
        const VString& sText = m_asText[i];
        anWidths[i] = surface.TextExtent(sText.GetText(), static_cast<int>(sText.GetLength())).cx;
    }
    int anRight[QM_TEXT_PANES + 1];
    const bool bFits = QMLayOutPanes(GetClientRect().right, anWidths, anRight);
    if (bFits) {
        Send(SB_SETPARTS, QM_TEXT_PANES + 1, reinterpret_cast<LPARAM>(anRight));
    }
    Send(SB_SIMPLE, !bFits);
}
