// QMTransactionStore: the transactions of one account, kept in order by the rule of insertion.
#pragma once

#include <cstdint>
#include <memory>

#include "account/qmnodelist.h"
#include "account/qmtransaction.h"

class QMEditList;

// Which order the store keeps. Accounts use the first; the others serve copies made for reports.
// Any other value acts as the first.
enum QMSortMode : int32_t
{
    QM_SORT_DATE = 0,               // oldest first, a new one behind those of its day
    QM_SORT_DATE_DESCENDING = 1,    // newest first, a new one in front of those of its day
    QM_SORT_CLEARED = 2,            // as 0, by the date cleared
    QM_SORT_CLEARED_DESCENDING = 3, // as 1, by the date cleared
};

class QMTransactionStore : public QMNodeList
{
public:
    // Takes over the other store's sort mode and copies its transactions, each to its place; the
    // cursor ends on the copy of the one on which the other's cursor stands. False for lack of
    // memory, and when the other list is no store.
    bool AssignFrom(const QMNodeList& other) override;

    // The same result for a store that is in order, without a copy: the transactions move over and
    // the other store is empty afterwards.
    void TakeFrom(QMTransactionStore& other);

    // Puts a transaction in its place and sets the cursor on it. Returns its position; -1 when it
    // is null or when the store holds transactions but has no cursor: it is then deleted.
    int32_t Add(std::unique_ptr<QMTransaction> pTransaction);

    // Copies the transaction at the cursor. Returns its position, or -1 without one.
    int32_t GetCurrent(QMTransaction& into) const;

    // The transaction at the cursor, still owned by the store; null without one.
    QMTransaction* GetCurrentNode() const;

    // Writes over the transaction at the cursor. Without bReposition nothing moves, so a changed
    // date leaves the store out of order until Resort. With it the transaction goes to its place.
    // Returns its position; -1 without a transaction at the cursor or without memory.
    int32_t ReplaceCurrent(const QMTransaction& transaction, bool bReposition);

    // Calls f(transaction) for each from the first to the last; the cursor stays.
    template <class F>
    void ForEach(F f) const
    {
        for (const QMListNode* p = GetHead(); p != nullptr; p = p->GetNext()) {
            f(*static_cast<const QMTransaction*>(p));
        }
    }

    // Sets the mode and puts everything in its order, those of one day as they stood before.
    // Returns the cursor's position: the cursor stays on its transaction. Returns -1, with nothing
    // changed but the mode, without memory.
    int32_t Resort(int32_t lMode);
    int32_t GetSortMode() const { return m_lSortMode; }

    // Looks from the first transaction on for a check of that number. True with the cursor on it;
    // otherwise false with the cursor on the last transaction.
    bool HasCheckNumber(uint32_t uNumber);

    // One more than the number of the last check in the store's order; 1000 when there is none, and
    // when that check has the number 0. The cursor ends on that check, or on the first transaction.
    uint32_t NextCheckNumber();

    // Adds the texts of a field (QMFieldKind) to the list, from the last transaction to the first,
    // until lLimit of them were accepted. Empty texts are passed over. Always true.
    bool FillEditList(QMEditList& list, uint32_t uKind, int32_t lLimit);

    // Tags of the transaction at the cursor, which there must be. The first two return the flags as
    // they were, the third whether the transaction is now not cleared, the last true.
    uint32_t SetCleared(bool bCleared);
    uint32_t SetImportMark(bool bMarked);
    bool ToggleCleared();
    bool ClearImportMark();

private:
    friend class QMStoreFiller;

    // How those of one day come to stand: as Add one by one would leave them, or as they stood.
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

    int32_t m_lSortMode = QM_SORT_DATE;
};

// Fills an empty store fast, whatever the order of what comes: the transactions are appended as
// they come and put in order once, exactly as Add one by one would have left them.
class QMStoreFiller
{
public:
    explicit QMStoreFiller(QMTransactionStore& store) : m_store(store) {}

    void Add(std::unique_ptr<QMTransaction> pTransaction);

    // To be called once at the end. The cursor is then on the transaction added last. False without
    // memory: the store is then empty.
    bool Finish();

    // Whether everything came in the store's order.
    bool IsInOrder() const { return m_bInOrder; }

private:
    QMTransactionStore& m_store;
    uint64_t m_uLastKey = 0;
    bool m_bInOrder = true;
};
