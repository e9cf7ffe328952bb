// Waits for another program by asking again and again, up to a limit.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

// In milliseconds. A machine under load is slow.
inline constexpr DWORD uStateLimit = 30000;

// Asks reached() every few milliseconds and returns when it is true. Calls FailTest when the limit
// is over; sWhat says what was awaited.
void Await(const std::string& sWhat, const std::function<bool()>& reached,
           DWORD uLimit = uStateLimit);

// Fails the running test and leaves it.
[[noreturn]] void FailTest(const std::string& sWhat);
