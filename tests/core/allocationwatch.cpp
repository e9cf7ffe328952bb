#include "tests/core/allocationwatch.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

size_t uLargest = 0;

void Note(size_t uSize)
{
    uLargest = uSize > uLargest ? uSize : uLargest;
}

} // namespace

size_t AllocationWatch::GetLargest() const
{
    return uLargest;
}

#ifdef __SANITIZE_ADDRESS__

// Functions of the sanitizer's run-time library. Its own operator new must stay in place.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*pMalloc)(const volatile void*,
                                                                         size_t),
                                                         void (*pFree)(const volatile void*));

AllocationWatch::AllocationWatch()
{
    static const int nInstalled = __sanitizer_install_malloc_and_free_hooks(
        [](const volatile void*, size_t uSize) { Note(uSize); }, [](const volatile void*) {});
    uLargest = nInstalled > 0 ? 0 : SIZE_MAX;
}

#else

AllocationWatch::AllocationWatch()
{
    uLargest = 0;
}

// The standard library's other forms of new and delete call these.
void* operator new(size_t uSize)
{
    Note(uSize);
    void* p = malloc(uSize > 0 ? uSize : 1);
    if (p == nullptr) {
        throw std::bad_alloc();
    }
    return p;
}

void operator delete(void* p) noexcept
{
    free(p);
}

void operator delete(void* p, size_t /*uSize*/) noexcept
{
    free(p);
}

#endif
