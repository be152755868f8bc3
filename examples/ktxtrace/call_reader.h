#ifndef KTXTRACE_CALL_READER_H
#define KTXTRACE_CALL_READER_H

#include <deque>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "trace_line.h"
#include "view.h"

/// Finds the calls and the runs in the lines of a trace, and reports them to a view.
///
/// A line of a function closes the calls that are still open inside it: some functions write no exit line,
/// and a line may be cut or lost. The trace has no mark for the start of a run. One begins
///  - with a call of a function "main" or "...::main";
///  - with a call outside all others, at least `pause` seconds after the last line, or if the clock went
///  back;
///  - if the call that is open can't make this one: the run before it ended in the middle.
class call_reader {
public:
    explicit call_reader(view & shown) : view_(shown) {}

    /// Reads the next line, given without its line end.
    void read(std::string_view line);
    /// Ends the last run. Returns the view's answer.
    bool finish();

    /// Whether any line had the form of the trace.
    bool is_trace() const { return recognized_; }

private:
    static constexpr stamp_seconds pause = 5;
    static constexpr std::size_t most_functions = 10000;
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    void read_damaged(std::string_view line);
    void read_whole(trace_line line);
    void read_call_line(std::size_t owner, trace_line & line);
    void read_loose(trace_line & line);
    void enter(const function & callee);
    void leave_up_to(std::size_t depth, bool by_exit);
    bool leave_impossible(const function & callee);
    void begin_run();
    void end_run();
    bool starts_run(const function & callee) const;
    std::size_t find_owner(std::string_view rest) const;
    const function & function_named(std::string_view name);

    view & view_;
    line_splitter splitter_;
    std::deque<function> functions_;
    std::unordered_map<std::string_view, unsigned> numbers_; // by names inside functions_
    std::vector<std::vector<std::size_t>> open_at_;          // by function number: depths of its open calls
    call_stack stack_;
    run run_{};
    std::size_t lines_ = 0;
    stamp_seconds time_ = no_time;      // of this line
    stamp_seconds last_time_ = no_time; // of the line before
    bool in_run_ = false;
    bool lost_lines_ = false; // the last line may have been the rest of one that belongs to a call
    bool recognized_ = false;
};

#endif
