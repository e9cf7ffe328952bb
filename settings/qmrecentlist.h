// QMRecentList: the files that were opened or saved, the latest first. It works directly on the
// slots that store them and keeps no copy in memory.
#pragma once

#include "base/vstring.h"

inline constexpr int QM_RECENT_COUNT = 10;
// The text of a free slot. Free slots come after all others.
inline constexpr char QM_RECENT_EMPTY[] = "Empty";

// Where the texts are stored. Slots are counted from 0.
class QMRecentSlots
{
public:
    virtual ~QMRecentSlots() = default;

    // Reads a slot. Returns false, and leaves sText as it is, when the slot cannot be read.
    virtual bool Read(int nSlot, VString& sText) const = 0;
    virtual void Write(int nSlot, const char* szText) = 0;
};

class QMRecentList
{
public:
    // The slots must live longer than the list.
    explicit QMRecentList(QMRecentSlots& slots) : m_slots(slots) {}

    // Puts a file at the top. A file that is in the list already moves up; a new one pushes out the
    // last. A slot that cannot be read is not moved.
    void Add(const char* szPath);

    // Removes a file. Those after it move up.
    void Remove(const char* szPath);

    // How many slots hold files. The first slot that is free or missing ends the count.
    int GetCount() const;

private:
    int Find(const char* szPath) const;
    void Copy(int nFrom, int nTo);

    QMRecentSlots& m_slots;
};
