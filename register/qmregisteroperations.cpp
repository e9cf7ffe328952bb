#include "register/qmregisteroperations.h"

#include <cstdio>
#include <new>

namespace {

// The most earlier texts that each list of the dialog offers.
constexpr int32_t lEditListLimit = 50;

// The columns that a tag changes.
constexpr uint32_t uTagColumns = QM_COLUMN_BALANCE | QM_COLUMN_TAG | QM_COLUMN_CLEARED;

constexpr char szNumberInUse[] = "Check number already in use.\nWould you like to continue?";
constexpr char szRemoveOne[] = "Are you sure you want to remove this transaction?";
constexpr char szRemoveMany[] = "Are you sure you want to remove these transactions?";

// Whether a type can be tagged as tax or expense: only one by which the user pays.
bool CanBeDeducted(int32_t lType)
{
    return lType == QM_TRANS_CHECK || lType == QM_TRANS_DIRECT_DEBIT ||
           lType == QM_TRANS_AUTOMATIC_PAYMENT || lType == QM_TRANS_TRANSFER_DEBIT;
}

bool CommitAdded(QMTransaction& entry, uintptr_t /*uUserA*/, uintptr_t uUserB)
{
    return reinterpret_cast<QMRegisterOperations*>(uUserB)->AddFromDialog(entry);
}

template <class T>
std::unique_ptr<T[]> MakeArray(int32_t lCount)
{
    return std::unique_ptr<T[]>(new (std::nothrow) T[static_cast<size_t>(lCount)]());
}

// Changes a flag of the header from 0 to 1 or back, and returns it.
bool Flip(uint8_t& bFlag)
{
    bFlag = bFlag == 0 ? 1 : 0;
    return bFlag != 0;
}

} // namespace

QMTransactionStore* QMRegisterOperations::GetStore()
{
    QMAccount* pAccount = m_document.GetAccount();
    return pAccount == nullptr ? nullptr : &pAccount->store;
}

void QMRegisterOperations::FillEditLists(QMTransactionDialogArgs& args)
{
    const uint32_t uOrder = m_bSortEditLists ? QM_EDIT_ALPHABETICAL : QM_EDIT_BY_ARRIVAL;
    const struct
    {
        QMEditList& list;
        QMFieldKind kind;
    } aLists[] = {{args.lstDescription, QM_FIELD_PAYEE},
                  {args.lstMemo, QM_FIELD_MEMO},
                  {args.lstCategory, QM_FIELD_CATEGORY}};
    for (const auto& entry : aLists) {
        entry.list.SetFlags(uOrder);
        GetStore()->FillEditList(entry.list, entry.kind, lEditListLimit);
    }
}

// ---- Adding.

bool QMRegisterOperations::AddTransaction()
{
    QMTransactionStore* pStore = GetStore();
    if (pStore == nullptr) {
        return false;
    }
    QMTransaction entry;
    entry.lNumber = pStore->NextCheckNumber();
    const uintptr_t uUserA = 0;
    const auto uUserB = reinterpret_cast<uintptr_t>(this);
    QMTransactionDialogArgs args;
    args.bAddMode = true;
    args.nCount = 1;
    args.pTransactions = &entry;
    args.pUserA = &uUserA;
    args.pUserB = &uUserB;
    args.pfnCommit = &CommitAdded;
    FillEditLists(args);
    const QMDialogEnd end = m_view.RunTransactionDialog(args);
    m_view.UpdateStatusBar();
    return end != QMDialogEnd::Failed;
}

bool QMRegisterOperations::AddFromDialog(QMTransaction& entry)
{
    QMTransactionStore* pStore = GetStore();
    if (pStore == nullptr) {
        return true;
    }
    if (entry.lType == QM_TRANS_CHECK && pStore->HasCheckNumber(entry.lNumber) &&
        !m_view.Ask(szNumberInUse)) {
        return false;
    }
    std::unique_ptr<QMTransaction> pNew(new (std::nothrow) QMTransaction);
    if (pNew == nullptr) {
        return false;
    }
    pNew->CopyFrom(entry);
    const int32_t lPosition = pStore->Add(std::move(pNew));
    // The list stays as it is for a transaction outside the period. Where its rows stand in the
    // store may have changed all the same.
    m_model.FindFirstShown();
    if (m_model.IsDateShown(entry.dtDate) &&
        m_rows.InsertRow(lPosition - m_model.GetFirstShown())) {
        m_model.RefreshRows(lPosition, QM_COLUMN_ALL, false);
        // Kept: the store position is used as a row number. In a period that begins later, a row
        // further down is selected, or none. Users of periods know it so.
        m_model.SelectRow(lPosition);
    }
    const QMDate dtDate = entry.dtDate;
    entry.SetDefaults();
    entry.dtDate = dtDate;
    entry.dtCleared = dtDate;
    entry.lNumber = pStore->NextCheckNumber();
    m_document.MarkModified();
    return true;
}

// ---- Editing.

