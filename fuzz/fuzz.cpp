#include "fuzz.h"

#include <fstream>
#include <map>

// clang-format off
static const std::map<std::string, void (*)(std::string_view)> targets = {
    {"cmdline", cmdline}, {"commands", commands}, {"configuration", configuration}, {"files", files},
    {"input_files", input_files}, {"text", text}, {"topology", topology}, {"trace", trace},
};
// clang-format on

static std::string input_file;
static bool traced = false;
static std::vector<std::string> shown; // by the run with shut channels
static std::size_t shown_again = 0;

/// Part of a text around a place, in ASCII.
static std::string excerpt(const std::string & text, std::size_t at)
{
    std::string printed;
    for (const char byte : text.substr(at > 60 ? at - 60 : 0, 160)) {
        char code[] = {byte, 0, 0, 0, 0};
        if (byte < ' ' || byte > '~')
            std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(byte));
        printed += code;
    }
    return printed;
}

/// How many, where the system lists them; else 0. What Wine shows of the list under it does not count.
static std::ptrdiff_t open_files()
{
    std::error_code none;
    const char * const list = std::filesystem::path::preferred_separator == '/' ? "/proc/self/fd" : "";
    return std::distance(std::filesystem::directory_iterator(list, none), {});
}

/// Checks each line of a channel.
class examiner : public orvet::trace_stream {
    int writeline(const char * line) override
    {
        const std::string text(line);
        expect(text.size() < 1024 && text.ends_with('\n'), "a line fits and ends in a line feed", "\n", text);
        return static_cast<int>(text.size());
    }
};

void run(const std::string & target, std::string_view input, const std::string & file)
{
    input_file = file;
    shown.clear();
    for (const bool open : {false, true}) {
        traced = open;
        shown_again = 0;
        for (orvet::work_area * wa : {&orvet::system_trace::wa(), &orvet::log::wa()}) {
            orvet::trace::set_stream(*wa, new examiner);
            orvet::trace::set_level(*wa, open ? 0 : 5);
        }
        const auto before = open_files();
        targets.at(target)(input);
        expect_same("no file stays open", before, open_files());
        expect_same("traced and untraced runs show as much", shown.size(), shown_again);
    }
}

void fail(const char * what, const value & expected, const value & actual)
{
    std::size_t at = 0;
    while (at < expected.size() && at < actual.size() && expected[at] == actual[at])
        ++at;
    std::fprintf(stderr, "\nWith trace and log %s this does not hold: %s\n", traced ? "open" : "shut", what);
    for (const auto & [side, text] : {std::pair("expected", expected), std::pair("actual  ", actual)})
        std::fprintf(stderr, "  %s: \"%s\" (%zu bytes, shown from near byte %zu on)\n", side,
                     excerpt(text, at).c_str(), text.size(), at);
    std::fprintf(stderr, "  input   : %s\n", input_file.c_str());
    std::abort();
}

void expect_same(const char * what, const value & expected, const value & actual)
{
    expect(expected == actual, what, expected, actual);
}

void show(const char * what, const value & actual)
{
    if (!traced)
        shown.push_back(what + (": " + actual));
    expect_same("traced and untraced runs agree", shown.at(shown_again++), what + (": " + actual));
}

void write_file(const char * name, std::string_view bytes)
{
    std::ofstream(name, std::ios::binary) << bytes;
}

std::string read_file(const char * name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string filler(unsigned char choice, unsigned char at)
{
    std::string lines((choice == 'b' ? 4096 : choice == 'B' || choice == 'L' ? 65536 : at) - at, 'x');
    for (std::size_t end = choice == 'L' ? 0 : lines.size(); end > 0; end -= std::min<std::size_t>(end, 1024))
        lines[end - 1] = '\n';
    return lines;
}

ustring text_of(std::string_view bytes)
{
    return ustring().assign(bytes.data(), bytes.size());
}

unsigned char take_byte(std::string_view & input)
{
    const char byte = input.empty() ? '\0' : input.front();
    input.remove_prefix(!input.empty());
    return static_cast<unsigned char>(byte);
}

std::string take_line(std::string_view & file)
{
    const std::size_t feed = file.find('\n');
    std::string_view line = file.substr(0, feed);
    file.remove_prefix(std::min(line.size() + 1, file.size()));
    line.remove_suffix(feed != file.npos && line.ends_with('\r'));
    return std::string(line);
}

std::vector<std::string> lines_of(std::string_view file)
{
    std::vector<std::string> lines;
    while (!file.empty())
        lines.push_back(take_line(file));
    return lines;
}
