// The engine of the channels: the first two lines are a severity and a name, the rest is the text. A line
// ends in a line feed, fits the buffer, and is cut, where it is cut, at a character's end.
#include <cstdio>
#include <cstring>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

constexpr std::size_t line_size = sizeof orvet::work_area::line;

class keeper : public orvet::trace_stream {
public:
    explicit keeper(std::string & last) : last_(last) {}
    int writeline(const char * line) override
    {
        last_ = line;
        return static_cast<int>(last_.size());
    }

private:
    std::string & last_;
};

/// Whether a text is one character of more than a byte.
bool is_wide_character(const ustring & text, std::size_t bytes)
{
    const bool pair = text.length() == 2 && text.data()[0] >= 0xD800 && text.data()[0] < 0xDC00;
    return bytes == 4 ? pair : text.length() == 1;
}

/// Whether a place lies inside a character.
bool splits_character(const std::string & text, std::size_t at)
{
    for (std::size_t back = 1; back <= 3 && back <= at; ++back)
        for (std::size_t length = back + 1; length <= 4; ++length)
            if (is_wide_character(text.substr(at - back, length).c_str(), length))
                return true;
    return false;
}

/// Holds what was made of a text in a buffer of `room` bytes, zero included, against the text itself.
void require_cut(const std::string & made, const std::string & whole, std::size_t room)
{
    require(whole.starts_with(made) && made.size() < room);
    if (made.size() == whole.size())
        return;
    require(made.size() + 4 >= room); // no more than a character is missing
    require(!splits_character(whole, made.size()));
}

/// Holds a line against the one in front of it, which has got a text at its end.
void require_appended(const std::string & line, const std::string & before, const std::string & text)
{
    require(line.starts_with(before));
    require_cut(line.substr(before.size()), text, line_size - 1 - before.size()); // the line feed needs one
}

void write_line(const std::string & severity, const std::string & name, const std::string & text)
{
    std::string last;
    orvet::work_area wa{};
    orvet::trace::set_stream(wa, new keeper(last));
    const auto header = [&](const char * its_severity, const char * its_name) -> std::string {
        orvet::trace::write_header(wa, its_severity, its_name);
        return wa.line;
    };
    std::string time, half, whole;
    do {
        time = header("", "");
        half = header(severity.c_str(), "");
        whole = header(severity.c_str(), name.c_str());
    } while (header("", "") != time); // a second was over
    require_appended(half, time, severity);
    require_appended(whole, half, name);
    whole = header(severity.c_str(), name.c_str());
    orvet::trace::write_text(wa, text.c_str());
    require(last.ends_with('\n') && last == wa.line);
    require(wa.current_size == static_cast<long>(last.size()));
    last.pop_back();
    require_appended(last, whole, " " + text);

    // The road of the library's own lines leads to the same, where the header fits.
    const orvet::argument values[] = {text.c_str(), static_cast<int>(text.size())};
    const bool fits = whole.size() == time.size() + severity.size() + name.size();
    do {
        time = header("", "");
        header(severity.c_str(), name.c_str());
        orvet::trace::write_text(wa, orvet::format_message("%s%c.", values, 2));
        half = last;
        orvet::trace::write_line(wa, severity, name.c_str(), "%s%c.", values, 2);
    } while (header("", "") != time);
    require(last == half || !fits);
    orvet::trace::set_stream(wa, nullptr);
}

void format(const std::string & text, int value)
{
    const std::string whole = "<" + text + "> " + std::to_string(value) + " %";
    require_cut(orvet::trace::internal_write_text("<%s> %d %%", text.c_str(), value), whole, line_size);

    const orvet::argument both[] = {text.c_str(), value};
    require_cut(orvet::format_message("<%s> %d %%", both, 2), whole, line_size);

    // The arguments with types give what `printf` gives.
    constexpr char all[] = "%d|%i|%u|%x|%X|%hd|%hu|%5d|%-7d|%.3d|%+d|%c|%%|%s";
    const auto number = static_cast<unsigned>(value);
    const orvet::argument values[] = {value, value, number, number, number, value,       value,
                                      value, value, value,  value,  'c',    text.c_str()};
    char expected[line_size + 200];
    std::snprintf(expected, sizeof expected, all, value, value, number, number, number,
                  static_cast<short>(value), static_cast<unsigned short>(value), value, value, value, value,
                  'c', text.c_str());
    require_cut(orvet::format_message(all, values, std::size(values)), expected, line_size);
}

void keep(const std::string & text)
{
    orvet::capture_stream said;
    const int written = said.writeline((text + "\n").c_str());
    require(written >= 0 && said.lines().size() == 1);
    unsigned counted = 0;
    for (int severity = 0; severity < 5; ++severity)
        counted += said.count(static_cast<orvet::severity>(severity));
    require(counted <= 1);
}

const target trace("trace", [](std::string_view input) {
    taker from(input);
    const std::string severity = from.line().c_str();
    const std::string name = from.line().c_str();
    const std::string text = std::string(from.rest()).c_str();
    const int value = number(text);
    write_line(severity, name, text);
    format(text, value);
    format(name, value);
    keep(text);
    orvet::work_area wa{};
    require(std::strlen(orvet::trace::system_error_to_string(wa, static_cast<unsigned long>(value))) < 128);
    set_gates(true);
    orvet::log_message("%s and %d", text.c_str(), value);
    orvet::call_trace("a name").fatal("%s", text.c_str());
});

} // namespace
