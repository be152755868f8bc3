#include "orvet/foundation/trace.h"

#include <cerrno>
#include <clocale>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <limits>
#include <utility>

#include "orvet/foundation/base/bounded_writer_internal.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/number.h"
#include "orvet/foundation/environment.h"
#include "orvet/foundation/format.h"
#include "orvet/foundation/platform/channels.h"
#include "orvet/foundation/platform/errors.h"
#include "orvet/foundation/platform/files.h"
#include "orvet/foundation/trace_internal.h"

namespace orvet {

namespace {

constexpr char trace_file[] = "ktx1.trc";
constexpr char other_trace_file[] = "ktx2.trc";
constexpr char log_file[] = "ktx1.log";
constexpr long default_max_size = 500000;
constexpr int silent = 6;

// The level of a channel that nobody has touched lets everything through, so that the first gate goes on to
// `wa()`, which opens the channel and puts its real first level in place.
constexpr work_area untouched{std::numeric_limits<int>::min(), nullptr, {}, 0, 0, nullptr};

/// A text that is compared with what it was before, to see a change.
class watched_text {
public:
    /// Whether `text` differs from that of the last call; always, if it is too long to be kept. Null is a
    /// text of its own.
    bool changes_to(const char * text)
    {
        const std::size_t length = text ? std::strlen(text) + 1 : 0;
        if (length == length_ && (length == 0 || std::memcmp(kept_, text, length) == 0))
            return false;
        length_ = length <= sizeof kept_ ? length : unknown;
        if (length_ == length && text)
            std::memcpy(kept_, text, length);
        return true;
    }

private:
    static constexpr std::size_t unknown = static_cast<std::size_t>(-1);

    std::size_t length_ = unknown; // with the zero; 0 for null
    char kept_[64];
};

/// The local time, as lines begin with it. The text is made anew when the second, the time zone or the locale
/// is another one.
std::string_view current_time()
{
    static std::time_t second = -1;
    static watched_text zone;
    static watched_text locale;
    static char text[sizeof(work_area::line)];
    static std::size_t length = 0;
    const std::time_t now = std::time(nullptr);
    const bool zone_changes = zone.changes_to(std::getenv("TZ"));
    const bool locale_changes = locale.changes_to(std::setlocale(LC_TIME, nullptr));
    if (now != second || zone_changes || locale_changes) {
        const std::tm * const local = std::localtime(&now);
        length = local ? std::strftime(text, sizeof text, "%c", local) : 0;
        second = now;
    }
    return {text, length};
}

/// Where the time stamp of each channel's line ends. A line is known by its address.
struct {
    const char * line;
    const char * end;
} stamps[2];

void keep_stamp(const char * line, const char * end)
{
    const bool is_first = stamps[0].line == line || !stamps[0].line;
    stamps[is_first ? 0 : 1] = {line, end};
}

/// A channel's line, added to from `at` on and closed by a zero; its line feed always has room.
class assembly : public bounded_writer {
public:
    assembly(work_area & wa, std::size_t at) : bounded_writer(wa.line + at, wa.line + room) {}

    void add_header(std::string_view severity, std::string_view name)
    {
        const char * const line = position();
        add(current_time());
        keep_stamp(line, position());
        add(severity);
        add(name);
        *position() = 0;
    }
    void add_text(std::string_view text)
    {
        add(" ");
        add(text);
        std::memcpy(position(), "\n", 2);
    }

