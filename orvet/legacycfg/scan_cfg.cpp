#include "orvet/legacycfg/scan_cfg.h"

#include <cerrno>
#include <utility>

#include "orvet/files/line_reader_internal.h"
#include "orvet/files/sections.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/pair.h"
#include "orvet/foundation/base/utf8.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/platform/files.h"
#include "orvet/utilities/usprintf.h"

namespace orvet {

namespace {

constexpr char server_key[] = "SERVER:";
constexpr char workstation_key[] = "WORKSTATION NAME:";
constexpr char protocol_key[] = "PROTOCOL:";

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
          distinct(cfg_file.length() >= name_length && is_other(cfg_file, temporary) &&
                   is_other(cfg_file, backup))
    {
    }

    static bool is_other(const ustring & a, const ustring & b)
    {
        return a.compare(0, ustring::npos, b, 0, ustring::npos, 1) != 0 && !platform::same_file(a, b);
    }

    bool usable() const { return distinct && !watch.failed(); }

    memory_watch watch;
    ustring temporary;
    ustring backup;
    bool distinct; // else the configuration file itself would be overwritten or removed
};

/// Whether a line begins with a key, in any case.
bool has_key(const ustring & line, const ustring & key)
{
    return line.compare(0, key.length(), key, 0, key.length(), 1) == 0;
}

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

/// Ends a line of a listing, whatever its length and the bytes in it.
void print_text(const ustring & text)
{
    memory_watch watch;
    const char * const bytes = text.mbcs_str();
    std::fwrite(bytes, 1, watch.failed() ? 0 : text.mbcs_length(), stdout);
    std::putchar('\n');
}

} // namespace

scan_cfg::scan_cfg(const ustring & cfg_file) : cfg_file_(cfg_file)
{
}

/// Keeps the failure's text and gives its code.
template <class... Args>
int scan_cfg::fail(int rc, const char * format, const Args &... args)
{
    usprintf(error_text_, format, args...);
    return rc;
}

bool scan_cfg::close_stream()
{
    return platform::close_stream(std::exchange(cfg_stream_, nullptr)) == 0;
}

int scan_cfg::load()
{
    error_text_.assign("");
    cfg_stream_ = platform::open_stream(cfg_file_, "r");
    const bool whole = cfg_stream_ && read_lines();
    if (cfg_stream_)
        close_stream();
    if (whole)
        return code::success;
    std::printf("unable to open file [%s]\n", cfg_file_.mbcs_str());
    return fail(code::open_failed, "unable to open file [%s]", cfg_file_);
}

/// Adds the lines of the stream, all or none.
bool scan_cfg::read_lines()
{
    memory_watch watch;
    const unsigned generic_before = generic_lines_.size();
    const unsigned servers_before = server_lines_.size();
    ustring name(target_name_);
    ustring protocol(target_protocol_);
    const ustring server(server_key);
    const struct {
        ustring key;
        ustring & value;
    } targets[] = {{workstation_key, name}, {protocol_key, protocol}};

    line_reader reader;
    reader.attach(cfg_stream_);
    ustring line;
    while (!watch.failed() && reader.get_line(line)) {
        line.strip(ustring::strip_both, u' ');
        if (line.length() == 0)
            continue;
        const bool is_server = has_key(line, server);
        for (const auto & target : targets)
            if (!is_server && has_key(line, target.key)) {
                keyval rest(line);
                rest.getval(target.key);
                target.value.assign(rest);
                break;
            }
        (is_server ? server_lines_ : generic_lines_).push_back(make<ustring>(line));
    }
    // What ended too early must never be taken for the whole file and written back.
    if (watch.failed() || !reader.at_end()) {
        generic_lines_.resize(generic_before);
        server_lines_.resize(servers_before);
        return false;
    }
    target_name_ = std::move(name);
    target_protocol_ = std::move(protocol);
    server_count_ = static_cast<int>(server_lines_.size());
    return true;
}

