#include "account/qmeditlist.h"

#include <new>

#include "base/vtext.h"

QMEditList::~QMEditList()
{
    while (QMEditItem* pItem = First()) {
        Remove(pItem, true);
    }
}

QMEditItem* QMEditList::Add(const char* szText)
{
    if (szText == nullptr || (Has(QM_EDIT_UNIQUE) && Find(szText) != nullptr)) {
        return nullptr;
    }
    std::unique_ptr<QMEditItem> pItem(new (std::nothrow) QMEditItem(szText));
    if (pItem == nullptr || pItem->GetStatus().Test(VString::uStatusOutOfMemory)) {
        return nullptr;
    }
    Place(pItem.get());
    return pItem.release();
}

bool QMEditList::Insert(QMEditItem* pItem)
{
    if (Has(QM_EDIT_UNIQUE) && Find(pItem->GetText()) != nullptr) {
        return false;
    }
    Place(pItem);
    return true;
}

void QMEditList::Place(QMEditItem* pItem)
{
    if (Has(QM_EDIT_UNSORTED)) {
        m_items.AddTail(pItem);
        return;
    }
    QMEditItem* pPrevious = nullptr;
    for (QMEditItem* p = First(); p != nullptr && !StopsAt(*pItem, *p); p = p->pNext) {
        pPrevious = p;
    }
    m_items.InsertAfter(pPrevious, pItem);
}

bool QMEditList::StopsAt(const QMEditItem& newItem, const QMEditItem& item) const
{
    if (newItem.IsEmpty() || item.IsEmpty()) {
        return true;
    }
    const int nOrder = Compare(newItem.GetText(), item.GetText());
    return Has(QM_EDIT_ASCENDING) ? nOrder <= 0 : nOrder >= 0;
}

int QMEditList::Compare(const char* szA, const char* szB) const
{
    return Has(QM_EDIT_EXACT) ? VCompare(szA, szB) : VCompareNoCase(szA, szB);
}

QMEditItem* QMEditList::Find(const char* szText) const
{
    for (QMEditItem* p = First(); p != nullptr; p = p->pNext) {
        if (Compare(p->GetText(), szText) == 0) {
            return p;
        }
    }
    return nullptr;
}

void QMEditList::Remove(QMEditItem* pItem, bool bDestroy)
{
    if (m_items.Remove(pItem) && bDestroy) {
        delete pItem;
    }
}
