#include "ParserHeap.h"

#include <cstdlib>
#include <utility>

namespace ZqXmlLib9 {
namespace {

/// In front of each block.
struct alignas(std::max_align_t) SBlock {
    CParserHeap* heap;
    std::size_t size;
};

// A parser that is asked for memory doesn't say which one it is.
constinit thread_local CParserHeap* t_heap = nullptr;

}  // namespace

CParserHeap::CUse::CUse(CParserHeap& heap) noexcept : m_former(std::exchange(t_heap, &heap)) {}

CParserHeap::CUse::~CUse()
{
    t_heap = m_former;
}

void* CParserHeap::Allocate(std::size_t size) noexcept
{
    return Reallocate(nullptr, size);
}

void* CParserHeap::Reallocate(void* memory, std::size_t size) noexcept
{
    SBlock* const old = memory != nullptr ? static_cast<SBlock*>(memory) - 1 : nullptr;
    CParserHeap& heap = old != nullptr ? *old->heap : *t_heap;
    const std::size_t oldSize = old != nullptr ? old->size : 0;
    if (size > heap.m_limit || heap.m_used - oldSize > heap.m_limit - size) {
        heap.m_isExhausted = true;
        return nullptr;
    }
    auto* const block = static_cast<SBlock*>(std::realloc(old, sizeof(SBlock) + size));
    if (block == nullptr)
        return nullptr;
    heap.m_used += size - oldSize;
    *block = {&heap, size};
    return block + 1;
}

void CParserHeap::Free(void* memory) noexcept
{
    if (memory == nullptr)
        return;
    SBlock* const block = static_cast<SBlock*>(memory) - 1;
    block->heap->m_used -= block->size;
    std::free(block);
}

}  // namespace ZqXmlLib9
