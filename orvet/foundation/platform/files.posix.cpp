#include "orvet/foundation/platform/files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "orvet/foundation/platform/native_text.h"

namespace orvet::platform {

namespace {

/// Closes a stream that failed, and keeps the error.
std::FILE * give_up(std::FILE * stream)
{
    const int error = errno;
    std::fclose(stream);
    errno = error;
    return nullptr;
}

/// The same stream under a number above those of the standard streams: what is printed would go to the file
/// of one that was closed.
std::FILE * move_above_stderr(std::FILE * stream, const char * mode)
{
    const int file = fcntl(fileno(stream), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    std::FILE * const moved = file >= 0 ? fdopen(file, mode) : nullptr;
    if (file >= 0 && !moved)
        ::close(file);
    give_up(stream);
    return moved;
}

} // namespace

std::FILE * native::open_stream(const ustring & path, const char * mode)
{
    if (!mode || !*mode || std::strchr(mode, ',')) { // an encoding, of wide characters, follows a comma
        errno = EINVAL;
        return nullptr;
    }
    const char * const name = native_text(path);
    std::FILE * stream = name ? std::fopen(name, mode) : nullptr;
    if (stream && fileno(stream) <= STDERR_FILENO)
        stream = move_above_stderr(stream, mode);
    if (!stream)
        return nullptr;
    struct stat status;
    if (fstat(fileno(stream), &status) == 0 && S_ISDIR(status.st_mode)) {
        errno = EISDIR;
        return give_up(stream);
    }
    return fcntl(fileno(stream), F_SETFD, FD_CLOEXEC) == 0 ? stream : give_up(stream);
}

int native::seek(std::FILE * stream, long offset, int origin)
{
    return std::fseek(stream, offset, origin);
}

long long native::tell(std::FILE * stream)
{
    return ftello(stream);
}

bool native::is_seekable(std::FILE * stream)
{
    struct stat status;
    return fstat(fileno(stream), &status) == 0 && S_ISREG(status.st_mode);
}

void native::set_text_mode(std::FILE *, bool)
{
}

int native::remove_file(const ustring & path)
{
    const char * const name = native_text(path);
    return name ? unlink(name) : -1;
}

int native::rename_file(const ustring & from, const ustring & to)
{
    const char * const source = native_text(from);
    const char * const target = native_text(to);
    return source && target ? std::rename(source, target) : -1;
}

int native::sync_stream(std::FILE * stream)
{
    if (fsync(fileno(stream)) == 0)
        return 0;
    constexpr int unsupported[] = {EINVAL, ENOSYS, ENOTSUP, EROFS}; // by what the stream writes to
    return std::find(std::begin(unsupported), std::end(unsupported), errno) != std::end(unsupported) ? 0 : -1;
}

bool native::exists(const ustring & path)
{
    const char * const name = native_text(path);
    return name && access(name, F_OK) == 0;
}

bool native::is_file(const ustring & path)
{
    const char * const name = native_text(path);
    struct stat status;
    return name && stat(name, &status) == 0 && S_ISREG(status.st_mode);
}

bool native::is_read_only(const ustring & path)
{
    const char * const name = native_text(path);
    struct stat status;
    constexpr mode_t write_permissions = 0222;
    return name && stat(name, &status) == 0 && (status.st_mode & write_permissions) == 0;
}

bool native::same_file(const ustring & a, const ustring & b)
{
    const char * const one = native_text(a);
    const char * const other = native_text(b);
    struct stat first;
    struct stat second;
    return one && other && stat(one, &first) == 0 && stat(other, &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

} // namespace orvet::platform
