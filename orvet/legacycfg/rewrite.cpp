// The half of `scan_cfg` that changes the file.

#include <cerrno>
#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/utf8.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/platform/entries.h"
#include "orvet/foundation/platform/files.h"
#include "orvet/foundation/platform/rewrite.h"
#include "orvet/legacycfg/scan_cfg.h"
#include "orvet/legacycfg/temporary_file_internal.h"
#include "orvet/utilities/usprintf.h"

namespace orvet {

namespace {

constexpr unsigned name_length = 8; // of "brod.cfg" and its neighbours

// One argument each: a value put in for %s is itself searched for the next conversion.
constexpr const char * replace_failures[] = {
    "error replacing [%s] file; recovery [failed]",
    "error replacing [%s] file; recovery [succeeded]",
};

const ustring & line_at(const vector & lines, unsigned i)
{
    return static_cast<const ustring &>(*lines[i]);
}

/// The path of that name in the directory of `cfg_file`.
ustring beside(const ustring & cfg_file, const char * name)
{
    const unsigned length = cfg_file.length();
    return ustring(cfg_file, 0, length > name_length ? length - name_length : 0).append(name);
}

/// The files beside the configuration file.
struct neighbours {
    explicit neighbours(const ustring & cfg_file)
        : temporary(beside(cfg_file, "brod.tmp")), backup(beside(cfg_file, "brod.bak")),
          distinct(cfg_file.length() >= name_length && is_apart(cfg_file, temporary) &&
                   is_apart(cfg_file, backup))
    {
    }

    static bool is_apart(const ustring & cfg_file, const ustring & neighbour)
    {
        return cfg_file.compare(0, ustring::npos, neighbour, 0, ustring::npos, 1) != 0 &&
               !platform::is_link_to(cfg_file, neighbour);
    }

    bool usable() const { return distinct && !watch.failed(); }

    memory_watch watch;
    ustring temporary;
    ustring backup;
    bool distinct; // else the text of the configuration file would be overwritten or removed
};

/// Writes lines to a stream by the block, without memory of its own for any but the longest. Each operation
/// is false when a write fails or memory is short.
class line_writer {
public:
    explicit line_writer(std::FILE * stream) : stream_(stream) {}

    bool write(const ustring & line)
    {
        const std::size_t most = std::size_t{line.length()} * 3 + 1;
        if (most > sizeof block_ - used_ && !flush())
            return false;
        if (most > sizeof block_)
            return write_long(line);
        used_ += utf8::encode(line.data(), line.length(), block_ + used_);
        block_[used_++] = '\n';
        return true;
    }

    bool flush()
    {
        const std::size_t bytes = std::exchange(used_, 0);
        return platform::write(stream_, block_, bytes) == bytes;
    }

private:
    bool write_long(const ustring & line) const
    {
        memory_watch watch;
        const char * const bytes = line.mbcs_str();
        const unsigned length = line.mbcs_length();
        return !watch.failed() && platform::write(stream_, bytes, length) == length &&
               platform::write(stream_, "\n", 1) == 1;
    }

    std::FILE * stream_;
    std::size_t used_ = 0;
    char block_[32768];
};

} // namespace

/// Keeps the failure's text and returns its code.
template <class... Args>
int scan_cfg::fail(int rc, const char * format, const Args &... args)
{
    usprintf(error_text_, format, args...);
    return rc;
}

int scan_cfg::set_server(int n)
{
    error_text_.assign("");
    if (n == 1)
        return code::success;
    if (n < 1 || n > server_count_)
        return fail(code::no_server, "invalid server number [%d]: valid range is [1..%d]", n, server_count_);
    const neighbours files(cfg_file_);
    temporary_file temporary(files.temporary);
    const short made = files.usable() ? temporary.make() : code::open_failed;
    if (made == code::success)
        cfg_stream_ = temporary.open();
    if (!cfg_stream_ && made != code::write_failed)
        return fail(code::open_failed, "unable to open tempfile [%s]", files.temporary);
    if (!cfg_stream_ || !write_new_text(static_cast<unsigned>(n - 1)) || !temporary.is_in_place())
        return fail(code::write_failed, "i/o error writing file [%s]", files.temporary);
    return replace_file(temporary, files.backup);
}

/// Fills the open stream and closes it, whatever happens. True if the whole text is on the disk.
bool scan_cfg::write_new_text(unsigned first)
{
    // The owner comes first and the text last: nobody has access to it who has none to the old file.
    const bool written = platform::copy_owner(cfg_file_, cfg_stream_) == 0 &&
                         platform::copy_permissions(cfg_file_, cfg_stream_) == 0 && write_lines(first) &&
                         platform::flush(cfg_stream_) == 0 && platform::sync_stream(cfg_stream_) == 0;
    return close_stream() && written;
}

/// Writes all lines, server line `first` before the other ones.
bool scan_cfg::write_lines(unsigned first) const
{
    line_writer writer(cfg_stream_);
    for (unsigned i = 0; i < generic_lines_.size(); ++i)
        if (!writer.write(line_at(generic_lines_, i)))
            return false;
    if (!writer.write(line_at(server_lines_, first)))
        return false;
    for (unsigned i = 0; i < server_lines_.size(); ++i)
        if (i != first && !writer.write(line_at(server_lines_, i)))
            return false;
    return writer.flush();
}

/// Swaps the new text in. At each point the old text is in the file or the backup, and whole.
int scan_cfg::replace_file(temporary_file & temporary, const ustring & backup)
{
    platform::remove_file(backup);
    if (platform::rename_file(cfg_file_, backup) != 0)
        return fail(code::replace_failed, "error backing up [%s] file", cfg_file_);
    if (temporary.rename_to(cfg_file_) == 0) {
        platform::sync_directory(cfg_file_); // what fails here may cost the renames, in a crash, and no text
        return code::success;
    }
    const bool recovered = platform::rename_file(backup, cfg_file_) == 0;
    return fail(code::replace_failed, replace_failures[recovered], cfg_file_);
}

int scan_cfg::recover(const ustring & cfg_file)
{
    if (platform::exists(cfg_file))
        return code::success;
    const neighbours files(cfg_file);
    temporary_file temporary(files.temporary);
    if (!files.usable() || !temporary.lock())
        return code::open_failed;
    errno = 0;
    if (platform::exists(cfg_file)) // by now: another process was between its renames
        return code::success;
    // What can't be examined may be there, and must not be replaced.
    if (errno != ENOENT || !platform::is_file(files.backup))
        return code::open_failed;
    return platform::rename_file(files.backup, cfg_file) == 0 ? code::success : code::replace_failed;
}

} // namespace orvet
