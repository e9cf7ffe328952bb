#include "tests/support/process_support.h"

#include <windows.h>

uint32_t OwnProcess()
{
    return GetCurrentProcessId();
}
