#include "orvet/foundation/platform/files.h"

// What the standard library does alike on every system.
namespace orvet::platform {

int native::close_stream(std::FILE * stream)
{
    return std::fclose(stream);
}

std::size_t native::read(std::FILE * stream, void * bytes, std::size_t size)
{
    return std::fread(bytes, 1, size, stream);
}

std::size_t native::write(std::FILE * stream, const void * bytes, std::size_t size)
{
    return std::fwrite(bytes, 1, size, stream);
}

int native::flush(std::FILE * stream)
{
    return std::fflush(stream);
}

} // namespace orvet::platform
