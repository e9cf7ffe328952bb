// QMTBTrans: the Transactions Bar, where the user picks the display period of the register on top.
// It shows that account's period; the account keeps it.
#pragma once

#include "account/qmdate.h"
#include "toolkit/vcombobox.h"
#include "toolkit/vdatepicker.h"

class QMTBTrans : public VWindow
{
public:
    static constexpr int nWidth = 332; // pixels
    static constexpr int nHeight = 22;

    // Makes the bar as a child of parent, on "All". The owner gets the command IDC_TB_PERIOD,
    // IDC_TB_FROM or IDC_TB_TO after each change by the user.
    bool CreateBar(VWindow& parent, VWindow& owner, UINT uId);

    // The period on show: QM_ACCNT_DISPLAY_.
    int32_t GetSelection() const { return m_list.GetSelection(); }
    // bNotify acts as if the user had chosen it. A value that is no period changes nothing.
    void SetSelection(int32_t lSelection, bool bNotify);

    void GetDates(QMDate& dtFrom, QMDate& dtTo) const;
    void SetDates(const QMDate& dtFrom, const QMDate& dtTo);

    // The dates can be changed for a range of dates alone.
    void UpdateDateControls();

    // Moves the focus inside the bar for the Tab key.
    bool PreTranslate(MSG& message) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;

private:
    bool MakeControls();
    bool MakeLabel(const char* szText, UINT uId, const VRect& rect);
    void TakePeriod();
    void TellOwner(UINT uId);

    VWindow* m_pOwner = nullptr;
    VComboBox m_list;
    VDatePicker m_from;
    VDatePicker m_to;
};
