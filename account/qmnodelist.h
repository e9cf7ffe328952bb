// QMNodeList: a doubly linked list that owns its nodes and has one cursor in it.
#pragma once

#include <cstdint>
#include <memory>

// Anything that can stand in a QMNodeList. Copying the object copies no links.
class QMListNode
{
public:
    QMListNode() = default;
    QMListNode(const QMListNode&) {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): nothing is copied
    QMListNode& operator=(const QMListNode&) { return *this; }
    virtual ~QMListNode() = default;

    // The hook by which the list copies one node's contents into another; does nothing here.
    virtual void CopyNode(const QMListNode& /*other*/) {}

    QMListNode* GetNext() const { return m_pNext; }
    QMListNode* GetPrevious() const { return m_pPrevious; }

private:
    friend class QMNodeList;
    QMListNode* m_pNext = nullptr;
    QMListNode* m_pPrevious = nullptr;
};

// All users of a list share its cursor: a walk leaves it wherever the walk ended. A position is a
// count of steps from the first node, from 0.
class QMNodeList
{
public:
    QMNodeList() = default;
    QMNodeList(const QMNodeList&) = delete;
    QMNodeList& operator=(const QMNodeList&) = delete;
    virtual ~QMNodeList();

    // Makes this list a copy of the other one; false when it cannot.
    virtual bool AssignFrom(const QMNodeList& other) = 0;

    // Link a new node beside the cursor and set the cursor on it. In front, the position stays;
    // behind, it goes up by one, and is 0 in a list that was empty. The list must be empty or have
    // its cursor on a node.
    virtual void InsertBefore(std::unique_ptr<QMListNode> pNode);
    virtual void InsertBehind(std::unique_ptr<QMListNode> pNode);

    // Deletes the node at the cursor. The cursor goes to the node that followed, or to the new last
    // node. Returns the position then, and -1 when no node is at the cursor.
    virtual int32_t Remove();

    // Deletes all nodes.
    virtual void Clear();

    // Through the node's copy hook; false when no node is at the cursor.
    virtual bool CopyCurrentTo(QMListNode& node) const;
    virtual bool CopyToCurrent(const QMListNode& node);

    // On an empty list these leave the cursor on nothing, with position 0 and -1.
    void First();
    void Last();

    // Move the cursor by lSteps. False for a negative count, and when the end comes first: the
    // cursor is then on the last (or first) node. A count of 0 gives true.
    bool Next(int32_t lSteps = 1);
    bool Previous(int32_t lSteps = 1);

    // Sets the cursor on a position, from whichever of head, cursor and tail is nearest; false when
    // there is no such position, and the cursor stays.
    bool MoveTo(int32_t lPosition);

    // Looks for the node from the head and sets the cursor on it. Returns its position; -1 when the
    // node is null or not in the list, and the cursor stays.
    int32_t Seek(const QMListNode* pNode);

    bool IsFirst() const { return m_pCurrent == m_pHead; }
    bool IsLast() const { return m_pCurrent == m_pTail; }
    bool IsEmpty() const { return m_lCount == 0; }
    int32_t GetCount() const { return m_lCount; }
    int32_t GetPosition() const { return m_lPosition; }
    QMListNode* GetCurrentNode() const { return m_pCurrent; }

protected:
    QMListNode* GetHead() const { return m_pHead; }
    QMListNode* GetTail() const { return m_pTail; }

    // Sets the cursor on a node of this list whose position the caller knows.
    void SetCursor(QMListNode* pNode, int32_t lPosition);

    // Deletes all nodes here and takes over the other list's nodes and cursor; the other is then
    // empty.
    void TakeNodesFrom(QMNodeList& other);

    // Relinks the nodes in the order that nodeAt(position) names, each of them once. The cursor
    // stays on its node and takes that node's new position.
    template <class F>
    void Relink(F nodeAt)
    {
        // The nodes lie in memory in another order than they are linked in here.
        constexpr int32_t lAhead = 16;
        m_pHead = m_pTail = nullptr;
        for (int32_t i = 0; i < m_lCount; ++i) {
            __builtin_prefetch(nodeAt(i + lAhead < m_lCount ? i + lAhead : i), 1);
            RelinkBehindTail(nodeAt(i), i);
        }
    }

private:
    void RelinkBehindTail(QMListNode* pNode, int32_t lPosition)
    {
        pNode->m_pPrevious = m_pTail;
        pNode->m_pNext = nullptr;
        (m_pTail == nullptr ? m_pHead : m_pTail->m_pNext) = pNode;
        m_pTail = pNode;
        if (pNode == m_pCurrent) {
            m_lPosition = lPosition;
        }
    }
    void Link(QMListNode* pPrevious, std::unique_ptr<QMListNode> pNode, QMListNode* pNext);

    QMListNode* m_pHead = nullptr;
    QMListNode* m_pCurrent = nullptr;
    QMListNode* m_pTail = nullptr;
    int32_t m_lPosition = 0;
    int32_t m_lCount = 0;
};
