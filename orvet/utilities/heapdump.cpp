#include "orvet/utilities/heapdump.h"

#include <cstdio>

#include "orvet/foundation/platform/files.h"
#include "orvet/foundation/platform/heap.h"

namespace orvet {

namespace {

/// How a walk ends that did not come through; what is wrong with the heap goes to standard output, wherever
/// the rest goes.
constexpr struct {
    platform::heap_status status;
    const char * text;
} endings[] = {
    {platform::heap_status::empty, "OK - empty heap\n"},
    {platform::heap_status::bad_pointer, "ERROR - bad pointer to heap\n"},
    {platform::heap_status::bad_node, "ERROR - bad node in heap\n"},
    {platform::heap_status::bad_begin, "ERROR - bad start of heap\n"},
};

void print_status(std::FILE * target, platform::heap_status status, std::size_t used, std::size_t free)
{
    if (status == platform::heap_status::end)
        std::fprintf(target, "MemUsed=(%d) MemFree=(%d) Status=OK\n", static_cast<int>(used),
                     static_cast<int>(free));
    for (const auto & ending : endings)
        if (status == ending.status)
            std::fputs(ending.text, status == platform::heap_status::empty ? target : stdout);
}

} // namespace

void heapdump(const char * path)
{
    std::printf("PANIC - heapdump() called \n");
    std::FILE * const file = path ? platform::open_stream(path, "w") : nullptr;
    char buffer[4096];
    if (file)
        std::setvbuf(file, buffer, _IOFBF,
                     sizeof buffer); // or the stream would change the heap under the walk

    std::size_t used = 0;
    std::size_t free = 0;
    platform::heap_block block{};
    platform::heap_status status;
    while ((status = platform::next_heap_block(block)) == platform::heap_status::ok) {
        (block.used ? used : free) += block.size;
        if (!file)
            continue;
        char address[32];
        platform::print_address(block.address, address, sizeof address);
        std::fprintf(file, "%6s block at %s of size %4.4X\n", block.used ? "USED" : "FREE", address,
                     static_cast<unsigned>(block.size));
    }
    print_status(file ? file : stdout, status, used, free);
    if (file)
        platform::close_stream(file);
}

} // namespace orvet
