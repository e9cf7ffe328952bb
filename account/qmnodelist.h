// QMNodeList: a doubly linked list that owns its nodes and has one cursor.
#pragma once

#include <cstdint>
#include <memory>

// The base of everything that can be in a QMNodeList. Copying such an object copies no links.
class QMListNode
{
public:
    QMListNode() = default;
    QMListNode(const QMListNode&) {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): nothing is copied
    QMListNode& operator=(const QMListNode&) { return *this; }
    virtual ~QMListNode() = default;

    // Copies the contents of another node into this one. A derived class overrides it; this one
    // does nothing.
    virtual void CopyNode(const QMListNode& /*other*/) {}

    QMListNode* GetNext() const { return m_pNext; }
    QMListNode* GetPrevious() const { return m_pPrevious; }

private:
    friend class QMNodeList;
    QMListNode* m_pNext = nullptr;
    QMListNode* m_pPrevious = nullptr;
};

// A list has one cursor, which all its users share: after a walk the cursor is where the walk
// ended. A position is the number of steps from the first node, so the first has position 0.
class QMNodeList
{
public:
    QMNodeList() = default;
    QMNodeList(const QMNodeList&) = delete;
    QMNodeList& operator=(const QMNodeList&) = delete;
    virtual ~QMNodeList();

    // Makes this list a copy of the other one. Returns false when it cannot.
    virtual bool AssignFrom(const QMNodeList& other) = 0;

    // Link a new node before or after the node at the cursor, and set the cursor on the new node.
    // InsertBefore leaves the position as it is. InsertBehind raises it by one, or sets it to 0 in
    // an empty list. The list must be empty, or its cursor must be on a node.
    virtual void InsertBefore(std::unique_ptr<QMListNode> pNode);
    virtual void InsertBehind(std::unique_ptr<QMListNode> pNode);

    // Deletes the node at the cursor. The cursor then is on the node that followed, or on the last
    // node when none followed. Returns the new position; -1 when there is no node at the cursor any
    // more, or there was none.
    virtual int32_t Remove();

    // Deletes all nodes.
    virtual void Clear();

    // Copy between the node at the cursor and another node, by CopyNode. Return false when no node
    // is at the cursor.
    virtual bool CopyCurrentTo(QMListNode& node) const;
    virtual bool CopyToCurrent(const QMListNode& node);

    // Set the cursor on the first or the last node. In an empty list the cursor is then on no node,
    // and the position is 0 (First) or -1 (Last).
    void First();
    void Last();

    // Move the cursor by lSteps nodes. Return false for a negative count, and when the list ends
    // before that many steps: the cursor is then on the last (or the first) node. A count of 0
    // returns true.
    bool Next(int32_t lSteps = 1);
    bool Previous(int32_t lSteps = 1);

    // Sets the cursor on a position. The walk starts from the nearest of the head, the cursor and
    // the tail. Returns false, and leaves the cursor where it is, when there is no such position.
    bool MoveTo(int32_t lPosition);

    // Searches the node from the head and sets the cursor on it. Returns its position. Returns -1,
    // and leaves the cursor where it is, when the node is null or not in this list.
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

    // Sets the cursor on a node of this list. The caller knows the node's position; it is not
    // checked.
    void SetCursor(QMListNode* pNode, int32_t lPosition);

    // Deletes all nodes of this list and takes over the nodes and the cursor of the other list,
    // which is empty then.
    void TakeNodesFrom(QMNodeList& other);

    // Moves the other list's nodes behind the last node of this list, in their order. The other
    // list is empty then. The cursor goes to the last of them; it stays when there are none.
    void AppendNodesFrom(QMNodeList& other);

    // Relinks the nodes in a new order. nodeAt(i) returns the node for position i, and must return
    // each node once. The cursor stays on its node and takes the node's new position.
    template <class F>
    void Relink(F nodeAt)
    {
        // The nodes are not linked in the order in which they lie in memory. Fetching some nodes
        // ahead hides the time that this costs.
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
