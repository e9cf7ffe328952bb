// QMSortedByKey: sorts pointers by the date keys of what they point to, in a time that grows in
// proportion to their number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

class QMListNode;

// T is QMListNode, or unsigned char for the entries of an account file.
template <class T>
class QMSortedByKey
{
public:
    // Allocates room for uCount pointers.
    explicit QMSortedByKey(size_t uCount);

    bool HasMemory() const { return m_pEntries != nullptr && m_pSpare != nullptr; }

    // Adds a pointer. The key must be at most QM_DATE_KEY_MAX, and there must be room.
    void Add(uint64_t uKey, T* p) { m_pEntries[m_uCount++] = {uKey, p}; }

    void Reverse();

    // Sorts by key, the lowest first. Pointers with the same key keep their order.
    void Sort();

    T* Get(size_t uIndex) const { return m_pEntries[uIndex].p; }

private:
    struct Entry
    {
        uint64_t uKey;
        T* p;
    };

    // The key is sorted digit by digit; a digit has eight bits.
    static constexpr int nDigits = 6;
    static constexpr size_t uValues = 256;

    static size_t Digit(uint64_t uKey, int nDigit) { return uKey >> (8 * nDigit) & (uValues - 1); }
    void SortByDigit(int nDigit, const size_t (&auCounts)[uValues]);

    std::unique_ptr<Entry[]> m_pEntries;
    std::unique_ptr<Entry[]> m_pSpare;
    size_t m_uCount = 0;
};

using QMSortedNodes = QMSortedByKey<QMListNode>;
