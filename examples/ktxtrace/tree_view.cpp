// The tree of calls. Calls of one function under one caller are one line, in the place of the first, so the
// tree of a trace of any length stays small.

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "text.h"
#include "view.h"

namespace {

/// All calls of a function under one caller. Links are places in the tree's list; 0, the root, is none.
struct node {
    const function * callee = nullptr;
    std::size_t parent = 0;
    std::size_t first_child = 0;
    std::size_t last_child = 0;
    std::size_t next = 0;
    std::size_t recent_child = 0; // most calls repeat the one before
    std::size_t calls = 0;
    std::size_t within = 0;
    std::size_t failed = 0;
    std::size_t cut_off = 0;
    std::size_t results = 0;
    long least = 0;
    long most = 0;
    long long seconds = 0;
    bool is_timed = false;
};

/// Lines that belong to no call, at their place in the tree.
struct other_lines {
    static constexpr std::size_t most = 10; // shown

    std::vector<std::pair<std::string, std::size_t>> shown; // each with the number of times it came
    std::size_t left_out = 0;

    void add(const std::string & line)
    {
        const auto same =
            std::find_if(shown.begin(), shown.end(), [&](auto & each) { return each.first == line; });
        if (same != shown.end())
            ++same->second;
        else if (shown.size() < most)
            shown.emplace_back(line, 1);
        else
            ++left_out;
    }
};

std::string result_of(const node & each)
{
    if (each.results == 0)
        return "";
    if (each.least == each.most)
        return std::to_string(each.least);
    return std::to_string(each.least) + ".." + std::to_string(each.most);
}

class tree_view : public view {
public:
    void begin_run(const run &) override
    {
        nodes_.assign(1, node());
        at_ = 0;
        other_.clear();
        children_.clear();
    }

    void begin_call(const call_stack & stack) override { at_ = child(at_, *stack.back().callee); }

    void end_call(const call_stack & stack) override
    {
        const call & ended = stack.back();
        node & each = nodes_[at_];
        ++each.calls;
        each.within += ended.within;
        each.failed += ended.gave_up;
        each.cut_off += ended.cut_off;
        if (ended.result) {
            each.least = each.results == 0 ? *ended.result : std::min(each.least, *ended.result);
            each.most = each.results == 0 ? *ended.result : std::max(each.most, *ended.result);
            ++each.results;
        }
        each.is_timed = each.is_timed || ended.seconds();
        each.seconds += ended.seconds().value_or(0);
        at_ = each.parent;
    }

    void loose_line(const call_stack &, const function &, const trace_line & line) override
    {
        other_[at_].add(std::string("[") + line.severity + "] " + shown(line.rest, shown_length));
    }
    void other_line(const call_stack &, std::string_view line) override
    {
        other_[at_].add(shown(line, shown_length));
    }

    void end_run(const run & ended) override
    {
        if (ended.number > 1)
            print("\n");
        print(title(ended) + ", " + counted(ended.lines, "line") + ", " + counted(ended.calls, "call") +
              "\n");
        if (!ended.cut_off_in.empty())
            print("it ends inside " + shown(ended.cut_off_in) + "\n");
        print("     CALLS   RESULT  SECONDS    WITHIN\n");
        print_tree();
    }

private:
    /// The node of the function below `parent`, made if need be.
    std::size_t child(std::size_t parent, const function & callee)
    {
        const std::size_t recent = nodes_[parent].recent_child;
        if (recent != 0 && nodes_[recent].callee == &callee)
            return recent;
        std::size_t & found = children_[static_cast<unsigned long long>(parent) << 32 | callee.number];
        if (found == 0) {
            found = nodes_.size();
            nodes_.push_back({&callee, parent});
            node & above = nodes_[parent];
            (above.first_child == 0 ? above.first_child : nodes_[above.last_child].next) = found;
            above.last_child = found;
        }
        nodes_[parent].recent_child = found;
        return found;
    }

    /// Walks the tree without recursion: calls may be nested as deep as the file is long.
    void print_tree() const
    {
        print_other(0, 0);
        std::size_t depth = 0;
        for (std::size_t at = nodes_[0].first_child; at != 0;) {
            print_node(nodes_[at], depth);
            print_other(at, depth + 1);
            if (nodes_[at].first_child != 0) {
                at = nodes_[at].first_child;
                ++depth;
                continue;
            }
            while (at != 0 && nodes_[at].next == 0) {
                at = nodes_[at].parent;
                --depth;
            }
            at = nodes_[at].next;
        }
    }

    static std::string margin(std::size_t depth)
    {
        return std::string(2 * std::min<std::size_t>(depth, 40), ' ');
    }

    static void print_node(const node & each, std::size_t depth)
    {
        char numbers[120];
        std::snprintf(numbers, sizeof numbers, "%10zu %8s %8s %9s  ", each.calls, result_of(each).c_str(),
                      each.is_timed ? std::to_string(each.seconds).c_str() : "",
                      each.within != 0 ? std::to_string(each.within).c_str() : "");
        std::string marks;
        if (each.failed != 0)
            marks += "  gave up" + times(each.failed);
        if (each.cut_off != 0)
            marks += "  no exit line" + times(each.cut_off);
        print(numbers + margin(depth) + shown(each.callee->name) + marks + "\n");
    }

    void print_other(std::size_t at, std::size_t depth) const
    {
        const auto lines = other_.find(at);
        if (lines == other_.end())
            return;
        const std::string head = std::string(40, ' ') + margin(depth) + "| ";
        for (const auto & [line, count] : lines->second.shown)
            print(head + line + times(count) + "\n");
        if (lines->second.left_out != 0)
            print(head + "and " + counted(lines->second.left_out, "other line") + "\n");
    }

    std::vector<node> nodes_{1};
    std::size_t at_ = 0;                                           // the innermost open call
    std::unordered_map<std::size_t, other_lines> other_;           // by node
    std::unordered_map<unsigned long long, std::size_t> children_; // by parent and function
};

} // namespace

std::unique_ptr<view> make_tree_view()
{
    return std::make_unique<tree_view>();
}
