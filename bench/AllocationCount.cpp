#include "AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {
thread_local long g_allocations = 0;
}

void* operator new(std::size_t size)
{
    ++g_allocations;
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

// std::stable_sort asks this way, and gives back the way below.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept
{
    ++g_allocations;
    return std::malloc(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

long quillon::tests::allocationCount() noexcept
{
    return g_allocations;
}
