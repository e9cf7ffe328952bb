#include "tests/e2e/remoteprocess.h"

#include <cstring>
#include <string>

#include "tests/e2e/wait.h"

namespace {

// What the code below works on: the function, its arguments, room for the result.
struct Call
{
    UINT_PTR uFunction;
    UINT_PTR auArguments[4];
    UINT_PTR uResult;
};

// A thread's procedure that carries out the Call it is given.
#ifdef _WIN64
constexpr BYTE auCode[] = {
    0x53,                   // push rbx
    0x48, 0x83, 0xEC, 0x20, // sub rsp, 20h
    0x48, 0x89, 0xCB,       // mov rbx, rcx
    0x48, 0x8B, 0x4B, 0x08, // mov rcx, [rbx+8]
    0x48, 0x8B, 0x53, 0x10, // mov rdx, [rbx+10h]
    0x4C, 0x8B, 0x43, 0x18, // mov r8, [rbx+18h]
    0x4C, 0x8B, 0x4B, 0x20, // mov r9, [rbx+20h]
    0xFF, 0x13,             // call [rbx]
    0x48, 0x89, 0x43, 0x28, // mov [rbx+28h], rax
    0x31, 0xC0,             // xor eax, eax
    0x48, 0x83, 0xC4, 0x20, // add rsp, 20h
    0x5B,                   // pop rbx
    0xC3,                   // ret
};
#else
// The function takes off its own arguments, however many; the stack is put back from ebp.
constexpr BYTE auCode[] = {
    0x55,             // push ebp
    0x89, 0xE5,       // mov ebp, esp
    0x53,             // push ebx
    0x8B, 0x5D, 0x08, // mov ebx, [ebp+8]
    0xFF, 0x73, 0x10, // push [ebx+10h]
    0xFF, 0x73, 0x0C, // push [ebx+0Ch]
    0xFF, 0x73, 0x08, // push [ebx+8]
    0xFF, 0x73, 0x04, // push [ebx+4]
    0xFF, 0x13,       // call [ebx]
    0x89, 0x43, 0x14, // mov [ebx+14h], eax
    0x31, 0xC0,       // xor eax, eax
    0x8D, 0x65, 0xFC, // lea esp, [ebp-4]
    0x5B,             // pop ebx
    0x5D,             // pop ebp
    0xC2, 0x04, 0x00, // ret 4
};
#endif

constexpr size_t uCallOffset = 256; // behind the code
static_assert(sizeof auCode < uCallOffset);

[[noreturn]] void FailCall(const char* szWhat)
{
    FailTest(std::string(szWhat) + " in the other program: error " +
             std::to_string(GetLastError()));
}

} // namespace

RemoteMemory::RemoteMemory(HANDLE hProcess, size_t uSize, DWORD uProtection)
    : m_hProcess(hProcess),
      m_pMemory(VirtualAllocEx(hProcess, nullptr, uSize, MEM_COMMIT | MEM_RESERVE, uProtection))
{
    if (m_pMemory == nullptr) {
        FailCall("no memory");
    }
}

RemoteMemory::~RemoteMemory()
{
    VirtualFreeEx(m_hProcess, m_pMemory, 0, MEM_RELEASE);
}

void RemoteMemory::Write(size_t uOffset, const void* pBytes, size_t uSize)
{
    if (!WriteProcessMemory(m_hProcess, At(uOffset), pBytes, uSize, nullptr)) {
        FailCall("cannot write memory");
    }
}

void RemoteMemory::Read(size_t uOffset, void* pBytes, size_t uSize) const
{
    if (!ReadRemote(m_hProcess, At(uOffset), pBytes, uSize)) {
        FailCall("cannot read memory");
    }
}

bool ReadRemote(HANDLE hProcess, const void* pAddress, void* pBytes, size_t uSize)
{
    SIZE_T uRead = 0;
    return ReadProcessMemory(hProcess, pAddress, pBytes, uSize, &uRead) && uRead == uSize;
}

UINT_PTR CallRemote(HANDLE hProcess, FARPROC pFunction, UINT_PTR uFirst, UINT_PTR uSecond,
                    UINT_PTR uThird, UINT_PTR uFourth)
{
    Call call = {reinterpret_cast<UINT_PTR>(pFunction), {uFirst, uSecond, uThird, uFourth}, 0};
    RemoteMemory memory(hProcess, uCallOffset + sizeof call, PAGE_EXECUTE_READWRITE);
    memory.Write(0, auCode, sizeof auCode);
    memory.Write(uCallOffset, &call, sizeof call);
    auto* pProcedure = reinterpret_cast<LPTHREAD_START_ROUTINE>(memory.At(0));
    HANDLE hThread =
        CreateRemoteThread(hProcess, nullptr, 0, pProcedure, memory.At(uCallOffset), 0, nullptr);
    if (hThread == nullptr) {
        FailCall("no thread");
    }
    const bool bDone = WaitForSingleObject(hThread, uStateLimit) == WAIT_OBJECT_0;
    CloseHandle(hThread);
    if (!bDone) {
        FailTest("a call in the other program did not come back");
    }
    memory.Read(uCallOffset, &call, sizeof call);
    return call.uResult;
}
