#include "tests/e2e/remoteprocess.h"

#include <cstring>
#include <map>
#include <memory>
#include <string>

#include "tests/e2e/wait.h"

namespace {

// The data of the code below: the function, its arguments, room for the result, and a flag that
// becomes 1 once the result is there.
struct Call
{
    UINT_PTR uFunction;
    UINT_PTR auArguments[4];
    UINT_PTR uResult;
    UINT_PTR uDone;
};

// A procedure (machine code) that does the Call that it is given.
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
    0xC6, 0x43, 0x30, 0x01, // mov byte ptr [rbx+30h], 1
    0x31, 0xC0,             // xor eax, eax
    0x48, 0x83, 0xC4, 0x20, // add rsp, 20h
    0x5B,                   // pop rbx
    0xC3,                   // ret
};

// The procedure of a thread that sleeps for ever, by calling SleepEx at the given address, and
// carries out the calls that are queued to it.
constexpr BYTE auServer[] = {
    0x53,                         // push rbx
    0x48, 0x83, 0xEC, 0x20,       // sub rsp, 20h
    0x48, 0x89, 0xCB,             // mov rbx, rcx
    0xB9, 0xFF, 0xFF, 0xFF, 0xFF, // again: mov ecx, INFINITE
    0xBA, 0x01, 0x00, 0x00, 0x00, // mov edx, TRUE
    0xFF, 0x13,                   // call [rbx]
    0xEB, 0xF2,                   // jmp again
};
#else
// The function removes its arguments from the stack, however many there are. So the stack pointer
// is restored from ebp.
constexpr BYTE auCode[] = {
    0x55,                   // push ebp
    0x89, 0xE5,             // mov ebp, esp
    0x53,                   // push ebx
    0x8B, 0x5D, 0x08,       // mov ebx, [ebp+8]
    0xFF, 0x73, 0x10,       // push [ebx+10h]
    0xFF, 0x73, 0x0C,       // push [ebx+0Ch]
    0xFF, 0x73, 0x08,       // push [ebx+8]
    0xFF, 0x73, 0x04,       // push [ebx+4]
    0xFF, 0x13,             // call [ebx]
    0x89, 0x43, 0x14,       // mov [ebx+14h], eax
    0xC6, 0x43, 0x18, 0x01, // mov byte ptr [ebx+18h], 1
    0x31, 0xC0,             // xor eax, eax
    0x8D, 0x65, 0xFC,       // lea esp, [ebp-4]
    0x5B,                   // pop ebx
    0x5D,                   // pop ebp
    0xC2, 0x04, 0x00,       // ret 4
};

constexpr BYTE auServer[] = {
    0x8B, 0x5C, 0x24, 0x04, // mov ebx, [esp+4]
    0x6A, 0x01,             // again: push TRUE
    0x6A, 0xFF,             // push INFINITE
    0xFF, 0x13,             // call [ebx]
    0xEB, 0xF8,             // jmp again
};
#endif

constexpr size_t uCallOffset = 256; // behind the code
static_assert(sizeof auCode < uCallOffset && sizeof auServer < uCallOffset);

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

// ---- Calls.

namespace {

// A second handle of the process, which stays valid when the first one is closed.
class ProcessHandle
{
public:
    explicit ProcessHandle(HANDLE hProcess)
    {
        HANDLE hSelf = GetCurrentProcess();
        DuplicateHandle(hSelf, hProcess, hSelf, &m_hProcess, 0, FALSE, DUPLICATE_SAME_ACCESS);
    }
    ProcessHandle(const ProcessHandle&) = delete;
    ProcessHandle& operator=(const ProcessHandle&) = delete;
    ~ProcessHandle() { CloseHandle(m_hProcess); }

    HANDLE Get() const { return m_hProcess; }

private:
    HANDLE m_hProcess = nullptr;
};

// A thread of another program that carries out calls.
class Server
{
public:
    explicit Server(HANDLE hProcess)
        : m_process(hProcess), m_memory(m_process.Get(), 2 * uCallOffset, PAGE_EXECUTE_READWRITE)
    {
        const auto uSleep =
            reinterpret_cast<UINT_PTR>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "SleepEx"));
        m_memory.Write(0, auServer, sizeof auServer);
        m_memory.Write(uCallOffset, &uSleep, sizeof uSleep);
        m_hThread = CreateRemoteThread(hProcess, nullptr, 0,
                                       reinterpret_cast<LPTHREAD_START_ROUTINE>(m_memory.At(0)),
                                       m_memory.At(uCallOffset), 0, nullptr);
        if (m_hThread == nullptr) {
            FailCall("no thread");
        }
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server() { CloseHandle(m_hThread); }

    HANDLE GetThread() const { return m_hThread; }
    // Returns false when the program has ended.
    bool IsAlive() const { return WaitForSingleObject(m_hThread, 0) == WAIT_TIMEOUT; }

private:
    ProcessHandle m_process;
    RemoteMemory m_memory;
    HANDLE m_hThread;
};

// By process id. Windows may use an id again for another program.
std::map<DWORD, std::unique_ptr<Server>> g_servers;

} // namespace

void PrepareCalls(HANDLE hProcess)
{
    std::unique_ptr<Server>& pServer = g_servers[GetProcessId(hProcess)];
    if (pServer == nullptr || !pServer->IsAlive()) {
        pServer = std::make_unique<Server>(hProcess);
    }
}

UINT_PTR CallRemote(HANDLE hProcess, FARPROC pFunction, UINT_PTR uFirst, UINT_PTR uSecond,
                    UINT_PTR uThird, UINT_PTR uFourth)
{
    PrepareCalls(hProcess);
    Call call = {reinterpret_cast<UINT_PTR>(pFunction), {uFirst, uSecond, uThird, uFourth}, 0, 0};
    RemoteMemory memory(hProcess, uCallOffset + sizeof call, PAGE_EXECUTE_READWRITE);
    memory.Write(0, auCode, sizeof auCode);
    memory.Write(uCallOffset, &call, sizeof call);
    HANDLE hThread = g_servers[GetProcessId(hProcess)]->GetThread();
    if (QueueUserAPC(reinterpret_cast<PAPCFUNC>(memory.At(0)), hThread,
                     reinterpret_cast<ULONG_PTR>(memory.At(uCallOffset))) == 0) {
        FailCall("no call");
    }
    const ULONGLONG uEnd = GetTickCount64() + uStateLimit;
    do {
        if (GetTickCount64() > uEnd) {
            FailTest("a call in the other program did not come back");
        }
        Sleep(0);
        memory.Read(uCallOffset, &call, sizeof call);
    } while (call.uDone == 0);
    return call.uResult;
}
