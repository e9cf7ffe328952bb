// QMRecentList: the files that were opened or saved, latest first, straight on the slots that hold
// them: there is no copy in memory.
#pragma once

#include "base/vstring.h"

inline constexpr int QM_RECENT_COUNT = 10;
// The text of a free slot; those are the last ones.
inline constexpr char QM_RECENT_EMPTY[] = "Empty";

// Where the texts are kept. Slots count from 0.
class QMRecentSlots
{
public:
    virtual ~QMRecentSlots() = default;

    // False, with the text as it was, when the slot cannot be read.
    virtual bool Read(int nSlot, VString& sText) const = 0;
    virtual void Write(int nSlot, const char* szText) = 0;
};

class QMRecentList
{
public:
    // The slots must outlive the list.
    explicit QMRecentList(QMRecentSlots& slots) : m_slots(slots) {}

    // Puts a file on top: one that is there already moves up, a new one pushes the last out. What
    // cannot be read is not moved.
    void Add(const char* szPath);

    // Takes a file out; the ones behind it move up.
    void Remove(const char* szPath);

    // How many slots in front hold files: the first free or missing one ends them.
    int GetCount() const;

private:
    int Find(const char* szPath) const;
    void Copy(int nFrom, int nTo);

    QMRecentSlots& m_slots;
};
