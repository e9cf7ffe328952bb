// QMTransactionDialogArgs: what the transaction dialog works on.
#pragma once

#include <cstdint>

#include "account/qmeditlist.h"
#include "account/qmtransaction.h"

// Called with an entry that the user has confirmed and the two values that belong to it. It may
// change the entry; the dialog then shows the changed one. When it returns false the dialog stays
// on the entry as it was typed.
using QMCommitEntry = bool (*)(QMTransaction& entry, uintptr_t uUserA, uintptr_t uUserB);

// The caller owns the arrays. Each holds nCount items.
struct QMTransactionDialogArgs
{
    bool bAddMode = true; // true: add one after another; false: change nCount entries
    int32_t nCount = 0;   // 1 when adding
    QMTransaction* pTransactions = nullptr; // confirmed entries are written back here
    QMEditList lstDescription;              // earlier texts to choose from
    QMEditList lstMemo;
    QMEditList lstCategory;
    const uintptr_t* pUserA = nullptr;
    const uintptr_t* pUserB = nullptr;
    QMCommitEntry pfnCommit = nullptr; // null: every entry is accepted
};
