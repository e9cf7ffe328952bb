// QMPackedTransactions: transactions as the entries that they will be in an account file. For those
// that go into a file and nowhere else: a record of fixed size takes seven times as much memory,
// and most of the time that such work takes goes by while memory is given to the process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "account/qmbytesink.h"
#include "account/qmprogress.h"
#include "account/qmtransaction.h"

class QMPackedTransactions
{
public:
    // For a file of that format version.
    explicit QMPackedTransactions(int32_t lVersion);
    QMPackedTransactions(const QMPackedTransactions&) = delete;
    QMPackedTransactions& operator=(const QMPackedTransactions&) = delete;
    ~QMPackedTransactions();

    // Packs a transaction. Returns false when memory ran out.
    bool Add(const QMTransactionFields& fields);

    int32_t GetCount() const { return m_lCount; }

    // Writes the entries in the order in which a store would hold the transactions, added one by
    // one. pProgress, which may be null, is told of the bytes. They cannot be used afterwards.
    // Returns false when the sink refused anything, when memory ran out and when the work was given
    // up.
    bool WriteTo(QMByteSink& sink, QMProgress* pProgress);

private:
    struct Block;

    Block* MakeRoom();
    bool WriteInOrder(QMByteSink& sink, QMProgress* pProgress);
    bool WriteSorted(QMByteSink& sink, QMProgress* pProgress);
    template <class F>
    void ForEachEntry(F f);

    int32_t m_lVersion;
    int32_t m_lCount = 0;
    uint64_t m_uLastKey = 0;
    bool m_bInOrder = true; // the transactions came in the order of their dates
    std::unique_ptr<Block> m_pFirst;
    Block* m_pLast = nullptr;
};
