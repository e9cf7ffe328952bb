// Slows another program down, so that its work takes long enough to be looked at.
#pragma once

#include <windows.h>

// For as long as the object lives, the thread of a window runs for a millisecond or two in each
// third of a second.
class Throttle
{
public:
    explicit Throttle(HWND hWnd);
    Throttle(const Throttle&) = delete;
    Throttle& operator=(const Throttle&) = delete;
    ~Throttle();

private:
    static DWORD WINAPI Run(void* pThis);

    HANDLE m_hSlowed;
    HANDLE m_hEnd;
    HANDLE m_hThread;
};
