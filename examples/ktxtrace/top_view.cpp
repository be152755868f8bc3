#include <algorithm>
#include <cstdio>
#include <tuple>
#include <vector>

#include "text.h"
#include "view.h"

namespace {

struct row {
    const function * callee = nullptr;
    std::size_t calls = 0;
    std::size_t lines = 0;
    std::size_t failed = 0;
};

class top_view : public view {
public:
    void begin_call(const call_stack & stack) override
    {
        row & each = row_of(*stack.back().callee);
        ++each.calls;
        ++each.lines;
    }
    void end_call(const call_stack & stack) override
    {
        row_of(*stack.back().callee).failed += stack.back().gave_up;
    }
    void call_line(const call_stack & stack, const trace_line &) override
    {
        ++row_of(*stack.back().callee).lines;
    }
    void loose_line(const call_stack &, const function & speaker, const trace_line &) override
    {
        ++row_of(speaker).lines;
    }
    void other_line(const call_stack &, std::string_view) override { ++other_lines_; }

    bool finish() override
    {
        std::stable_sort(rows_.begin(), rows_.end(), [](const row & a, const row & b) {
            return std::tie(a.calls, a.lines) > std::tie(b.calls, b.lines);
        });
        print("     CALLS      LINES    GAVE UP\n");
        for (const row & each : rows_)
            if (each.callee)
                print_row(each, shown(each.callee->name));
        if (other_lines_ != 0)
            print_row({nullptr, 0, other_lines_}, "(lines of another form)");
        return true;
    }

private:
    row & row_of(const function & callee)
    {
        if (rows_.size() <= callee.number)
            rows_.resize(callee.number + 1);
        rows_[callee.number].callee = &callee;
        return rows_[callee.number];
    }

    static void print_row(const row & each, const std::string & name)
    {
        char numbers[80];
        std::snprintf(numbers, sizeof numbers, "%10zu %10zu %10s  ", each.calls, each.lines,
                      each.failed != 0 ? std::to_string(each.failed).c_str() : "");
        print(numbers + name + "\n");
    }

    std::vector<row> rows_; // by function number
    std::size_t other_lines_ = 0;
};

} // namespace

std::unique_ptr<view> make_top_view()
{
    return std::make_unique<top_view>();
}
