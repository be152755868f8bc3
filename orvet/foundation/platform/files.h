#ifndef ORVET_FOUNDATION_PLATFORM_FILES_H
#define ORVET_FOUNDATION_PLATFORM_FILES_H

#include <cstddef>
#include <cstdio>

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/platform/seam.h"

// Files and streams, where the standard library's own functions differ between systems or don't suffice.
// Calls, not decisions: a rule that can be decided without the system belongs above this layer. A call that
// fails sets `errno`.
namespace orvet::platform {

namespace native {

/// Opens a file as `fopen` does, but refuses directories and encodings, and never uses the number of a
/// standard stream. No command that the process runs inherits the stream. A stream that reads, with neither
/// "b" nor "t" in its mode, is a stream of bytes until `set_text_mode`.
std::FILE * open_stream(const ustring & path, const char * mode);
/// As `fclose`.
int close_stream(std::FILE * stream);
/// As `fread` with items of one byte.
std::size_t read(std::FILE * stream, void * bytes, std::size_t size);
/// As `fwrite` with items of one byte.
std::size_t write(std::FILE * stream, const void * bytes, std::size_t size);
/// As `fflush`.
int flush(std::FILE * stream);
/// As `fseek`; after a failure the position is unchanged.
int seek(std::FILE * stream, long offset, int origin);
/// As `ftell`, beyond the range of a long as well.
long long tell(std::FILE * stream);
/// Whether the stream's file is one that can be read ahead: a regular file, not a pipe, terminal or device.
bool is_seekable(std::FILE * stream);
/// Switches the translation of line ends on or off, on a system that has one. Nothing may wait in the
/// stream's buffer.
void set_text_mode(std::FILE * stream, bool on);

/// Removes a file, never a directory. 0 for success.
int remove_file(const ustring & path);
/// 0 for success. Whether an existing `to` is replaced depends on the system.
int rename_file(const ustring & from, const ustring & to);
/// Writes what has been flushed to the disk. 0 for success, also if the stream's file system or device does
/// not support it.
int sync_stream(std::FILE * stream);
/// Whether a file, directory or device of that name exists.
bool exists(const ustring & path);
/// Whether `path` names a file; false for a directory, pipe or device.
bool is_file(const ustring & path);
/// Whether the file is marked as one that nobody writes to, not even whom the system would let.
bool is_read_only(const ustring & path);
/// Whether both names lead to the same file.
bool same_file(const ustring & a, const ustring & b);

} // namespace native

ORVET_PLATFORM_CALL(open_stream);
ORVET_PLATFORM_CALL(close_stream);
ORVET_PLATFORM_CALL(read);
ORVET_PLATFORM_CALL(write);
ORVET_PLATFORM_CALL(flush);
ORVET_PLATFORM_CALL(seek);
ORVET_PLATFORM_CALL(tell);
ORVET_PLATFORM_CALL(is_seekable);
ORVET_PLATFORM_CALL(set_text_mode);
ORVET_PLATFORM_CALL(remove_file);
ORVET_PLATFORM_CALL(rename_file);
ORVET_PLATFORM_CALL(sync_stream);
ORVET_PLATFORM_CALL(exists);
ORVET_PLATFORM_CALL(is_file);
ORVET_PLATFORM_CALL(is_read_only);
ORVET_PLATFORM_CALL(same_file);

} // namespace orvet::platform

#endif
