// QMRegisterOperations: what the user can do to an account in its register, without windows.
#pragma once

#include <memory>

#include "entry/qmtransactiondialogargs.h"
#include "register/qmregistermodel.h"

enum class QMDialogEnd
{
    OK,
    Cancel,
    Failed // it could not be made, or memory ran out in it
};

// What the operations need of the window: questions, messages and the dialog.
class QMRegisterView
{
public:
    virtual ~QMRegisterView() = default;

    // Asks a question with Yes and No. Returns true for Yes.
    virtual bool Ask(const char* szQuestion) = 0;
    virtual void Tell(const char* szText) = 0;
    virtual QMDialogEnd RunTransactionDialog(QMTransactionDialogArgs& args) = 0;
    // Brings the status bar up to date with the selection and the sums, if this register is the
    // active one.
    virtual void UpdateStatusBar() = 0;
};

// Tags are those of QMTransaction::SetTag. The operations return false when memory ran out, when
// there is no account, and when there is nothing to work on. What was done before that stays done.
class QMRegisterOperations
{
public:
    // All four must live longer than this object.
    QMRegisterOperations(QMDocument& document, QMRowList& rows, QMRegisterModel& model,
                         QMRegisterView& view)
        : m_document(document), m_rows(rows), m_model(model), m_view(view)
    {}

    void SetConfirmRemove(bool bConfirm) { m_bConfirmRemove = bConfirm; }
    void SetSortEditLists(bool bSort) { m_bSortEditLists = bSort; }

    // Runs the dialog, in which the user adds one transaction after another.
    bool AddTransaction();

    // Adds an entry to the account. entry then becomes the next one to type: a check of the same
    // date with the next number. Returns false when the check number is in use and the user answers
    // No.
    bool AddFromDialog(QMTransaction& entry);

    // Runs the dialog for the selected transactions. Returns true when nothing is selected, too.
    bool EditTransactions();

    // Removes the selected transactions, after a question if the option says so. The answer No
    // returns true.
    bool RemoveTransactions();

    // Toggles a tag (a QM_TRANS_FLAG_ bit) of each selected transaction.
    bool ToggleTag(uint32_t uTag);
    // Whether the menu offers the tag for the present selection.
    bool CanToggleTag(uint32_t uTag);

    void ToggleGridLines();
    void ToggleShadedLines();
    // Shows or hides the column of that mask bit.
    void ToggleColumn(uint32_t uColumn);

private:
    using Entries = std::unique_ptr<QMTransaction[]>;
    using Positions = std::unique_ptr<uintptr_t[]>;

    QMTransactionStore* GetStore();
    void FillEditLists(QMTransactionDialogArgs& args);
    bool CollectSelection(int32_t lCount, QMTransaction* pEntries, uintptr_t* pPositions);
    bool EditSelection();
    void StoreEntries(int32_t lCount, const QMTransaction* pEntries, const uintptr_t* pPositions);
    bool RemoveSelection(int32_t lCount);
    void ToggleTagOfRow(uint32_t uTag, int32_t lRow);
    void ShowView();

    QMDocument& m_document;
    QMRowList& m_rows;
    QMRegisterModel& m_model;
    QMRegisterView& m_view;
    bool m_bConfirmRemove = true;
    bool m_bSortEditLists = false;
};
