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
    uint64_t uDone = 0;
    bool bWritten = false; // the last transaction so far
    const auto GoesOn = [&] { return pProgress == nullptr || pProgress->OnStep(uDone, uTotal); };
    store.Last();
    store.ForEachWhile([&](const QMTransaction& transaction) {
        if (!GoesOn()) {
            return false;
        }
        bWritten = write(transaction);
        ++uDone;
        return true;
    });
    if (uDone < uTotal) {
        return false;
    }
    while (!bWritten) {
        if (!GoesOn()) {
            return false;
        }
        bWritten = uTotal > 0 && write(*store.GetCurrentNode());
    }
    return true;
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
