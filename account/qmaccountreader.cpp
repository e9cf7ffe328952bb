#include "account/qmaccountreader.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "account/qmscramble.h"

const char* QMReadFaultText(QMReadFault fault)
{
    switch (fault) {
        case QMReadFault::None:
        case QMReadFault::CannotOpen:
            return "";
        case QMReadFault::WrongMagic:
            return "it is not an account file";
        case QMReadFault::WrongVersion:
            return "its format version is not known";
        case QMReadFault::HeaderTooLong:
            return "its header is longer than any known";
        case QMReadFault::BlockTooLong:
            return "its transaction blocks are longer than any known";
        case QMReadFault::TextTooLong:
            return "a text is longer than its field";
        case QMReadFault::Truncated:
            return "it ends too early";
        case QMReadFault::OutOfMemory:
            return "there is not enough memory";
    }
    return "";
}

bool QMAccountReader::Read()
{
    if (!m_account.Open()) {
        return Fail(QMReadFault::CannotOpen);
    }
    QMFileSource source(m_account);
    return ReadFrom(source);
}

bool QMAccountReader::ReadFrom(QMByteSource& source)
{
    m_report = QMReadReport();
    m_account.store.Clear();
    QMByteReader reader(source);
    if (!reader.HasMemory()) {
        return Fail(QMReadFault::OutOfMemory);
    }
    if (!ReadPrefix(reader) || !ReadHeader(reader) || !ReadEntries(reader)) {
        return false;
    }
    m_report.uTrailingBytes = reader.GetRemaining();
    return true;
}

bool QMAccountReader::Fail(QMReadFault fault)
{
    m_report.fault = fault;
    return false;
}

bool QMAccountReader::ReadPrefix(QMByteReader& reader)
{
    if (!reader.TakeNumber(m_account.lMagic)) {
        return Fail(QMReadFault::WrongMagic);
    }
    if (m_account.lMagic != QM_FILE_MAGIC) {
        return Fail(QMReadFault::WrongMagic);
    }
    if (!reader.TakeNumber(m_account.lVersion)) {
        return Fail(QMReadFault::Truncated);
    }
    if (m_account.lVersion < QM_VERSION_1_0 || m_account.lVersion > QM_VERSION_2_0) {
        return Fail(QMReadFault::WrongVersion);
    }
    if (!reader.TakeNumber(m_report.lCount)) {
        return Fail(QMReadFault::Truncated);
    }
    m_report.lCount = std::max(m_report.lCount, 0);
    return true;
}

bool QMAccountReader::ReadHeader(QMByteReader& reader)
{
    uint32_t uSize = 0;
    if (!reader.TakeNumber(uSize)) {
        return Fail(QMReadFault::Truncated);
    }
    // A header shorter than ours comes from an older program. The fields that it lacks keep the
    // account's defaults.
    QMAccountHeader header = m_account.header;
    if (uSize > sizeof header) {
        return Fail(QMReadFault::HeaderTooLong);
    }
    if (!reader.Take(&header, uSize)) {
        return Fail(QMReadFault::Truncated);
    }
    QMUnscramble(&header, uSize);
    m_report.lHeaderTexts = QMTerminateHeaderTexts(header);
    m_account.header = header;
    return true;
}

bool QMAccountReader::ReadEntries(QMByteReader& reader)
{
    uint32_t uBlockSize = 0;
    if (!reader.TakeNumber(uBlockSize)) {
        return Fail(QMReadFault::Truncated);
    }
    if (uBlockSize > QM_TRANS_BLOCK_SIZE) {
        return Fail(QMReadFault::BlockTooLong);
    }
    QMStoreFiller filler(m_account.store);
    int32_t lEntry = 0;
    for (; lEntry < m_report.lCount; ++lEntry) {
        std::unique_ptr<QMTransaction> pTransaction(new (std::nothrow) QMTransaction);
        if (pTransaction == nullptr) {
            Fail(QMReadFault::OutOfMemory);
            break;
        }
        if (!ReadEntry(reader, uBlockSize, *pTransaction)) {
            break;
        }
        Mend(*pTransaction);
        filler.Add(std::move(pTransaction));
        if (m_pProgress != nullptr) {
            m_pProgress->OnStep(static_cast<uint64_t>(lEntry) + 1,
                                static_cast<uint64_t>(m_report.lCount));
        }
    }
    m_report.bInOrder = filler.IsInOrder();
    if (!filler.Finish()) {
        return Fail(QMReadFault::OutOfMemory);
    }
    if (lEntry < m_report.lCount) {
        m_report.lFaultEntry = lEntry;
        return false;
    }
    return true;
}

bool QMAccountReader::ReadEntry(QMByteReader& reader, uint32_t uBlockSize,
                                QMTransaction& transaction)
{
    return ReadBlock(reader, uBlockSize, transaction) &&
           ReadText(reader, transaction.szDescription, sizeof transaction.szDescription) &&
           ReadText(reader, transaction.szMemo, sizeof transaction.szMemo) &&
           (!QMVersionHasCategory(m_account.lVersion) ||
            ReadText(reader, transaction.szCategory, sizeof transaction.szCategory));
}

bool QMAccountReader::ReadBlock(QMByteReader& reader, uint32_t uBlockSize,
                                QMTransaction& transaction)
{
    QMTransactionFields& fields = transaction;
    if (!reader.Take(&fields, uBlockSize)) {
        return Fail(QMReadFault::Truncated);
    }
    if (QMVersionScramblesBlock(m_account.lVersion)) {
        QMUnscramble(&fields, uBlockSize);
    }
    return true;
}

bool QMAccountReader::ReadText(QMByteReader& reader, char* szText, size_t uSize)
{
    uint32_t uLength = 0;
    if (!reader.TakeNumber(uLength)) {
        return Fail(QMReadFault::Truncated);
    }
    if (uLength >= uSize) {
        return Fail(QMReadFault::TextTooLong);
    }
    if (!reader.Take(szText, uLength)) {
        return Fail(QMReadFault::Truncated);
    }
    QMUnscramble(szText, uLength);
    if (strnlen(szText, uLength) < uLength) {
        ++m_report.lTexts;
    }
    return true;
}

void QMAccountReader::Mend(QMTransaction& transaction)
{
    if (QMDateIsBefore(transaction.dtCleared, transaction.dtDate)) {
        transaction.dtCleared = transaction.dtDate;
        ++m_report.lClearedDates;
    }
    if (transaction.HasFlag(QM_TRANS_FLAG_VOIDED) &&
        !transaction.HasFlag(QM_TRANS_FLAG_NOT_CLEARED)) {
        transaction.lFlags |= QM_TRANS_FLAG_NOT_CLEARED;
        ++m_report.lVoided;
    }
}
