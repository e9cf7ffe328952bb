// VFlagSet: a word of 32 flags with one saved state.
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

    // Save notes the whole word, and Restore goes back to what was noted last (0 at first).
    void Save() { m_uSaved = m_uFlags; }
    void Restore() { m_uFlags = m_uSaved; }

private:
    uint32_t m_uFlags = 0;
    uint32_t m_uSaved = 0;
};
