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

} // namespace

int32_t QMMergeMarked(QMTransactionStore& from, QMTransactionStore& into)
{
    int32_t lCount = 0;
    into.Last();
    from.First();
    for (bool bMore = !from.IsEmpty(); bMore; bMore = from.Next()) {
        if (!from.GetCurrentNode()->HasFlag(QM_TRANS_FLAG_IMPORT)) {
            continue;
        }
        from.ClearImportMark();
        std::unique_ptr<QMTransaction> pCopy(new (std::nothrow)
                                                 QMTransaction(*from.GetCurrentNode()));
        if (pCopy == nullptr) {
            RemoveLast(into, lCount);
            return -1;
        }
        into.InsertBehind(std::move(pCopy));
        ++lCount;
    }
    // All are appended first and then sorted once. Add would search the place of each, which takes
    // as many steps as the account is long.
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
