#include "orvet/files/sections.h"

#include <utility>

#include "orvet/files/kt_file.h"
#include "orvet/files/line_reader_internal.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/number.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/codes.h"

namespace orvet {

int keyval::getval(const ustring & key)
{
    const unsigned length = key.length();
    const int difference = compare(0, length, key, 0, length, 1);
    if (difference == 0) {
        remove(0, length);
        strip(strip_front, u' ');
    }
    return difference;
}

short get_count(const ustring & line, int * count)
{
    keyval rest(line); // where memory is short it is empty, and has no key either
    if (rest.getval("count = ") != 0)
        return code::no_count;
    *count = to_int(rest.data());
    return code::success;
}

ustring get_token(const ustring & text, int index)
{
    unsigned begin = 0;
    for (; index > 0 && begin < text.length(); --index) {
        const unsigned comma = text.find(u',', begin, 0);
        begin = comma == ustring::npos ? text.length() : comma + 1;
    }
    const unsigned end = text.find(u',', begin, 0);
    return ustring(text, begin, end == ustring::npos ? end : end - begin);
}

ustring build_server_rr(const ustring & name)
{
    memory_watch watch;
    ustring server(name);
    if (name.length() != 0)
        server.append("_").append(name);
    if (watch.failed())
        server = ustring();
    return server;
}

/// Reads on until after the line `head`; false if there is none. While the trace is shut, lines that are
/// passed need not become texts.
bool kt_file::pass_line(const ustring & head)
{
    if (state_ >= state::opened && !system_trace::passes(severity::info)) {
        switch_direction(state::reading);
        return reader_->find_line(head);
    }
    while (get_line(line_))
        if (line_ == head)
            return true;
    return false;
}

short kt_file::find_section(const ustring & section)
{
    const call_trace trace("kt_file::find_section");
    if (pass_line(section))
        return trace.leave(code::success);
    trace.info("Section not found reading kt_file while locating <%s>", section);
    return trace.fail(code::section_absent);
}

short kt_file::seek_section(const ustring & section, int * count, int read_count)
{
    const call_trace trace("kt_file::seek_section");
    if (!pass_line(section)) {
        trace.error("Error reading kt_file while locating <%s>", section);
        return trace.fail(code::section_missing);
    }
    if (read_count == 0)
        return trace.leave(code::success);
    unsigned value = 0;
    if (read_keyval(value) != 0) {
        trace.error("Error %d parsing line", code::no_keyval);
        return trace.fail(code::no_keyval);
    }
    *count = value == 0 ? 0 : to_int(line_.data() + value);
    trace.info("Section <%s> found. Count = <%d> ", section, *count);
    return trace.leave(code::success);
}

namespace {

constexpr char16_t separator[] = u" = ";
constexpr unsigned separator_length = 3;

} // namespace

/// Reads a line and gives where its value begins; 0, which no value does, at the end of the file.
short kt_file::read_keyval(unsigned & value)
{
    memory_watch watch;
    value = 0;
    if (!get_line(line_))
        return at_end() && !watch.failed() ? code::success : code::no_keyval;
    const unsigned at = line_.find(separator, 0, separator_length, 0);
    if (at == ustring::npos)
        return code::no_keyval;
    value = at + separator_length;
    return code::success;
}

short kt_file::get_keyval(ustring & key, ustring & value)
{
    memory_watch watch;
    unsigned at = 0;
    const short rc = read_keyval(at);
    if (rc != 0 || at == 0)
        return rc;
    key.assign(line_, 0, at - separator_length);
    if (watch.failed())
        return code::no_keyval;
    std::swap(value, line_.remove(0, at)); // which needs no memory: both texts change or neither
    return code::success;
}

} // namespace orvet
