#include "account/qmnodelist.h"

#include <cstdlib>
#include <utility>

QMNodeList::~QMNodeList()
{
    QMNodeList::Clear();
}

void QMNodeList::Link(QMListNode* pPrevious, std::unique_ptr<QMListNode> pNode, QMListNode* pNext)
{
    QMListNode* p = pNode.release();
    p->m_pPrevious = pPrevious;
    p->m_pNext = pNext;
    (pPrevious == nullptr ? m_pHead : pPrevious->m_pNext) = p;
    (pNext == nullptr ? m_pTail : pNext->m_pPrevious) = p;
    m_pCurrent = p;
    ++m_lCount;
}

void QMNodeList::InsertBefore(std::unique_ptr<QMListNode> pNode)
{
    if (IsEmpty()) {
        m_lPosition = 0;
        Link(nullptr, std::move(pNode), nullptr);
    } else {
        Link(m_pCurrent->m_pPrevious, std::move(pNode), m_pCurrent);
    }
}

void QMNodeList::InsertBehind(std::unique_ptr<QMListNode> pNode)
{
    if (IsEmpty()) {
        InsertBefore(std::move(pNode));
    } else {
        Link(m_pCurrent, std::move(pNode), m_pCurrent->m_pNext);
        ++m_lPosition;
    }
}

int32_t QMNodeList::Remove()
{
    if (m_pCurrent == nullptr) {
        return -1;
    }
    const std::unique_ptr<QMListNode> pGone(m_pCurrent);
    QMListNode* pPrevious = pGone->m_pPrevious;
    QMListNode* pNext = pGone->m_pNext;
    (pPrevious == nullptr ? m_pHead : pPrevious->m_pNext) = pNext;
    (pNext == nullptr ? m_pTail : pNext->m_pPrevious) = pPrevious;
    m_pCurrent = pNext == nullptr ? pPrevious : pNext;
    if (pNext == nullptr && pPrevious != nullptr) {
        --m_lPosition;
    }
    --m_lCount;
    return m_lPosition;
}

void QMNodeList::Clear()
{
    QMListNode* p = m_pHead;
    while (p != nullptr) {
        const std::unique_ptr<QMListNode> pGone(p);
        p = p->m_pNext;
    }
    m_pHead = m_pCurrent = m_pTail = nullptr;
    m_lPosition = 0;
    m_lCount = 0;
}

void QMNodeList::TakeNodesFrom(QMNodeList& other)
{
    Clear();
    std::swap(m_pHead, other.m_pHead);
    std::swap(m_pCurrent, other.m_pCurrent);
    std::swap(m_pTail, other.m_pTail);
    std::swap(m_lPosition, other.m_lPosition);
    std::swap(m_lCount, other.m_lCount);
}

void QMNodeList::AppendNodesFrom(QMNodeList& other)
{
    if (other.IsEmpty()) {
        return;
    }
    if (IsEmpty()) {
        TakeNodesFrom(other);
        Last();
        return;
    }
    m_pTail->m_pNext = other.m_pHead;
    other.m_pHead->m_pPrevious = m_pTail;
    m_pTail = other.m_pTail;
    m_lCount += other.m_lCount;
    other.m_pHead = other.m_pCurrent = other.m_pTail = nullptr;
    other.m_lPosition = 0;
    other.m_lCount = 0;
    Last();
}

bool QMNodeList::CopyCurrentTo(QMListNode& node) const
{
    if (m_pCurrent == nullptr) {
        return false;
    }
    node.CopyNode(*m_pCurrent);
    return true;
}

bool QMNodeList::CopyToCurrent(const QMListNode& node)
{
    if (m_pCurrent == nullptr) {
        return false;
    }
    m_pCurrent->CopyNode(node);
    return true;
}

void QMNodeList::First()
{
    SetCursor(m_pHead, 0);
}

void QMNodeList::Last()
{
    SetCursor(m_pTail, m_lCount - 1);
}

bool QMNodeList::Next(int32_t lSteps)
{
    for (; lSteps > 0 && m_pCurrent != m_pTail; --lSteps) {
        SetCursor(m_pCurrent->m_pNext, m_lPosition + 1);
    }
    return lSteps == 0;
}

bool QMNodeList::Previous(int32_t lSteps)
{
    for (; lSteps > 0 && m_pCurrent != m_pHead; --lSteps) {
        SetCursor(m_pCurrent->m_pPrevious, m_lPosition - 1);
    }
    return lSteps == 0;
}

bool QMNodeList::MoveTo(int32_t lPosition)
{
    if (lPosition < 0 || lPosition >= m_lCount) {
        return false;
    }
    const int32_t lFromCursor = m_pCurrent == nullptr ? m_lCount : abs(lPosition - m_lPosition);
    if (lPosition < lFromCursor) {
        First();
    } else if (m_lCount - 1 - lPosition < lFromCursor) {
        Last();
    }
    return lPosition >= m_lPosition ? Next(lPosition - m_lPosition)
                                    : Previous(m_lPosition - lPosition);
}

int32_t QMNodeList::Seek(const QMListNode* pNode)
{
    if (pNode == nullptr) {
        return -1;
    }
    int32_t lPosition = 0;
    for (QMListNode* p = m_pHead; p != nullptr; p = p->m_pNext, ++lPosition) {
        if (p == pNode) {
            SetCursor(p, lPosition);
            return lPosition;
        }
    }
    return -1;
}

void QMNodeList::SetCursor(QMListNode* pNode, int32_t lPosition)
{
    m_pCurrent = pNode;
    m_lPosition = lPosition;
}
