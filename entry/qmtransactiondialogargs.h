// What the transaction dialog is given to work on.
#pragma once

#include <cstdint>

#include "account/qmeditlist.h"
#include "account/qmtransaction.h"

// Called with an entry that was accepted and the two values that belong to it; may change the
// entry, which the dialog then shows. False keeps the dialog on the entry as it was typed.
using QMCommitEntry = bool (*)(QMTransaction& entry, uintptr_t uUserA, uintptr_t uUserB);

// The arrays are the caller's and hold nCount items each.
struct QMTransactionDialogArgs
{
    bool bAddMode = true;                   // entry after entry; else nCount entries to change
    int32_t nCount = 0;                     // 1 to add
    QMTransaction* pTransactions = nullptr; // accepted entries are written back here
    QMEditList lstDescription;              // earlier texts, to choose from
    QMEditList lstMemo;
    QMEditList lstCategory;
    const uintptr_t* pUserA = nullptr;
    const uintptr_t* pUserB = nullptr;
    QMCommitEntry pfnCommit = nullptr; // null accepts every entry
};
