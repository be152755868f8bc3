#ifndef ORVET_TESTS_SUPPORT_H
#define ORVET_TESTS_SUPPORT_H

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <orvet/orvet.h>

namespace orvet_test {

/// Everything in the test process's own directory, which is also the current one, KTXPATH and brdcfg.
const std::filesystem::path & test_directory();
void write_file(const std::string & name, const std::string & bytes);
/// The bytes of a file; "(no file)" when there is none.
std::string read_file(const std::string & name);
/// The same with CR LF as LF, for files in the system's own text form.
std::string read_text(const std::string & name);
/// Runs the named scenario in a process of its own, for what a process does only once. Gives what it wrote to
/// standard output; a failed run shows in it.
std::string run_scenario(const std::string & name);
/// The command that runs the named scenario.
std::string scenario_command(const std::string & name);
/// Registers a scenario: a function that `run_scenario` runs.
struct scenario {
    scenario(const char * name, void (*run)());
};
/// Sets a variable of the environment, or removes it when `value` is null.
void set_variable(const char * name, const char * value);
/// What both channels were given since the object was made, in one order: trace lines as "T [C] name text",
/// log lines as "L text", time stamps left out. The channels are silent again when the object goes.
class transcript {
public:
    explicit transcript(int trace_level = 0, int log_level = 0);
    transcript(const transcript &) = delete;
    transcript & operator=(const transcript &) = delete;
    ~transcript();

    /// The lines so far, each ended by a line feed; the object starts anew.
    std::string take();
};

/// The sum of the codes of calls, which a list makes in their order.
inline long long sum(std::initializer_list<long long> codes) { return std::accumulate(codes.begin(), codes.end(), 0LL); }
/// The lines that `action` writes on both channels, then the code that it gives.
template <class Action>
std::string told(Action action, int trace_level = 0) {
    transcript lines(trace_level);
    const std::string code = std::to_string(action());
    return lines.take() + code;
}

/// The lines without those that hold one of `parts`, and error numbers, which are each system's own, as N; 0 stays.
std::string without(const std::vector<const char *> & parts, const std::string & lines);
/// The text with the first of each pair made the second, wherever it stands.
std::string replaced(std::string text, const std::vector<std::pair<std::string, std::string>> & words);
/// What is printed to standard output while `action` runs, CR LF as LF.
template <class Action>
std::string printed_by(Action action) {
    testing::internal::CaptureStdout();
    action();
    std::fflush(stdout);
    return replaced(testing::internal::GetCapturedStdout(), {{"\r\n", "\n"}});
}

inline std::string text_of(const orvet::ustring & text) { return {text.mbcs_str(), text.mbcs_length()}; }
/// A path as the library writes it on this system, from one with slashes.
std::string native(std::string path);
/// A ustring from bytes that may hold zeros.
orvet::ustring from_bytes(const std::string & bytes);
// What the tests ask of an operating system; one source for each.
/// No dialog and no core file when a test process crashes.
void keep_crashes_quiet();
unsigned long process_number();
/// Prints the name of each file that this process holds open besides its standard streams, a line each.
void print_open_files();
/// The file's list of users who get at it, empty where there is none; `give` makes one.
std::string access_list(const char * file, bool give);
/// Has the process ignore how its children end, or not; true when it did so before.
bool ignore_children(bool wish);
/// A command that signal 9 ends; null where there are no signals.
extern const char * const killed_command;
/// Opens a file, made if need be, that nobody else gets at until the result goes; null where nobody is kept out.
std::shared_ptr<void> hold_file(const char * name);
/// Lets no file grow beyond so many bytes, as a full disk does; -1 lifts that. False where there is no such limit.
bool limit_files(long bytes);
/// Ends the process as a power cut does: nothing is flushed or closed.
[[noreturn]] void die();
} // namespace orvet_test

using namespace orvet;
using namespace orvet_test;

#endif
