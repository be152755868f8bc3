#ifndef ORVET_FOUNDATION_PLATFORM_HEAP_H
#define ORVET_FOUNDATION_PLATFORM_HEAP_H

#include <cstddef>

#include "orvet/foundation/platform/seam.h"

namespace orvet::platform {

/// How a step through the heap ended. The numbers are those of the runtime that has such a walk.
enum class heap_status { empty = -1, ok = -2, bad_begin = -3, bad_node = -4, end = -5, bad_pointer = -6 };

/// One block of the heap. A value-initialised one is before the first block.
struct heap_block {
    void * address;
    std::size_t size; // bytes
    bool used;
};

namespace native {

/// Steps to the next block, which `block` holds only after `heap_status::ok`. An allocator that can't be
/// walked gives `heap_status::empty` at once.
heap_status next_heap_block(heap_block & block);
/// Writes an address as the system's own runtime prints it; `size` bytes suffice with 32.
void print_address(const void * address, char * text, std::size_t size);

} // namespace native

ORVET_PLATFORM_CALL(next_heap_block);
ORVET_PLATFORM_CALL(print_address);

} // namespace orvet::platform

#endif
