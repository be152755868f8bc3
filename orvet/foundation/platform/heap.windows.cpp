#include "orvet/foundation/platform/heap.h"

#include <malloc.h>

namespace orvet::platform {

heap_status native::next_heap_block(heap_block & block)
{
    _HEAPINFO entry{};
    entry._pentry = static_cast<int *>(block.address);
    const int status = _heapwalk(&entry);
    if (status == _HEAPOK)
        block = {entry._pentry, entry._size, entry._useflag == _USEDENTRY};
    return static_cast<heap_status>(status);
}

} // namespace orvet::platform
