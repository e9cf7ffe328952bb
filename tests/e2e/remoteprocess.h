// Memory and functions of another program, which is of the same bitness as this one.
#pragma once

#include <windows.h>

#include <cstddef>
#include <type_traits>

// A block of the other program's memory. Whatever fails fails the running test.
class RemoteMemory
{
public:
    RemoteMemory(HANDLE hProcess, size_t uSize, DWORD uProtection = PAGE_READWRITE);
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
    ~RemoteMemory();

    void Write(size_t uOffset, const void* pBytes, size_t uSize);
    void Read(size_t uOffset, void* pBytes, size_t uSize) const;

    // The place in the other program, as messages give it.
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

// Reads an object at an address of the other program; false when nothing is there.
bool ReadRemote(HANDLE hProcess, const void* pAddress, void* pBytes, size_t uSize);

// Makes the thread that carries out the calls below in the other program; done by the first of them
// otherwise. Best while the program is idle: some systems make a thread for another program by
// interrupting one that it has, whatever that is doing, and then both may stand still.
void PrepareCalls(HANDLE hProcess);

// Calls a function of a system library, which lies at the same address in every program, in a
// thread of the other program. At most four arguments.
UINT_PTR CallRemote(HANDLE hProcess, FARPROC pFunction, UINT_PTR uFirst, UINT_PTR uSecond = 0,
                    UINT_PTR uThird = 0, UINT_PTR uFourth = 0);
