// What the writers of the exchange formats share.
#pragma once

#include "account/qmprogress.h"
#include "account/qmtransactionstore.h"
#include "exchange/qmstdiofile.h"
#include "exchange/qmtextwriter.h"

// Calls write(transaction) for the transactions of the store, from the first on. write returns
// whether it has written the transaction. The store's cursor is on the last one afterwards.
//
// Kept: the loop ends only after the last transaction was written, and at the end of the store
// there is no next one. So it never returns by itself for an empty store, nor when write leaves out
// the last transaction. The caller asks QMExportObstacle first, or lets pProgress end it.
//
// Returns false when pProgress, which may be null, gave the work up.
template <class F>
bool QMWriteTransactions(QMTransactionStore& store, F write, QMProgress* pProgress)
{
    const auto uTotal = static_cast<uint64_t>(store.GetCount());
    store.First();
    for (uint64_t uDone = 0;; uDone += uDone < uTotal ? 1 : 0) {
        if (pProgress != nullptr && !pProgress->OnStep(uDone, uTotal)) {
            return false;
        }
        const QMTransaction* pCurrent = store.GetCurrentNode();
        if (pCurrent != nullptr && write(*pCurrent) && store.IsLast()) {
            return true;
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
