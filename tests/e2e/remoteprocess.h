// Memory and functions of another program, which must be for 32 bits or 64 bits as this one is.
#pragma once

#include <windows.h>

#include <cstddef>
#include <type_traits>

// A block of memory in the other program. A failure fails the running test.
class RemoteMemory
{
public:
    RemoteMemory(HANDLE hProcess, size_t uSize, DWORD uProtection = PAGE_READWRITE);
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
    ~RemoteMemory();

    void Write(size_t uOffset, const void* pBytes, size_t uSize);
    void Read(size_t uOffset, void* pBytes, size_t uSize) const;

    // The address in the other program, for use in the parameters of messages.
    template <class T = char>
    T* At(size_t uOffset) const
    {
        return reinterpret_cast<T*>(static_cast<char*>(m_pMemory) + uOffset);
    }
    LPARAM AsParameter(size_t uOffset = 0) const { return reinterpret_cast<LPARAM>(At(uOffset)); }

private:
    HANDLE m_hProcess;
    void* m_pMemory;
};

// Reads bytes at an address of the other program. Returns false when the program has no memory
// there.
bool ReadRemote(HANDLE hProcess, const void* pAddress, void* pBytes, size_t uSize);

// Makes the thread in the other program that carries out the calls below. Otherwise the first call
// does that. Call it while the program is idle: Wine 8 makes a thread in another program by
// interrupting one of its threads. If that thread is at work, both may hang.
void PrepareCalls(HANDLE hProcess);

// Calls a function of a DLL of Windows in a thread of the other program. Such a DLL has the same
// address in every program. At most four arguments.
UINT_PTR CallRemote(HANDLE hProcess, FARPROC pFunction, UINT_PTR uFirst, UINT_PTR uSecond = 0,
                    UINT_PTR uThird = 0, UINT_PTR uFourth = 0);
