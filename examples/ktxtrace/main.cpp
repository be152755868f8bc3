// ktxtrace, a tool on liborvet for the makers of tools: it shows what is in a trace, "ktx1.trc".

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include <orvet/orvet.h>

#include "call_reader.h"
#include "line_source.h"
#include "text.h"
#include "view.h"

namespace {

enum exit_value { shown_all = 0, nothing_found = 1, failed = 2 };

constexpr char usage[] =
    "usage: ktxtrace [--failed | --calls NAME | --top] [FILE]\n"
    "\n"
    "  Shows the calls in a trace as a tree. FILE is ktx1.trc in $KTXPATH if not given.\n"
    "\n"
    "  --failed      the calls that gave up, down to the cause, and what to do\n"
    "  --calls NAME  every call of a function, with its lines\n"
    "  --top         the functions by number of calls and lines\n"
    "  --help        this text\n"
    "\n"
    "exit value: 0, or 1 if there is no call of NAME, or 2 if FILE can't be read\n";

struct request {
    std::unique_ptr<view> shown;
    const char * calls = nullptr; // the function of "--calls"
    const char * file = nullptr;
    std::string refused; // why the command line is wrong
};

request read_command_line(int argc, char ** argv)
{
    request asked;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const bool is_option = word.starts_with("--");
        if (is_option ? asked.shown != nullptr : asked.file != nullptr)
            asked.refused = "one word too many: " + word;
        else if (!is_option)
            asked.file = argv[i];
        else if (word == "--failed")
            asked.shown = make_failed_view();
        else if (word == "--top")
            asked.shown = make_top_view();
        else if (word == "--calls" && i + 1 < argc)
            asked.shown = make_calls_view(asked.calls = argv[++i]);
        else
            asked.refused =
                word == "--calls" ? "--calls needs the name of a function" : "no such option: " + word;
        if (!asked.refused.empty())
            break;
    }
    if (!asked.shown)
        asked.shown = make_tree_view();
    return asked;
}

int fail(const std::string & sentence)
{
    progress::clear();
    std::fflush(stdout);
    std::fprintf(stderr, "ktxtrace: %s\n", sentence.c_str());
    return failed;
}

int show(orvet::kt_file & file, const request & asked)
{
    const std::string name = shown(file.file_name().mbcs_str());
    call_reader reader(*asked.shown);
    {
        line_source source(file);
        for (std::string_view line; source.next(line);)
            reader.read(line);
    }
    if (file.error())
        return fail(name + " could not be read to its end");
    if (!reader.is_trace())
        return fail(name + " is not a trace: no line of it has a trace's form");
    const bool found = reader.finish();
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        return fail(std::string("standard output can't be written: ") + std::strerror(errno));
    if (!found)
        std::fprintf(stderr, "ktxtrace: no call of %s; --top lists the functions\n", asked.calls);
    return found ? shown_all : nothing_found;
}

/// Opens the file, shows it and closes it.
int open_and_show(orvet::kt_file & file, const request & asked)
{
    const std::string name = shown(file.file_name().mbcs_str());
    errno = 0;
    const short rc = file.open("rb");
    const int error = errno;
    int result = failed;
    std::error_code ignored;
    if (std::filesystem::is_directory(file.file_name().mbcs_str(), ignored))
        fail(name + " is a directory, not a trace");
    else if (rc == orvet::code::open_failed)
        fail(name + " can't be opened: " + std::strerror(error));
    else if (rc != orvet::code::success)
        fail(name + " is not a file that can be measured");
    else if (file.file_size() == 0)
        fail(name + " is empty: nothing was traced");
    else
        result = show(file, asked);
    return file.close() == orvet::code::success ? result : failed;
}

} // namespace

int main(int argc, char ** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0)
        return std::fputs(usage, stdout) < 0 ? failed : shown_all;
    const request asked = read_command_line(argc, argv);
    if (!asked.refused.empty()) {
        std::fprintf(stderr, "ktxtrace: %s\n%s", asked.refused.c_str(), usage);
        return failed;
    }
    // Whoever reads a log or trace does not want to find this tool in it.
    orvet::trace::set_level(orvet::log::wa(), 1);
    if (asked.file) {
        orvet::kt_file file{orvet::pathname(asked.file)};
        return open_and_show(file, asked);
    }
    orvet::kt_file file{orvet::ustring("ktx1.trc")}; // in KTXPATH
    return open_and_show(file, asked);
}
