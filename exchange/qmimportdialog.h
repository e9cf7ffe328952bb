// QMImportDialog: shows the transactions that were read from a file, before any of them reaches the
// account, and lets the user choose which of them come in and set their cleared state.
#pragma once

#include "exchange/qmimportreview.h"
#include "register/qmgridlist.h"
#include "toolkit/vbutton.h"
#include "toolkit/vdialog.h"

class QMImportDialog : public VDialog
{
public:
    // Returns IDC_IMPORT_IMPORT, with QM_TRANS_FLAG_IMPORT in the chosen transactions and in no
    // other, or IDCANCEL, also when the dialog could not be made. The cleared state is set in the
    // store at once. The store outlives the call and keeps its order; its cursor may move.
    INT_PTR DoModal(HWND hParent, QMTransactionStore& store);

    bool OnInitDialog() override;
    // There is no OK button.
    bool OnOK() override { return false; }
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;

private:
    void ShowIcon();
    bool AttachControls();
    bool MakeList();
    bool InsertRows();
    bool InsertRow(int nRow, const QMTransaction& transaction);
    void FocusList();
    void LayOut(int nWidth, int nHeight);
    void FitFiller(int nWidth);
    void ReadWidths(int32_t (&aWidth)[QM_IMPORT_COUNT]) const;
    bool IsTicked(int nRow) const;
    void SetAllTicks(bool bTicked);
    void OnListClick(int nPixels);
    void ToggleCleared(int nRow);
    void PressImportAll();
    void PressClearAll();
    void Import();

    QMTransactionStore* m_pStore = nullptr; // the caller's
    QMGridList m_list;
    VCheckBox m_importAll;
    VCheckBox m_clearAll;
    VButton m_cancel;
    VButton m_import;
    bool m_bSetsTicks = false; // the changes at hand are not the user's
};
