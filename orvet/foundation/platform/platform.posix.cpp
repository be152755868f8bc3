#include "orvet/foundation/platform/platform.h"

#include <algorithm>
#include <cerrno>
#include <cinttypes>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "orvet/foundation/base/memory.h"

namespace orvet::platform {

const char16_t separator = u'/';

namespace {

/// The bytes of a path or command; null, with `errno` set, for a text with a zero in it and when memory is
/// short.
const char * native(const ustring & text)
{
    memory_watch watch;
    const bool whole = text.find(u'\0') == ustring::npos;
    const char * const bytes = whole ? text.mbcs_str() : nullptr;
    if (whole && !watch.failed())
        return bytes;
    errno = whole ? ENOMEM : EINVAL;
    return nullptr;
}

constexpr std::size_t buffer_size = 65536;
constexpr int foreign_buffer = 1; // the flag of a stream whose buffer the runtime does not release

/// The same stream by a number of its own: one of a standard stream that is shut would get what is printed.
std::FILE * beyond_standard(std::FILE * stream, const char * mode)
{
    const int file = fcntl(fileno(stream), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    std::FILE * const moved = file >= 0 ? fdopen(file, mode) : nullptr;
    const int error = errno;
    if (file >= 0 && !moved)
        close(file);
    std::fclose(stream);
    errno = error;
    return moved;
}

/// Gives `file` the access list and the permissions of the file `name`; a list that it has from its directory
/// goes.
int copy_access(const char * name, mode_t permissions, int file)
{
    constexpr char key[] = "system.posix_acl_access";
    char list[4096];
    const ssize_t size = getxattr(name, key, list, sizeof list);
    if (size > 0)
        return fsetxattr(file, key, list, static_cast<std::size_t>(size), 0);
    const bool has_none =
        errno != ERANGE && (fremovexattr(file, key) == 0 || errno == ENODATA || errno == ENOTSUP);
    return has_none ? fchmod(file, permissions) : -1;
}

} // namespace

void fill(std::FILE * stream)
{
    if (const int first = std::getc(stream); first != EOF)
        std::ungetc(first, stream);
}

std::FILE * open_stream(const ustring & path, const char * mode)
{
    if (!mode || !*mode || std::strchr(mode, ',')) { // behind a comma stands an encoding, of wide characters
        errno = EINVAL;
        return nullptr;
    }
    const char * const name = native(path);
    if (!name)
        return nullptr;
    char closed_on_exec[64];
    std::snprintf(closed_on_exec, sizeof closed_on_exec, "%ce%s", *mode, mode + 1);
    std::FILE * stream = std::fopen(name, closed_on_exec);
    if (stream && fileno(stream) <= STDERR_FILENO)
        stream = beyond_standard(stream, mode);
    struct stat status;
    if (stream && fstat(fileno(stream), &status) == 0 && S_ISDIR(status.st_mode)) {
        std::fclose(stream);
        errno = EISDIR;
        return nullptr;
    }
    // A stream does without where there is no memory for it.
    char * const buffer = stream && *mode == 'r' ? static_cast<char *>(std::malloc(buffer_size)) : nullptr;
    if (buffer && std::setvbuf(stream, buffer, _IOFBF, buffer_size) != 0)
        std::free(buffer);
    return stream; // NOLINT(clang-analyzer-unix.Malloc): the stream keeps the buffer, for `close_stream`
}

int close_stream(std::FILE * stream)
{
    // For want of memory the runtime takes a byte of the stream itself.
    const bool foreign = stream->_flags & foreign_buffer && stream->_IO_buf_base != stream->_shortbuf;
    char * const buffer = foreign ? stream->_IO_buf_base : nullptr;
    const int result = std::fclose(stream);
    const int error = errno;
    std::free(buffer);
    errno = error;
    return result;
}

int seek(std::FILE * stream, long offset, int origin)
{
    return std::fseek(stream, offset, origin);
}

long tell(std::FILE * stream)
{
    return std::ftell(stream);
}

void end_lines_natively(std::FILE *, bool)
{
}

std::size_t write_through(std::FILE * stream, const char * bytes, std::size_t size)
{
    // The buffer of a stream of which the runtime keeps nothing, neither bytes nor a position, would only
    // take a copy ahead of the same call.
    const bool bare = stream->_IO_write_ptr == stream->_IO_write_base &&
                      stream->_IO_read_ptr == stream->_IO_read_end && stream->_offset < 0;
    const int file = bare ? fileno(stream) : -1;
    const ssize_t taken = file >= 0 ? write(file, bytes, size) : 0;
    std::size_t done = taken > 0 ? static_cast<std::size_t>(taken) : 0;
    if (done < size) {
        done += std::fwrite(bytes + done, 1, size - done, stream);
        std::fflush(stream);
    }
    return done;
}

int remove_file(const ustring & path)
{
    const char * const name = native(path);
    return name ? unlink(name) : -1;
}

int rename_file(const ustring & from, const ustring & to)
{
    const char * const source = native(from);
    const char * const target = native(to);
    return source && target ? std::rename(source, target) : -1;
}

int sync_stream(std::FILE * stream)
{
    if (fsync(fileno(stream)) == 0)
        return 0;
    constexpr int not_known[] = {EINVAL, ENOSYS, ENOTSUP, EROFS}; // by what the stream writes to
    return std::find(std::begin(not_known), std::end(not_known), errno) != std::end(not_known) ? 0 : -1;
}

int copy_permissions(const ustring & from, std::FILE * stream)
{
    const char * const name = native(from);
    const int file = fileno(stream);
    struct stat old_status;
    struct stat status;
    if (!name || stat(name, &old_status) != 0)
        return 0;
    if (fstat(file, &status) != 0)
        return -1;
    if (!S_ISREG(status.st_mode))
        return 0;
    constexpr mode_t permissions = 0777;
    if (copy_access(name, old_status.st_mode & permissions, file) != 0)
        return -1;
    // Whoever may not give a file away may still give it to a group of his own.
    const uid_t same_owner = static_cast<uid_t>(-1);
    [[maybe_unused]] const bool given =
        (old_status.st_uid == status.st_uid && old_status.st_gid == status.st_gid) ||
        fchown(file, old_status.st_uid, old_status.st_gid) == 0 ||
        fchown(file, same_owner, old_status.st_gid) == 0;
    return 0;
}

bool exists(const ustring & path)
{
    const char * const name = native(path);
    return name && access(name, F_OK) == 0;
}

const char print_command[] = "cat";

int run_command(const ustring & line)
{
    const char * const text = native(line);
    // A process whose children are ignored, as whoever started it may have asked, learns nothing of their
    // end.
    struct sigaction before;
    const bool ignored = sigaction(SIGCHLD, nullptr, &before) == 0 &&
                         (before.sa_handler == SIG_IGN || before.sa_flags & SA_NOCLDWAIT);
    struct sigaction meanwhile = before;
    meanwhile.sa_flags &= ~SA_NOCLDWAIT;
    if (before.sa_handler == SIG_IGN)
        meanwhile.sa_handler = SIG_DFL;
    if (ignored)
        sigaction(SIGCHLD, &meanwhile, nullptr);
    const int status = text ? std::system(text) : -1;
    const int error = errno;
    if (ignored)
        sigaction(SIGCHLD, &before, nullptr);
    errno = error;
    if (status == -1)
        return -1;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

bool is_file(const ustring & path)
{
    const char * const name = native(path);
    struct stat status;
    return name && stat(name, &status) == 0 && S_ISREG(status.st_mode);
}

bool same_file(const ustring & a, const ustring & b)
{
    const char * const one = native(a);
    const char * const other = native(b);
    struct stat first;
    struct stat second;
    return one && other && stat(one, &first) == 0 && stat(other, &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

unsigned long last_error()
{
    return static_cast<unsigned long>(errno);
}

bool error_text(unsigned long code, char * text, std::size_t size)
{
    const char * const known = code <= 0x7fffffff ? strerrordesc_np(static_cast<int>(code)) : nullptr;
    if (!known)
        return false;
    std::snprintf(text, size, "%s", known);
    return true;
}

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

heap_status next_heap_block(heap_block & block)
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

} // namespace orvet::platform
