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

// Takes Wine's checking heap, under which these tests may run, from the programs that are started
// within its scope: its speed is not what a user meets, and it takes minutes to free a hundred
// thousand blocks.
class OrdinaryHeap
{
public:
    OrdinaryHeap();
    OrdinaryHeap(const OrdinaryHeap&) = delete;
    OrdinaryHeap& operator=(const OrdinaryHeap&) = delete;
    ~OrdinaryHeap();

private:
    char m_szBefore[256] = "";
};
