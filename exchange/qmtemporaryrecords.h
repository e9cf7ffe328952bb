// QMTemporaryRecords: holds the records of a file that is being read, until the reading is done.
#pragma once

#include <optional>

#include "account/qmtransactionstore.h"
#include "exchange/qmimporttally.h"

class QMTemporaryRecords
{
public:
    // The caller owns the store, which holds the records until HandOver. Their order in it is not
    // defined.
    explicit QMTemporaryRecords(QMTransactionStore& store) : m_store(store) {}

    // Empties the store, for a new file.
    void Begin();

    // Adds a copy of a record. When memory runs out, HandOver will return false.
    void Add(const QMTransaction& transaction);

    // The counts of the records since Begin.
    const QMImportTally& GetTally() const { return m_tally; }

    // Notes that memory ran out elsewhere. HandOver will return false.
    void SetIncomplete() { m_bComplete = false; }

    // Replaces the contents of a store by the records, in the order that adding them one by one
    // would give. When memory has run out, returns false and leaves that store as it was. In both
    // cases no records stay here.
    bool HandOver(QMTransactionStore& into);

private:
    QMTransactionStore& m_store;
    std::optional<QMStoreFiller> m_filler;
    bool m_bComplete = true;
    QMImportTally m_tally;
};
