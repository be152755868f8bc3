#include "support.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

namespace orvet_test {

namespace fs = std::filesystem;

namespace {

std::string program;

std::map<std::string, void (*)()> & scenarios() {
    static std::map<std::string, void (*)()> all;
    return all;
}

std::string lines;
/// Puts the lines of both channels into one text, each with the mark of its channel.
struct recorder : orvet::capture_stream {
    explicit recorder(const char * of) : mark(of) {}
    int writeline(const char * line) override {
        const int written = capture_stream::writeline(line);
        orvet_test::lines += mark + text_of(static_cast<orvet::ustring &>(*lines()[lines().size() - 1])) + "\n";
        return written;
    }
    const std::string mark;
};

} // namespace

scenario::scenario(const char * name, void (*run)()) { scenarios()[name] = run; }

const fs::path & test_directory() {
    static const fs::path directory = fs::current_path();
    return directory;
}

void write_file(const std::string & name, const std::string & bytes) { std::ofstream(name, std::ios::binary) << bytes; }

std::string read_file(const std::string & name) {
    std::ifstream file(name, std::ios::binary);
    if (!file)
        return "(no file)";
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string replaced(std::string text, const std::vector<std::pair<std::string, std::string>> & words) {
    for (const auto & [from, to] : words)
        for (std::size_t at; (at = text.find(from)) != std::string::npos;) text.replace(at, from.size(), to);
    return text;
}
std::string read_text(const std::string & name) { return replaced(read_file(name), {{"\r\n", "\n"}}); }
std::string scenario_command(const std::string & name) { return program + " --scenario " + name; }

std::string run_scenario(const std::string & name) {
    const std::string output = "scenario." + name + ".out";
    const int code = std::system((scenario_command(name) + " >" + output).c_str());
    return read_text(output) + (code == 0 ? "" : "(ended with " + std::to_string(code) + ")");
}

transcript::transcript(int trace_level, int log_level) {
    lines.clear();
    orvet::trace::set_stream(orvet::system_trace::wa(), new recorder("T"));
    orvet::trace::set_stream(orvet::log::wa(), new recorder("L "));
    orvet::trace::set_level(orvet::system_trace::wa(), trace_level);
    orvet::trace::set_level(orvet::log::wa(), log_level);
}

transcript::~transcript() {
    for (orvet::work_area * wa : {&orvet::system_trace::wa(), &orvet::log::wa()}) {
        orvet::trace::set_stream(*wa, nullptr);
        orvet::trace::set_level(*wa, 5);
    }
}

std::string transcript::take() { return std::exchange(lines, ""); }

std::string without(const std::vector<const char *> & parts, const std::string & lines) {
    std::string kept;
    for (std::size_t at = 0, end; at < lines.size(); at = end) {
        end = std::min(lines.find('\n', at), lines.size() - 1) + 1;
        const std::string line = lines.substr(at, end - at);
        if (std::none_of(parts.begin(), parts.end(), [&](auto part) { return line.find(part) != std::string::npos; }))
            kept += line;
    }
    for (std::size_t at = 0; (at = kept.find("rrno", at)) != std::string::npos;) {
        at = kept.find_first_of("0123456789\n", at);
        if (at != std::string::npos && kept[at] > '0')
            kept.replace(at, kept.find_first_not_of("0123456789", at) - at, "N");
    }
    return kept;
}

std::string native(std::string path) {
    std::replace(path.begin(), path.end(), '/', static_cast<char>(fs::path::preferred_separator));
    return path;
}

orvet::ustring from_bytes(const std::string & bytes) {
    write_file("from_bytes.tmp", bytes);
    std::FILE * const file = std::fopen("from_bytes.tmp", "rb");
    orvet::ustring text;
    text.getline(file);
    std::fclose(file);
    return text;
}

} // namespace orvet_test

int main(int argc, char ** argv) {
    using namespace orvet_test;
    keep_crashes_quiet();
    program = fs::absolute(argv[0]).make_preferred().string();
    if (argc >= 3 && std::string(argv[1]) == "--scenario") {
        scenarios().at(argv[2])();
        return 0;
    }
    testing::InitGoogleTest(&argc, argv);
    const fs::path directory = fs::temp_directory_path() / ("orvet_test_" + std::to_string(process_number()));
    fs::create_directories(directory / "brodan" / "migr");
    fs::current_path(directory);
    set_variable("KTXPATH", test_directory().string().c_str());
    set_variable("KTXWORK", test_directory().string().c_str());
    set_variable("brdcfg", (test_directory() / "brodan").string().c_str());
    for (const char * name : {"ktxcfp", "ktxrmtf", "ktxlsize", "ktxtsize", "ktxllev", "ktxtlev", "ostrel_trace_level"})
        set_variable(name, nullptr);
    const int result = RUN_ALL_TESTS();
    fs::current_path(directory.parent_path());
    std::error_code ignored;
    fs::remove_all(directory, ignored);
    return result;
}
