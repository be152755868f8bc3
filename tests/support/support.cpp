#include "support.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iterator>
#include <map>

namespace orvet_test {

namespace {

std::string program;
fs::path golden_directory;

std::map<std::string, void (*)()> & scenarios()
{
    static std::map<std::string, void (*)()> all;
    return all;
}

std::string recorded;

class recorder : public orvet::trace_stream {
public:
    explicit recorder(char channel) : channel_(channel) {}
    int writeline(const char * line) override
    {
        char now[100];
        const std::time_t second = std::time(nullptr);
        const std::size_t stamp = std::strftime(now, sizeof now, "%c", std::localtime(&second)) + 1;
        const std::size_t length = std::strlen(line);
        recorded += channel_ + std::string(line + std::min(stamp, length));
        errno = ERANGE;
        return static_cast<int>(length);
    }

private:
    const char channel_;
};

std::vector<std::string> split(const std::string & text)
{
    std::vector<std::string> lines;
    std::istringstream source(text);
    for (std::string line; std::getline(source, line);)
        lines.push_back(line);
    return lines;
}

template <class Condition>
std::string lines_if(Condition wanted, const std::string & lines)
{
    std::string kept;
    for (const std::string & line : split(lines))
        kept += wanted(line) ? line + "\n" : "";
    return kept;
}

/// The lines between the equal beginnings and ends of two texts.
std::string difference(const std::string & expected, const std::string & actual)
{
    const std::vector<std::string> old_lines = split(expected);
    const std::vector<std::string> new_lines = split(actual);
    const auto [old_from, new_from] =
        std::mismatch(old_lines.begin(), old_lines.end(), new_lines.begin(), new_lines.end());
    const auto [old_back, new_back] = std::mismatch(old_lines.rbegin(), std::make_reverse_iterator(old_from),
                                                    new_lines.rbegin(), std::make_reverse_iterator(new_from));
    std::string shown = "line " + std::to_string(old_from - old_lines.begin() + 1) + ":\n";
    for (auto line = old_from; line != old_back.base(); ++line)
        shown += "- " + *line + "\n";
    for (auto line = new_from; line != new_back.base(); ++line)
        shown += "+ " + *line + "\n";
    return shown;
}

/// Gives each test an empty directory, the same environment and shut channels.
class fresh_start : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo &) override
    {
        std::error_code ignored; // of a file that an earlier test holds open
        for (const fs::directory_entry & old : fs::directory_iterator(test_directory()))
            fs::remove_all(old.path(), ignored);
        fs::create_directories(test_directory() / "brodan" / "migr");
        for (const char * name : {"KTXPATH", "KTXWORK"})
            set_variable(name, test_directory().string().c_str());
        set_variable("brdcfg", (test_directory() / "brodan").string().c_str());
        for (const char * name :
             {"ktxcfp", "ktxrmtf", "ktxlsize", "ktxtsize", "ktxllev", "ktxtlev", "ostrel_trace_level"})
            set_variable(name, nullptr);
        shut_channels();
    }
};

} // namespace

scenario::scenario(const char * name, void (*run)())
{
    scenarios()[name] = run;
}

const fs::path & test_directory()
{
    static const fs::path directory = fs::current_path();
    return directory;
}

void write_file(const std::string & name, const std::string & bytes)
{
    std::ofstream(name, std::ios::binary) << bytes;
}

