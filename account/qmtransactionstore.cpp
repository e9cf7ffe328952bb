#include "account/qmtransactionstore.h"

#include <new>

#include "account/qmeditlist.h"
#include "account/qmprogress.h"
#include "account/qmsortednodes.h"

namespace {

constexpr uint32_t uFirstCheckNumber = 1000;

QMTransaction* NextOf(const QMTransaction* pTransaction)
{
    return static_cast<QMTransaction*>(pTransaction->GetNext());
}

std::unique_ptr<QMTransaction> MakeCopy(const QMTransaction& transaction)
{
    return std::unique_ptr<QMTransaction>(new (std::nothrow) QMTransaction(transaction));
}

} // namespace

bool QMTransactionStore::IsDescending() const
{
    return m_lSortMode == QM_SORT_DATE_DESCENDING || m_lSortMode == QM_SORT_CLEARED_DESCENDING;
}

uint64_t QMTransactionStore::GetKey(const QMTransactionFields& fields) const
{
    const bool bCleared =
        m_lSortMode == QM_SORT_CLEARED || m_lSortMode == QM_SORT_CLEARED_DESCENDING;
    return QMDateKey(bCleared ? fields.dtCleared : fields.dtDate);
}

bool QMTransactionStore::AssignFrom(const QMNodeList& other)
{
    const auto* pOther = dynamic_cast<const QMTransactionStore*>(&other);
    return pOther != nullptr && AssignStore(*pOther, nullptr);
}

bool QMTransactionStore::AssignStore(const QMTransactionStore& other, QMProgress* pProgress)
{
    if (&other == this) {
        return true;
    }
    Clear();
    m_lSortMode = other.m_lSortMode;
    QMStoreFiller filler(*this);
    const QMListNode* pMarked = other.GetCurrentNode();
    QMListNode* pMarkedCopy = nullptr;
    const auto uTotal = static_cast<uint64_t>(other.GetCount());
    bool bDone = true;
    for (const auto* p = static_cast<QMTransaction*>(other.GetHead()); p != nullptr;
         p = NextOf(p)) {
        auto pCopy = MakeCopy(*p);
        if (pCopy == nullptr || (pProgress != nullptr &&
                                 !pProgress->OnStep(static_cast<uint64_t>(GetCount()), uTotal))) {
            bDone = false;
            break;
        }
        pMarkedCopy = p == pMarked ? pCopy.get() : pMarkedCopy;
        filler.Add(std::move(pCopy));
    }
    // PutInOrder, called by Finish, keeps the cursor on its node and works out the position. So the
    // position given here need not be that of the copy.
    if (pMarkedCopy != nullptr) {
        SetCursor(pMarkedCopy, other.GetPosition());
    }
    return filler.Finish() && bDone;
}

void QMTransactionStore::TakeFrom(QMTransactionStore& other)
{
    if (&other != this) {
        TakeNodesFrom(other);
        m_lSortMode = other.m_lSortMode;
    }
}

void QMTransactionStore::AppendFrom(QMTransactionStore& other)
{
    if (&other != this) {
        AppendNodesFrom(other);
    }
}

int32_t QMTransactionStore::Add(std::unique_ptr<QMTransaction> pTransaction)
{
    if (pTransaction == nullptr || (!IsEmpty() && GetCurrentNode() == nullptr)) {
        return -1;
    }
    const uint64_t uKey = GetKey(*pTransaction);
    const bool bDescending = IsDescending();
    if (bDescending) {
        SeekPlaceFromStart(uKey);
    } else {
        SeekPlaceFromEnd(uKey);
    }
    // The cursor is where the walk stopped. Where it walked past the end, it is on the outermost
    // transaction, and the new one belongs beyond that.
    const bool bStopped = !IsEmpty() && uKey >= GetKey(*GetCurrentNode());
    if (IsEmpty() || bStopped != bDescending) {
        InsertBehind(std::move(pTransaction));
    } else {
        InsertBefore(std::move(pTransaction));
    }
    return GetPosition();
}

void QMTransactionStore::SeekPlaceFromEnd(uint64_t uKey)
{
    Last();
    while (!IsFirst() && uKey < GetKey(*GetCurrentNode())) {
        Previous();
    }
}

void QMTransactionStore::SeekPlaceFromStart(uint64_t uKey)
{
    First();
    while (!IsLast() && uKey < GetKey(*GetCurrentNode())) {
        Next();
    }
}

int32_t QMTransactionStore::GetCurrent(QMTransaction& into) const
{
    const QMTransaction* pCurrent = GetCurrentNode();
    if (pCurrent == nullptr) {
        return -1;
    }
    into.CopyFrom(*pCurrent);
    return GetPosition();
}

