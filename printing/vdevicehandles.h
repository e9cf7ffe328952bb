// The memory by which the system's print dialogs tell of a printer, and the device mode within.
#pragma once

#include <windows.h>

// Owns a block of global memory.
class VGlobalMemory
{
public:
    VGlobalMemory() = default;
    explicit VGlobalMemory(HGLOBAL hMemory) : m_hMemory(hMemory) {}
    VGlobalMemory(const VGlobalMemory&) = delete;
    VGlobalMemory& operator=(const VGlobalMemory&) = delete;
    ~VGlobalMemory() { Attach(nullptr); }

    // Takes ownership; what was held before is freed, unless it is the same.
    void Attach(HGLOBAL hMemory);
    // Takes the handle that a dialog gave back for the one it was given: what the dialog replaced,
    // the system has freed.
    void Replace(HGLOBAL hMemory) { m_hMemory = hMemory; }

    HGLOBAL GetHandle() const { return m_hMemory; }

private:
    HGLOBAL m_hMemory = nullptr;
};

// Locks a device mode until its own end.
class VLockedDeviceMode
{
public:
    explicit VLockedDeviceMode(HGLOBAL hDevMode);
    VLockedDeviceMode(const VLockedDeviceMode&) = delete;
    VLockedDeviceMode& operator=(const VLockedDeviceMode&) = delete;
    ~VLockedDeviceMode();

    // Null when there is none, or one too short for the fields up to dmCollate.
    DEVMODEA* Get() const { return m_pMode; }

private:
    HGLOBAL m_hDevMode;
    DEVMODEA* m_pMode = nullptr;
};
