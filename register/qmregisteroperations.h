// QMRegisterOperations: what the user can do to an account in its register, apart from its windows.
#pragma once

#include <memory>

#include "entry/qmtransactiondialogargs.h"
#include "register/qmregistermodel.h"

// Where the operations meet the user.
class QMRegisterView
{
public:
    virtual ~QMRegisterView() = default;

    // A question with Yes and No; true for Yes.
    virtual bool Ask(const char* szQuestion) = 0;
    virtual void Tell(const char* szText) = 0;
    // True when the dialog ended with OK.
    virtual bool RunTransactionDialog(QMTransactionDialogArgs& args) = 0;
    // The status bar shows the selection and the sums as they are now.
    virtual void UpdateStatusBar() = 0;
};

// The tags that a command toggles are those of QMTransaction. Operations return false for lack of
// memory, of an account or of what they are to work on; what was done until then stays.
class QMRegisterOperations
{
public:
    // All must outlive this object.
    QMRegisterOperations(QMDocument& document, QMRowList& rows, QMRegisterModel& model,
                         QMRegisterView& view)
        : m_document(document), m_rows(rows), m_model(model), m_view(view)
    {}

    void SetConfirmRemove(bool bConfirm) { m_bConfirmRemove = bConfirm; }
    void SetSortEditLists(bool bSort) { m_bSortEditLists = bSort; }

    // Takes entry after entry from the dialog.
    bool AddTransaction();

    // Adds one entry of the dialog and makes it the next one to type: a check of the same date with
    // the next number. False when its check number is in use and the user thinks better of it.
    bool AddFromDialog(QMTransaction& entry);

    // Lets the user change the selected transactions; true without a selection, too.
    bool EditTransactions();

    // Removes the selected transactions, after a question if that is asked for. A No counts as
    // done.
    bool RemoveTransactions();

    // Toggles a tag (QM_TRANS_FLAG_) of the selected transactions.
    bool ToggleTag(uint32_t uTag);
    // Whether the command for a tag is offered for the present selection.
    bool CanToggleTag(uint32_t uTag);

    void ToggleGridLines();
    void ToggleShadedLines();
    // By its bit in a column mask.
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
