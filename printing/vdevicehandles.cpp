#include "printing/vdevicehandles.h"

#include <cstddef>

void VGlobalMemory::Attach(HGLOBAL hMemory)
{
    if (m_hMemory != nullptr && m_hMemory != hMemory) {
        GlobalFree(m_hMemory);
    }
    m_hMemory = hMemory;
}

VLockedDeviceMode::VLockedDeviceMode(HGLOBAL hDevMode) : m_hDevMode(hDevMode)
{
    constexpr size_t uNeeded = offsetof(DEVMODEA, dmCollate) + sizeof(DEVMODEA::dmCollate);
    if (hDevMode != nullptr && GlobalSize(hDevMode) >= uNeeded) {
        m_pMode = static_cast<DEVMODEA*>(GlobalLock(hDevMode));
    }
}

VLockedDeviceMode::~VLockedDeviceMode()
{
    if (m_pMode != nullptr) {
        GlobalUnlock(m_hDevMode);
    }
}
