// QMEditList: a small ordered list of texts, such as earlier entries to choose from.
#pragma once

#include <cstdint>
#include <memory>

#include "base/vlist.h"
#include "base/vstring.h"

// The flag word.
inline constexpr uint32_t QM_EDIT_ASCENDING = 1; // descending when clear
inline constexpr uint32_t QM_EDIT_UNIQUE = 4;
inline constexpr uint32_t QM_EDIT_EXACT = 8;     // case counts in every comparison
inline constexpr uint32_t QM_EDIT_UNSORTED = 16; // new items go to the tail; sorting bit ignored

// The registers' two ways: in alphabetical order, or in the order of arrival.
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

    // Makes an item of the text and puts it in its place. Returns it, owned by the list; null for a
    // null text, a duplicate that the flags refuse, or lack of memory.
    QMEditItem* Add(const char* szText);

    // Puts an item in its place and owns it from then on; false when it is refused as a duplicate,
    // and the item stays the caller's. An empty text goes to the head, and others stop in front of
    // one that is there.
    bool Insert(QMEditItem* pItem);

    // The first item of that text; null for none.
    QMEditItem* Find(const char* szText) const;

    QMEditItem* First() const { return m_items.GetHead(); }
    static QMEditItem* Next(const QMEditItem* pItem) { return pItem->pNext; }
    int32_t GetCount() const { return m_items.GetCount(); }

    // Unlinks the item and, with bDestroy, deletes it; without, it is the caller's again.
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
