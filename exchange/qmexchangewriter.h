// What the writers of the exchange formats have in common.
#pragma once

#include "account/qmtransactionstore.h"
#include "exchange/qmstdiofile.h"
#include "exchange/qmtextwriter.h"

// Calls write(transaction) for the transactions of the store from its first one on, which leaves
// the cursor on the last; write answers whether it wrote that one.
//
// Kept: the end is looked for behind a written transaction only, and at the end of the store there
// is no next one. So this never returns for an empty store, nor where write leaves out the last
// transaction. Whoever calls a writer asks QMExportObstacle first.
template <class F>
void QMWriteTransactions(QMTransactionStore& store, F write)
{
    store.First();
    for (;;) {
        const QMTransaction* pCurrent = store.GetCurrentNode();
        if (pCurrent != nullptr && write(*pCurrent) && store.IsLast()) {
            return;
        }
        store.Next();
    }
}

// Makes the file and has writeTo(sink) fill it. False when the file cannot be made; whether it took
// everything is not told.
template <class F>
bool QMWriteExchangeFile(const char* szPath, F writeTo)
{
    const QMStdioFile pFile = QMCreateFile(szPath);
    if (pFile == nullptr) {
        return false;
    }
    QMStdioSink sink(pFile.get());
    writeTo(sink);
    return true;
}
