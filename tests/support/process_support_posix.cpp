#include "tests/support/process_support.h"

#include <unistd.h>

uint32_t OwnProcess()
{
    return static_cast<uint32_t>(getpid());
}
