// Tells the size of the requests for memory, to see that nobody believes an absurd number.
#pragma once

#include <cstddef>

// From its beginning on; one at a time.
class AllocationWatch
{
public:
    AllocationWatch();

    // The largest request so far that the program made with new; with a sanitizer's allocator the
    // largest one of any kind.
    size_t GetLargest() const;
};
