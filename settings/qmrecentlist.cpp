#include "settings/qmrecentlist.h"

// The slot that holds the path; -1 when none does.
int QMRecentList::Find(const char* szPath) const
{
    for (int nSlot = 0; nSlot < QM_RECENT_COUNT; ++nSlot) {
        VString sText;
        if (m_slots.Read(nSlot, sText) && sText.CompareNoCase(szPath) == 0) {
            return nSlot;
        }
    }
    return -1;
}

void QMRecentList::Copy(int nFrom, int nTo)
{
    VString sText;
    if (m_slots.Read(nFrom, sText)) {
        m_slots.Write(nTo, sText.GetText());
    }
}

void QMRecentList::Add(const char* szPath)
{
    const int nFound = Find(szPath);
    for (int nSlot = nFound < 0 ? QM_RECENT_COUNT - 1 : nFound; nSlot > 0; --nSlot) {
        Copy(nSlot - 1, nSlot);
    }
    m_slots.Write(0, szPath);
}

void QMRecentList::Remove(const char* szPath)
{
    const int nFound = Find(szPath);
    if (nFound < 0) {
        return;
    }
    for (int nSlot = nFound; nSlot < QM_RECENT_COUNT - 1; ++nSlot) {
        Copy(nSlot + 1, nSlot);
    }
    m_slots.Write(QM_RECENT_COUNT - 1, QM_RECENT_EMPTY);
}

int QMRecentList::GetCount() const
{
    int nCount = 0;
    VString sText;
    while (nCount < QM_RECENT_COUNT && m_slots.Read(nCount, sText) && !(sText == QM_RECENT_EMPTY)) {
        ++nCount;
    }
    return nCount;
}
