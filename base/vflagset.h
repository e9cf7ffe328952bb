// VFlagSet: a word of 32 flags that can note its state once and go back to it.
#pragma once

#include <cstdint>

class VFlagSet
{
public:
    VFlagSet() = default;
    explicit VFlagSet(uint32_t uFlags) : m_uFlags(uFlags) {}

    void Set(uint32_t uMask) { m_uFlags |= uMask; }
    void Set(uint32_t uMask, bool bOn) { bOn ? Set(uMask) : Clear(uMask); }
    void Clear(uint32_t uMask) { m_uFlags &= ~uMask; }
    // True when any bit of the mask is set.
    bool Test(uint32_t uMask) const { return (m_uFlags & uMask) != 0; }
    uint32_t Get() const { return m_uFlags; }

    // Save notes the whole word. Restore sets the word that was noted last, or 0 when none was.
    void Save() { m_uSaved = m_uFlags; }
    void Restore() { m_uFlags = m_uSaved; }

private:
    uint32_t m_uFlags = 0;
    uint32_t m_uSaved = 0;
};
