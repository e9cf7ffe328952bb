// Measures in a child process. So every measurement starts with fresh memory, as a program does
// that has just been started, whatever was measured before.
#pragma once

#include <functional>

#include "bench/measurement.h"

// Runs work in a forked process. The work must call stopClock when it is done, before it frees what
// it made, and return whether it succeeded.
Measurement MeasureInChild(const std::function<bool(const std::function<void()>& stopClock)>& work);
