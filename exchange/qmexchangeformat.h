// QMExchangeFormat: what the text formats for transactions have in common.
#pragma once

#include <cstddef>
#include <cstdint>

#include "account/qmtransaction.h"
#include "account/qmtransactionstore.h"
#include "exchange/qmlinereader.h"
#include "exchange/qmtemporaryrecords.h"

// Makes a record that was read an entry of a register: the sign of the amount decides on which side
// of the register it belongs, a type of the other side gives way, and the amount loses its sign.
// Interest paid alone stays when its amount is negative. A check needs a number to stay one. The
// date cleared is not left before the date.
void QMSettleRecord(QMTransaction& transaction);

// The amount as the text formats write it: a sign by the type and "%0.2f". A type outside the table
// has no sign.
struct QMSignedAmount
{
    explicit QMSignedAmount(const QMTransaction& transaction);
    char szText[64];
};

class QMExchangeFormat : public QMLineReader
{
public:
    // Reads a file and makes its records the contents of the store. False, with the store as it
    // was, for a file that cannot be opened, an empty one, and for lack of memory; what stands in
    // the file is never an error.
    bool Import(const char* szPath, QMTransactionStore& store);

    // Writes the store from its first transaction on, which leaves its cursor on the last. False
    // when the file cannot be created.
    virtual bool Export(const char* szPath, QMTransactionStore& store);

protected:
    // The end of a record: settles txPending, keeps a copy and makes a new one ready.
    void Commit();

    // A payee that begins with the name of a type gives the type; what it has beyond the text that
    // the register shows for it becomes the description. Any other payee is the description.
    void ParsePayee(const char* szPayee);

    // Makes the import fail for lack of memory.
    void RunOutOfMemory() { m_records.SetIncomplete(); }

    QMTransactionStore storeTemp; // the records read so far
    QMTransaction txPending;      // the record being read

private:
    void ResetPending();

    QMTemporaryRecords m_records{storeTemp};
};
