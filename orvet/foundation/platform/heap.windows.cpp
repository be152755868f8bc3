#include "orvet/foundation/platform/heap.h"

#include <cinttypes>
#include <cstdint>
#include <cstdio>

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

// All digits of an address, in capitals. A compiler's own `printf` prints it otherwise.
void native::print_address(const void * address, char * text, std::size_t size)
{
    constexpr int digits = 2 * sizeof address;
    std::snprintf(text, size, "%0*" PRIXPTR, digits, reinterpret_cast<std::uintptr_t>(address));
}

} // namespace orvet::platform
