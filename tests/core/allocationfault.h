// Memory that runs out on demand, to see what the core does then.
#pragma once

// Until the end of its scope every request for memory that may answer null (new (std::nothrow),
// malloc, realloc) is refused, once nBefore of them were met. One at a time; the test itself makes
// no texts and no containers meanwhile, since the throwing new may stand on malloc.
class AllocationFault
{
public:
    explicit AllocationFault(int nBefore = 0);
    AllocationFault(const AllocationFault&) = delete;
    AllocationFault& operator=(const AllocationFault&) = delete;
    ~AllocationFault();
};
