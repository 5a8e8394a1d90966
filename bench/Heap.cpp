#include "Heap.h"

#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

bool isCounting = false;
Bench::SHeap heap{};

void* Allocate(std::size_t size)
{
    void* const block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr)
        throw std::bad_alloc();
    if (isCounting) {
        ++heap.allocations;
        heap.held += static_cast<std::ptrdiff_t>(malloc_usable_size(block));
    }
    return block;
}

void Free(void* block) noexcept
{
    if (isCounting && block != nullptr)
        heap.held -= static_cast<std::ptrdiff_t>(malloc_usable_size(block));
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size)
{
    return Allocate(size);
}

void operator delete(void* block) noexcept
{
    Free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    Free(block);
}

namespace Bench {

void StartHeapCount()
{
    heap = {};
    isCounting = true;
}

SHeap ReadHeapCount()
{
    return heap;
}

void StopHeapCount()
{
    isCounting = false;
}

}  // namespace Bench
