#ifndef KTXTRACE_VIEW_H
#define KTXTRACE_VIEW_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "trace_line.h"

/// A function, by its name in the trace. Lives as long as the reader.
struct function {
    std::string name;
    unsigned number;                         ///< from 0, in the order of appearance
    const struct library_function * library; ///< null for a function of the tool's own
};

/// A call from its entry line on.
struct call {
    const function * callee;
    std::size_t line;                ///< number of the entry line in the file
    stamp_seconds begin;             ///< time of the entry line
    stamp_seconds end = no_time;     ///< time of the last line, once the call has ended
    std::optional<long> result = {}; ///< the return line's value
    std::size_t within = 0;          ///< calls that ended inside it, at any depth
    bool gave_up = false;            ///< wrote a quit line
    bool cut_off = false;            ///< an exit line was due and never came

    /// Seconds from the first to the last line, if the stamps tell.
    std::optional<long long> seconds() const
    {
        if (begin == no_time || end == no_time || end < begin)
            return {};
        return end - begin;
    }
};

/// The calls that are open at some moment, the outermost first.
using call_stack = std::vector<call>;

/// One run of a tool.
struct run {
    std::size_t number; ///< from 1
    std::string first_stamp;
    std::string last_stamp;
    std::size_t lines = 0;
    std::size_t calls = 0;
    std::string cut_off_in = {}; ///< the innermost call that was open at the end; empty after a whole run
};

/// What is shown of a trace. The reader reports each run, call and line in the order of the file.
class view {
public:
    virtual ~view() = default;
    /// Only the number is known yet.
    virtual void begin_run(const run &) {}
    virtual void end_run(const run &) {}
    /// The last call of the stack has begun, or has ended and is about to be removed.
    virtual void begin_call(const call_stack &) {}
    virtual void end_call(const call_stack &) {}
    /// A line of the last call of the stack, after its entry line. Exit lines are reported too.
    virtual void call_line(const call_stack &, const trace_line &) {}
    /// A line of a function that has no open call: all lines of a trace above level 0 are such lines.
    virtual void loose_line(const call_stack &, const function &, const trace_line &) {}
    /// A line that does not have the form of the trace.
    virtual void other_line(const call_stack &, std::string_view) {}
    /// After the last run. Returns whether there was anything to show.
    virtual bool finish() { return true; }
};

/// The calls as an indented tree, calls of one function under one caller in one line.
std::unique_ptr<view> make_tree_view();
/// The calls that failed, with the way down to the cause.
std::unique_ptr<view> make_failed_view();
/// Every call of the function of that name, given with or without its class, with its lines.
std::unique_ptr<view> make_calls_view(const std::string & name);
/// The functions by number of calls and lines.
std::unique_ptr<view> make_top_view();

#endif
