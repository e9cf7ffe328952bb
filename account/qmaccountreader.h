// QMAccountReader: reads an account file and reports what it found there.
#pragma once

#include <cstdint>

#include "account/qmaccount.h"
#include "account/qmbytesource.h"
#include "account/qmprogress.h"

enum class QMReadFault
{
    None,
    CannotOpen, // QMFile::GetFault tells why
    WrongMagic,
    WrongVersion,
    HeaderTooLong,
    BlockTooLong,
    TextTooLong,
    Truncated,
    OutOfMemory,
};

// A phrase that ends a sentence, such as "it ends too early". Empty for None and CannotOpen.
const char* QMReadFaultText(QMReadFault fault);

struct QMReadReport
{
    QMReadFault fault = QMReadFault::None;
    int32_t lFaultEntry = -1; // the entry with the fault, counted from 0; -1 for none
    int32_t lCount = 0; // entries that the file announces; 0 where it announces a negative number

    // What the reader mended in memory, and in how many entries. The file is not changed.
    int32_t lClearedDates = 0; // date cleared before the date: set to the date
    int32_t lVoided = 0;       // voided and yet cleared: set to not cleared
    int32_t lHeaderTexts = 0;  // header texts without a terminating zero: cut to their field
    int32_t lTexts = 0;        // texts with a zero byte inside: they end there

    bool bInOrder = true;        // the entries are in date order
    uint64_t uTrailingBytes = 0; // bytes after the last entry

    bool IsMended() const { return lClearedDates + lVoided + lHeaderTexts + lTexts > 0; }
};

class QMAccountReader
{
public:
    // The progress, which may be null, is told of the entries. It cannot give the reading up.
    explicit QMAccountReader(QMAccount& account, QMProgress* pProgress = nullptr)
        : m_account(account), m_pProgress(pProgress)
    {}

    // Does what QMAccount::Read promises. When reading stops at a fault, the store holds the
    // entries before it, in date order.
    bool Read();

    // Reads from another source. The account's file is neither opened nor read.
    bool ReadFrom(QMByteSource& source);

    const QMReadReport& GetReport() const { return m_report; }

private:
    bool Fail(QMReadFault fault);
    bool ReadPrefix(QMByteReader& reader);
    bool ReadHeader(QMByteReader& reader);
    bool ReadEntries(QMByteReader& reader);
    bool ReadEntry(QMByteReader& reader, uint32_t uBlockSize, QMTransaction& transaction);
    bool ReadBlock(QMByteReader& reader, uint32_t uBlockSize, QMTransaction& transaction);
    bool ReadText(QMByteReader& reader, char* szText, size_t uSize);
    void Mend(QMTransaction& transaction);

    QMAccount& m_account;
    QMProgress* m_pProgress;
    QMReadReport m_report;
};
