// The process that runs the tests.
#pragma once

#include <cstdint>

// The number by which the system knows it.
uint32_t OwnProcess();
