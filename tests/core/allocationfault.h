// Lets memory run out on demand, to test what the core does then.
#pragma once

// Lets the first nBefore requests for memory that may answer null (new (std::nothrow), malloc,
// realloc) succeed, and refuses all others until the end of the scope. There may be one such object
// at a time. Meanwhile the test must make no texts and no containers of its own: the throwing new
// may call malloc.
class AllocationFault
{
public:
    explicit AllocationFault(int nBefore = 0);
    AllocationFault(const AllocationFault&) = delete;
    AllocationFault& operator=(const AllocationFault&) = delete;
    ~AllocationFault();
};
