#include "tests/core/allocationfault.h"

#include <cstddef>
#include <new>

namespace {

constexpr int nNoFault = -1;
int g_nLeft = nNoFault;

bool IsRefused()
{
    if (g_nLeft > 0) {
        --g_nLeft;
        return false;
    }
    return g_nLeft == 0;
}

// Calls the throwing form of new, because the sanitizers let delete free its memory. The malloc
// below it must not be counted a second time.
template <class F>
void* Ask(F throwingForm) noexcept
{
    if (IsRefused()) {
        return nullptr;
    }
    const int nLeft = g_nLeft;
    g_nLeft = nNoFault;
    void* pBlock = nullptr;
    try {
        pBlock = throwingForm();
    } catch (const std::bad_alloc&) {
        pBlock = nullptr;
    }
    g_nLeft = nLeft;
    return pBlock;
}

} // namespace

AllocationFault::AllocationFault(int nBefore)
{
    g_nLeft = nBefore;
}

AllocationFault::~AllocationFault()
{
    g_nLeft = nNoFault;
}

void* operator new(std::size_t uSize, const std::nothrow_t&) noexcept
{
    return Ask([&] { return ::operator new(uSize); });
}

void* operator new[](std::size_t uSize, const std::nothrow_t&) noexcept
{
    return Ask([&] { return ::operator new[](uSize); });
}

// The linker sends every call of malloc and realloc here; see CMakeLists.txt. The compiler may turn
// a realloc of a null pointer into a malloc.
extern "C" void* __real_malloc(std::size_t uSize);
extern "C" void* __real_realloc(void* pBlock, std::size_t uSize);

extern "C" void* __wrap_malloc(std::size_t uSize)
{
    return IsRefused() ? nullptr : __real_malloc(uSize);
}

extern "C" void* __wrap_realloc(void* pBlock, std::size_t uSize)
{
    return IsRefused() ? nullptr : __real_realloc(pBlock, uSize);
}
