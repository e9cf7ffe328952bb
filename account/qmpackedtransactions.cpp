#include "account/qmpackedtransactions.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "account/qmentrybuilder.h"
#include "account/qmsortednodes.h"

namespace {

size_t EntrySize(const unsigned char* pEntry, int32_t lVersion)
{
    size_t uSize = QM_TRANS_BLOCK_SIZE;
    for (int nTexts = QMVersionHasCategory(lVersion) ? 3 : 2; nTexts > 0; --nTexts) {
        uint32_t uLength;
        memcpy(&uLength, pEntry + uSize, sizeof uLength);
        uSize += sizeof uLength + uLength;
    }
    return uSize;
}

uint64_t KeyOf(const unsigned char* pEntry)
{
    QMDate date;
    memcpy(&date, pEntry + offsetof(QMTransactionFields, dtDate), sizeof date);
    return QMDateKey(date);
}

} // namespace

struct QMPackedTransactions::Block
{
    static constexpr size_t uSize = 1 << 18;

    std::unique_ptr<Block> pNext;
    size_t uUsed = 0;
    unsigned char aBytes[uSize];
};

QMPackedTransactions::QMPackedTransactions(int32_t lVersion) : m_lVersion(lVersion) {}

QMPackedTransactions::~QMPackedTransactions()
{
    while (m_pFirst != nullptr) {
        m_pFirst = std::move(m_pFirst->pNext);
    }
}

// A block with room for one entry more; null when memory ran out.
QMPackedTransactions::Block* QMPackedTransactions::MakeRoom()
{
    if (m_pLast != nullptr && m_pLast->uUsed <= Block::uSize - QM_LARGEST_PART) {
        return m_pLast;
    }
    std::unique_ptr<Block> pNew(new (std::nothrow) Block);
    Block* pBlock = pNew.get();
    if (pBlock != nullptr) {
        (m_pLast == nullptr ? m_pFirst : m_pLast->pNext) = std::move(pNew);
        m_pLast = pBlock;
    }
    return pBlock;
}

bool QMPackedTransactions::Add(const QMTransactionFields& fields)
{
    Block* pBlock = MakeRoom();
    if (pBlock == nullptr) {
        return false;
    }
    // The version that scrambles the whole entry does so when it is written: the date must be read
    // before.
    QMEntryBuilder builder(pBlock->aBytes + pBlock->uUsed);
    builder.Add(&fields, QM_TRANS_BLOCK_SIZE);
    builder.AddTexts(fields, m_lVersion);
    pBlock->uUsed = static_cast<size_t>(builder.GetEnd() - pBlock->aBytes);
    const uint64_t uKey = QMDateKey(fields.dtDate);
    m_bInOrder = m_bInOrder && uKey >= m_uLastKey;
    m_uLastKey = uKey;
    ++m_lCount;
    return true;
}

// Calls f(entry) for each entry as they came.
template <class F>
void QMPackedTransactions::ForEachEntry(F f)
{
    for (Block* p = m_pFirst.get(); p != nullptr; p = p->pNext.get()) {
        size_t uSize = 0;
        for (size_t u = 0; u < p->uUsed; u += uSize) {
            uSize = EntrySize(p->aBytes + u, m_lVersion);
            f(p->aBytes + u);
        }
    }
}

bool QMPackedTransactions::WriteTo(QMByteSink& sink, QMProgress* pProgress)
{
    if (!m_bInOrder) {
        return WriteSorted(sink, pProgress);
    }
    if (QMVersionScramblesBlock(m_lVersion)) {
        ForEachEntry([](unsigned char* pEntry) { QMScramble(pEntry, QM_TRANS_BLOCK_SIZE); });
    }
    return WriteInOrder(sink, pProgress);
}

bool QMPackedTransactions::WriteInOrder(QMByteSink& sink, QMProgress* pProgress)
{
    uint64_t uTotal = 0;
    for (const Block* p = m_pFirst.get(); p != nullptr; p = p->pNext.get()) {
        uTotal += p->uUsed;
    }
    uint64_t uDone = 0;
    for (const Block* p = m_pFirst.get(); p != nullptr; p = p->pNext.get()) {
        if ((pProgress != nullptr && !pProgress->OnStep(uDone, uTotal)) ||
            !sink.Write(reinterpret_cast<const char*>(p->aBytes), p->uUsed)) {
            return false;
        }
        uDone += p->uUsed;
    }
    return true;
}

bool QMPackedTransactions::WriteSorted(QMByteSink& sink, QMProgress* pProgress)
{
    // So many entries are fetched before they are copied: they lie here and there in memory.
    constexpr size_t uAhead = 16;
    const auto uCount = static_cast<size_t>(m_lCount);
    QMSortedByKey<unsigned char> sorted(uCount);
    if (!sorted.HasMemory()) {
        return false;
    }
    ForEachEntry([&](unsigned char* pEntry) { sorted.Add(KeyOf(pEntry), pEntry); });
    sorted.Sort();
    QMPieceWriter writer(sink);
    for (size_t u = 0; u < uCount; ++u) {
        const unsigned char* pAhead = sorted.Get(std::min(u + uAhead, uCount - 1));
        __builtin_prefetch(pAhead);
        __builtin_prefetch(pAhead + 64);
        unsigned char* pEntry = sorted.Get(u);
        const size_t uSize = EntrySize(pEntry, m_lVersion);
        if (QMVersionScramblesBlock(m_lVersion)) {
            QMScramble(pEntry, QM_TRANS_BLOCK_SIZE);
        }
        writer.GetBuilder().Add(pEntry, uSize);
        if (!writer.HandOver(false) || (pProgress != nullptr && !pProgress->OnStep(u, uCount))) {
            return false;
        }
    }
    return writer.HandOver(true);
}
