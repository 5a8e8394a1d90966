// What passes through the program's operator new, the library's allocations included. Expat has its
// memory from malloc and isn't seen.
#pragma once

#include <cstddef>

namespace Bench {

struct SHeap {
    std::size_t allocations;
    std::ptrdiff_t held;  ///< octets, as the allocator rounds them
};

/// Counts from now on. One thread, one count at a time.
void StartHeapCount();
/// What was counted since then; counting goes on.
SHeap ReadHeapCount();
void StopHeapCount();

}  // namespace Bench
