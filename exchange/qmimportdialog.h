// QMImportDialog: the import review. It shows the transactions that were read from a file before
// any of them gets into the account. The user chooses which come in and can change their cleared
// state.
#pragma once

#include "exchange/qmimportreview.h"
#include "register/qmgridlist.h"
#include "toolkit/vbutton.h"
#include "toolkit/vdialog.h"

class QMImportDialog : public VDialog
{
public:
    // Runs the dialog. Returns IDC_IMPORT_IMPORT, with QM_TRANS_FLAG_IMPORT set in the chosen
    // transactions and in no others; or IDCANCEL, also when the dialog could not be made. The
    // cleared state is changed in the store at once. The store must live longer than the call. Its
    // order stays, its cursor may move.
    INT_PTR DoModal(HWND hParent, QMTransactionStore& store);

    bool OnInitDialog() override;
    // The dialog has no OK button. The Enter key presses Import.
    bool OnOK() override { return false; }
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;

private:
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

    QMTransactionStore* m_pStore = nullptr; // owned by the caller
    QMGridList m_list;
    VCheckBox m_importAll;
    VCheckBox m_clearAll;
    VButton m_cancel;
    VButton m_import;
    bool m_bSetsTicks = false; // the program, not the user, is changing the ticks
};
