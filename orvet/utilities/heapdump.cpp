#include "orvet/utilities/heapdump.h"

#include <cstdio>

#include "orvet/foundation/platform/platform.h"

namespace orvet {

namespace {

void print_status(std::FILE * target, platform::heap_status status, std::size_t used, std::size_t free)
{
    switch (status) {
    case platform::heap_status::end:
        std::fprintf(target, "MemUsed=(%d) MemFree=(%d) Status=OK\n", static_cast<int>(used),
                     static_cast<int>(free));
        break;
    case platform::heap_status::empty:
        std::fprintf(target, "OK - empty heap\n");
        break;
    case platform::heap_status::bad_pointer:
        std::printf("ERROR - bad pointer to heap\n");
        break;
    case platform::heap_status::bad_node:
        std::printf("ERROR - bad node in heap\n");
        break;
    case platform::heap_status::bad_begin:
        std::printf("ERROR - bad start of heap\n");
        break;
    case platform::heap_status::ok:
        break;
    }
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
        if (file)
            std::fprintf(file, "%6s block at %p of size %4.4X\n", block.used ? "USED" : "FREE", block.address,
                         static_cast<unsigned>(block.size));
    }
    print_status(file ? file : stdout, status, used, free);
    if (file)
        std::fclose(file);
}

} // namespace orvet
