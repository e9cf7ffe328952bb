#include "tests/e2e/process.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/e2e/wait.h"

namespace {

std::string CommandLine(const std::string& sPath, const std::vector<std::string>& arguments)
{
    std::string sLine = "\"" + sPath + "\"";
    for (const std::string& sArgument : arguments) {
        sLine += " \"" + sArgument + "\"";
    }
    return sLine;
}

} // namespace

Process::~Process()
{
    Kill();
    Release();
}

void Process::Start(const std::string& sPath, const std::vector<std::string>& arguments)
{
    Kill();
    Release();
    std::string sLine = CommandLine(sPath, arguments);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    if (!CreateProcessA(sPath.c_str(), sLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &m_process)) {
        m_process = {};
        FailTest("cannot start " + sLine + ": error " + std::to_string(GetLastError()));
    }
}

bool Process::IsRunning() const
{
    return GetHandle() != nullptr && WaitForSingleObject(GetHandle(), 0) == WAIT_TIMEOUT;
}

DWORD Process::AwaitExit()
{
    if (WaitForSingleObject(GetHandle(), uStateLimit) != WAIT_OBJECT_0) {
        FailTest("awaited for " + std::to_string(uStateLimit) + " ms: the program's end");
    }
    DWORD uCode = 0;
    GetExitCodeProcess(GetHandle(), &uCode);
    return uCode;
}

// The exit code of a program that crashed is the code of the exception, which is that of an error.
bool Process::HasCrashed() const
{
    constexpr DWORD uErrors = 0xC0000000;
    DWORD uCode = 0;
    return GetExitCodeProcess(GetHandle(), &uCode) && (uCode & uErrors) == uErrors;
}

void Process::Kill()
{
    if (IsRunning()) {
        TerminateProcess(GetHandle(), 99);
        // Windows releases the files of a program only when it is gone.
        WaitForSingleObject(GetHandle(), uStateLimit);
    }
}

void Process::Release()
{
    if (GetHandle() != nullptr) {
        if (HasCrashed()) {
            ADD_FAILURE() << "a program that the test started crashed";
        }
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
        m_process = {};
    }
}

std::string ProgramFolder()
{
    char szPath[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, szPath, sizeof szPath);
    const std::string sPath = szPath;
    return sPath.substr(0, sPath.find_last_of('\\') + 1);
}