QMTransaction* QMTransactionStore::GetCurrentNode() const
{
    return static_cast<QMTransaction*>(QMNodeList::GetCurrentNode());
}

int32_t QMTransactionStore::ReplaceCurrent(const QMTransaction& transaction, bool bReposition)
{
    QMTransaction* pCurrent = GetCurrentNode();
    if (pCurrent == nullptr) {
        return -1;
    }
    if (!bReposition) {
        pCurrent->CopyFrom(transaction);
        return GetPosition();
    }
    auto pNew = MakeCopy(transaction);
    if (pNew == nullptr) {
        return -1;
    }
    Remove();
    return Add(std::move(pNew));
}

int32_t QMTransactionStore::Resort(int32_t lMode)
{
    m_lSortMode = lMode;
    return PutInOrder(Ties::Kept) ? GetPosition() : -1;
}

bool QMTransactionStore::PutInOrder(Ties ties)
{
    QMSortedNodes nodes(static_cast<size_t>(GetCount()));
    if (!nodes.HasMemory()) {
        return false;
    }
    const uint64_t uMirror = IsDescending() ? QM_DATE_KEY_MAX : 0;
    for (auto* p = static_cast<QMTransaction*>(GetHead()); p != nullptr; p = NextOf(p)) {
        nodes.Add(GetKey(*p) ^ uMirror, p);
    }
    // In a descending store Add puts a new transaction before those of its day.
    if (IsDescending() && ties == Ties::AsAdded) {
        nodes.Reverse();
    }
    nodes.Sort();
    Relink([&](int32_t i) { return nodes.Get(static_cast<size_t>(i)); });
    return true;
}

bool QMTransactionStore::HasCheckNumber(uint32_t uNumber)
{
    First();
    while (const QMTransaction* p = GetCurrentNode()) {
        if (p->lType == QM_TRANS_CHECK && p->lNumber == uNumber) {
            return true;
        }
        if (!Next()) {
            break;
        }
    }
    return false;
}

uint32_t QMTransactionStore::NextCheckNumber()
{
    Last();
    while (const QMTransaction* p = GetCurrentNode()) {
        if (p->lType == QM_TRANS_CHECK) {
            return p->lNumber == 0 ? uFirstCheckNumber : p->lNumber + 1;
        }
        if (!Previous()) {
            break;
        }
    }
    return uFirstCheckNumber;
}

bool QMTransactionStore::FillEditList(QMEditList& list, uint32_t uKind, int32_t lLimit)
{
    char szText[QM_FIELD_TEXT_SIZE];
    int32_t lAccepted = 0;
    if (IsEmpty()) {
        return true;
    }
    Last();
    while (const QMTransaction* p = GetCurrentNode()) {
        if (lAccepted >= lLimit) {
            break;
        }
        const bool bHasText = p->FormatField(uKind, szText, false, 0) > 0;
        if (bHasText && list.Add(szText) != nullptr) {
            ++lAccepted;
        }
        if (!Previous()) {
            break;
        }
    }
    return true;
}

uint32_t QMTransactionStore::ChangeFlag(uint32_t uFlag, bool bSet)
{
    QMTransaction* pCurrent = GetCurrentNode();
    const uint32_t uBefore = pCurrent->lFlags;
    pCurrent->lFlags = bSet ? uBefore | uFlag : uBefore & ~uFlag;
    return uBefore;
}

uint32_t QMTransactionStore::SetCleared(bool bCleared)
{
    return ChangeFlag(QM_TRANS_FLAG_NOT_CLEARED, !bCleared);
}

uint32_t QMTransactionStore::SetImportMark(bool bMarked)
{
    return ChangeFlag(QM_TRANS_FLAG_IMPORT, bMarked);
}

bool QMTransactionStore::ToggleCleared()
{
    const bool bNotCleared = !GetCurrentNode()->HasFlag(QM_TRANS_FLAG_NOT_CLEARED);
    SetCleared(!bNotCleared);
    return bNotCleared;
}

bool QMTransactionStore::ClearImportMark()
{
    SetImportMark(false);
    return true;
}

void QMStoreFiller::Add(std::unique_ptr<QMTransaction> pTransaction)
{
    const uint64_t uKey = m_store.GetKey(*pTransaction);
    const bool bFits = m_store.IsDescending() ? m_store.IsEmpty() : uKey >= m_uLastKey;
    m_bInOrder = m_bInOrder && bFits;
    m_uLastKey = uKey;
    // Nobody else moves the cursor in the meantime, so it is on the transaction that was appended
    // last.
    m_store.InsertBehind(std::move(pTransaction));
}

bool QMStoreFiller::Finish()
{
    if (m_bInOrder || m_store.PutInOrder(QMTransactionStore::Ties::AsAdded)) {
        return true;
    }
    m_store.Clear();
    return false;
}
