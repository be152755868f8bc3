#include "orvet/foundation/platform/channels.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <fcntl.h>
#include <io.h>

#include "orvet/foundation/platform/handles.h"

namespace orvet::platform {

namespace {

/// Bytes with CR LF for each LF, as many as fit; `size` becomes how many were used.
std::size_t to_native_lines(const char * line, std::size_t & size, char * out, std::size_t room)
{
    std::size_t used = 0;
    std::size_t length = 0;
    for (; used < size && length + 2 <= room; ++used) {
        if (line[used] == '\n')
            out[length++] = '\r';
        out[length++] = line[used];
    }
    size = used;
    return length;
}

/// Keeps the writers of a file in a row, while one adds a line. It is dropped with the process.
class writers_lock {
public:
    explicit writers_lock(HANDLE file) : file_(file)
    {
        locked_ = LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place_) != 0;
    }
    writers_lock(const writers_lock &) = delete;
    writers_lock & operator=(const writers_lock &) = delete;
    ~writers_lock()
    {
        if (locked_)
            UnlockFileEx(file_, 0, 1, 0, &place_);
    }

private:
    static OVERLAPPED beyond_any_end()
    {
        OVERLAPPED place{};
        place.OffsetHigh = 0x7fffffff;
        return place;
    }

    HANDLE file_;
    OVERLAPPED place_ = beyond_any_end();
    bool locked_;
};

} // namespace

std::FILE * native::open_channel(const ustring & path)
{
    // Without the right to write anywhere else, each write goes to the end.
    const HANDLE file = open_handle(path, FILE_APPEND_DATA | GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    return file == INVALID_HANDLE_VALUE ? nullptr : open_stream_on(file, _O_APPEND | _O_BINARY, "ab+");
}

std::size_t native::append_line(std::FILE * stream, const char * line, std::size_t size)
{
    const auto file = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    const writers_lock lock(file);
    std::size_t written = 0;
    while (written < size) {
        char bytes[4096];
        std::size_t used = size - written;
        const std::size_t length = to_native_lines(line + written, used, bytes, sizeof bytes);
        DWORD done = 0;
        const bool success = WriteFile(file, bytes, static_cast<DWORD>(length), &done, nullptr) != 0;
        if (!success || done < length) {
            if (!success)
                set_errno();
            return written + std::min<std::size_t>(used, done);
        }
        written += used;
    }
    return written;
}

} // namespace orvet::platform
