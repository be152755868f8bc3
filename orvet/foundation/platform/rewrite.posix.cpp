#include "orvet/foundation/platform/rewrite.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "orvet/foundation/platform/files.h"
#include "orvet/foundation/platform/native_text.h"

namespace orvet::platform {

namespace {

/// Closes a file and keeps the error. Nothing is held then.
held_entry give_up(int file)
{
    const int error = errno;
    close(file);
    errno = error;
    return not_held;
}

/// The same file under a number above those of the standard streams.
int move_above_stderr(int file)
{
    if (file < 0 || file > STDERR_FILENO)
        return file;
    const int moved = fcntl(file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    give_up(file);
    return moved;
}

/// False if another process has the lock. It belongs to the open file, not to the process: a copy of the
/// number keeps it, and closing some other stream of the same file does not drop it.
bool lock(int file)
{
    int result;
    while ((result = flock(file, LOCK_EX | LOCK_NB)) != 0 && errno == EINTR)
        continue;
    constexpr int unsupported[] = {ENOLCK, ENOSYS, ENOTSUP, EOPNOTSUPP, EINVAL};
    return result == 0 ||
           std::find(std::begin(unsupported), std::end(unsupported), errno) != std::end(unsupported);
}

/// Opens the directory of a path, to lock or sync it.
int open_directory(const char * path)
{
    char directory[4096];
    const char * const separator = std::strrchr(path, '/');
    const std::size_t length = separator ? static_cast<std::size_t>(separator - path) + 1 : 0;
    if (length >= sizeof directory) {
        errno = ENAMETOOLONG;
        return -1;
    }
    std::memcpy(directory, path, length);
    std::strcpy(directory + length, ".");
    return move_above_stderr(open(directory, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// Opens a file that is already there as far as its permissions allow it: some file systems lock only what is
/// open for writing.
int open_leftover(const char * name)
{
    int file = -1;
    for (const int access : {O_RDWR, O_RDONLY, O_WRONLY})
        if (file < 0)
            file = open(name, access | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file < 0 && errno != ENOENT)
        errno = EWOULDBLOCK; // whoever may open it may be at work on it
    return move_above_stderr(file);
}

} // namespace

held_entry native::create_held(const ustring & path)
{
    const char * const name = native_text(path);
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const int file = name ? move_above_stderr(open(name, flags, S_IRUSR | S_IWUSR)) : -1;
    if (file < 0)
        return not_held;
    if (!lock(file))
        return give_up(file);
    if (is_held_at(file, path))
        return file;
    errno = EEXIST; // taken for a leftover, and removed, before it was locked
    return give_up(file);
}

held_entry native::hold(const ustring & path)
{
    const char * const name = native_text(path);
    struct stat status;
    if (!name || lstat(name, &status) != 0)
        return not_held;
    if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) {
        errno = EINVAL;
        return not_held;
    }
    // A link can't be locked. Its directory is, in its place.
    const int file = S_ISREG(status.st_mode) ? open_leftover(name) : open_directory(name);
    if (file < 0)
        return not_held;
    return lock(file) ? file : give_up(file);
}

bool native::is_held_at(held_entry held, const ustring & path)
{
    const char * const name = native_text(path);
    struct stat status;
    struct stat found;
    if (!name || fstat(static_cast<int>(held), &status) != 0 || lstat(name, &found) != 0)
        return false;
    if (S_ISDIR(status.st_mode))
        return S_ISLNK(found.st_mode);
    return status.st_dev == found.st_dev && status.st_ino == found.st_ino;
}

int native::remove_held(held_entry held, const ustring & path)
{
    return is_held_at(held, path) ? unlink(native_text(path)) : 0;
}

int native::rename_held(held_entry, const ustring & from, const ustring & to)
{
    return rename_file(from, to);
}

void native::release_held(held_entry held)
{
    if (held != not_held)
        give_up(static_cast<int>(held));
}

std::FILE * native::open_held(held_entry held)
{
    const int file = fcntl(static_cast<int>(held), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    std::FILE * const stream = file >= 0 ? fdopen(file, "w") : nullptr;
    if (file >= 0 && !stream)
        give_up(file);
    return stream;
}

std::FILE * native::open_shared(const ustring & path)
{
    return open_stream(path, "r");
}

int native::sync_directory(const ustring & path)
{
    const char * const name = native_text(path);
    const int directory = name ? open_directory(name) : -1;
    if (directory < 0)
        return -1;
    const int result = fsync(directory);
    give_up(directory);
    return result;
}

} // namespace orvet::platform
