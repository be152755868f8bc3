// The calls that failed: the outermost one first, then those inside it that failed, down to the cause.

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <orvet/orvet.h>

#include "text.h"
#include "view.h"

namespace {

struct failure {
    std::string name;
    std::string callers; // that did not fail themselves: "a > b > "
    bool gave_up = true; // else its errors and its result say so
    std::optional<long> result;
    std::size_t line = 0; // of its entry
    std::size_t count = 1;
    std::vector<std::string> errors; // its [E] and [F] lines
    std::size_t errors_left_out = 0;
    std::vector<failure> inner;
    std::size_t inner_left_out = 0;

    bool is_like(const failure & other) const
    {
        const auto same = [](const failure & a, const failure & b) {
            return a.is_like(b) && a.count == b.count;
        };
        return name == other.name && callers == other.callers && result == other.result &&
               errors == other.errors && errors_left_out == other.errors_left_out &&
               inner_left_out == other.inner_left_out &&
               std::equal(inner.begin(), inner.end(), other.inner.begin(), other.inner.end(), same);
    }
    void add_error(const std::string & text)
    {
        constexpr std::size_t most = 20;
        if (errors.size() < most)
            errors.push_back(text);
        else
            ++errors_left_out;
    }
    /// Adds what failed inside; repeated failures count as one.
    void add_inner(failure && added)
    {
        constexpr std::size_t most = 100;
        if (!inner.empty() && inner.back().is_like(added))
            inner.back().count += added.count;
        else if (inner.size() < most)
            inner.push_back(std::move(added));
        else
            inner_left_out += added.count;
    }
};

/// The name as `explain` knows it: without class and arguments.
std::string operation_of(const std::string & name)
{
    const std::string plain = name.substr(0, name.find('('));
    return plain.substr(plain.rfind(':') + 1);
}

std::string explanation_of(const failure & failed, const std::string & margin)
{
    std::string text;
    if (failed.result && *failed.result != 0)
        for (const auto & each :
             orvet::explain(static_cast<int>(*failed.result), operation_of(failed.name).c_str()))
            text += margin + each.cause + "\n" + margin + "Do: " + each.remedy + "\n";
    return text;
}

class failed_view : public view {
public:
    void begin_run(const run & begun) override { run_ = begun.number; }

    void begin_call(const call_stack & stack) override
    {
        open_.emplace_back();
        open_.back().name = stack.back().callee->name;
        open_.back().line = stack.back().line;
        ++calls_;
    }

    void call_line(const call_stack &, const trace_line & line) override
    {
        if (line.is_error())
            open_.back().add_error(std::string("[") + line.severity + "] " + shown(line.text, shown_length));
    }

    void loose_line(const call_stack &, const function &, const trace_line & line) override
    {
        if (!line.is_error())
            return;
        const std::string text = std::string("[") + line.severity + "] " + shown(line.rest, shown_length);
        if (!open_.empty())
            return open_.back().add_error(text);
        begin_output();
        print(text + "\n");
    }

    void end_call(const call_stack & stack) override
    {
        failure ended = std::move(open_.back());
        open_.pop_back();
        const call & last = stack.back();
        ended.result = last.result;
        ended.gave_up = last.gave_up;
        const bool has_failed = last.gave_up || (!ended.errors.empty() && last.result.value_or(0) != 0);
        if (has_failed)
            return pass_on(std::move(ended));
        for (failure & each : ended.inner) {
            constexpr std::size_t longest = 1000;
            if (each.callers.size() < longest)
                each.callers = ended.name + " > " + each.callers;
            pass_on(std::move(each));
        }
    }

    bool finish() override
    {
        if (!has_output_)
            print("no call gave up\n");
        if (calls_ == 0)
            print("The trace holds no calls: its level was above 0.\n");
        return true;
    }

private:
    /// To the caller, or to the reader if there is none.
    void pass_on(failure && ended)
    {
        constexpr std::size_t deepest = 200;
        if (open_.size() > deepest)
            open_.back().inner_left_out += ended.count + ended.inner_left_out;
        else if (!open_.empty())
            open_.back().add_inner(std::move(ended));
        else
            report(ended);
    }

    void report(const failure & ended)
    {
        begin_output();
        print_failure(ended, 0);
    }

    void begin_output()
    {
        if (shown_run_ != run_)
            print((has_output_ ? "\nrun " : "run ") + std::to_string(run_) + "\n");
        shown_run_ = run_;
        has_output_ = true;
    }

    static void print_failure(const failure & failed, std::size_t depth)
    {
        const std::string margin(2 * std::min<std::size_t>(depth, 20), ' ');
        const std::string result = failed.result ? " with " + std::to_string(*failed.result) : "";
        print(margin + shown(failed.callers + failed.name) + (failed.gave_up ? " gave up" : " failed") +
              result + ", line " + std::to_string(failed.line) + times(failed.count) + "\n");
        for (const std::string & each : failed.errors)
            print(margin + "    " + each + "\n");
        if (failed.errors_left_out != 0)
            print(margin + "    and " + counted(failed.errors_left_out, "other line") + "\n");
        for (const failure & each : failed.inner)
            print_failure(each, depth + 1);
        if (failed.inner_left_out != 0)
            print(margin + "    and " + counted(failed.inner_left_out, "other failed call") + "\n");
        // A function passes on the code of what failed inside it: that one has said why.
        const auto passed_on = [&](const failure & each) { return each.result == failed.result; };
        if (std::none_of(failed.inner.begin(), failed.inner.end(), passed_on))
            print(explanation_of(failed, margin + "    "));
    }

    std::vector<failure> open_; // one for each open call
    std::size_t run_ = 0;
    std::size_t shown_run_ = 0;
    std::size_t calls_ = 0;
    bool has_output_ = false;
};

} // namespace

std::unique_ptr<view> make_failed_view()
{
    return std::make_unique<failed_view>();
}
