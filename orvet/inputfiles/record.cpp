#include "orvet/inputfiles/record_internal.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/messages.h"

namespace orvet {

namespace {

consteval unsigned longest_keyword()
{
    unsigned longest = 0;
    for (const char * const * name = fip_names; *name; ++name) {
        unsigned length = 0;
        while ((*name)[length])
            ++length;
        longest = std::max(longest, length);
    }
    return longest;
}

/// A keyword in the units of a line.
struct keyword_text {
    char16_t units[longest_keyword()];
    unsigned length;
};

struct keyword_texts {
    keyword_text of_row[fip_count];
};

consteval keyword_texts widened_keywords()
{
    keyword_texts all{};
    for (int row = 0; row < fip_count; ++row) {
        keyword_text & to = all.of_row[row];
        for (const char * from = fip_names[row]; *from; ++from)
            to.units[to.length++] = static_cast<char16_t>(*from);
    }
    return all;
}

constexpr keyword_texts keywords = widened_keywords();

/// A part of a line.
struct line_part {
    const char16_t * begin;
    const char16_t * end;

    unsigned length() const { return static_cast<unsigned>(end - begin); }
    bool begins_with(const keyword_text & keyword) const
    {
        return keyword.length <= length() && *begin == *keyword.units &&
               std::memcmp(begin, keyword.units, keyword.length * sizeof(char16_t)) == 0;
    }
    bool begins_with(const char * ascii) const
    {
        const char16_t * at = begin;
        while (*ascii && at != end && *at == static_cast<unsigned char>(*ascii))
            ++at, ++ascii;
        return !*ascii;
    }
};

line_part whole(const ustring & line)
{
    return {line.data(), line.data() + line.length()};
}

line_part without_blanks(line_part text)
{
    while (text.end > text.begin && text.end[-1] == u' ')
        --text.end;
    while (text.begin < text.end && *text.begin == u' ')
        ++text.begin;
    return text;
}

/// The record's first keyword, from `index` on, that the text begins with, or the number of keywords.
int match(const record_kind & kind, const line_part & text, int index = 0)
{
    while (index < kind.count && !text.begins_with(keywords.of_row[kind.first_row + index]))
        ++index;
    return index;
}

/// A value of a line, by its place there, and the keyword that it is for.
struct line_value {
    int index;
    unsigned begin;
    unsigned length;
};

/// The values of a line. A value that itself begins with a later keyword holds a value for that keyword too.
class line_values {
public:
    /// `index` is the first keyword of the line.
    line_values(const record_kind & kind, const ustring & line, int index)
    {
        line_part rest = whole(line);
        for (; index < kind.field_count; index = match(kind, rest, index + 1)) {
            rest = without_blanks({rest.begin + keywords.of_row[kind.first_row + index].length, rest.end});
            values_[count_++] = {index, static_cast<unsigned>(rest.begin - line.data()), rest.length()};
        }
    }

