#ifndef ORVET_FOUNDATION_CALL_TRACE_H
#define ORVET_FOUNDATION_CALL_TRACE_H

#include <string_view>
#include <type_traits>

#include "orvet/foundation/format.h"
#include "orvet/foundation/trace.h"

/// How a function speaks. The three roads of output take a format and its arguments as they are: a format
/// that does not fit them does not compile, and nothing is converted before the gate is found open.
///
///     short kt_file::close()
///     {
///         call_trace trace("kt_file::close");
///         trace.warning("closing <%s> file", file_path_);
///         if (!failed)
///             return trace.leave(code::success);
///         trace.error("Error closing %s", file_path_);
///         log_message(messages::MSG0020, file_path_);
///         return trace.fail(code::close_failed);
///     }
namespace orvet {

/// The trace of one call. Made first thing in a function, with the function's name in the trace, it writes
/// the entry line; the name must outlive it.
class ORVET_API call_trace {
public:
    /// Writes the entry line.
    explicit call_trace(const char * name) : name_(name) { call("%s", ">>>> ENTRY>>>>>"); }

    ///@{
    /// Writes a line of that severity, when the trace's level lets it through.
    template <class... Args>
    void call(format_for<Args...> format, const Args &... args) const
    {
        line(severity::call, format, args...);
    }
    template <class... Args>
    void info(format_for<Args...> format, const Args &... args) const
    {
        line(severity::info, format, args...);
    }
    template <class... Args>
    void warning(format_for<Args...> format, const Args &... args) const
    {
        line(severity::warning, format, args...);
    }
    template <class... Args>
    void error(format_for<Args...> format, const Args &... args) const
    {
        line(severity::error, format, args...);
    }
    template <class... Args>
    void fatal(format_for<Args...> format, const Args &... args) const
    {
        line(severity::fatal, format, args...);
    }
    ///@}

    /// The quit line: the function gives its work up.
    void quit() const { call("%s", "<><><><><> QUITTING"); }

    /// The exit line, for a function without a traced result.
    void leave() const { call("<<<<<<<<<< EXIT"); }
    ///@{
    /// The return line and the exit line. Gives the result, so that a function can end in it.
    short leave(short result) const { return leave_with("return data = %hd", result); }
    int leave(int result) const { return leave_with("return data = %d", result); }
    unsigned leave(unsigned result) const { return leave_with("return data = %hu", result); }
    long leave(long result) const { return leave_with("return data = %ld", result); }
    ///@}
    /// The quit line ahead of both.
    template <class Result>
    Result fail(Result result) const
    {
        quit();
        return leave(result);
    }

private:
    template <class... Args>
    void line(severity s, checked_format<Args...> format, const Args &... args) const
    {
        if (system_trace::passes(s)) [[unlikely]]
            write_values<Args...>(s, format.text(), args...);
    }
    // Not inlined, and plain values passed as values, so that none needs a place in memory ahead of the gate:
    // a shut one costs its test alone.
    template <class... Args>
    [[gnu::noinline, gnu::cold]] void
    write_values(severity s, std::string_view format,
                 std::conditional_t<std::is_scalar_v<Args>, Args, const Args &>... args) const
    {
        write(s, format, detail::list_arguments(detail::closed(args)...).values, sizeof...(Args));
    }
    template <class Result>
    Result leave_with(format_for<Result> format, Result result) const
    {
        call(format, result);
        leave();
        return result;
    }
    void write(severity s, std::string_view format, const argument * values, std::size_t count) const;

    const char * name_;
};

/// Writes a message to the operators' log, when the log's level lets messages through.
template <class... Args>
void log_message(format_for<Args...> format, const Args &... args);

/// Prints a message to standard output, with a line end, at once and behind no gate.
template <class... Args>
void console_message(format_for<Args...> format, const Args &... args);

namespace detail {
ORVET_API void write_log(std::string_view format, const argument * values, std::size_t count);
ORVET_API void write_console(std::string_view format, const argument * values, std::size_t count);
} // namespace detail

template <class... Args>
void log_message(format_for<Args...> format, const Args &... args)
{
    if (log::passes())
        detail::write_log(format.text(), detail::list_arguments(detail::closed(args)...).values,
                          sizeof...(Args));
}

template <class... Args>
void console_message(format_for<Args...> format, const Args &... args)
{
    detail::write_console(format.text(), detail::list_arguments(detail::closed(args)...).values,
                          sizeof...(Args));
}

} // namespace orvet

#endif