bool QMRegisterOperations::EditTransactions()
{
    if (GetStore() == nullptr || !m_model.HasSelection()) {
        return true;
    }
    const bool bDone = EditSelection();
    m_view.UpdateStatusBar();
    return bDone;
}

bool QMRegisterOperations::CollectSelection(int32_t lCount, QMTransaction* pEntries,
                                            uintptr_t* pPositions)
{
    QMTransactionStore& store = *GetStore();
    int32_t lFound = 0;
    for (int32_t lRow = m_rows.GetNextSelected(-1); lRow >= 0;
         lRow = m_rows.GetNextSelected(lRow)) {
        const int32_t lPosition = m_model.GetFirstShown() + lRow;
        if (lFound == lCount || !store.MoveTo(lPosition)) {
            return false;
        }
        store.GetCurrent(pEntries[lFound]);
        pPositions[lFound++] = static_cast<uintptr_t>(lPosition);
    }
    return lFound == lCount;
}

bool QMRegisterOperations::EditSelection()
{
    const int32_t lCount = m_rows.GetSelectedCount();
    const Entries pEntries = MakeArray<QMTransaction>(lCount);
    const Positions pPositions = MakeArray<uintptr_t>(lCount);
    // The dialog's second value means nothing here.
    const Positions pZeros = MakeArray<uintptr_t>(lCount);
    if (pEntries == nullptr || pPositions == nullptr || pZeros == nullptr ||
        !CollectSelection(lCount, pEntries.get(), pPositions.get())) {
        return false;
    }
    QMTransactionDialogArgs args;
    args.bAddMode = false;
    args.nCount = lCount;
    args.pTransactions = pEntries.get();
    args.pUserA = pPositions.get();
    args.pUserB = pZeros.get();
    FillEditLists(args);
    const QMDialogEnd end = m_view.RunTransactionDialog(args);
    if (end == QMDialogEnd::OK) {
        StoreEntries(lCount, pEntries.get(), pPositions.get());
    }
    return end != QMDialogEnd::Failed;
}

void QMRegisterOperations::StoreEntries(int32_t lCount, const QMTransaction* pEntries,
                                        const uintptr_t* pPositions)
{
    QMTransactionStore& store = *GetStore();
    // All entries are replaced first and sorted once at the end: a sort in between would change the
    // positions of the others.
    for (int32_t i = 0; i < lCount; ++i) {
        store.MoveTo(static_cast<int32_t>(pPositions[i]));
        store.ReplaceCurrent(pEntries[i], false);
    }
    const int32_t lRow = store.Resort(QM_SORT_DATE) - m_model.GetFirstShown();
    m_model.RebuildRows(false);
    m_model.RefreshRows(0, QM_COLUMN_ALL, false);
    m_model.SelectRow(lRow);
    m_document.MarkModified();
}

// ---- Removing.

bool QMRegisterOperations::RemoveTransactions()
{
    const QMTransactionStore* pStore = GetStore();
    if (pStore == nullptr || pStore->IsEmpty()) {
        return false;
    }
    const int32_t lCount = m_rows.GetSelectedCount();
    if (m_bConfirmRemove && !m_view.Ask(lCount < 2 ? szRemoveOne : szRemoveMany)) {
        return true;
    }
    const bool bDone = RemoveSelection(lCount);
    m_view.UpdateStatusBar();
    return bDone;
}

bool QMRegisterOperations::RemoveSelection(int32_t lCount)
{
    QMTransactionStore& store = *GetStore();
    const int32_t lFirstShown = m_model.GetFirstShown();
    const auto pRows = MakeArray<int32_t>(lCount);
    if (lCount == 0 || pRows == nullptr) {
        return false;
    }
    // Kept: each search starts from the last store position, where the row number is meant. In a
    // period that begins later, it passes over selected rows; and when it finds no more, -1 stands
    // for the transaction before the period. The register has always removed so, and an account
    // must come out the same from every version.
    int32_t lPosition = -1;
    for (int32_t i = lCount; i-- > 0;) {
        const int32_t lRow = m_rows.GetNextSelected(lPosition);
        pRows[static_cast<size_t>(i)] = lRow;
        lPosition = lFirstShown + lRow;
    }
    int32_t lLeftAt = -1;
    for (int32_t i = 0; i < lCount; ++i) {
        store.MoveTo(lFirstShown + pRows[static_cast<size_t>(i)]);
        lLeftAt = store.Remove();
    }
    m_rows.DeleteRows(pRows.get(), lCount);
    const int32_t lRow = lLeftAt - lFirstShown;
    // Kept: RefreshRows gets a row number where it expects a store position, and is not called at
    // all when the first row was removed. The balances further down then stay as they were until
    // something else refreshes them.
    if (!store.IsEmpty() && lRow > 0) {
        m_model.RefreshRows(lRow, QM_COLUMN_ALL, false);
        m_model.SelectRow(lRow);
    }
    m_model.FindFirstShown();
    m_document.MarkModified();
    return true;
}

// ---- Tags.

