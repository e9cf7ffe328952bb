// What a test of the program's speed starts with.
#pragma once

#include <windows.h>

#include <string>

// Turns Wine's checking heap off for the programs that a test starts. With it the speed would not
// be the one that a user sees, and it takes minutes to free a hundred thousand blocks.
class OrdinaryHeap
{
public:
    OrdinaryHeap()
    {
        char szDebug[256] = "";
        GetEnvironmentVariableA(szVariable, szDebug, sizeof szDebug);
        m_sBefore = szDebug;
        SetEnvironmentVariableA(szVariable, "-all");
    }
    OrdinaryHeap(const OrdinaryHeap&) = delete;
    OrdinaryHeap& operator=(const OrdinaryHeap&) = delete;
    ~OrdinaryHeap()
    {
        SetEnvironmentVariableA(szVariable, m_sBefore.empty() ? nullptr : m_sBefore.c_str());
    }

private:
    static constexpr char szVariable[] = "WINEDEBUG";

    std::string m_sBefore;
};