    static constexpr std::size_t room = sizeof(work_area::line) - 2;
};

std::string_view or_empty(const char * text)
{
    return text ? text : "";
}

void write_out(work_area & wa)
{
    if (wa.stream)
        wa.current_size += wa.stream->writeline(wa.line);
}

void open_channel(work_area & area, int first_level, const char * file_name)
{
    const line_memory apart;
    area.level = first_level;
    area.stream = make<stdio_trace_stream>(file_name);
    std::memset(area.line, 0, sizeof area.line);
    area.max_size = default_max_size;
    area.current_size = 0;
    area.file_name = make<pathname>(file_name);
}

} // namespace

const char * find_time_stamp_end(const char * line)
{
    for (const auto & stamp : stamps)
        if (line && stamp.line == line)
            return stamp.end;
    return nullptr;
}

stdio_trace_stream::stdio_trace_stream(const char * file_name) : path_(environment::kt_inst_path())
{
    const line_memory apart;
    memory_watch watch;
    if (path_.text().length() != 0)
        path_ += file_name;
    else
        path_ = file_name;
    stream_ = watch.failed() ? nullptr : platform::open_channel(path_.text());
    by_name_ = stream_ != nullptr;
    if (!stream_) {
        stream_ = stderr;
        std::fprintf(stderr, "Could not open trace file ->%s<-, logging on stderr\n", path_.mbcs_str());
    }
}

stdio_trace_stream::~stdio_trace_stream()
{
    if (stream_ != stdout && stream_ != stderr && stream_)
        platform::close_stream(stream_);
}

int stdio_trace_stream::writeline(const char * line)
{
    if (!stream_ || !line)
        return -1;
    const std::size_t length = std::strlen(line);
    errno = 0;
    const bool written = by_name_ ? append(line, length) : platform::write(stream_, line, length) == length;
    if ((!by_name_ && platform::flush(stream_) != 0) || !written)
        report_loss(errno);
    return written ? static_cast<int>(length) : -1;
}

/// Adds a line to the file, after the end of a line that is torn. False if not all of it is in the file.
bool stdio_trace_stream::append(const char * line, std::size_t length)
{
    if (is_torn_ && platform::append_line(stream_, "\n", 1) != 1)
        return false;
    const std::size_t written = platform::append_line(stream_, line, length);
    is_torn_ = written != 0 && written < length && line[written - 1] != '\n';
    return written == length;
}

void stdio_trace_stream::report_loss(int error)
{
    if (std::exchange(loss_reported_, true) || stream_ == stderr)
        return;
    std::fprintf(stderr, "Could not write trace file ->%s<-, lines are lost: %s\n",
                 by_name_ ? path_.mbcs_str() : "(stream)", std::strerror(error));
}

void trace::set_level(work_area & wa, int level)
{
    const char * const wish = level == silent ? std::getenv("ostrel_trace_level") : nullptr;
    wa.level = wish ? to_int(wish) : level;
}

void trace::set_stream(work_area & wa, trace_stream * stream)
{
    if (wa.stream != stream)
        delete std::exchange(wa.stream, stream);
}

void trace::write_current_time(work_area & wa)
{
    write_header(wa, nullptr, nullptr);
}

void trace::write_header(work_area & wa, const char * severity, const char * name)
{
    assembly(wa, 0).add_header(or_empty(severity), or_empty(name));
}

char * trace::internal_write_text(const char * format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    char * const text = format_message(format ? format : "", arguments);
    va_end(arguments);
    return text;
}

void trace::write_text(work_area & wa, const char * text, ...)
{
    // Behind what is there, by somebody else as well: the line is open to tools.
    assembly(wa, strnlen(wa.line, assembly::room)).add_text(or_empty(text));
    write_out(wa);
}

void trace::write_line(work_area & wa, std::string_view severity, const char * name, std::string_view format,
                       const argument * arguments, std::size_t count)
{
    assembly line(wa, 0);
    line.add_header(severity, or_empty(name));
    line.add_text(format_message(format, arguments, count));
    write_out(wa);
}

char * trace::last_system_error_to_string(work_area & wa)
{
    return system_error_to_string(wa, platform::last_error());
}

char * trace::system_error_to_string(work_area &, unsigned long code)
{
    static char text[128];
    std::snprintf(text, sizeof text, "System error %ld\n", static_cast<long>(code));
    platform::error_text(code, text, sizeof text);
    return text;
}

void trace::change_trace_file(work_area & wa)
{
    set_stream(wa, nullptr);
    const ustring first(trace_file);
    const bool on_first =
        wa.file_name && wa.file_name->text().compare(0, ustring::npos, first, 0, ustring::npos, 1) == 0;
    const char * const next = on_first ? other_trace_file : trace_file;
    delete wa.file_name;
    wa.file_name = make<pathname>(next);
    wa.stream = make<stdio_trace_stream>(next);
    wa.current_size = 0;
}

constinit work_area system_trace::area_ = untouched;
constinit bool system_trace::open_ = false;
constinit work_area log::area_ = untouched;
constinit bool log::open_ = false;

system_trace::~system_trace()
{
    set_stream(area_, nullptr);
}

void system_trace::open()
{
    open_ = true;
    open_channel(area_, silent, trace_file);
}

log::~log()
{
    set_stream(area_, nullptr);
}

void log::open()
{
    open_ = true;
    open_channel(area_, 0, log_file);
}

} // namespace orvet
