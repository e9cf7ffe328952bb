// QMExchangeFormat: what the text formats, QIF and CSV, have in common.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "account/qmtransaction.h"
#include "account/qmtransactionstore.h"
#include "exchange/qmlinereader.h"
#include "exchange/qmtemporaryrecords.h"

// Makes a register entry out of a record that was read. The sign of the amount decides the side of
// the register: a type of the other side becomes Deposit or Withdrawal. The amount then loses its
// sign. Interest Paid stays even with a negative amount. A check without a number becomes a
// withdrawal. A date cleared that is before the date is set to the date.
void QMSettleRecord(QMTransaction& transaction);

// The amount as the text formats write it: by "%0.2f", with the sign that the type gives. An
// unknown type gives no sign.
struct QMSignedAmount
{
    explicit QMSignedAmount(const QMTransaction& transaction);
    std::string_view GetText() const { return {szText, uLength}; }

    char szText[64];
    size_t uLength;
};

// The payee as the text formats write it: what the register shows as description, without the mark
// of a voided one; empty for an unknown type. szBuffer has QM_FIELD_TEXT_SIZE bytes.
inline std::string_view QMPayeeText(const QMTransaction& transaction, char* szBuffer)
{
    const int32_t lLength = transaction.FormatField(QM_FIELD_DESCRIPTION, szBuffer, false, 0);
    return {szBuffer, static_cast<size_t>(lLength < 0 ? 0 : lLength)};
}

class QMExchangeFormat : public QMLineReader
{
public:
    // Replaces the contents of the store by the records of a file. Returns false, and leaves the
    // store as it is, when the file cannot be opened or is empty, and when memory ran out. Nothing
    // that a file may contain is an error.
    bool Import(const char* szPath, QMTransactionStore& store);
    bool Import(QMByteSource& source, QMTransactionStore& store);

    // Gives the records to a taker as they are read. On false it may have got some of them.
    bool Import(QMByteSource& source, QMRecordTaker& taker);

    // Of the records of the last import.
    const QMImportTally& GetTally() const { return m_records.GetTally(); }

    // Writes the store from its first transaction on. The store's cursor is on the last one
    // afterwards. Returns false when the file cannot be created.
    virtual bool Export(const char* szPath, QMTransactionStore& store);

protected:
    // Ends a record: makes txPending an entry, keeps a copy of it and prepares it for the next
    // record.
    void Commit();

    // Reads a payee. When it begins with the name of a type, the record gets that type, and the
    // rest becomes the description. Otherwise all of it is the description.
    void ParsePayee(const char* szPayee);

    // Notes that memory ran out. Import then returns false.
    void RunOutOfMemory() { m_records.SetIncomplete(); }

    QMTransactionStore storeTemp; // the records that were read so far
    QMTransaction txPending;      // the record that is being read

private:
    template <class T>
    bool ImportFrom(T&& source, QMTransactionStore& store);
    void ResetPending();

    QMTemporaryRecords m_records{storeTemp};
};
