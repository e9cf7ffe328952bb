// Nodes of a list with their date keys, to be sorted in a time that grows with their number alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

class QMListNode;

class QMSortedNodes
{
public:
    // Room for uCount nodes.
    explicit QMSortedNodes(size_t uCount);

    bool HasMemory() const { return m_pEntries != nullptr && m_pSpare != nullptr; }

    // The key is at most QM_DATE_KEY_MAX. No more nodes than there is room for.
    void Add(uint64_t uKey, QMListNode* pNode) { m_pEntries[m_uCount++] = {uKey, pNode}; }

    void Reverse();

    // By key, the lowest first; nodes of one key stay in their order.
    void Sort();

    QMListNode* Get(size_t uIndex) const { return m_pEntries[uIndex].pNode; }

private:
    struct Entry
    {
        uint64_t uKey;
        QMListNode* pNode;
    };

    // The key is taken apart into digits of eight bits.
    static constexpr int nDigits = 6;
    static constexpr size_t uValues = 256;

    static size_t Digit(uint64_t uKey, int nDigit) { return uKey >> (8 * nDigit) & (uValues - 1); }
    void SortByDigit(int nDigit, const size_t (&auCounts)[uValues]);

    std::unique_ptr<Entry[]> m_pEntries;
    std::unique_ptr<Entry[]> m_pSpare;
    size_t m_uCount = 0;
};
