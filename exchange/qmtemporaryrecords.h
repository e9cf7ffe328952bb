// QMTemporaryRecords: holds the records of a file that is being read, until the reading is done.
#pragma once

#include <optional>

#include "account/qmtransactionstore.h"
#include "exchange/qmimporttally.h"

// Takes the records of a file one by one, as they are read.
class QMRecordTaker
{
public:
    virtual ~QMRecordTaker() = default;

    // Returns false when memory ran out.
    virtual bool Take(const QMTransaction& transaction) = 0;
};

class QMTemporaryRecords
{
public:
    // The caller owns the store, which holds the records until HandOver. Their order in it is not
    // defined.
    explicit QMTemporaryRecords(QMTransactionStore& store) : m_store(store) {}

    // Empties the store, for a new file. With a taker, which may be null, that one gets the records
    // instead of the store.
    void Begin(QMRecordTaker* pTaker = nullptr);

    // Adds a copy of a record. When memory runs out, HandOver and IsComplete will return false.
    void Add(const QMTransaction& transaction);

    // The counts of the records since Begin.
    const QMImportTally& GetTally() const { return m_tally; }

    // Notes that memory ran out elsewhere.
    void SetIncomplete() { m_bComplete = false; }
    bool IsComplete() const { return m_bComplete; }

    // Replaces the contents of a store by the records, in the order that adding them one by one
    // would give. When memory has run out, returns false and leaves that store as it was. In both
    // cases no records stay here.
    bool HandOver(QMTransactionStore& into);

private:
    QMTransactionStore& m_store;
    std::optional<QMStoreFiller> m_filler;
    QMRecordTaker* m_pTaker = nullptr;
    bool m_bComplete = true;
    QMImportTally m_tally;
};
