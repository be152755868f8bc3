#include "orvet/foundation/explain.h"

#include <cstdlib>
#include <string_view>

#include "orvet/foundation/base/ascii.h"

namespace orvet {

namespace {

constexpr std::string_view prefix = "MSG";
constexpr std::string_view console_prefix = "MSGI";
constexpr std::size_t digits = 4;

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

bool begins_with(std::string_view text, std::string_view capitals)
{
    for (const char c : capitals) {
        if (text.empty() || to_ascii_upper(text.front()) != c)
            return false;
        text.remove_prefix(1);
    }
    return true;
}

/// The length of the message number that `text` begins with; 0 if it begins with none.
std::size_t number_length(std::string_view text)
{
    if (!begins_with(text, prefix))
        return 0;
    const std::size_t start = begins_with(text, console_prefix) ? console_prefix.size() : prefix.size();
    std::size_t end = start;
    while (end < text.size() && is_digit(text[end]))
        ++end;
    return end - start == digits ? end : 0;
}

/// The adjacent rows of `rows` that `matches`.
template <class Predicate>
explanation_range select(explanation_range rows, const Predicate & matches)
{
    while (!rows.empty() && !matches(*rows.first))
        ++rows.first;
    const explanation * last = rows.first;
    while (last != rows.last && matches(*last))
        ++last;
    return {rows.first, last};
}

/// Whether the list `names`, "kt_file::open, kt_file::seek", has the operation `name`, with its class or
/// without.
bool names_operation(std::string_view names, std::string_view name)
{
    for (;;) {
        const std::string_view each = names.substr(0, names.find(','));
        if (each.ends_with(name) &&
            (each.size() == name.size() || each[each.size() - name.size() - 1] == ':'))
            return true;
        if (each.size() == names.size())
            return false;
        names.remove_prefix(each.size() + 2);
    }
}

explanation_range of_operation(explanation_range rows, const char * operation)
{
    if (!operation)
        return rows;
    return select(rows, [&](const explanation & row) { return names_operation(row.operation, operation); });
}

explanation_range of_message(std::string_view number)
{
    return select(message_explanations(), [&](const explanation & row) {
        return begins_with(number, {row.subject, number.size()});
    });
}

} // namespace

explanation_range explain(const char * text, const char * operation) noexcept
{
    for (std::string_view rest = text ? text : ""; !rest.empty(); rest.remove_prefix(1))
        if (const std::size_t length = number_length(rest))
            return of_operation(of_message(rest.substr(0, length)), operation);
    char * end = nullptr;
    const long code = text ? std::strtol(text, &end, 10) : 0;
    if (end == text || *end != '\0' || code != static_cast<int>(code))
        return {nullptr, nullptr};
    return explain(static_cast<int>(code), operation);
}

explanation_range explain(int code, const char * operation) noexcept
{
    const explanation_range rows = select(code_explanations(), [&](const explanation & row) {
        return std::strtol(row.subject, nullptr, 10) == code;
    });
    return of_operation(rows, operation);
}

} // namespace orvet