int scan_cfg::set_server(int n)
{
    error_text_.assign("");
    if (n == 1)
        return code::success;
    if (n < 1 || n > server_count_)
        return fail(code::no_server, "invalid server number [%d]: valid range is [1..%d]", n, server_count_);
    const neighbours files(cfg_file_);
    if (files.usable()) {
        // One that was left behind may be read-only, somebody else's, or a link, to nothing for one.
        if (platform::is_file(files.temporary) || !platform::exists(files.temporary))
            platform::remove_file(files.temporary);
        cfg_stream_ = platform::open_stream(files.temporary, "w");
    }
    if (!cfg_stream_)
        return fail(code::open_failed, "unable to open tempfile [%s]", files.temporary);
    // A device takes everything, and is no file to be put in the place of one.
    if (!write_new_text(static_cast<unsigned>(n - 1)) || !platform::is_file(files.temporary))
        return fail(code::write_failed, "i/o error writing file [%s]", files.temporary);
    return replace_file(files.temporary, files.backup);
}

/// Fills the open stream and closes it, whatever happens. True when the whole text is on the disk.
bool scan_cfg::write_new_text(unsigned first)
{
    // The permissions come first, so that the text never stands in a file with wider ones.
    const bool written = platform::copy_permissions(cfg_file_, cfg_stream_) == 0 && write_lines(first) &&
                         platform::flush(cfg_stream_) == 0 && platform::sync_stream(cfg_stream_) == 0;
    return close_stream() && written;
}

/// Swaps the new text in. At each point the old text is in the file or the backup, and whole.
int scan_cfg::replace_file(const ustring & temporary, const ustring & backup)
{
    platform::remove_file(backup);
    if (platform::rename_file(cfg_file_, backup) != 0)
        return fail(code::replace_failed, "error backing up [%s] file", cfg_file_);
    if (platform::rename_file(temporary, cfg_file_) == 0)
        return code::success;
    const bool recovered = platform::rename_file(backup, cfg_file_) == 0;
    return fail(code::replace_failed, replace_failures[recovered], cfg_file_);
}

/// Writes all lines, server line `first` ahead of the other ones.
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

int scan_cfg::recover(const ustring & cfg_file)
{
    const neighbours files(cfg_file);
    errno = 0;
    if (platform::exists(cfg_file))
        return code::success;
    // What can't be looked at may be there, and must not be replaced.
    if (errno != ENOENT || !files.usable() || !platform::is_file(files.backup))
        return code::open_failed;
    return platform::rename_file(files.backup, cfg_file) == 0 ? code::success : code::replace_failed;
}

void scan_cfg::show() const
{
    std::printf("Target_Name \t:");
    print_text(target_name_);
    std::printf("Target_Prot \t:");
    print_text(target_protocol_);
    const ustring key(server_key);
    for (int i = 1; i <= server_count_; ++i) {
        keyval server(line_at(server_lines_, static_cast<unsigned>(i - 1)));
        server.getval(key);
        std::printf("Server%d \t:", i);
        print_text(server);
    }
}

void scan_cfg::show_all() const
{
    const auto print = [](const char * label, const vector & lines) {
        for (unsigned i = 0; i < lines.size(); ++i) {
            std::printf("%s (%2u) :", label, i + 1);
            print_text(line_at(lines, i));
        }
    };
    std::printf("\n\n** Full Brod_cfg listing **\n");
    print("Serverline", server_lines_);
    print("Generic line", generic_lines_);
}

void scan_cfg::fill_vector(vector & out) const
{
    memory_watch watch;
    const unsigned before = out.size();
    const ustring workstation(workstation_key);
    for (unsigned i = 0; i < generic_lines_.size(); ++i) {
        const ustring & line = line_at(generic_lines_, i);
        if (has_key(line, workstation))
            continue;
        const unsigned colon = line.find(u':');
        ustring key(line, 0, colon);
        ustring value(line, colon == ustring::npos ? 0 : colon + 1);
        out.push_back(
            make<pair>(key.strip(ustring::strip_both, u' '), value.strip(ustring::strip_both, u' ')));
    }
    if (watch.failed())
        out.resize(before);
}

} // namespace orvet
