// QMTransactionStore: the transactions of one account. Add keeps them in the order of the sort
// mode.
#pragma once

#include <cstdint>
#include <memory>

#include "account/qmnodelist.h"
#include "account/qmtransaction.h"

class QMEditList;
class QMProgress;

// The order that the store keeps. Accounts use QM_SORT_DATE. The others serve copies made for
// reports. An unknown value acts as QM_SORT_DATE.
enum QMSortMode : int32_t
{
    QM_SORT_DATE = 0,               // oldest first; a new one goes after those of its day
    QM_SORT_DATE_DESCENDING = 1,    // newest first; a new one goes before those of its day
    QM_SORT_CLEARED = 2,            // like QM_SORT_DATE, by the date cleared
    QM_SORT_CLEARED_DESCENDING = 3, // like QM_SORT_DATE_DESCENDING, by the date cleared
};

class QMTransactionStore : public QMNodeList
{
public:
    // Takes the other store's sort mode and copies its transactions, each to its place. The cursor
    // is then on the copy of the transaction at the other's cursor. Returns false when memory ran
    // out, and when the other list is no QMTransactionStore.
    bool AssignFrom(const QMNodeList& other) override;
    // The same. pProgress may be null; when it gives the work up, the result is false and what has
    // been copied so far stays.
    bool AssignStore(const QMTransactionStore& other, QMProgress* pProgress);

    // Moves the transactions of the other store, which must be in order, into this one without
    // copying them. The other store is empty then.
    void TakeFrom(QMTransactionStore& other);

    // Moves the other store's transactions behind the last one of this store, as they stand; Resort
    // puts them in order. The cursor goes to the last of them. The other store is empty then.
    void AppendFrom(QMTransactionStore& other);

    // Puts a transaction in its place and sets the cursor on it. Returns its position. Returns -1,
    // and deletes the transaction, when it is null or when the cursor of a store that is not empty
    // is on no transaction.
    int32_t Add(std::unique_ptr<QMTransaction> pTransaction);

    // Copies the transaction at the cursor. Returns its position; -1 when there is none.
    int32_t GetCurrent(QMTransaction& into) const;

    // The transaction at the cursor, which the store owns; null when there is none.
    QMTransaction* GetCurrentNode() const;

    // Replaces the transaction at the cursor. Without bReposition it stays where it is, so a
    // changed date leaves the store out of order until Resort is called. With bReposition it moves
    // to its place. Returns its position; -1 when there is none at the cursor, or memory ran out.
    int32_t ReplaceCurrent(const QMTransaction& transaction, bool bReposition);

    // Calls f(transaction) for each transaction, from the first to the last. The cursor stays.
    template <class F>
    void ForEach(F f) const
    {
        ForEachWhile([&](const QMTransaction& transaction) {
            f(transaction);
            return true;
        });
    }

    // The same, until f answers false.
    template <class F>
    void ForEachWhile(F f) const
    {
        // The transactions of a sorted store lie here and there in memory. Those to come are
        // fetched while f is at work, and the link of each is followed one step later.
        const QMListNode* pAhead = GetHead();
        for (int i = 1; i < nFetchedAhead && pAhead != nullptr; ++i) {
            pAhead = pAhead->GetNext();
        }
        for (const QMListNode* p = GetHead(); p != nullptr; p = p->GetNext()) {
            if (pAhead != nullptr) {
                pAhead = pAhead->GetNext();
                Fetch(static_cast<const QMTransaction*>(pAhead));
            }
            if (!f(*static_cast<const QMTransaction*>(p))) {
                break;
            }
        }
    }

    // The same from the last to the first.
    template <class F>
    void ForEachFromLastWhile(F f) const
    {
        const QMListNode* p = GetTail();
        while (p != nullptr && f(*static_cast<const QMTransaction*>(p))) {
            p = p->GetPrevious();
        }
    }

    // Sets the sort mode and sorts everything by it. Transactions of one day keep their order. The
    // cursor stays on its transaction; its position is returned. When memory ran out it returns -1,
    // and nothing but the mode has changed.
    int32_t Resort(int32_t lMode);
    int32_t GetSortMode() const { return m_lSortMode; }

    // Looks for a check of that number, from the first transaction on. Returns true with the cursor
    // on that check, or false with the cursor on the last transaction.
    bool HasCheckNumber(uint32_t uNumber);

    // The number of the last check in the store's order, plus one. It is 1000 when there is no
    // check, and when that check has the number 0. The cursor is then on that check, or on the
    // first transaction.
    uint32_t NextCheckNumber();

    // Adds the texts of a field (a QMFieldKind) to the list, from the last transaction to the
    // first, until the list has accepted lLimit of them. Empty texts are left out. Always returns
    // true.
    bool FillEditList(QMEditList& list, uint32_t uKind, int32_t lLimit);

    // Change the flags of the transaction at the cursor; there must be one. The first two return
    // the flags as they were before. ToggleCleared returns whether the transaction is not cleared
    // now. ClearImportMark returns true.
    uint32_t SetCleared(bool bCleared);
    uint32_t SetImportMark(bool bMarked);
    bool ToggleCleared();
    bool ClearImportMark();

private:
    friend class QMStoreFiller;

    // How transactions of one day are ordered: as Add one by one would leave them, or as they are.
    enum class Ties
    {
        AsAdded,
        Kept
    };

    bool IsDescending() const;
    uint64_t GetKey(const QMTransactionFields& fields) const;
    void SeekPlaceFromEnd(uint64_t uKey);
    void SeekPlaceFromStart(uint64_t uKey);
    bool PutInOrder(Ties ties);
    uint32_t ChangeFlag(uint32_t uFlag, bool bSet);

    static constexpr int nFetchedAhead = 4;

    // Where the links, the numbers and the beginnings of the texts lie.
    static void Fetch(const QMTransaction* pTransaction)
    {
        if (pTransaction != nullptr) {
            __builtin_prefetch(pTransaction);
            __builtin_prefetch(pTransaction->szDescription);
            __builtin_prefetch(pTransaction->szMemo);
            __builtin_prefetch(pTransaction->szCategory);
        }
    }

    int32_t m_lSortMode = QM_SORT_DATE;
};

// Fills an empty store in a short time, whatever order the transactions come in. They are appended
// as they come and sorted once. The result is the same as calling Add for each.
class QMStoreFiller
{
public:
    explicit QMStoreFiller(QMTransactionStore& store) : m_store(store) {}

    void Add(std::unique_ptr<QMTransaction> pTransaction);

    // Call it once at the end. The cursor is then on the transaction that was added last. Returns
    // false when memory ran out; the store is empty then.
    bool Finish();

    // Whether all transactions came in the store's order.
    bool IsInOrder() const { return m_bInOrder; }

private:
    QMTransactionStore& m_store;
    uint64_t m_uLastKey = 0;
    bool m_bInOrder = true;
};
