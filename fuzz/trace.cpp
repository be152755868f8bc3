// Lines of trace and log, and formats. The first two lines are a severity, or a format, and a name; the rest
// is the text.

#include "fuzz.h"

constexpr std::size_t buffer_size = sizeof orvet::work_area::line;

/// The front of a text, as far as there is room, up to a character's end.
static void expect_cut(const std::string & whole, const std::string & made, std::size_t room)
{
    expect_same("a line has what was given", whole.substr(0, made.size()), made);
    expect(made.size() <= room && (made == whole || made.size() + 4 > room), "a line is full", room,
           made.size());
    const ustring joined = text_of(made).append(text_of(whole.substr(made.size())));
    expect(joined == text_of(whole), "a line is cut at a character's end", whole, made);
}

/// The same line in parts and at once, without the time.
static void write_line(const std::string & severity, const std::string & name, const std::string & text)
{
    orvet::work_area wa{};
    orvet::trace::set_stream(wa, new orvet::capture_stream);
    orvet::trace::write_header(wa, "", "");
    const std::size_t time = std::strlen(wa.line);
    const std::size_t room = buffer_size - 2 - time;
    orvet::trace::write_header(wa, severity.c_str(), name.c_str());
    const std::string header(wa.line + time);
    expect_cut(severity + name, header, room);
    orvet::trace::write_text(wa, text.c_str());
    const std::string line(wa.line + time);
    expect_same("what is written is counted", time + line.size(), wa.current_size);
    expect_same("a line ends in a line feed", '\n', line.back());
    expect_cut(header + " " + text, line.substr(0, line.size() - 1), room);
    const orvet::argument argument(text.c_str());
    orvet::trace::write_line(wa, severity, name.c_str(), "%s", &argument, 1);
    const bool fits = header == severity + name && text.size() < room;
    expect(!fits || line == wa.line + time, "a line is the same in parts and at once", line, wa.line + time);
    orvet::trace::set_stream(wa, nullptr);
}

void trace(std::string_view input)
{
    const std::string format = take_line(input).c_str();
    const std::string name = take_line(input).c_str();
    const std::string text = std::string(input).c_str();
    write_line(format, name, text);
    int number = 0;
    orvet::get_count(ustring("count = ").append(text.c_str()), &number);
    const std::string whole = "<" + text + "> " + std::to_string(number) + " %";
    const orvet::argument both[] = {text.c_str(), number};
    expect_cut(whole, orvet::format_message("<%s> %d %%", both, 2), buffer_size - 1);
    char * const printed = orvet::trace::internal_write_text("<%s> %d %%", text.c_str(), number);
    expect_cut(whole, printed, buffer_size - 1);
    const auto replaced = [](std::string in, const char * conversion, const std::string & by) {
        const std::size_t at = in.find(conversion);
        return at == in.npos ? in : in.replace(at, 2, by);
    };
    ustring out;
    orvet::usprintf(out, format.c_str(), number, text.c_str());
    const std::string first = replaced(format, "%d", std::to_string(number));
    const bool has_number = format.find("%d") != format.npos;
    expect_same("usprintf replaces conversions one by one", has_number ? replaced(first, "%s", text) : format,
                out);
    orvet::work_area wa{};
    show("error", orvet::trace::system_error_to_string(wa, static_cast<unsigned long>(number)));
    orvet::log_message("%s and %d", text.c_str(), number);
    orvet::call_trace("a name").fatal("%s", text.c_str());
}
