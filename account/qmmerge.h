// The merge of an import into an account: it touches the two stores and nothing else.
#pragma once

#include <cstdint>

#include "account/qmtransactionstore.h"

// Copies the transactions of one store that carry the mark of the import review into an account's
// store, which keeps its dates in order, as if Add were called for one after the other, and takes
// their marks off. Nothing is tested: neither for duplicates nor for values that an entry by hand
// would be refused for. Returns their count, with the account's cursor on the one added last; below
// 0, with nothing added, for lack of memory.
int32_t QMMergeMarked(QMTransactionStore& from, QMTransactionStore& into);
