#include "tests/e2e/wait.h"

#include <gtest/gtest.h>

void Await(const std::string& sWhat, const std::function<bool()>& reached, DWORD uLimit)
{
    constexpr DWORD uPause = 5; // milliseconds
    const ULONGLONG uEnd = GetTickCount64() + uLimit;
    while (!reached()) {
        if (GetTickCount64() >= uEnd) {
            FailTest("awaited for " + std::to_string(uLimit) + " ms: " + sWhat);
        }
        Sleep(uPause);
    }
}

void FailTest(const std::string& sWhat)
{
    // Adds the failure here, while the windows are still open, so that the picture shows them.
    ADD_FAILURE() << sWhat;
    throw testing::AssertionException(testing::TestPartResult(
        testing::TestPartResult::kFatalFailure, __FILE__, __LINE__, sWhat.c_str()));
}