bool QMRegisterOperations::ToggleTag(uint32_t uTag)
{
    const int32_t lFirstRow = m_rows.GetNextSelected(-1);
    if (GetStore() == nullptr || lFirstRow < 0) {
        return false;
    }
    const int32_t lFirst = m_model.GetFirstShown() + lFirstRow;
    for (int32_t lRow = lFirstRow; lRow >= 0; lRow = m_rows.GetNextSelected(lRow)) {
        if (GetStore()->MoveTo(m_model.GetFirstShown() + lRow)) {
            ToggleTagOfRow(uTag, lRow);
        }
    }
    if (!m_model.RefreshRows(lFirst, uTagColumns, false)) {
        return false;
    }
    m_document.MarkModified();
    m_view.UpdateStatusBar();
    return true;
}

void QMRegisterOperations::ToggleTagOfRow(uint32_t uTag, int32_t lRow)
{
    QMTransactionStore& store = *GetStore();
    QMTransaction transaction;
    store.GetCurrent(transaction);
    const bool bClears = uTag == QM_TRANS_FLAG_NOT_CLEARED && transaction.HasFlag(uTag);
    if (bClears && transaction.GetRoundedAmount() == 0) {
        char szText[128];
        snprintf(szText, sizeof szText,
                 "Transaction %d:\n\nUnable to set cleared status.\nThis transaction has an "
                 "amount of $0.00.",
                 lRow + 1);
        m_view.Tell(szText);
        // While the box was open, something may have moved the store's cursor. Go back to the
        // transaction.
        store.MoveTo(m_model.GetFirstShown() + lRow);
    } else if (transaction.HasFlag(uTag)) {
        transaction.lFlags &= ~uTag;
    } else {
        transaction.SetTag(uTag);
    }
    if (!transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)) {
        transaction.lFlags &= ~QM_TRANS_FLAG_VOIDED;
    }
    store.ReplaceCurrent(transaction, false);
}

bool QMRegisterOperations::CanToggleTag(uint32_t uTag)
{
    QMTransactionStore* pStore = GetStore();
    const bool bByType = uTag == QM_TRANS_FLAG_TAX || uTag == QM_TRANS_FLAG_EXPENSE;
    int32_t lRow = m_rows.GetNextSelected(-1);
    if (pStore == nullptr || !bByType || lRow < 0) {
        return true;
    }
    pStore->MoveTo(m_model.GetFirstShown() + lRow);
    for (;;) {
        const QMTransaction* pTransaction = pStore->GetCurrentNode();
        if (pTransaction == nullptr || !CanBeDeducted(pTransaction->lType)) {
            return false;
        }
        const int32_t lNext = m_rows.GetNextSelected(lRow);
        if (lNext < 0) {
            return true;
        }
        // Kept: in a period that begins later this goes too far, so the transactions tested after
        // the first are not the selected ones. Only whether the command is offered depends on it:
        // ToggleTag tests nothing.
        pStore->Next(m_model.GetFirstShown() + lNext - lRow);
        lRow = lNext;
    }
}

// ---- The look.

void QMRegisterOperations::ToggleGridLines()
{
    QMAccountHeader* pHeader = m_document.GetHeader(false);
    if (pHeader == nullptr) {
        return;
    }
    const bool bLines = Flip(pHeader->bGridLines);
    m_rows.SetLineFlag(QM_GRID_VERTICAL, bLines);
    m_rows.SetLineFlag(QM_GRID_HORIZONTAL, bLines && pHeader->bShadedLines == 0);
    ShowView();
}

void QMRegisterOperations::ToggleShadedLines()
{
    QMAccountHeader* pHeader = m_document.GetHeader(false);
    if (pHeader == nullptr) {
        return;
    }
    const bool bShaded = Flip(pHeader->bShadedLines);
    m_rows.SetLineFlag(QM_GRID_SHADED, bShaded);
    if (pHeader->bGridLines != 0) {
        m_rows.SetLineFlag(QM_GRID_HORIZONTAL, !bShaded);
    }
    ShowView();
}

void QMRegisterOperations::ToggleColumn(uint32_t uColumn)
{
    QMAccountHeader* pHeader = m_document.GetHeader(false);
    for (int32_t i = 0; i < QM_ENTRY_FILLER && pHeader != nullptr; ++i) {
        const QMColumnInfo& info = QMGetColumnInfo(static_cast<QMColumn>(i));
        if (info.uMask == uColumn) {
            Flip(pHeader->*info.pShown);
            const int32_t lFocus = m_model.GetStoredFocusRow();
            m_model.RebuildRows(true);
            m_model.RefreshRows(0, QM_COLUMN_ALL, false);
            m_model.SetFocusRow(lFocus);
            m_model.SelectRow(lFocus);
            m_document.MarkModified();
        }
    }
}

void QMRegisterOperations::ShowView()
{
    m_model.RefreshRows(0, QM_COLUMN_ALL, false);
    m_model.SelectRow(m_model.GetStoredFocusRow());
    m_document.MarkModified();
}
