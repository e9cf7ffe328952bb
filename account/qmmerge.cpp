#include "account/qmmerge.h"

#include <memory>
#include <new>
#include <utility>

namespace {

void RemoveLast(QMTransactionStore& store, int32_t lCount)
{
    store.Last();
    for (; lCount > 0; --lCount) {
        store.Remove();
    }
}

// Copies them as they stand and takes their marks off. The account is not touched meanwhile: the
// progress may let its register paint itself.
bool CopyMarked(QMTransactionStore& from, QMTransactionStore& copies, QMProgress* pProgress)
{
    const auto uTotal = static_cast<uint64_t>(from.GetCount());
    from.First();
    for (bool bMore = !from.IsEmpty(); bMore; bMore = from.Next()) {
        const auto uDone = static_cast<uint64_t>(from.GetPosition());
        if (pProgress != nullptr && !pProgress->OnStep(uDone, uTotal)) {
            return false;
        }
        if (!from.GetCurrentNode()->HasFlag(QM_TRANS_FLAG_IMPORT)) {
            continue;
        }
        from.ClearImportMark();
        std::unique_ptr<QMTransaction> pCopy(new (std::nothrow)
                                                 QMTransaction(*from.GetCurrentNode()));
        if (pCopy == nullptr) {
            return false;
        }
        copies.InsertBehind(std::move(pCopy));
    }
    return true;
}

} // namespace

int32_t QMMergeMarked(QMTransactionStore& from, QMTransactionStore& into, QMProgress* pProgress)
{
    QMTransactionStore copies;
    if (!CopyMarked(from, copies, pProgress)) {
        return -1;
    }
    // All are appended first and then sorted once. Add would search the place of each, which takes
    // as many steps as the account is long.
    const int32_t lCount = copies.GetCount();
    into.Last();
    into.AppendFrom(copies);
    if (lCount > 0 && into.Resort(into.GetSortMode()) < 0) {
        RemoveLast(into, lCount);
        return -1;
    }
    return lCount;
}

int32_t QMMergeAll(QMTransactionStore& from, QMTransactionStore& into)
{
    const int32_t lCount = from.GetCount();
    const bool bInOrder = into.IsEmpty() && into.GetSortMode() == from.GetSortMode();
    into.AppendFrom(from);
    if (!bInOrder && lCount > 0 && into.Resort(into.GetSortMode()) < 0) {
        RemoveLast(into, lCount);
        return -1;
    }
    return lCount;
}
