#include <cstdint>
#include <cstdlib>

#include "fuzz.h"

/// Runs the target that the environment names.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size)
{
    run(std::getenv("FUZZ_TARGET"), {reinterpret_cast<const char *>(data), size}, "named below");
    return 0;
}
