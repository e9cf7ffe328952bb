// The dialog in which transactions are typed: new ones one after another, or given ones to change.
#pragma once

#include <optional>

#include "entry/qmentrypictures.h"
#include "entry/qmtransactionentry.h"
#include "toolkit/vcombobox.h"
#include "toolkit/vdatepicker.h"
#include "toolkit/vdialog.h"

class QMTransactionDialog : public VDialog
{
public:
    QMTransactionDialog() { GetFlags().Set(V_FLAG_PAINTS); }
    // The window ends here, while the operations below still are this object's.
    ~QMTransactionDialog() override { Detach(); }

    // The block must outlive the call. IDOK or IDCANCEL; -1 without an entry, or when the dialog
    // could not be made. Entries that were added stay added after Cancel; of those to edit, the
    // array may then hold some that are not to be used.
    INT_PTR DoModal(HWND hParent, QMTransactionDialogArgs& args);

    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    bool OnPaint(VDrawingSurface& surface) override;
    bool OnInitDialog() override;
    bool OnOK() override;

private:
    bool AttachControls();
    void ShowButtons();

    bool OnButton(UINT uId);
    void OnType();
    void OnBox();
    void OnAdd();
    void OnMove(QMEntryMove move);
    void OnDateChange(UINT uId);

    // False, with a message, when the entry is not a proper one.
    bool Accept();
    QMEntryFields ReadFields() const;
    QMEntryBoxes ReadBoxes() const;
    void ShowFields(const QMEntryFields& fields, bool bWithDates);
    void ShowTypeFields(const QMEntryFields& fields);
    void ShowBoxes(const QMEntryBoxes& boxes);
    void EnableArrows();

    QMTransactionDialogArgs* m_pArgs = nullptr; // while the dialog runs
    std::optional<QMTransactionEntry> m_entry;
    QMEntryPictures m_pictures;
    VComboBox m_cboDescription;
    VComboBox m_cboMemo;
    VComboBox m_cboCategory;
    VDatePicker m_dtpDate;
    VDatePicker m_dtpCleared;
};
