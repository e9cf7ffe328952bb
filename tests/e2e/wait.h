// Waiting for another program: by asking again and again, with an end.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

// Milliseconds. A machine under load takes its time.
inline constexpr DWORD uStateLimit = 30000;

// Returns once bReached() is true; asked every few milliseconds. Fails as below when the limit is
// over, naming what was awaited.
void Await(const std::string& sWhat, const std::function<bool()>& reached,
           DWORD uLimit = uStateLimit);

// Notes a failure of the running test and leaves it.
[[noreturn]] void FailTest(const std::string& sWhat);
