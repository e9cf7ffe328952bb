// Waits for a state of another program by asking again and again, up to a limit.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

// In milliseconds. A machine under load is slow.
inline constexpr DWORD uStateLimit = 30000;

// Calls reached() every few milliseconds and returns when it is true. After the limit it calls
// FailTest. sWhat names what was awaited in the message.
void Await(const std::string& sWhat, const std::function<bool()>& reached,
           DWORD uLimit = uStateLimit);

// Fails the running test and ends it.
[[noreturn]] void FailTest(const std::string& sWhat);
