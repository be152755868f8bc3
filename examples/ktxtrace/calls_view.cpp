// Every call of one function, printed as it is read.

#include <string>
#include <utility>

#include "text.h"
#include "view.h"

namespace {

/// The path to the last call of the stack, at most its innermost part.
std::string callers_of(const call_stack & stack)
{
    constexpr std::size_t most = 20;
    const std::size_t depth = stack.size() - 1;
    const std::size_t first = depth > most ? depth - most : 0;
    std::string path;
    for (std::size_t i = first; i < depth; ++i)
        path += (i == first ? ", in " : " > ") + shown(stack[i].callee->name);
    return path;
}

class calls_view : public view {
public:
    explicit calls_view(std::string name) : name_(std::move(name)) {}

    void begin_run(const run & begun) override { run_ = begun.number; }

    void begin_call(const call_stack & stack) override
    {
        const std::string & callee = stack.back().callee->name;
        if (is_inside_ || !is_wanted(callee))
            return;
        is_inside_ = true;
        depth_ = stack.size();
        ++calls_;
        if (calls_ > 1)
            print("\n");
        print(shown(callee) + ", call " + std::to_string(calls_) + ", run " + std::to_string(run_) +
              ", line " + std::to_string(stack.back().line) + callers_of(stack) + "\n");
    }

    void call_line(const call_stack & stack, const trace_line & line) override
    {
        if (is_inside_ && stack.size() == depth_ && line.kind == line_kind::text)
            add(std::string("  [") + line.severity + "] " + shown(line.text));
    }
    void loose_line(const call_stack &, const function &, const trace_line & line) override
    {
        if (is_inside_)
            add(std::string("  [") + line.severity + "] " + shown(line.rest));
    }
    void other_line(const call_stack &, std::string_view line) override
    {
        if (is_inside_)
            add("  | " + shown(line));
    }

    void end_call(const call_stack & stack) override
    {
        if (!is_inside_ || stack.size() > depth_ + 1)
            return;
        const call & ended = stack.back();
        if (stack.size() == depth_ + 1)
            return add("  " + shown(ended.callee->name) + outcome(ended));
        flush();
        print("  ended" + outcome(ended) + "\n");
        is_inside_ = false;
    }

    bool finish() override { return calls_ != 0; }

private:
    bool is_wanted(const std::string & callee) const
    {
        return callee == name_ || callee.ends_with(":" + name_);
    }

    static std::string outcome(const call & ended)
    {
        std::string text;
        if (ended.result)
            text += " with " + std::to_string(*ended.result);
        if (ended.gave_up)
            text += ", gave up";
        if (ended.cut_off)
            text += ", no exit line";
        if (ended.seconds().value_or(0) != 0)
            text += ", " + counted(static_cast<std::size_t>(*ended.seconds()), "second");
        if (ended.within != 0)
            text += ", " + counted(ended.within, "call") + " within";
        return text;
    }

    /// Prints the line, repeated ones once.
    void add(std::string line)
    {
        if (repeats_ != 0 && line == line_) {
            ++repeats_;
            return;
        }
        flush();
        line_ = std::move(line);
        repeats_ = 1;
    }
    void flush()
    {
        if (repeats_ != 0)
            print(line_ + times(repeats_) + "\n");
        repeats_ = 0;
    }

    const std::string name_;
    std::size_t run_ = 0;
    std::size_t calls_ = 0;
    std::size_t depth_ = 0; // of the call that is shown
    bool is_inside_ = false;
    std::string line_; // waits for its repetitions
    std::size_t repeats_ = 0;
};

} // namespace

std::unique_ptr<view> make_calls_view(const std::string & name)
{
    return std::make_unique<calls_view>(name);
}
