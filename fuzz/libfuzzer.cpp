#include <cstddef>
#include <cstdint>

#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size)
{
    fuzz::run(*fuzz::target::first, {reinterpret_cast<const char *>(data), size});
    return 0;
}
