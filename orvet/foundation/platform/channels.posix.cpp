#include "orvet/foundation/platform/channels.h"

#include <cerrno>

#include <unistd.h>

#include "orvet/foundation/platform/files.h"

namespace orvet::platform {

std::FILE * native::open_channel(const ustring & path)
{
    return open_stream(path, "a+");
}

std::size_t native::append_line(std::FILE * stream, const char * line, std::size_t size)
{
    // One call of the system is one line in the file. It writes a part where the disk ends, and the next call
    // says so.
    std::size_t written = 0;
    while (written < size) {
        const ssize_t result = ::write(fileno(stream), line + written, size - written);
        if (result > 0)
            written += static_cast<std::size_t>(result);
        else if (result == 0 || errno != EINTR)
            break;
    }
    return written;
}

} // namespace orvet::platform
