// Another program that the test starts. It runs no longer than the object lives.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class Process
{
public:
    Process() = default;
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    // Kills the program if it is still running. The running test fails if it crashed before.
    ~Process();

    // Starts a program with arguments, which must hold no quotation marks. The running test fails
    // when the program cannot be started.
    void Start(const std::string& sPath, const std::vector<std::string>& arguments);

    bool IsRunning() const;
    // Waits until the program ends by itself. The running test fails when it does not.
    DWORD AwaitExit();
    void Kill();

    HANDLE GetHandle() const { return m_process.hProcess; }
    DWORD GetId() const { return m_process.dwProcessId; }

private:
    void Release();
    bool HasCrashed() const;

    PROCESS_INFORMATION m_process = {};
};

// The folder of the running program, with a separator at its end.
std::string ProgramFolder();
