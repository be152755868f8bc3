#include "orvet/files/kt_file.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/environment.h"
#include "orvet/foundation/messages.h"
#include "orvet/foundation/platform/platform.h"

namespace orvet {

kt_file::kt_file(const pathname & path) : file_path_(path)
{
    const call_trace trace("kt_file(pathname)");
    trace.info("Path is <%s>", file_path_);
    trace.leave();
}

kt_file::kt_file(const ustring & file_name)
{
    const call_trace trace("kt_file(file_name)");
    file_path_ = environment::kt_inst_path();
    file_path_ += "\\";
    file_path_ += file_name;
    trace.leave();
}

/// False, with the lines of the failure written, when there is no stream to work on.
inline bool kt_file::check_open(const call_trace & trace) const
{
    return state_ >= state::opened || refuse(trace);
}

bool kt_file::refuse(const call_trace & trace) const
{
    trace.fatal("file <%s> not open", file_path_);
    log_message(messages::MSG0001);
    return false;
}

/// Readies the stream for the other direction, as the runtime asks between reading and writing. False when it
/// can't be written to, since that would be at an unknown place.
bool kt_file::turn_to(state direction)
{
    if (state_ == direction)
        return true;
    if (state_ == state::writing)
        lost_ = std::fflush(file_handle_) != 0 || lost_;
    else if (state_ == state::reading && platform::seek(file_handle_, 0, SEEK_CUR) != 0)
        return false;
    if (both_ways_)
        platform::end_lines_natively(file_handle_, direction == state::writing);
    state_ = direction;
    return true;
}

/// Closes the stream, which stays alive when its last bytes can't be written. An error that an earlier
/// operation has reported does not count again.
bool kt_file::close_stream()
{
    if (state_ == state::gone)
        return false;
    std::clearerr(file_handle_);
    const bool flushed = state_ != state::writing || std::fflush(file_handle_) == 0;
    if (std::exchange(lost_, false) || !flushed)
        return false;
    state_ = platform::close_stream(file_handle_) == 0 ? state::closed : state::gone;
    return state_ == state::closed;
}

short kt_file::open(const char * mode)
{
    const call_trace trace("kt_file::open");
    trace.warning("opening %s file with mode %s", file_path_, mode);
    if (state_ >= state::opened)
        platform::close_stream(file_handle_);
    state_ = state::closed;
    size_ = 0;
    lost_ = false;
    errno = 0;
    file_handle_ = platform::open_stream(file_path_.text(), mode);
    const int error = errno;
    if (!file_handle_) {
        trace.error("Error opening -->%s<-- file", file_path_);
        log_message(messages::MSG0017, file_path_, error);
        return trace.fail(code::open_failed);
    }
    state_ = state::opened;
    both_ways_ = std::strchr(mode, '+') && !std::strpbrk(mode, "bt");
    if (const short rc = seek(0, SEEK_END)) {
        trace.fatal("Error seeking at the end of the file -->%s<--", file_path_);
        return trace.fail(rc);
    }
    if (const short rc = get_pos(&size_)) {
        trace.fatal("Error reading the size of the file -->%s<--", file_path_);
        return trace.fail(rc);
    }
    trace.info("The size of the file is %d", size_);
    if (const short rc = seek(0, SEEK_SET)) {
        trace.fatal("Error seeking at the top of the file -->%s<--", file_path_);
        return trace.fail(rc);
    }
    return trace.leave(code::success);
}

short kt_file::close()
{
    const call_trace trace("kt_file::close");
    trace.warning("closing <%s> file", file_path_);
    if (state_ == state::closed)
        return trace.leave(code::success);
    if (!close_stream()) {
        trace.error("Error closing %s", file_path_);
        log_message(messages::MSG0020, file_path_);
        return trace.fail(code::close_failed);
    }
    size_ = 0;
    return trace.leave(code::success);
}

short kt_file::seek(long offset, int origin)
{
    const call_trace trace("kt_file::seek");
    if (!check_open(trace))
        return trace.fail(code::not_open);
    trace.warning("seeking in %s file. offset is %d origin is %d", file_path_, offset, origin);
    // Not every runtime tells of bytes that it could not write on this way.
    const bool flushed = state_ != state::writing || std::fflush(file_handle_) == 0;
    if (!flushed || platform::seek(file_handle_, offset, origin) != 0) {
        trace.error("Error seeking in file %s at offset %d from origin %d", file_path_, offset, origin);
        log_message(messages::MSG0019, file_path_, offset, origin);
        return trace.fail(code::seek_failed);
    }
    return trace.leave(code::success);
}

bool kt_file::error() const
{
    return state_ >= state::opened && std::ferror(file_handle_) != 0;
}

int kt_file::get_line(ustring & line)
{
    const call_trace trace("kt_file::get_line");
    if (!check_open(trace)) {
        trace.quit();
        trace.leave();
        return 0;
    }
    turn_to(state::reading);
    const int read = line.getline(file_handle_);
    if (read)
        trace.info("read line %s", line);
    trace.leave();
    return read;
}

short kt_file::write(const ustring & text)
{
    const call_trace trace("kt_file::write");
    if (!check_open(trace))
        return trace.fail(code::not_open);
    const bool turned = turn_to(state::writing);
    memory_watch watch;
    const char * const bytes = text.mbcs_str();
    const unsigned length = watch.failed() ? text.length() : text.mbcs_length();
    const std::size_t written = watch.failed() || !turned ? 0 : std::fwrite(bytes, 1, length, file_handle_);
    if (written < length) {
        trace.fatal("error writing to file %s. written is %d", file_path_, written);
        log_message(messages::MSG0018, file_path_, written, length);
        return trace.fail(code::write_failed);
    }
    return trace.leave(code::success);
}

short kt_file::write(const void * buffer, unsigned int size)
{
    const call_trace trace("kt_file::write(b,s)");
    if (!check_open(trace))
        return trace.fail(code::not_open);
    errno = 0;
    const std::size_t written = turn_to(state::writing) ? std::fwrite(buffer, 1, size, file_handle_) : 0;
    const int error = errno;
    if (written < size) {
        trace.fatal("error writing to file %s. written is %d, errno is %d", file_path_, written, error);
        log_message(messages::MSG0018, file_path_, written, size);
        return trace.fail(code::write_failed);
    }
    return trace.leave(code::success);
}

short kt_file::get_pos(long * position)
{
    const call_trace trace("kt_file::get_pos");
    if (!check_open(trace))
        return trace.fail(code::not_open);
    // Only behind a flush does every runtime know where a stream that appends stands.
    if (state_ == state::writing)
        lost_ = std::fflush(file_handle_) != 0 || lost_;
    *position = platform::tell(file_handle_);
    if (*position < 0) {
        trace.fatal("Error getting the position of the file");
        return trace.fail(code::position_failed);
    }
    return trace.leave(code::success);
}

short kt_file::read(void * buffer, unsigned int size, unsigned int count)
{
    const call_trace trace("kt_file:read");
    if (!check_open(trace))
        return trace.fail(code::not_open);
    turn_to(state::reading);
    const std::size_t items = std::fread(buffer, size, count, file_handle_);
    if (items != count) {
        trace.fatal("Error reading from %s file. count = %d, read_bytes =%d", file_path_, count, items);
        log_message(messages::MSG0037, count, file_path_, items);
        return trace.fail(code::read_failed);
    }
    return trace.leave(code::success);
}

unsigned int kt_file::read(void * buffer, unsigned int size)
{
    const call_trace trace("kt_file:read");
    if (!check_open(trace))
        return trace.fail(0U);
    turn_to(state::reading);
    return trace.leave(static_cast<unsigned int>(std::fread(buffer, 1, size, file_handle_)));
}

short kt_file::copy_to(const pathname & target)
{
    const call_trace trace("kt_file::copy_to");
    trace.warning("renaming file <%s> to <%s>", file_path_, target);
    errno = 0;
    const int removed = platform::remove_file(target.text());
    const int remove_error = errno;
    trace.warning("remove done with rc=%d, errno=%d", removed, remove_error);
    errno = 0;
    const int renamed = platform::rename_file(file_path_.text(), target.text());
    const int error = errno;
    if (renamed != 0) {
        trace.error("Rename failed with rc=%d, errno=%d", renamed, error);
        log_message(messages::MSG0016, target, -1, error);
        return trace.fail(code::rename_failed);
    }
    return trace.leave(code::success);
}

short kt_file::removef()
{
    const call_trace trace("kt_file::removef");
    errno = 0;
    const int removed = platform::remove_file(file_path_.text());
    const int error = errno;
    if (removed == 0 || error == ENOENT)
        return trace.leave(code::success);
    trace.error("error removing file %s. rc = %hd, errno = %d", file_path_, removed, error);
    log_message(messages::MSG0045, file_path_, error);
    return trace.leave(code::remove_failed);
}

} // namespace orvet
