#include "trace_line.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <iterator>

namespace {

constexpr std::string_view entry_mark = ">>>> ENTRY>>>>>";
constexpr std::string_view exit_mark = "<<<<<<<<<< EXIT";
constexpr std::string_view quit_mark = "<><><><><> QUITTING";
constexpr std::string_view result_mark = "return data = ";
constexpr std::size_t least_of_a_mark = 4;

constexpr std::size_t longest_stamp = 64;
constexpr std::size_t severity_length = 5; // " [C] "

bool is_severity(std::string_view line, std::size_t at)
{
    return line.size() >= at + severity_length && line[at] == ' ' && line[at + 1] == '[' &&
           std::string_view("CIWEF").find(line[at + 2]) != std::string_view::npos && line[at + 3] == ']' &&
           line[at + 4] == ' ';
}

/// Where the severity begins; `npos` for none.
std::size_t find_severity(std::string_view line)
{
    const std::string_view head = line.substr(0, longest_stamp + severity_length);
    for (std::size_t at = head.find(" ["); at != std::string_view::npos; at = head.find(" [", at + 1))
        if (is_severity(head, at))
            return at;
    return std::string_view::npos;
}

bool is_mark(std::string_view text, std::string_view mark)
{
    return text == mark || (text.size() >= least_of_a_mark && mark.starts_with(text));
}

/// Reads numbers and words off the front of a stamp.
class stamp_reader {
public:
    explicit stamp_reader(std::string_view stamp) : rest_(stamp) {}

    int number()
    {
        while (rest_.starts_with(' '))
            rest_.remove_prefix(1);
        int value = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
        failed_ = failed_ || error != std::errc();
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        return value;
    }
    void skip(char ch)
    {
        failed_ = failed_ || !rest_.starts_with(ch);
        rest_.remove_prefix(rest_.empty() ? 0 : 1);
    }
    std::string_view word()
    {
        const std::string_view word = rest_.substr(0, 3);
        rest_.remove_prefix(word.size());
        return word;
    }
    bool is_done() const { return !failed_ && rest_.empty(); }

private:
    std::string_view rest_;
    bool failed_ = false;
};

struct local_time {
    int year, month, day, hour, minute, second;
};

stamp_seconds seconds_of(const local_time & time)
{
    using namespace std::chrono;
    const year_month_day date(year(time.year), month(static_cast<unsigned>(time.month)),
                              day(static_cast<unsigned>(time.day)));
    if (!date.ok())
        return no_time;
    const auto days = sys_days(date).time_since_epoch().count();
    return ((days * 24LL + time.hour) * 60 + time.minute) * 60 + time.second;
}

/// "Sun Nov 22 22:51:34 2026", the form of most systems.
stamp_seconds parse_long_stamp(std::string_view stamp)
{
    constexpr std::string_view months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                           "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    stamp_reader reader(stamp);
    local_time time{};
    reader.word();
    reader.skip(' ');
    const auto month = std::find(std::begin(months), std::end(months), reader.word());
    time.month = static_cast<int>(month - std::begin(months)) + 1;
    time.day = reader.number();
    time.hour = reader.number();
    reader.skip(':');
    time.minute = reader.number();
    reader.skip(':');
    time.second = reader.number();
    time.year = reader.number();
    return reader.is_done() ? seconds_of(time) : no_time;
}

/// "11/22/26 22:51:34", the form of Windows.
stamp_seconds parse_short_stamp(std::string_view stamp)
{
    stamp_reader reader(stamp);
    local_time time{};
    time.month = reader.number();
    reader.skip('/');
    time.day = reader.number();
    reader.skip('/');
    time.year = 2000 + reader.number();
    time.hour = reader.number();
    reader.skip(':');
    time.minute = reader.number();
    reader.skip(':');
    time.second = reader.number();
    return reader.is_done() ? seconds_of(time) : no_time;
}

stamp_seconds parse_stamp(std::string_view stamp)
{
    const stamp_seconds time = parse_long_stamp(stamp);
    return time != no_time ? time : parse_short_stamp(stamp);
}

} // namespace

trace_line line_splitter::split(std::string_view line)
{
    trace_line result;
    std::size_t at = last_stamp_.size();
    if (at == 0 || !is_severity(line, at) || !line.starts_with(last_stamp_)) {
        at = find_severity(line);
        if (at == std::string_view::npos || !accept_stamp(line.substr(0, at)))
            return result;
    }
    result.stamp = line.substr(0, at);
    result.severity = line[at + 2];
    result.rest = line.substr(at + severity_length);
    return result;
}

/// A stamp is in the form of the tool's locale, so any text with a number will do.
bool line_splitter::accept_stamp(std::string_view stamp)
{
    const auto is_control = [](unsigned char ch) { return ch < ' '; };
    if (stamp.find_first_of("0123456789") == std::string_view::npos ||
        std::any_of(stamp.begin(), stamp.end(), is_control))
        return false;
    last_stamp_ = stamp;
    time_ = parse_stamp(stamp);
    return true;
}

bool is_entry_mark(std::string_view text)
{
    return is_mark(text, entry_mark);
}

line_kind kind_of(char severity, std::string_view text)
{
    if (severity != 'C')
        return line_kind::text;
    if (is_entry_mark(text))
        return line_kind::entry;
    if (is_mark(text, exit_mark))
        return line_kind::exit;
    if (is_mark(text, quit_mark))
        return line_kind::quit;
    return text.starts_with(result_mark) ? line_kind::result : line_kind::text;
}

std::size_t find_second_head(std::string_view line)
{
    constexpr std::size_t stamp_lengths[] = {24, 17};
    for (std::size_t at = line.find(" [", 1); at != std::string_view::npos; at = line.find(" [", at + 1))
        for (const std::size_t length : stamp_lengths)
            if (is_severity(line, at) && at > length &&
                parse_stamp(line.substr(at - length, length)) != no_time)
                return at - length;
    return std::string_view::npos;
}
