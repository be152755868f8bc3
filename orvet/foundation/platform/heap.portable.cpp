#include "orvet/foundation/platform/heap.h"

#include <cstdio>

namespace orvet::platform {

heap_status native::next_heap_block(heap_block &)
{
    return heap_status::empty;
}

void native::print_address(const void * address, char * text, std::size_t size)
{
    std::snprintf(text, size, "%p", address);
}

} // namespace orvet::platform
