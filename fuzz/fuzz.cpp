#include "fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>

namespace fuzz {

namespace {

constexpr char separator = static_cast<char>(std::filesystem::path::preferred_separator);
constexpr std::string_view separators = "/\\";

/// Holds each line of a channel against what is said of every line.
class examiner : public orvet::trace_stream {
public:
    int writeline(const char * line) override
    {
        const std::string_view text(line);
        require(text.length() < sizeof orvet::work_area::line && text.ends_with('\n'));
        return static_cast<int>(text.length());
    }
};

} // namespace

const target * target::first = nullptr;

target::target(const char * its_name, void (*its_run)(std::string_view))
    : name(its_name), run(its_run), next(first)
{
    first = this;
}

void run(const target & target, std::string_view input)
{
    set_gates(input.size() % 2 != 0);
    target.run(input);
}

void require(bool holds, const char * file, int line)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s:%d: this does not hold\n", file, line);
    std::abort();
}

void set_gates(bool open)
{
    static const bool examined = [] {
        for (orvet::work_area * wa : {&orvet::system_trace::wa(), &orvet::log::wa()})
            orvet::trace::set_stream(*wa, new examiner);
        return true;
    }();
    for (orvet::work_area * wa : {&orvet::system_trace::wa(), &orvet::log::wa()})
        orvet::trace::set_level(*wa, examined && open ? 0 : 5);
}

void write_file(const char * name, std::string_view bytes)
{
    std::FILE * const file = std::fopen(name, "wb");
    require(file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
    std::fclose(file);
}

std::string read_file(const char * name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string filler(unsigned char choice, unsigned char at)
{
    constexpr std::size_t line_length = 1024;
    const std::size_t size = choice == 'b' ? 4096 : choice == 'B' ? 65536 : 0;
    std::string lines(size == 0 ? 0 : size - at, 'x');
    for (std::size_t end = lines.size(); end > 0; end -= std::min(end, line_length))
        lines[end - 1] = '\n';
    return lines;
}

std::string native_text(const std::string & bytes)
{
    static const std::string line_end = [] {
        std::ofstream("line_end.tmp") << '\n';
        return read_file("line_end.tmp");
    }();
    std::string text;
    std::size_t from = 0;
    for (std::size_t feed; (feed = bytes.find('\n', from)) != std::string::npos; from = feed + 1)
        text.append(bytes, from, feed - from).append(line_end);
    return text.append(bytes, from);
}

std::string bytes_of(const orvet::ustring & text)
{
    return {text.mbcs_str(), text.mbcs_length()};
}

std::vector<orvet::ustring> texts_of(std::string_view file)
{
    write_file("texts.tmp", file);
    std::FILE * const stream = std::fopen("texts.tmp", "rb");
    std::vector<orvet::ustring> texts;
    for (orvet::ustring text; text.getline(stream);)
        texts.push_back(text);
    std::fclose(stream);
    return texts;
}

std::vector<line> lines_of(std::string_view file)
{
    std::vector<line> lines;
    for (std::size_t begin = 0; begin < file.size();) {
        const std::size_t feed = file.find('\n', begin);
        const bool ended = feed != std::string_view::npos;
        std::string_view text = file.substr(begin, ended ? feed - begin : feed);
        if (ended && text.ends_with('\r'))
            text.remove_suffix(1);
        begin = ended ? feed + 1 : file.size();
        lines.push_back({std::string(text), begin});
    }
    return lines;
}

std::vector<std::string> split(std::string_view text, char at)
{
    std::vector<std::string> parts(1);
    for (const char byte : text)
        if (byte == at)
            parts.emplace_back();
        else
            parts.back() += byte;
    return parts;
}

std::string upper(std::string text)
{
    for (char & byte : text)
        if (byte >= 'a' && byte <= 'z')
            byte = static_cast<char>(byte - 'a' + 'A');
    return text;
}

std::string stripped_front(const std::string & text)
{
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string stripped(const std::string & text)
{
    return stripped_front(text.substr(0, text.find_last_not_of(' ') + 1));
}

bool begins_with(const std::string & text, std::string_view key)
{
    return upper(text.substr(0, key.size())) == key;
}

int number(const std::string & text)
{
    constexpr long least = std::numeric_limits<int>::min();
    constexpr long most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::strtol(text.c_str(), nullptr, 10), least, most));
}

std::string joined(const std::string & path, const std::string & element)
{
    if (element.empty())
        return path;
    const std::string bare = element.substr(std::min(element.find_first_not_of(separators), element.size()));
    const bool open = path.empty() || separators.find(path.back()) != std::string_view::npos;
    return path + (open ? "" : std::string(1, separator)) + bare;
}

unsigned char taker::byte()
{
    if (rest_.empty())
        return 0;
    const char byte = rest_.front();
    rest_.remove_prefix(1);
    return static_cast<unsigned char>(byte);
}

std::string taker::line()
{
    const std::string_view line = rest_.substr(0, rest_.find('\n'));
    rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
    return std::string(line);
}

} // namespace fuzz
