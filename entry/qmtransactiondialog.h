// QMTransactionDialog: the dialog in which the user adds transactions one after another, or changes
// given ones.
#pragma once

#include <optional>

#include "entry/qmentrypictures.h"
#include "entry/qmkeptdate.h"
#include "entry/qmtransactionentry.h"
#include "toolkit/vcombobox.h"
#include "toolkit/vdatepicker.h"
#include "toolkit/vdialog.h"

class QMTransactionDialog : public VDialog
{
public:
    QMTransactionDialog() { GetFlags().Set(V_FLAG_PAINTS); }
    ~QMTransactionDialog() override { Detach(); }

    // Runs the dialog. args must live longer than the call. Returns IDOK or IDCANCEL; -1 when args
    // holds no entry or the dialog could not be made. To add: what was added stays added, whatever
    // is returned. To edit: after IDCANCEL the array may hold changes, which the caller must not
    // use.
    INT_PTR DoModal(HWND hParent, QMTransactionDialogArgs& args);

    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    bool OnPaint(VDrawingSurface& surface) override;
    bool OnInitDialog() override;
    bool OnOK() override;

private:
    // A control for a date, and the date that is meant in it.
    struct DateField
    {
        QMDate Read();
        void Show(const QMDate& date);

        VDatePicker m_picker;
        QMKeptDate m_kept;
    };

    bool AttachControls();
    void ShowButtons();

    bool OnButton(UINT uId);
    void OnType();
    void OnBox();
    void OnAdd();
    void OnMove(QMEntryMove move);
    void OnDateChange(UINT uId);

    // Returns false, after a message, when the fields make no valid entry.
    bool Accept();
    void FocusFault();
    QMEntryFields ReadFields();
    QMEntryBoxes ReadBoxes() const;
    void ShowFields(const QMEntryFields& fields, bool bWithDates);
    void ShowTypeFields(const QMEntryFields& fields);
    void ShowBoxes(const QMEntryBoxes& boxes);
    void EnableArrows();

    QMTransactionDialogArgs* m_pArgs = nullptr; // null unless the dialog runs
    std::optional<QMTransactionEntry> m_entry;
    QMEntryPictures m_pictures;
    VComboBox m_cboDescription;
    VComboBox m_cboMemo;
    VComboBox m_cboCategory;
    DateField m_dateField;
    DateField m_clearedField;
};
