// QMAccountReader: reads an account file and tells what it found.
#pragma once

#include <cstdint>

#include "account/qmaccount.h"
#include "account/qmbytesource.h"

enum class QMReadFault
{
    None,
    CannotOpen, // the file's own fault tells why
    WrongMagic,
    WrongVersion,
    HeaderTooLong,
    BlockTooLong,
    TextTooLong,
    Truncated,
    OutOfMemory,
};

// A phrase for the end of a sentence; empty for None and CannotOpen.
const char* QMReadFaultText(QMReadFault fault);

struct QMReadReport
{
    QMReadFault fault = QMReadFault::None;
    int32_t lFaultEntry = -1; // entry of the file, from 0, in which a fault came up
    int32_t lCount = 0;       // entries that the file announces; none for a negative number

    // What was mended, in how many entries; the file itself is left alone.
    int32_t lClearedDates = 0; // cleared before the date of the transaction: set to that date
    int32_t lVoided = 0;       // voided and cleared: set to not cleared
    int32_t lHeaderTexts = 0;  // header texts without an end: cut to their field
    int32_t lTexts = 0;        // texts with a zero byte within: cut there

    bool bInOrder = true;        // entries stand in date order
    uint64_t uTrailingBytes = 0; // behind the last entry

    bool IsMended() const { return lClearedDates + lVoided + lHeaderTexts + lTexts > 0; }
};

class QMAccountReader
{
public:
    explicit QMAccountReader(QMAccount& account) : m_account(account) {}

    // As QMAccount::Read. Whatever stops it, the store then holds, in order, what came before.
    bool Read();

    // The same from bytes that come from elsewhere; the account's file plays no part.
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
    QMReadReport m_report;
};
