#include "call_reader.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "library_calls.h"

namespace {

std::string_view first_word(std::string_view text)
{
    return text.substr(0, text.find(' '));
}

/// The name in an entry line; empty for a line of another kind. A name may have blanks in it.
std::string_view entered_name(const trace_line & line)
{
    const std::size_t mark = line.rest.rfind(" >>>>");
    if (line.severity != 'C' || mark == std::string_view::npos)
        return {};
    const bool is_whole = is_entry_mark(line.rest.substr(mark + 1));
    // The mark itself has a blank.
    return is_whole ? line.rest.substr(0, mark) : std::string_view();
}

std::optional<long> value_of(std::string_view text)
{
    const std::size_t digits = text.rfind(' ') + 1;
    long value = 0;
    const auto [end, error] = std::from_chars(text.data() + digits, text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return {};
    return value;
}

/// Functions of tools write an exit line or don't.
bool writes_exit(const function & callee)
{
    return callee.library && callee.library->writes_exit;
}

bool is_main(std::string_view name)
{
    return name == "main" || name.ends_with("::main");
}

} // namespace

void call_reader::read(std::string_view line)
{
    ++lines_;
    if (!in_run_)
        begin_run();
    const trace_line parts = splitter_.split(line);
    if (parts.severity != 0)
        read_whole(parts);
    else
        read_damaged(line);
    ++run_.lines;
}

/// Reads a line of another form: a tool's own, or the first part of a line that lost its end, and with it its
/// line feed, so that the next one follows directly.
void call_reader::read_damaged(std::string_view line)
{
    const std::size_t head = find_second_head(line);
    lost_lines_ = head == std::string_view::npos;
    view_.other_line(stack_, line.substr(0, head));
    if (!lost_lines_)
        read_whole(splitter_.split(line.substr(head)));
}

void call_reader::read_whole(trace_line line)
{
    recognized_ = true;
    last_time_ = std::exchange(time_, splitter_.time());
    std::string_view name = entered_name(line);
    std::size_t owner = name.empty() ? find_owner(line.rest) : none;
    const bool is_known = owner != none || numbers_.contains(name);
    // An unknown name may be the rest of a line that lost its end, with the next line directly after it.
    const std::size_t head = is_known ? std::string_view::npos : find_second_head(line.rest);
    if (head != std::string_view::npos) {
        view_.other_line(stack_, line.rest.substr(0, head));
        line = splitter_.split(line.rest.substr(head));
        name = entered_name(line);
        owner = name.empty() ? find_owner(line.rest) : none;
    }
    if (!name.empty())
        enter(function_named(name));
    else if (owner != none)
        read_call_line(owner, line);
    else
        read_loose(line);
    if (run_.first_stamp.empty())
        run_.first_stamp = splitter_.stamp();
    run_.last_stamp = splitter_.stamp();
}

void call_reader::read_loose(trace_line & line)
{
    const bool is_known = functions_.size() < most_functions;
    const std::string_view name = is_known ? first_word(line.rest) : "(others)";
    line.text = line.rest.substr(std::min(first_word(line.rest).size() + 1, line.rest.size()));
    lost_lines_ = true;
    view_.loose_line(stack_, function_named(name), line);
}

/// Reads a line of the open call at depth `owner`: the calls inside it have ended.
void call_reader::read_call_line(std::size_t owner, trace_line & line)
{
    leave_up_to(owner + 1, false);
    lost_lines_ = false;
    call & current = stack_.back();
    line.text = line.rest.substr(current.callee->name.size() + 1);
    line.kind = kind_of(line.severity, line.text);
    if (line.kind == line_kind::quit)
        current.gave_up = true;
    if (line.kind == line_kind::result)
        current.result = value_of(line.text);
    view_.call_line(stack_, line);
    const library_function * const known = current.callee->library;
    const bool is_last_word = line.kind == line_kind::quit && known && !known->writes_exit;
    if (line.kind == line_kind::exit || is_last_word)
        leave_up_to(owner, true);
}

void call_reader::enter(const function & callee)
{
    const bool is_first = run_.calls == 0;
    if (!is_first && (starts_run(callee) || leave_impossible(callee))) {
        end_run();
        begin_run();
    }
    lost_lines_ = false;
    open_at_[callee.number].push_back(stack_.size());
    stack_.push_back({&callee, lines_, time_});
    ++run_.calls;
    view_.begin_call(stack_);
}

bool call_reader::starts_run(const function & callee) const
{
    if (is_main(callee.name))
        return true;
    if (!stack_.empty() && stack_.front().callee != &callee)
        return false;
    return time_ != no_time && last_time_ != no_time && (time_ < last_time_ || time_ - last_time_ >= pause);
}

/// Leaves the calls that can't make this one. True if nothing is open then, and one of them had yet to write
/// its exit line.
bool call_reader::leave_impossible(const function & callee)
{
    bool cut_off = false;
    while (!stack_.empty()) {
        const call & caller = stack_.back();
        const library_function * const known = caller.callee->library;
        if (!known || may_call(*known, callee.name, caller.within))
            return false;
        cut_off = cut_off || (known->writes_exit && !lost_lines_);
        if (cut_off && stack_.size() == 1)
            return true; // `end_run` leaves it
        leave_up_to(stack_.size() - 1, false);
    }
    return false;
}

/// Ends the innermost calls until `depth` are left. The last one to go may have written its exit line.
void call_reader::leave_up_to(std::size_t depth, bool by_exit)
{
    while (stack_.size() > depth) {
        call & ended = stack_.back();
        const bool is_last = stack_.size() == depth + 1;
        ended.cut_off = writes_exit(*ended.callee) && !(by_exit && is_last);
        ended.end = by_exit && is_last ? time_ : last_time_;
        view_.end_call(stack_);
        open_at_[ended.callee->number].pop_back();
        const std::size_t within = ended.within + 1;
        stack_.pop_back();
        if (!stack_.empty())
            stack_.back().within += within;
    }
}

void call_reader::begin_run()
{
    run_ = run{run_.number + 1, {}, {}};
    in_run_ = true;
    view_.begin_run(run_);
}

void call_reader::end_run()
{
    const bool is_open =
        !stack_.empty() && (writes_exit(*stack_.back().callee) || !stack_.back().callee->library);
    if (is_open)
        run_.cut_off_in = stack_.back().callee->name;
    leave_up_to(0, false);
    view_.end_run(run_);
    in_run_ = false;
}

bool call_reader::finish()
{
    last_time_ = time_;
    if (in_run_)
        end_run();
    return view_.finish();
}

/// The depth of the innermost open call whose name the text begins with; `none` if there is no such call.
std::size_t call_reader::find_owner(std::string_view rest) const
{
    constexpr int most_words = 8; // of a name
    if (!stack_.empty()) {
        const std::string & name = stack_.back().callee->name;
        if (rest.starts_with(name) && rest.size() > name.size() && rest[name.size()] == ' ')
            return stack_.size() - 1;
    }
    std::size_t owner = none;
    std::size_t blank = rest.find(' ');
    for (int i = 0; i < most_words && blank != std::string_view::npos; ++i) {
        const auto found = numbers_.find(rest.substr(0, blank));
        if (found != numbers_.end() && !open_at_[found->second].empty()) {
            const std::size_t depth = open_at_[found->second].back();
            owner = owner == none ? depth : std::max(owner, depth);
        }
        blank = rest.find(' ', blank + 1);
    }
    return owner;
}

const function & call_reader::function_named(std::string_view name)
{
    if (const auto found = numbers_.find(name); found != numbers_.end())
        return functions_[found->second];
    const auto number = static_cast<unsigned>(functions_.size());
    functions_.push_back({std::string(name), number, find_library_function(name)});
    numbers_.emplace(functions_.back().name, number);
    open_at_.emplace_back();
    return functions_.back();
}
