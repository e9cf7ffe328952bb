#include "register/qmtbtrans.h"

#include "account/qmaccountdata.h"
#include "account/qmdate_win.h"
#include "base/vassert.h"
#include "register/qmperiod.h"
#include "resources/resource.h"

namespace {

// Places in the bar, in pixels. The height of the list includes the part that drops down.
constexpr VRect listPlace = {0, 0, 96, 100};
constexpr VRect fromLabelPlace = {106, 1, 138, 20};
constexpr VRect fromPlace = {140, 1, 225, 20};
constexpr VRect toLabelPlace = {230, 1, 245, 20};
constexpr VRect toPlace = {247, 1, 331, 20};

constexpr int anDateControls[] = {IDC_TB_FROMLABEL, IDC_TB_FROM, IDC_TB_TOLABEL, IDC_TB_TO};

// Kept: today by universal time. Near midnight it can be another day than on the user's clock.
QMDate UniversalToday()
{
    SYSTEMTIME time;
    GetSystemTime(&time);
    return QMFromSystemTime(time);
}

void SetGuiFont(HWND hWnd)
{
    SendMessageA(hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)),
                 TRUE);
}

} // namespace

bool QMTBTrans::CreateBar(VWindow& parent, VWindow& owner, UINT uId)
{
    m_pOwner = &owner;
    const VRect rect = {0, 0, nWidth, nHeight};
    const DWORD uStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    if (!Create(parent.GetHandle(), rect, uStyle, nullptr, "", uId, WS_EX_CONTROLPARENT) ||
        !MakeControls()) {
        return false;
    }
    for (int nPeriod = 0; nPeriod < QM_PERIOD_COUNT; ++nPeriod) {
        m_list.Add(QMPeriodName(nPeriod));
    }
    m_list.Select(QM_ACCNT_DISPLAY_ALL);
    return true;
}

bool QMTBTrans::MakeControls()
{
    constexpr DWORD uListStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
    constexpr DWORD uPickerStyle =
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | DTS_SHORTDATECENTURYFORMAT | DTS_RIGHTALIGN;
    // Screen readers take this hidden label for the name of the list, which comes right after it.
    const bool bMade =
        MakeLabel("Period:", IDC_TB_PERIODLABEL, {}, 0) &&
        m_list.Create(GetHandle(), listPlace, uListStyle, WC_COMBOBOXA, "", IDC_TB_PERIOD) &&
        MakeLabel("From:", IDC_TB_FROMLABEL, fromLabelPlace) &&
        m_from.Create(GetHandle(), fromPlace, uPickerStyle, DATETIMEPICK_CLASSA, "", IDC_TB_FROM) &&
        MakeLabel("To:", IDC_TB_TOLABEL, toLabelPlace) &&
        m_to.Create(GetHandle(), toPlace, uPickerStyle, DATETIMEPICK_CLASSA, "", IDC_TB_TO);
    for (HWND hWnd : {m_list.GetHandle(), m_from.GetHandle(), m_to.GetHandle()}) {
        SetGuiFont(hWnd);
    }
    return bMade;
}

bool QMTBTrans::MakeLabel(const char* szText, UINT uId, const VRect& rect, DWORD uStyle)
{
    HWND hLabel =
        CreateWindowExA(0, WC_STATICA, szText, WS_CHILD | uStyle | SS_RIGHT | SS_CENTERIMAGE,
                        rect.left, rect.top, rect.GetWidth(), rect.GetHeight(), GetHandle(),
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(uId)), nullptr, nullptr);
    SetGuiFont(hLabel);
    return hLabel != nullptr;
}

void QMTBTrans::SetSelection(int32_t lSelection, bool bNotify)
{
    if (!V_VERIFY(lSelection == QM_ACCNT_DISPLAY_ALL ||
                  lSelection == QM_ACCNT_DISPLAY_PREVIOUS_MONTH ||
                  lSelection == QM_ACCNT_DISPLAY_CURRENT_MONTH ||
                  lSelection == QM_ACCNT_DISPLAY_CURRENT_YEAR ||
                  lSelection == QM_ACCNT_DISPLAY_DATE_RANGE)) {
        return;
    }
    m_list.Select(lSelection);
    if (bNotify) {
        Send(WM_COMMAND, MAKEWPARAM(IDC_TB_PERIOD, CBN_SELCHANGE),
             reinterpret_cast<LPARAM>(m_list.GetHandle()));
    }
}

void QMTBTrans::GetDates(QMDate& dtFrom, QMDate& dtTo) const
{
    dtFrom = QMFromSystemTime(m_from.GetDate());
    dtTo = QMFromSystemTime(m_to.GetDate());
}

void QMTBTrans::SetDates(const QMDate& dtFrom, const QMDate& dtTo)
{
    m_from.SetDate(QMToSystemTime(dtFrom));
    m_to.SetDate(QMToSystemTime(dtTo));
}

void QMTBTrans::UpdateDateControls()
{
    for (const int nId : anDateControls) {
        EnableWindow(GetItem(nId), GetSelection() == QM_ACCNT_DISPLAY_DATE_RANGE);
    }
}

void QMTBTrans::TakePeriod()
{
    QMDate dtFrom;
    QMDate dtTo;
    GetDates(dtFrom, dtTo);
    QMGetPeriodDates(static_cast<uint32_t>(GetSelection()), UniversalToday(), dtFrom, dtTo);
    SetDates(dtFrom, dtTo);
    UpdateDateControls();
}

void QMTBTrans::TellOwner(UINT uId)
{
    m_pOwner->Send(WM_COMMAND, uId, reinterpret_cast<LPARAM>(GetHandle()));
}

LRESULT QMTBTrans::OnCommand(UINT uNotifyCode, UINT uId, HWND /*hControl*/)
{
    if (uId == IDC_TB_PERIOD && uNotifyCode == CBN_SELCHANGE) {
        TakePeriod();
        TellOwner(uId);
    }
    return 0;
}

LRESULT QMTBTrans::OnNotify(UINT uId, NMHDR* pHeader)
{
    if (pHeader->code == DTN_DATETIMECHANGE) {
        // Kept: a range whose end is before its beginning is passed on as it is. The register then
        // shows no transactions.
        TellOwner(uId);
        return 0;
    }
    return V_NOT_HANDLED;
}

bool QMTBTrans::PreTranslate(MSG& message)
{
    const bool bTab = message.message == WM_KEYDOWN && message.wParam == VK_TAB;
    if (!bTab || !IsChild(GetHandle(), message.hwnd)) {
        return false;
    }
    const bool bBack = GetKeyState(VK_SHIFT) < 0;
    ::SetFocus(GetNextDlgTabItem(GetHandle(), ::GetFocus(), bBack));
    return true;
}

LRESULT QMTBTrans::DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_ERASEBKGND) {
        RECT area;
        ::GetClientRect(hWnd, &area);
        FillRect(reinterpret_cast<HDC>(wParam), &area, GetSysColorBrush(COLOR_BTNFACE));
        return 1;
    }
    return VWindow::DefaultProc(hWnd, uMessage, wParam, lParam);
}
