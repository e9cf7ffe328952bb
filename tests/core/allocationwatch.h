// Notes the size of requests for memory. With it a test notices that the code believed an absurd
// size.
#pragma once

#include <cstddef>

// Watches from its construction on. There may be one at a time.
class AllocationWatch
{
public:
    AllocationWatch();

    // The largest request so far. Only those made by new count; with a sanitizer's allocator all of
    // them do.
    size_t GetLargest() const;
};
