// QMTBTrans: the Transactions Bar, in which the user chooses the display period of the active
// register. The bar only shows the period; the account stores it.
#pragma once

#include "account/qmdate.h"
#include "toolkit/vcombobox.h"
#include "toolkit/vdatepicker.h"

class QMTBTrans : public VWindow
{
public:
    static constexpr int nWidth = 332; // in pixels
    static constexpr int nHeight = 22;

    // Makes the bar as a child of parent, with "All" selected. After each change by the user the
    // bar sends the owner WM_COMMAND with IDC_TB_PERIOD, IDC_TB_FROM or IDC_TB_TO.
    bool CreateBar(VWindow& parent, VWindow& owner, UINT uId);

    // The selected period, one of QM_ACCNT_DISPLAY_.
    int32_t GetSelection() const { return m_list.GetSelection(); }
    // Selects a period; a value that is no period changes nothing. bNotify has the same effects as
    // a choice by the user.
    void SetSelection(int32_t lSelection, bool bNotify);

    void GetDates(QMDate& dtFrom, QMDate& dtTo) const;
    void SetDates(const QMDate& dtFrom, const QMDate& dtTo);

    // Enables the two dates for QM_ACCNT_DISPLAY_DATE_RANGE, and disables them for every other
    // period.
    void UpdateDateControls();

    // The list of periods: whether it has dropped down, and the focus to it.
    bool IsListOpen() const { return m_list.Send(CB_GETDROPPEDSTATE) != 0; }
    void FocusList() { m_list.SetFocus(); }

    // Moves the focus within the bar for the Tab key. The frame is no dialog, so Windows does not.
    bool PreTranslate(MSG& message) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;

private:
    bool MakeControls();
    bool MakeLabel(const char* szText, UINT uId, const VRect& rect, DWORD uStyle = WS_VISIBLE);
    void TakePeriod();
    void TellOwner(UINT uId);

    VWindow* m_pOwner = nullptr;
    VComboBox m_list;
    VDatePicker m_from;
    VDatePicker m_to;
};
