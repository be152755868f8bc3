#ifndef ORVET_FOUNDATION_PLATFORM_PLATFORM_H
#define ORVET_FOUNDATION_PLATFORM_PLATFORM_H

#include <cstddef>
#include <cstdio>

#include "orvet/foundation/base/ustring.h"

// All that the library asks of an operating system beyond the standard library. Calls, not decisions: what
// can be decided by a rule stands above this layer. Failures are told by `errno`.
namespace orvet::platform {

/// The system's own separator of path elements.
extern const char16_t separator;

/// What a stream has read ahead of its reader; empty at the end of the file and after a read error.
struct read_ahead {
    const char * begin;
    const char * end;
};

///@{
/// Where the runtime keeps it.
#ifdef _WIN32
inline read_ahead unread(std::FILE * stream)
{
    const bool reads = !(stream->_flag & _IOWRT); // else it is yet to be written
    return {stream->_ptr, stream->_ptr + (reads && stream->_cnt > 0 ? stream->_cnt : 0)};
}
inline void advance(std::FILE * stream, std::size_t bytes)
{
    stream->_ptr += bytes;
    stream->_cnt -= static_cast<int>(bytes);
}
#else
inline read_ahead unread(std::FILE * stream)
{
    return {stream->_IO_read_ptr, stream->_IO_read_end};
}
inline void advance(std::FILE * stream, std::size_t bytes)
{
    stream->_IO_read_ptr += bytes;
}
#endif
///@}

/// Reads ahead by the runtime's own rules, where nothing is left unread.
void fill(std::FILE * stream);

/// Shows what is to be read next, without taking any of it: that is for `advance`.
inline read_ahead look_ahead(std::FILE * stream)
{
    if (const read_ahead ahead = unread(stream); ahead.begin != ahead.end)
        return ahead;
    fill(stream);
    return unread(stream);
}

/// Opens a file as `fopen` does, but refuses directories and encodings, takes no number of a standard stream,
/// and no command that the process runs inherits the stream. One that reads, with neither "b" nor "t" in its
/// mode, is a stream of bytes, until `end_lines_natively`. It may have a large buffer, which lasts as long as
/// the stream: `close_stream` releases both.
std::FILE * open_stream(const ustring & path, const char * mode);
/// Closes a stream of `open_stream`, as `fclose` does.
int close_stream(std::FILE * stream);
/// `fseek`; after a failure the stream stands where it was.
int seek(std::FILE * stream, long offset, int origin);
/// `ftell`; -1 also for a position that a long can't hold.
long tell(std::FILE * stream);
/// Has lines that are written from now on end as the system's do, or else bytes come as they are. Nothing may
/// wait in the stream's buffer.
void end_lines_natively(std::FILE * stream, bool wish);
/// Writes as `fwrite` does, with its result, and flushes.
std::size_t write_through(std::FILE * stream, const char * bytes, std::size_t size);
/// Removes a file, never a directory. 0 for success.
int remove_file(const ustring & path);
/// 0 for success. Whether an existing `to` is replaced is the system's affair.
int rename_file(const ustring & from, const ustring & to);
/// Hands what the runtime has already flushed on to the disk itself. 0 for success, also where the stream's
/// file system or device knows no such thing.
int sync_stream(std::FILE * stream);
/// Gives the file of `stream` the permissions of the file `from`, and its owner as far as the system lets it.
/// 0 for success, also where there is nothing to be done: no file `from`, a stream that is no file, or a
/// system whose directories decide.
int copy_permissions(const ustring & from, std::FILE * stream);
/// True when anything of that name is there.
bool exists(const ustring & path);
/// True for a file, no directory, pipe or device.
bool is_file(const ustring & path);
/// True when both names lead to one file.
bool same_file(const ustring & a, const ustring & b);

/// The shell's command that prints a file.
extern const char print_command[];
/// Has the system's command shell run `line` as it stands, and waits for it. Gives its exit value, 128 + n
/// where signal n ended it, and -1, with `errno`, when no shell could be started on it.
int run_command(const ustring & line);

/// The code of the last system error.
unsigned long last_error();
/// Writes the system's text for `code`, cut to `size` with its zero; false, and nothing written, for a code
/// that it does not know.
bool error_text(unsigned long code, char * text, std::size_t size);

/// How a step through the heap ended. The numbers are those of the runtime that has such a walk.
enum class heap_status { empty = -1, ok = -2, bad_begin = -3, bad_node = -4, end = -5, bad_pointer = -6 };

/// One block of the heap. A value-initialised one stands in front of the first block.
struct heap_block {
    void * address;
    std::size_t size; // bytes
    bool used;
};

/// Goes on to the next block; `block` holds one only after `heap_status::ok`.
heap_status next_heap_block(heap_block & block);

} // namespace orvet::platform

#endif
