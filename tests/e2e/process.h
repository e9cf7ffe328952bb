// Another program, started by the test and ended with the object at the latest.
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
    // Kills it if it still runs.
    ~Process();

    // Starts a program with arguments, none of which may hold a quotation mark. The running test
    // fails when that fails.
    void Start(const std::string& sPath, const std::vector<std::string>& arguments);

    bool IsRunning() const;
    // Waits for the end by itself; the running test fails when it does not come.
    DWORD AwaitExit();
    void Kill();

    HANDLE GetHandle() const { return m_process.hProcess; }
    DWORD GetId() const { return m_process.dwProcessId; }

private:
    void Release();

    PROCESS_INFORMATION m_process = {};
};

// The folder of the running program, with a separator at its end.
std::string ProgramFolder();
