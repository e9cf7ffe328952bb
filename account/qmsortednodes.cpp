#include "account/qmsortednodes.h"

#include <algorithm>
#include <new>

template <class T>
QMSortedByKey<T>::QMSortedByKey(size_t uCount)
    : m_pEntries(new (std::nothrow) Entry[uCount]), m_pSpare(new (std::nothrow) Entry[uCount])
{}

template <class T>
void QMSortedByKey<T>::Reverse()
{
    std::reverse(m_pEntries.get(), m_pEntries.get() + m_uCount);
}

template <class T>
void QMSortedByKey<T>::Sort()
{
    size_t auCounts[nDigits][uValues] = {};
    for (size_t u = 0; u < m_uCount; ++u) {
        for (int nDigit = 0; nDigit < nDigits; ++nDigit) {
            ++auCounts[nDigit][Digit(m_pEntries[u].uKey, nDigit)];
        }
    }
    // From the lowest digit to the highest. Each pass keeps the order that the pass before it made.
    for (int nDigit = 0; m_uCount > 0 && nDigit < nDigits; ++nDigit) {
        const size_t uFirst = Digit(m_pEntries[0].uKey, nDigit);
        if (auCounts[nDigit][uFirst] < m_uCount) { // otherwise all keys have the same digit here
            SortByDigit(nDigit, auCounts[nDigit]);
        }
    }
}

template <class T>
void QMSortedByKey<T>::SortByDigit(int nDigit, const size_t (&auCounts)[uValues])
{
    size_t auNext[uValues];
    size_t uNext = 0;
    for (size_t u = 0; u < uValues; ++u) {
        auNext[u] = uNext;
        uNext += auCounts[u];
    }
    for (size_t u = 0; u < m_uCount; ++u) {
        m_pSpare[auNext[Digit(m_pEntries[u].uKey, nDigit)]++] = m_pEntries[u];
    }
    m_pEntries.swap(m_pSpare);
}

template class QMSortedByKey<QMListNode>;
template class QMSortedByKey<unsigned char>;
