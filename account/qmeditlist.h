// QMEditList: a small ordered list of texts, such as earlier descriptions to choose from.
#pragma once

#include <cstdint>
#include <memory>

#include "base/vlist.h"
#include "base/vstring.h"

// Bits of the flag word.
inline constexpr uint32_t QM_EDIT_ASCENDING = 1; // descending when clear
inline constexpr uint32_t QM_EDIT_UNIQUE = 4;
inline constexpr uint32_t QM_EDIT_EXACT = 8; // comparisons tell upper case from lower case
inline constexpr uint32_t QM_EDIT_UNSORTED =
    16; // a new item goes to the tail; QM_EDIT_ASCENDING is ignored

// The two orders in which a register offers earlier texts: alphabetical, or the order in which they
// were added.
inline constexpr uint32_t QM_EDIT_ALPHABETICAL = QM_EDIT_ASCENDING | QM_EDIT_UNIQUE;
inline constexpr uint32_t QM_EDIT_BY_ARRIVAL = QM_EDIT_UNIQUE | QM_EDIT_UNSORTED;

class QMEditItem : public VString
{
public:
    using VString::VString;
    QMEditItem* pNext = nullptr;
};

class QMEditList
{
public:
    QMEditList() = default;
    QMEditList(const QMEditList&) = delete;
    QMEditList& operator=(const QMEditList&) = delete;
    ~QMEditList();

    void SetFlags(uint32_t uFlags) { m_uFlags = uFlags; }

    // Makes an item of the text and puts it in its place. Returns the item, which the list owns;
    // null for a null text, for a duplicate when QM_EDIT_UNIQUE is set, and when memory ran out.
    QMEditItem* Add(const char* szText);

    // Puts an item in its place, and the list then owns it. Returns false when it is refused as a
    // duplicate; the item is still the caller's then.
    //
    // Kept: in a sorted list an empty text goes to the head. An item that is added later stops
    // before an empty text and so may come out of order.
    bool Insert(QMEditItem* pItem);

    // The first item with that text; null when there is none.
    QMEditItem* Find(const char* szText) const;

    QMEditItem* First() const { return m_items.GetHead(); }
    static QMEditItem* Next(const QMEditItem* pItem) { return pItem->pNext; }
    int32_t GetCount() const { return m_items.GetCount(); }

    // Unlinks the item. With bDestroy the item is deleted, otherwise the caller owns it again.
    void Remove(QMEditItem* pItem, bool bDestroy);

private:
    using Items = VList<QMEditItem, &QMEditItem::pNext>;

    bool Has(uint32_t uFlag) const { return (m_uFlags & uFlag) != 0; }
    int Compare(const char* szA, const char* szB) const;
    bool StopsAt(const QMEditItem& newItem, const QMEditItem& item) const;
    void Place(QMEditItem* pItem);

    Items m_items;
    uint32_t m_uFlags = QM_EDIT_ASCENDING;
};
