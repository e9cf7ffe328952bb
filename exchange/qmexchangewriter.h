// What the writers of the exchange formats share.
#pragma once

#include "account/qmtransactionstore.h"
#include "exchange/qmstdiofile.h"
#include "exchange/qmtextwriter.h"

// Calls write(transaction) for the transactions of the store, from the first on. write returns
// whether it has written the transaction. The store's cursor is on the last one afterwards.
//
// Kept: the loop ends only after the last transaction was written, and at the end of the store
// there is no next one. So it never returns for an empty store, nor when write leaves out the last
// transaction. The caller asks QMExportObstacle first.
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

// Creates the file and calls writeTo(sink) to fill it. Returns false when the file cannot be
// created. Whether everything was written is not reported.
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
