#include "orvet/files/kt_file.h"

#include <cerrno>
#include <cstring>
#include <limits>
#include <utility>

#include "orvet/files/line_reader_internal.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/environment.h"
#include "orvet/foundation/messages.h"
#include "orvet/foundation/platform/entries.h"
#include "orvet/foundation/platform/files.h"

namespace orvet {

namespace {

/// How a file's name relates to the one that it is to have. A link to the target counts as the target itself:
/// without the target it leads to nothing.
platform::entry_relation relate(const ustring & file, const ustring & target)
{
    return platform::is_link_to(file, target) ? platform::entry_relation::same
                                              : platform::compare_entries(file, target);
}

/// Removes a former target, with `errno` set; never the file that is to be renamed.
int remove_target(const ustring & target, platform::entry_relation relation)
{
    errno = relation == platform::entry_relation::same            ? EINVAL
            : relation == platform::entry_relation::same_but_case ? ENOENT
                                                                  : 0;
    return relation == platform::entry_relation::different ? platform::remove_file(target) : -1;
}

/// Renames the file, with `errno` set; not to its own name.
int rename_to(const ustring & target, const ustring & file, platform::entry_relation relation)
{
    errno = relation == platform::entry_relation::same ? EINVAL : 0;
    if (relation == platform::entry_relation::same)
        return -1;
    return relation == platform::entry_relation::different ? platform::rename_file(file, target)
                                                           : platform::change_case(file, target);
}

} // namespace

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

kt_file::~kt_file()
{
    delete reader_;
}

/// False, after the lines of the failure, if there is no stream to work on.
inline bool kt_file::check_open(const call_trace & trace) const
{
    return state_ >= state::opened || report_not_open(trace);
}

bool kt_file::report_not_open(const call_trace & trace) const
{
    trace.fatal("file <%s> not open", file_path_);
    log_message(messages::MSG0001);
    return false;
}

bool kt_file::flush()
{
    const bool flushed = platform::flush(file_handle_) == 0;
    failed_ = failed_ || !flushed;
    return flushed;
}

/// `fseek` as the caller sees the position: the stream is ahead of it by what was read ahead.
bool kt_file::move_to(long offset, int origin)
{
    const long ahead = origin == SEEK_CUR ? static_cast<long>(reader_->unread()) : 0;
    if (offset < std::numeric_limits<long>::min() + ahead) {
        errno = EINVAL;
        return false;
    }
    if (platform::seek(file_handle_, offset - ahead, origin) != 0)
        return false;
    reader_->drop();
    return true;
}

/// Readies the stream for the other direction, as the runtime requires between reading and writing. False if
/// it must not be written to, since that would be at an unknown place.
bool kt_file::switch_direction(state direction)
{
    if (state_ == direction)
        return true;
    if (state_ == state::writing)
        flush_failed_ = !flush() || flush_failed_;
    else if (state_ == state::reading && !move_to(0, SEEK_CUR))
        return false;
    if (is_text_update_)
        platform::set_text_mode(file_handle_, direction == state::writing);
    state_ = direction;
    return true;
}

/// Closes the stream, which stays open if its last bytes can't be written. An error that an earlier operation
/// has reported does not count again.
bool kt_file::close_silently()
{
    if (state_ == state::closed || state_ == state::close_failed)
        return state_ == state::closed;
    std::clearerr(file_handle_);
    const bool flushed = state_ != state::writing || flush();
    if (std::exchange(flush_failed_, false) || !flushed)
        return false;
    reader_->attach(nullptr);
    state_ = platform::close_stream(file_handle_) == 0 ? state::closed : state::close_failed;
    if (state_ == state::closed)
        size_ = 0;
    return state_ == state::closed;
}

short kt_file::open(const char * mode)
{
    const call_trace trace("kt_file::open");
    trace.warning("opening %s file with mode %s", file_path_, mode);
    if (state_ >= state::opened)
        platform::close_stream(file_handle_);
    state_ = state::closed;
    flush_failed_ = false;
    failed_ = false;
    if (!reader_)
        reader_ = make<line_reader>();
    errno = reader_ ? 0 : ENOMEM;
    file_handle_ = reader_ ? platform::open_stream(file_path_.text(), mode) : nullptr;
    const int error = errno;
    if (!file_handle_) {
        trace.error("Error opening -->%s<-- file", file_path_);
        log_message(messages::MSG0017, file_path_, error);
        return trace.fail(code::open_failed);
    }
    state_ = state::opened;
    is_text_update_ = std::strchr(mode, '+') && !std::strpbrk(mode, "bt");
    reader_->attach(file_handle_, std::strchr(mode, 't') != nullptr);
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
    if (!close_silently()) {
        trace.error("Error closing %s", file_path_);
        log_message(messages::MSG0020, file_path_);
        return trace.fail(code::close_failed);
    }
    return trace.leave(code::success);
}

short kt_file::seek(long offset, int origin)
{
    const call_trace trace("kt_file::seek");
    if (!check_open(trace))
        return trace.fail(code::not_open);
    trace.warning("seeking in %s file. offset is %d origin is %d", file_path_, offset, origin);
    // Not every runtime reports here that it could not write what was written before.
    const bool flushed = state_ != state::writing || flush();
    if (!flushed || !move_to(offset, origin)) {
        trace.error("Error seeking in file %s at offset %d from origin %d", file_path_, offset, origin);
        log_message(messages::MSG0019, file_path_, offset, origin);
        return trace.fail(code::seek_failed);
    }
    return trace.leave(code::success);
}

bool kt_file::error() const
{
    return state_ >= state::opened && (failed_ || reader_->failed());
}

bool kt_file::at_end() const
{
    return state_ >= state::opened && reader_->at_end();
}

int kt_file::get_line(ustring & line)
{
    const call_trace trace("kt_file::get_line");
    int read = 0;
    if (check_open(trace)) {
        switch_direction(state::reading);
        read = reader_->get_line(line);
    }
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
    const bool writes = switch_direction(state::writing);
    memory_watch watch;
    const char * const bytes = text.mbcs_str();
    const unsigned length = watch.failed() ? text.length() : text.mbcs_length();
    const std::size_t written = watch.failed() || !writes ? 0 : platform::write(file_handle_, bytes, length);
    if (written < length)
        trace.fatal("error writing to file %s. written is %d", file_path_, written);
    return finish_write(trace, written, length);
}

short kt_file::write(const void * buffer, unsigned int size)
{
    const call_trace trace("kt_file::write(b,s)");
    if (!check_open(trace))
        return trace.fail(code::not_open);
    errno = 0;
    const bool writes = switch_direction(state::writing);
    const std::size_t written = writes ? platform::write(file_handle_, buffer, size) : 0;
    const int error = errno;
    if (written < size)
        trace.fatal("error writing to file %s. written is %d, errno is %d", file_path_, written, error);
    return finish_write(trace, written, size);
}

/// The common end of both ways to write.
short kt_file::finish_write(const call_trace & trace, std::size_t written, std::size_t length)
{
    if (written >= length)
        return trace.leave(code::success);
    failed_ = true;
    log_message(messages::MSG0018, file_path_, written, length);
    return trace.fail(code::write_failed);
}

short kt_file::get_pos(long * position)
{
    const call_trace trace("kt_file::get_pos");
    if (!check_open(trace))
        return trace.fail(code::not_open);
    // Only after a flush does every runtime know the position of a stream that appends.
    if (state_ == state::writing)
        flush_failed_ = !flush() || flush_failed_;
    const long long at = reader_->position();
    *position = at <= std::numeric_limits<long>::max() ? static_cast<long>(at) : -1;
    if (*position < 0) {
        trace.fatal("Error getting the position of the file");
        return trace.fail(code::position_failed);
    }
    return trace.leave(code::success);
}

short kt_file::read(void * buffer, unsigned int size, unsigned int count)
{
    const call_trace trace("kt_file:read"); // one colon: the name that readers of traces know
    if (!check_open(trace))
        return trace.fail(code::not_open);
    switch_direction(state::reading);
    // Items of no size count as none, as `fread` has it.
    const std::size_t items = size != 0 ? reader_->read(buffer, std::size_t{size} * count) / size : 0;
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
    switch_direction(state::reading);
    return trace.leave(static_cast<unsigned int>(reader_->read(buffer, size)));
}

short kt_file::copy_to(const pathname & target)
{
    const call_trace trace("kt_file::copy_to");
    trace.warning("renaming file <%s> to <%s>", file_path_, target);
    const auto relation = relate(file_path_.text(), target.text());
    const int removed = remove_target(target.text(), relation);
    const int remove_error = errno;
    trace.warning("remove done with rc=%d, errno=%d", removed, remove_error);
    const int renamed = rename_to(target.text(), file_path_.text(), relation);
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