    int count() const { return count_; }
    const line_value * begin() const { return values_; }
    const line_value * end() const { return values_ + count_; }

private:
    int count_ = 0;
    line_value values_[fip_count];
};

bool copy_line(ustring & buffer, const ustring & line)
{
    memory_watch watch;
    if (&buffer != &line)
        buffer = line;
    return !watch.failed();
}

/// The line without the blanks around its key, by the rules of `with_upper_key`.
const ustring * with_bare_key(const ustring & line, ustring & buffer)
{
    const unsigned equals = line.find(u'=');
    if (equals == ustring::npos)
        return &line;
    const line_part key = without_blanks({line.data(), line.data() + equals});
    if (key.length() == equals)
        return &line;
    const auto begin = static_cast<unsigned>(key.begin - line.data());
    const unsigned end = begin + key.length();
    if (!copy_line(buffer, line))
        return nullptr;
    buffer.remove(end, equals - end).remove(0, begin);
    return &buffer;
}

/// Marks the keyword of a field that has its new value.
void mark(const record_parts & record, int index)
{
    ustring & text = record.texts[index];
    const char * const clearing_value = record.kind.keywords[index].clearing_value;
    if (clearing_value && text == clearing_value)
        text.remove(0);
    record.marks.set(record.kind.first_row + index);
}

/// False, with the failure's lines written, for a value that its keyword does not allow.
bool is_allowed(const call_trace & trace, const record_kind & kind, const ustring & line,
                const line_value & value)
{
    const char * const * prefix = kind.keywords[value.index].allowed_prefixes;
    if (!prefix)
        return true;
    const line_part text{line.data() + value.begin, line.data() + value.begin + value.length};
    while (*prefix && !text.begins_with(*prefix))
        ++prefix;
    if (*prefix)
        return true;
    const ustring shown(line, value.begin, value.length);
    log_message(messages::MSG0136, shown);
    trace.error("Invalid operating system <%s> found", shown);
    return false;
}

/// Stores all values or, if allocation fails, none. The line may be one of the texts.
bool store_values(ustring * texts, const ustring & line, const line_values & values)
{
    memory_watch watch;
    if (values.count() <= 1) {
        for (const line_value & only : values)
            texts[only.index].assign(line, only.begin, only.length);
        return !watch.failed();
    }
    ustring copies[fip_count];
    for (const line_value & value : values)
        copies[value.index].assign(line, value.begin, value.length);
    if (watch.failed())
        return false;
    for (const line_value & value : values)
        texts[value.index] = std::move(copies[value.index]);
    return true;
}

/// The doubled line and the word "switch" are what readers of the trace know.
void trace_steps(const call_trace & trace, const ustring & value)
{
    trace.call("in the switch");
    trace.call("in the switch");
    trace.call("in the switch.line is <%s>", value);
    trace.call("after set");
}

/// The code of `set` for a line that begins with keyword `index`.
short set_values(const call_trace & trace, const record_parts & record, const ustring & line, int index)
{
    const line_values values(record.kind, line, index);
    for (const line_value & value : values)
        if (!is_allowed(trace, record.kind, line, value))
            return code::invalid_op_system;
    if (!store_values(record.texts, line, values))
        return code::invalid_keyword;
    for (const line_value & value : values) {
        const detail::value_trace what = record.kind.keywords[value.index].trace;
        if (what == detail::value_trace::value)
            trace.info("line  is <%s>", record.texts[value.index]);
        else if (what == detail::value_trace::steps)
            trace_steps(trace, record.texts[value.index]);
        mark(record, value.index);
    }
    return code::success;
}

} // namespace

void clear_record(const record_parts & record)
{
    for (int i = 0; i < record.kind.field_count; ++i)
        record.texts[i].remove(0);
    set_initial_values(record.kind, record.texts);
    record.marks = fip_marks();
}

void set_field(const record_parts & record, int row, const ustring & value)
{
    const int index = row - record.kind.first_row;
    memory_watch watch;
    record.texts[index].assign(value);
    if (!watch.failed())
        mark(record, index);
}

const ustring & field_of(const record_kind & kind, const ustring * texts, const char * keyword)
{
    static lasting<ustring> none;
    const int index = index_in(fip_names, keyword) - kind.first_row;
    return index >= 0 && index < kind.field_count ? texts[index] : none.value;
}

short set_line(const call_trace & trace, const record_parts & record, const ustring & line)
{
    ustring buffer;
    const record_kind & kind = record.kind;
    int index = match(kind, whole(line));
    // A line that begins with a keyword has its key as it should be.
    const ustring * text = index < kind.count ? &line : with_upper_key(line, buffer);
    if (text)
        trace.info("line after key.to_upper is <%s>", *text);
    if (text && kind.allows_blanks) {
        text = with_bare_key(*text, buffer);
        if (text)
            trace.info("line after trip of blanks is <%s>", *text);
    }
    if (!text)
        return trace.fail(code::invalid_keyword);
    if (text != &line)
        index = match(kind, whole(*text));
    if (index < kind.count) {
        const short rc = set_values(trace, record, *text, index);
        return rc == code::success ? trace.leave(rc) : trace.fail(rc);
    }
    const ustring shown(line, 0, line.find(kind.message_cutoff));
    log_message(messages::MSG0134, shown);
    trace.error("Invalid keyword <%s> found", shown);
    return trace.fail(code::invalid_keyword);
}

const char * missing_keyword(const record_kind & kind, const fip_marks & marks)
{
    for (int i = 0; i < kind.count; ++i)
        if (kind.keywords[i].mandatory && !marks[kind.first_row + i])
            return kind.keywords[i].name;
    return nullptr;
}

int check_keywords(const record_kind & kind, const fip_marks & marks)
{
    if (const char * const keyword = missing_keyword(kind, marks)) {
        log_message(messages::MSG0137, keyword);
        return 0;
    }
    int foreign = marks.count();
    for (int i = 0; i < kind.count; ++i)
        foreign -= marks[kind.first_row + i];
    for (int row = 0; foreign > 0; ++row)
        if (marks[row] && (row < kind.first_row || row >= kind.first_row + kind.count)) {
            log_message(messages::MSG0138, fip_names[row]);
            --foreign;
        }
    return 1;
}

bool begins_with_keyword(const record_kind & kind, const ustring & line)
{
    return match(kind, whole(line)) < kind.count;
}

const ustring * with_upper_key(const ustring & line, ustring & buffer)
{
    const line_part all = whole(line);
    const char16_t * at = all.begin;
    unsigned lower = 0;
    for (; at != all.end && *at != u'='; ++at)
        lower |= *at - unsigned{u'a'} < 26;
    if (lower == 0)
        return &line;
    const auto length = static_cast<unsigned>(at - all.begin);
    if (!copy_line(buffer, line))
        return nullptr;
    buffer.to_upper(0, length);
    return &buffer;
}

} // namespace orvet
