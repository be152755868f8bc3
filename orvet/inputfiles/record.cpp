#include "orvet/inputfiles/record.h"

#include <array>
#include <cstring>
#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/messages.h"

namespace orvet {

namespace {

/// A keyword as it stands in a line.
struct keyword {
    char16_t units[31];
    unsigned short length;
};

consteval auto widened_keywords()
{
    std::array<keyword, fip_count> all{};
    for (unsigned row = 0; row < all.size(); ++row)
        for (const char * from = fip_names[row]; *from; ++from)
            all[row].units[all[row].length++] = static_cast<char16_t>(*from);
    return all;
}

constexpr auto keywords = widened_keywords();

/// Part of a line.
struct part {
    const char16_t * begin;
    const char16_t * end;

    unsigned length() const { return static_cast<unsigned>(end - begin); }
    bool begins_with(const keyword & what) const
    {
        return what.length <= length() && *begin == *what.units &&
               std::memcmp(begin, what.units, what.length * sizeof(char16_t)) == 0;
    }
};

part whole(const ustring & line)
{
    return {line.data(), line.data() + line.length()};
}

part without_blanks(part text)
{
    while (text.end > text.begin && text.end[-1] == u' ')
        --text.end;
    while (text.begin < text.end && *text.begin == u' ')
        ++text.begin;
    return text;
}

const keyword & keyword_of(const record_kind & kind, int index)
{
    return keywords[static_cast<unsigned>(kind.first_row + index)];
}

/// The record's first keyword, from `index` on, that the text begins with; the number of keywords for none.
int match(const record_kind & kind, const part & text, int index = 0)
{
    while (index < kind.count && !text.begins_with(keyword_of(kind, index)))
        ++index;
    return index;
}

const ustring * copied(ustring & room, const ustring & line)
{
    memory_watch watch;
    if (&room != &line)
        room = line;
    return watch.failed() ? nullptr : &room;
}

/// The line without the blanks around its key, by the same rules as `with_upper_key`.
const ustring * with_bare_key(const ustring & line, ustring & room)
{
    const unsigned equals = line.find(u'=');
    if (equals == ustring::npos)
        return &line;
    const part key = without_blanks({line.data(), line.data() + equals});
    if (key.length() == equals)
        return &line;
    const auto begin = static_cast<unsigned>(key.begin - line.data());
    const unsigned end = begin + key.length();
    if (!copied(room, line))
        return nullptr;
    room.remove(end, equals - end).remove(0, begin);
    return &room;
}

void mark(const record_parts & record, int index)
{
    ustring & text = record.texts[index];
    const char * const emptied_by = record.kind.fields[index].emptied_by;
    if (emptied_by && text.length() == std::strlen(emptied_by) && text.begins_with(emptied_by))
        text.remove(0);
    record.marks.set(record.kind.first_row + index);
}

/// Tells and tests a value that is about to be stored: 0 or the code of `set`.
short check(const call_trace & trace, const record_field & field, const ustring & value)
{
    if (field.announce)
        field.announce(trace, value);
    if (!field.beginnings || begins_with_one_of(value, field.beginnings))
        return code::success;
    log_message(messages::MSG0136, value);
    trace.error("Invalid operating system <%s> found", value);
    return code::invalid_op_system;
}

/// Stores what a part of the line says for keyword `index`, which it begins with. A value that begins with a
/// later keyword counts as a line of that one too. Stores from the back, so that nothing is stored before all
/// values have found their memory.
short take(const call_trace & trace, const record_parts & record, const ustring & line, const part & text,
           int index)
{
    const part value = without_blanks({text.begin + keyword_of(record.kind, index).length, text.end});
    const auto at = static_cast<unsigned>(value.begin - line.data());
    const record_field & field = record.kind.fields[index];
    const int next = match(record.kind, value, index + 1);
    const bool shown = field.beginnings || (field.announce && system_trace::passes(severity::info));

    memory_watch watch;
    if (shown || next < record.kind.count) {
        ustring copy(line, at, value.length());
        if (watch.failed())
            return code::invalid_keyword;
        if (const short rc = check(trace, field, copy))
            return rc;
        if (next < record.kind.count)
            if (const short rc = take(trace, record, line, value, next))
                return rc;
        record.texts[index] = std::move(copy);
    } else {
        record.texts[index].assign(line, at, value.length());
        if (watch.failed())
            return code::invalid_keyword;
    }
    mark(record, index);
    if (field.confirm)
        field.confirm(trace);
    return code::success;
}

bool holds(const fip_row * list, int row)
{
    while (*list < fip_count && *list != row)
        ++list;
    return *list == row;
}

} // namespace

void announce_value(const call_trace & trace, const ustring & value)
{
    trace.info("line  is <%s>", value);
}

void clear_record(const record_parts & record)
{
    for (int i = 0; i < record.kind.count; ++i) {
        record.texts[i].remove(0); // costs nothing for a text that has been moved away
        if (*record.kind.fields[i].fallback)
            record.texts[i].assign(record.kind.fields[i].fallback);
    }
    record.marks = fip_marks();
}

void set_field(const record_parts & record, int index, const ustring & value)
{
    memory_watch watch;
    record.texts[index].assign(value);
    if (!watch.failed())
        mark(record, index);
}

short set_line(const call_trace & trace, const record_parts & record, const ustring & line)
{
    ustring room;
    const record_kind & kind = record.kind;
    int index = match(kind, whole(line));
    // What begins with a keyword has its key in upper case.
    const ustring * text = index < kind.count ? &line : with_upper_key(line, room);
    if (text)
        trace.info("line after key.to_upper is <%s>", *text);
    if (text && kind.strips_key) {
        text = with_bare_key(*text, room);
        if (text)
            trace.info("line after trip of blanks is <%s>", *text);
    }
    if (!text)
        return trace.fail(code::invalid_keyword);
    if (text != &line)
        index = match(kind, whole(*text));
    if (index < kind.count) {
        const short rc = take(trace, record, *text, whole(*text), index);
        return rc == code::success ? trace.leave(rc) : trace.fail(rc);
    }
    if (kind.unstored && text->begins_with(kind.unstored))
        return trace.leave(code::success);
    const ustring shown(line, 0, line.find(kind.shown_up_to));
    log_message(messages::MSG0134, shown);
    trace.error("Invalid keyword <%s> found", shown);
    return trace.fail(code::invalid_keyword);
}

int weigh_marks(const fip_marks & marks, const fip_row * mandatory, const fip_row * allowed)
{
    int own = 0;
    for (const fip_row * row = mandatory; *row < fip_count; ++row) {
        if (!marks[*row]) {
            log_message(messages::MSG0137, fip_names[*row]);
            return 0;
        }
        ++own;
    }
    for (const fip_row * row = allowed; *row < fip_count; ++row)
        own += marks[*row];
    for (int row = 0; own < marks.count(); ++row)
        if (marks[row] && !holds(mandatory, row) && !holds(allowed, row)) {
            log_message(messages::MSG0138, fip_names[row]);
            ++own;
        }
    return 1;
}

bool begins_with_one_of(const ustring & text, const char * const * list)
{
    while (*list && !text.begins_with(*list))
        ++list;
    return *list != nullptr;
}

const ustring * with_upper_key(const ustring & line, ustring & room)
{
    const part all = whole(line);
    const char16_t * at = all.begin;
    unsigned lower = 0;
    for (; at != all.end && *at != u'='; ++at)
        lower |= *at - unsigned{u'a'} < 26;
    if (lower == 0)
        return &line;
    const auto length = static_cast<unsigned>(at - all.begin);
    if (!copied(room, line))
        return nullptr;
    room.to_upper(0, length);
    return &room;
}

} // namespace orvet
