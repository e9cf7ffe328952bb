// VList: a singly linked list. Each element holds the link to the next, in its member pLink. The
// list does not own its elements. An element can be in one such list at a time.
#pragma once

#include <cstdint>

template <class T, T* T::*pLink>
class VList
{
public:
    VList() = default;
    VList(const VList&) = delete;
    VList& operator=(const VList&) = delete;

    T* GetHead() const { return m_pHead; }
    T* GetTail() const { return m_pTail; }
    int32_t GetCount() const { return m_lCount; }
    static T* GetNext(const T* pItem) { return pItem->*pLink; }

    void AddTail(T* pItem) { InsertAfter(m_pTail, pItem); }

    // Inserts the item after pPrevious, which must be in the list. With a null pPrevious the item
    // becomes the head.
    void InsertAfter(T* pPrevious, T* pItem)
    {
        T*& pSlot = pPrevious == nullptr ? m_pHead : pPrevious->*pLink;
        pItem->*pLink = pSlot;
        pSlot = pItem;
        if (m_pTail == pPrevious) {
            m_pTail = pItem;
        }
        ++m_lCount;
    }

    // Unlinks the item. Returns false when it is not in the list.
    bool Remove(T* pItem)
    {
        T* pPrevious = nullptr;
        for (T* p = m_pHead; p != nullptr; pPrevious = p, p = p->*pLink) {
            if (p == pItem) {
                (pPrevious == nullptr ? m_pHead : pPrevious->*pLink) = p->*pLink;
                m_pTail = m_pTail == p ? pPrevious : m_pTail;
                p->*pLink = nullptr;
                --m_lCount;
                return true;
            }
        }
        return false;
    }

private:
    T* m_pHead = nullptr;
    T* m_pTail = nullptr;
    int32_t m_lCount = 0;
};
