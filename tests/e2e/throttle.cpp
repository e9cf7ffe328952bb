#include "tests/e2e/throttle.h"

#include "tests/e2e/wait.h"

namespace {

constexpr DWORD uRuns = 1;    // milliseconds
constexpr DWORD uRests = 299; // milliseconds

} // namespace

Throttle::Throttle(HWND hWnd)
    : m_hSlowed(OpenThread(THREAD_SUSPEND_RESUME, FALSE, GetWindowThreadProcessId(hWnd, nullptr))),
      m_hEnd(CreateEventA(nullptr, TRUE, FALSE, nullptr)),
      m_hThread(CreateThread(nullptr, 0, &Run, this, 0, nullptr))
{
    if (m_hSlowed == nullptr || m_hEnd == nullptr || m_hThread == nullptr) {
        FailTest("the program cannot be slowed down");
    }
}

Throttle::~Throttle()
{
    SetEvent(m_hEnd);
    WaitForSingleObject(m_hThread, INFINITE);
    CloseHandle(m_hThread);
    CloseHandle(m_hEnd);
    CloseHandle(m_hSlowed);
}

DWORD WINAPI Throttle::Run(void* pThis)
{
    const auto& throttle = *static_cast<Throttle*>(pThis);
    while (WaitForSingleObject(throttle.m_hEnd, uRuns) == WAIT_TIMEOUT) {
        SuspendThread(throttle.m_hSlowed);
        WaitForSingleObject(throttle.m_hEnd, uRests);
        ResumeThread(throttle.m_hSlowed);
    }
    return 0;
}