std::string read_file(const std::string & name)
{
    std::ifstream file(name, std::ios::binary);
    if (!file)
        return "(no file)";
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string read_text(const std::string & name)
{
    return replaced(read_file(name), {{"\r\n", "\n"}});
}

orvet::ustring from_bytes(const std::string & bytes)
{
    write_file("from_bytes.tmp", bytes);
    std::FILE * const file = std::fopen("from_bytes.tmp", "rb");
    orvet::ustring text;
    text.getline(file);
    std::fclose(file);
    return text;
}

std::string native(std::string path)
{
    std::replace(path.begin(), path.end(), '/', static_cast<char>(fs::path::preferred_separator));
    return path;
}

std::string portable(const std::string & text)
{
    const bool has_slashes = fs::path::preferred_separator == '/';
    return replaced(has_slashes ? text : replaced(text, {{"\\", "/"}}),
                    {{test_directory().generic_string(), "DIR"}});
}

std::string replaced(std::string text, const std::vector<std::pair<std::string, std::string>> & words)
{
    for (const auto & [from, to] : words)
        for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
            text.replace(at, from.size(), to);
    return text;
}

std::string without_numbers(std::string text)
{
    for (std::size_t at = 0; (at = text.find("rrno", at)) != std::string::npos;) {
        at = std::min(text.find_first_of("0123456789\n", at), text.size());
        const std::size_t length = std::min(text.find_first_not_of("0123456789", at), text.size()) - at;
        const std::string number = text.substr(at, length);
        if (length != 0 && number != "0" && number != std::to_string(ERANGE))
            text.replace(at, length, "N");
    }
    return text;
}

std::string lines_with(const std::string & part, const std::string & lines)
{
    return lines_if([&](const std::string & line) { return line.find(part) != std::string::npos; }, lines);
}

std::string lines_without(const std::string & part, const std::string & lines)
{
    return lines_if([&](const std::string & line) { return line.find(part) == std::string::npos; }, lines);
}

void expect_golden(const std::string & name, const std::string & text)
{
    const std::string file = (golden_directory / (name + ".txt")).string();
    const std::string actual = portable(text);
    if (std::getenv("ORVET_UPDATE_GOLDEN"))
        write_file(file, actual);
    const std::string expected = portable(read_text(file));
    if (actual != expected)
        ADD_FAILURE() << "differs from golden/" << name << ".txt at " << difference(expected, actual);
}

void expect_golden_cases(const std::string & name,
                         const std::function<std::string(const std::string &, const std::string &)> & run)
{
    std::string text;
    std::string title;
    std::string input;
    bool reads_input = true;
    for (const std::string & line : split(read_text((golden_directory / (name + ".txt")).string()))) {
        if (line.starts_with("== ")) {
            title = line.substr(3);
            input.clear();
            reads_input = true;
        } else if (line != "--") {
            input += line + "\n";
            text += reads_input ? line + "\n" : "";
            continue;
        }
        text += line + "\n";
        if (line == "--") {
            text += run(title, input);
            reads_input = false;
        }
    }
    expect_golden(name, text);
}

void shut_channels()
{
    for (orvet::work_area * wa : {&orvet::system_trace::wa(), &orvet::log::wa()}) {
        orvet::trace::set_stream(*wa, nullptr);
        orvet::trace::set_level(*wa, 5);
    }
}

transcript::transcript(int trace_level, int log_level)
{
    recorded.clear();
    orvet::trace::set_stream(orvet::system_trace::wa(), new recorder('T'));
    orvet::trace::set_stream(orvet::log::wa(), new recorder('L'));
    orvet::trace::set_level(orvet::system_trace::wa(), trace_level);
    orvet::trace::set_level(orvet::log::wa(), log_level);
}

std::string transcript::take()
{
    return std::exchange(recorded, "");
}

void transcript::note(const std::string & line)
{
    recorded += line + "\n";
}

std::vector<std::string> words_of(const std::string & line)
{
    std::vector<std::string> words;
    std::istringstream in(line);
    for (std::string word; in >> word;)
        words.push_back(word == "''" ? "" : word);
    return words;
}

std::string run_scenario(const std::string & name)
{
    const std::string output = "scenario." + name + ".out";
    const int code = std::system((scenario_command(name) + " >" + output).c_str());
    return read_text(output) + (code == 0 ? "" : "(ended with " + std::to_string(code) + ")");
}

std::string scenario_command(const std::string & name)
{
    return RUN_BY + program + " --scenario " + name;
}

} // namespace orvet_test

int main(int argc, char ** argv)
{
    using namespace orvet_test;
    keep_crashes_quiet();
    program = fs::absolute(argv[0]).make_preferred().string();
    golden_directory = fs::absolute(ORVET_GOLDEN);
    if (argc >= 3 && std::string(argv[1]) == "--scenario") {
        scenarios().at(argv[2])();
        return 0;
    }
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new fresh_start);
    const fs::path directory = fs::temp_directory_path() / ("orvet_test_" + std::to_string(process_number()));
    fs::create_directories(directory);
    fs::current_path(directory);
    const int result = RUN_ALL_TESTS();
    fs::current_path(directory.parent_path());
    std::error_code ignored;
    fs::remove_all(directory, ignored);
    return result;
}
