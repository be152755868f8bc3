#include "orvet/foundation/platform/heap.h"

#include <cinttypes>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

namespace orvet::platform {

namespace {

// The head of a block in the main heap of the GNU runtime: the size, with its flags in the low three bits,
// lies right in front of what the block's owner sees.
constexpr std::size_t flags = 7;
constexpr std::size_t previous_in_use = 1;
constexpr std::size_t head = 2 * sizeof(std::size_t);
constexpr std::size_t smallest_block = 2 * head;

struct range {
    std::uintptr_t begin;
    std::uintptr_t end;
};

/// Where the main heap lies, read without touching it; {0, 0} when there is none.
range find_heap()
{
    if (mallinfo2().arena == 0) // another allocator is at work
        return {0, 0};
    const int maps = open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
    if (maps < 0)
        return {0, 0};
    range found{0, 0};
    char line[512];
    std::size_t length = 0;
    char ch;
    while (found.begin == 0 && read(maps, &ch, 1) == 1) {
        if (ch != '\n') {
            if (length + 1 < sizeof line)
                line[length++] = ch;
            continue;
        }
        line[length] = 0;
        length = 0;
        if (std::strstr(line, "[heap]") &&
            std::sscanf(line, "%" SCNxPTR "-%" SCNxPTR, &found.begin, &found.end) != 2)
            found = {0, 0};
    }
    close(maps);
    return found;
}

std::size_t head_of(std::uintptr_t block)
{
    return *reinterpret_cast<const std::size_t *>(block + sizeof(std::size_t));
}

} // namespace

heap_status native::next_heap_block(heap_block & block)
{
    static range heap;
    const bool first = block.address == nullptr;
    if (first)
        heap = find_heap();
    if (heap.begin == 0)
        return heap_status::empty;
    const std::uintptr_t at =
        first ? heap.begin : reinterpret_cast<std::uintptr_t>(block.address) - head + block.size;
    if (at == heap.end)
        return heap_status::end;
    const std::size_t left = heap.end - at;
    const std::size_t size = left >= smallest_block ? head_of(at) & ~flags : 0;
    if (size < smallest_block || size % head != 0 || size > left)
        return first ? heap_status::bad_begin : heap_status::bad_node;
    // A block knows only whether the one in front of it is in use; the last one is what is left over.
    const bool used = size != left && (head_of(at + size) & previous_in_use);
    block = {reinterpret_cast<void *>(at + head), size, used};
    return heap_status::ok;
}

void native::print_address(const void * address, char * text, std::size_t size)
{
    std::snprintf(text, size, "%p", address);
}

} // namespace orvet::platform
