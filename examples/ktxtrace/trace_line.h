#ifndef KTXTRACE_TRACE_LINE_H
#define KTXTRACE_TRACE_LINE_H

#include <limits>
#include <string>
#include <string_view>

/// A time in seconds, good for differences only.
using stamp_seconds = long long;
inline constexpr stamp_seconds no_time = std::numeric_limits<stamp_seconds>::min();

/// What a line of a call says.
enum class line_kind { entry, result, quit, exit, text };

/// A line of the trace, taken apart: "stamp [X] name text". The views point into the line.
struct trace_line {
    std::string_view stamp;
    char severity = 0;     ///< C, I, W, E or F; 0 for a line of another form
    std::string_view rest; ///< name and text
    std::string_view text; ///< the text alone, once the name is known
    line_kind kind = line_kind::text;

    bool is_error() const { return severity == 'E' || severity == 'F'; }
};

/// Splits lines. It remembers the last stamp, because most lines repeat it.
class line_splitter {
public:
    /// Splits `line` up to `rest`.
    trace_line split(std::string_view line);
    /// The stamp of the last line that had one.
    const std::string & stamp() const { return last_stamp_; }
    /// Its time; `no_time` for a form that is not known.
    stamp_seconds time() const { return time_; }

private:
    bool accept_stamp(std::string_view stamp);

    std::string last_stamp_;
    stamp_seconds time_ = no_time;
};

/// True for the text of an entry line. A line may have lost its end, so part of the mark will do.
bool is_entry_mark(std::string_view text);
/// Finds out what the text of a line says.
line_kind kind_of(char severity, std::string_view text);
/// The position of a further line's head, "stamp [X] ", inside a line that lost its own end; `npos` if none.
std::size_t find_second_head(std::string_view line);

#endif
