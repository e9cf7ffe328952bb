// Merges an import into an account. It touches the two stores and nothing else.
#pragma once

#include <cstdint>

#include "account/qmprogress.h"
#include "account/qmtransactionstore.h"

// Copies the marked transactions of one store into the store of an account. The import review marks
// them with QM_TRANS_FLAG_IMPORT; the marks are taken off. The result is the same as calling Add
// for each in turn. Nothing is tested: duplicates come in, and so do values that the entry dialog
// would refuse. Returns how many were copied, with the account's cursor on the last of them. When
// memory runs out, and when pProgress, which may be null, gives the work up, it returns a number
// below 0 and adds nothing.
int32_t QMMergeMarked(QMTransactionStore& from, QMTransactionStore& into,
                      QMProgress* pProgress = nullptr);

// The same of all transactions, marked or not, which move over instead of being copied: the other
// store is empty afterwards, even where memory ran out.
int32_t QMMergeAll(QMTransactionStore& from, QMTransactionStore& into);
