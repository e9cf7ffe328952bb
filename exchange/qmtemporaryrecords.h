// QMTemporaryRecords: the records of a file that is being read, until they are handed over.
#pragma once

#include <optional>

#include "account/qmtransactionstore.h"

class QMTemporaryRecords
{
public:
    // The store, which it does not own, holds the records meanwhile, in no certain order.
    explicit QMTemporaryRecords(QMTransactionStore& store) : m_store(store) {}

    // Empties the store for a new file.
    void Begin();

    // Adds a copy. Memory that runs out makes HandOver fail.
    void Add(const QMTransaction& transaction);

    // Memory ran out elsewhere: makes HandOver fail.
    void SetIncomplete() { m_bComplete = false; }

    // Makes the records the contents of a store, in the order in which adding them one by one would
    // have left them. False for lack of memory: that store is then as it was. Nothing stays here
    // either way.
    bool HandOver(QMTransactionStore& into);

private:
    QMTransactionStore& m_store;
    std::optional<QMStoreFiller> m_filler;
    bool m_bComplete = true;
};
