#include "orvet/foundation/platform/heap.h"

namespace orvet::platform {

heap_status native::next_heap_block(heap_block &)
{
    return heap_status::empty;
}

} // namespace orvet::platform
